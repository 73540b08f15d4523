// libtavlib6x against the plain exports: every element equals its own call, failing elements
// carry their codes and failure values, outputs, texts and integer arguments, refusals.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "tavlib6.h"
#include "tavlib6x.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

struct Batch {
    std::vector<double> results;
    std::vector<int32_t> errors;
    int64_t failed = 0;
};

Batch evaluate(const char* name, std::vector<std::vector<double>> columns, const char* const* texts = nullptr) {
    size_t count = 1;
    for (const auto& column : columns) count = std::max(count, column.size());
    std::vector<const double*> inputs;
    std::vector<int64_t> strides;
    for (const auto& column : columns) {
        inputs.push_back(column.data());
        strides.push_back(column.size() == 1 ? 0 : 1);
    }
    Batch batch;
    batch.results.assign(count, 0.0);
    batch.errors.assign(count, -7);
    batch.failed = tvlxEVALUATE(name, static_cast<int64_t>(count), inputs.data(), strides.data(), texts,
                                batch.results.data(), nullptr, batch.errors.data());
    return batch;
}

TEST(Batch, EveryElementEqualsItsOwnCallAcrossRegions) {
    const std::vector<double> p{611.657, 1e5, 1e6, 5e6, 2.5e7, 1e8, 3e6, 6e7};
    const std::vector<double> T{280.0, 500.0, 650.0, 700.0, 660.0, 1073.15, 1500.0, 1500.0};
    const Batch batch = evaluate("HPT", {p, T});
    ASSERT_EQ(batch.failed, 1);  // 60 MPa above 1073.15 K is outside the formulation
    for (size_t k = 0; k < p.size(); ++k) {
        const double expected = tvlHPT(p[k], T[k]);
        EXPECT_EQ(batch.errors[k], tvlGETLASTERROR()) << "p=" << p[k] << " T=" << T[k];
        EXPECT_EQ(batch.results[k], expected) << "p=" << p[k] << " T=" << T[k];
    }
}

TEST(Batch, StrideZeroRepeatsOneValueAndNamesIgnoreCaseAndPrefix) {
    const Batch lower = evaluate("tvlhpt", {{1e5, 1e6, 1e7}, {700.0}});
    ASSERT_EQ(lower.failed, 0);
    EXPECT_EQ(lower.results[2], tvlHPT(1e7, 700.0));
    EXPECT_EQ(evaluate("HPT", {{1e5, 1e6, 1e7}, {700.0}}).results, lower.results);
}

TEST(Batch, FailingElementsCarryTheirCodesAndFailureValues) {
    const Batch batch = evaluate("PST", {{300.0, 200.0, kNaN, kInf, -kInf, 647.096, 1e300}});
    EXPECT_EQ(batch.failed, 5);
    const std::vector<double> T{300.0, 200.0, kNaN, kInf, -kInf, 647.096, 1e300};
    for (size_t k = 0; k < T.size(); ++k) {
        const double expected = tvlPST(T[k]);
        EXPECT_EQ(batch.errors[k], tvlGETLASTERROR()) << k;
        EXPECT_EQ(batch.results[k], expected) << k;
        EXPECT_TRUE(std::isfinite(batch.results[k])) << k;
    }
}

// Large batches run on threads with model objects of their own: the same bits and codes as on
// the calling thread, under the library's settings of the moment, outputs included.
TEST(Batch, ThreadedSlicesEqualTheCallsOneByOne) {
    constexpr size_t kPoints = 30000;
    std::vector<double> p(kPoints), h(kPoints), T(kPoints);
    for (size_t k = 0; k < kPoints; ++k) {
        const double u = static_cast<double>(k) / kPoints;
        p[k] = std::pow(10.0, 2.0 + 7.0 * std::fmod(u * 7919.0, 1.0));  // 100 Pa to 1 GPa, some outside
        T[k] = 250.0 + 2100.0 * std::fmod(u * 104729.0, 1.0);
        h[k] = -1e5 + 4.5e6 * std::fmod(u * 1299709.0, 1.0);
    }
    p[17] = kNaN;
    T[18] = kInf;
    struct Setting {
        int32_t checkRangeMode, toleranceMode, maxIterations;
    };
    for (const Setting setting : {Setting{1, 1, 100}, Setting{0, 0, 2}}) {
        tvlSETCHECKRANGEMODE(setting.checkRangeMode);
        tvlSETTOLERANCEMODE(setting.toleranceMode);
        tvlSETMAXITERATION(setting.maxIterations);
        for (const char* name : {"HPT", "TPH"}) {
            const std::vector<double>& second = std::strcmp(name, "TPH") == 0 ? h : T;
            ASSERT_EQ(tvlxSETTHREADS(1), 1);
            const Batch serial = evaluate(name, {p, second});
            ASSERT_EQ(tvlxSETTHREADS(4), 4);
            const Batch threaded = evaluate(name, {p, second});
            EXPECT_EQ(tvlGETLASTERROR(), threaded.errors.back());
            EXPECT_EQ(threaded.failed, serial.failed) << name;
            EXPECT_GT(serial.failed, 0) << name;
            EXPECT_EQ(threaded.errors, serial.errors) << name;
            for (size_t k = 0; k < kPoints; ++k)
                ASSERT_EQ(std::memcmp(&threaded.results[k], &serial.results[k], sizeof(double)), 0)
                    << name << " p=" << p[k] << " second=" << second[k];
        }
    }
    tvlSETCHECKRANGEMODE(1);
    tvlSETTOLERANCEMODE(1);
    tvlSETMAXITERATION(100);

    // Fourteen outputs per point, on four threads.
    const int64_t count = 20000;
    const double* inputs[2] = {p.data(), T.data()};
    const int64_t strides[2] = {1, 1};
    std::vector<double> results(count), cells(14 * count);
    std::vector<int32_t> errors(count);
    double* outputs[14];
    for (int j = 0; j < 14; ++j) outputs[j] = &cells[j * count];
    const int64_t failed =
        tvlxEVALUATE("VUSHCVWDERPTPT", count, inputs, strides, nullptr, results.data(), outputs, errors.data());
    tvlxSETTHREADS(0);
    int64_t expectedFailed = 0;
    for (int64_t k = 0; k < count; k += 97) {
        double one[14];
        const double value = tvlVUSHCVWDERPTPT(p[k], T[k], &one[0], &one[1], &one[2], &one[3], &one[4], &one[5],
                                               &one[6], &one[7], &one[8], &one[9], &one[10], &one[11], &one[12], &one[13]);
        ASSERT_EQ(results[k], value) << k;
        ASSERT_EQ(errors[k], tvlGETLASTERROR()) << k;
        if (errors[k] != 0) continue;
        for (int j = 0; j < 14; ++j) ASSERT_EQ(cells[j * count + k], one[j]) << "output " << j << " at " << k;
    }
    for (int32_t code : errors) expectedFailed += code != 0;
    EXPECT_EQ(failed, expectedFailed);
}

}  // namespace
