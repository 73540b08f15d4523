// tvlInternalObject: a further, private library instance for a host that wants its own
// settings and error state. One virtual operation per export, in the order of the header, each
// forwarding to the method of its name on the object's own PropertyFacade.
#ifndef TAVLIB6_INTERNAL_OBJECT_H
#define TAVLIB6_INTERNAL_OBJECT_H

#include "frame/property_facade.h"

class tvlInternalObject {
public:
    tvlInternalObject() = default;
    virtual ~tvlInternalObject() = default;
    tvlInternalObject(const tvlInternalObject&) = delete;
    tvlInternalObject& operator=(const tvlInternalObject&) = delete;

    using OutputCells = tvl::OutputCells;
#include "frame/internal_object_methods.inc"

    tvl::PropertyFacade facade;
};

#endif
