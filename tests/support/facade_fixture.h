// A private library object for each test, so that settings and errors of one test never reach
// another.
#ifndef TAVLIB6_TEST_FACADE_FIXTURE_H
#define TAVLIB6_TEST_FACADE_FIXTURE_H

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "frame/property_facade.h"

namespace tvltest {

class FacadeTest : public ::testing::Test {
protected:
    std::unique_ptr<tvl::PropertyFacade> library = std::make_unique<tvl::PropertyFacade>();
    tvl::PropertyFacade& lib = *library;
    tvl::WaterModel& water = library->water;

    int lastError() { return lib.lastError; }
};

// |a - b| <= relative |b|
inline ::testing::AssertionResult nearRelative(double a, double b, double relative) {
    if (std::fabs(a - b) <= relative * std::fabs(b)) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << a << " differs from " << b << " by "
                                         << (b != 0 ? std::fabs(a - b) / std::fabs(b) : std::fabs(a - b))
                                         << " relative, more than " << relative;
}

// One rounding unit up and down.
inline double up(double x) { return std::nextafter(x, INFINITY); }
inline double down(double x) { return std::nextafter(x, -INFINITY); }

// Member calls through a plain reference: GCC 12's vptr check misreads lib.* on the fixture.
template <class Member, class... Args>
auto call(tvl::PropertyFacade& facade, Member member, Args... args) {
    return (facade.*member)(args...);
}

// A property export of two arguments, with its name for the messages.
using PairFunction = double (tvl::PropertyFacade::*)(double, double) noexcept;

struct NamedExport {
    const char* name;
    PairFunction f;
};

}  // namespace tvltest

#endif
