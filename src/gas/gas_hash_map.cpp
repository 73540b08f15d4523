// Bin counts of GasHashMap: the prime list and the thresholds that the load factors give.
#include "gas/gas_hash_map.h"

#include <cstdint>

namespace tvl::gashash {

namespace {

constexpr double kOptimalLoad = 0.75;
constexpr double kLowLoad = 0.25;
constexpr double kHighLoad = 2.25;

// Ends with the sentinel 0xFFFFFFFF; a count beyond the last prime is taken as it stands.
constexpr std::uint32_t kPrimes[] = {
    17,       23,       29,       37,       41,       53,       67,       83,       103,      131,
    163,      211,      257,      331,      409,      521,      647,      821,      1031,     1291,
    1627,     2053,     2591,     3251,     4099,     5167,     6521,     8209,     10331,    13007,
    16411,    20663,    26017,    32771,    41299,    52021,    65537,    82571,    104033,   131101,
    165161,   208067,   262147,   330287,   416147,   524309,   660563,   832291,   1048583,  1321139,
    1664543,  2097169,  2642257,  3329023,  4194319,  5284493,  6658049,  8388617,  10568993, 13316089,
    0xFFFFFFFFu};
constexpr std::uint32_t kSentinel = 0xFFFFFFFFu;

std::uint32_t truncated(double value) {
    return value >= 4294967295.0 ? 0xFFFFFFFFu : static_cast<std::uint32_t>(value);
}

}  // namespace

std::uint32_t binCountFor(std::uint32_t count) {
    const std::uint32_t wanted = truncated(count / kOptimalLoad);
    if (wanted <= kInitialBinCount) return kInitialBinCount;
    for (const std::uint32_t prime : kPrimes) {
        if (prime == kSentinel) break;
        if (prime >= wanted) return prime;
    }
    return wanted;
}

std::uint32_t highThreshold(std::uint32_t bins) { return truncated(bins * kHighLoad); }

// Under 17 the low threshold is 0: a table shrinks only once it has at least 68 bins.
std::uint32_t lowThreshold(std::uint32_t bins) {
    const std::uint32_t low = truncated(bins * kLowLoad);
    return low < kInitialBinCount ? 0 : low;
}

}  // namespace tvl::gashash
