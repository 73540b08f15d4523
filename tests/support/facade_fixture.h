// A private library object for each test, so that settings and errors of one test never reach
// another.
#ifndef TAVLIB6_TEST_FACADE_FIXTURE_H
#define TAVLIB6_TEST_FACADE_FIXTURE_H

#include <gtest/gtest.h>

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

}  // namespace tvltest

#endif
