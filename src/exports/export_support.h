// What every file of export forwarders needs: the public declarations and the global object.
#ifndef TAVLIB6_EXPORT_SUPPORT_H
#define TAVLIB6_EXPORT_SUPPORT_H

#include "frame/property_facade.h"
#include "tavlib6.h"

#endif
