// GasHashMap on its own: its growth and shrink points, suspension, node blocks, iteration
// order, removal in bulk, and the text hash.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "gas/gas_hash_map.h"

namespace {

using IdMap = tvl::GasHashMap<tvl::IdKey, int>;
using TextMap = tvl::GasHashMap<tvl::TextKey, int>;
using tvl::gashash::binCountFor;
using tvl::gashash::highThreshold;
using tvl::gashash::lowThreshold;

std::vector<std::int32_t> keysInOrder(const IdMap& map) {
    std::vector<std::int32_t> keys;
    for (const auto& node : map) keys.push_back(node.key);
    return keys;
}

void fill(IdMap& map, std::int32_t from, std::int32_t to) {
    for (std::int32_t k = from; k < to; ++k) map.insert(k, k * 10);
}

TEST(GasHashMapSizes, BinCountsAndThresholds) {
    const struct {
        std::uint32_t count, bins;
    } rehashTo[] = {{0, 17}, {13, 17}, {14, 23}, {15, 23}, {39, 53}, {40, 53}, {41, 67}, {50, 67},
                    {120, 163}, {24000, 32771}, {9987066, 13316089}, {9987067, 13316089}, {9987068, 13316090}};
    for (auto c : rehashTo) EXPECT_EQ(binCountFor(c.count), c.bins) << "count " << c.count;

    const struct {
        std::uint32_t bins, high, low;
    } thresholds[] = {{17, 38, 0}, {23, 51, 0}, {53, 119, 0}, {67, 150, 0}, {68, 153, 17}, {83, 186, 20}, {163, 366, 40}};
    for (auto c : thresholds) {
        EXPECT_EQ(highThreshold(c.bins), c.high) << "bins " << c.bins;
        EXPECT_EQ(lowThreshold(c.bins), c.low) << "bins " << c.bins;
    }
}

TEST(GasHashMap, GrowsAfterTheInsertionAboveTheHighThreshold) {
    IdMap map;
    EXPECT_EQ(map.bucketCount(), 17u);
    fill(map, 0, 38);
    EXPECT_EQ(map.bucketCount(), 17u) << "38 elements is the high threshold of 17 bins";
    map.insert(38, 380);
    EXPECT_EQ(map.bucketCount(), 53u) << "39 elements: first prime not below 52";
    fill(map, 39, 119);
    EXPECT_EQ(map.bucketCount(), 53u);
    map.insert(119, 1190);
    EXPECT_EQ(map.bucketCount(), 163u) << "120 elements: first prime not below 160";
    for (std::int32_t k = 0; k < 120; ++k) ASSERT_EQ(*map.find(k), k * 10) << k;
}

TEST(GasHashMap, ShrinksOnlyFromSixtyEightBinsUp) {
    IdMap map;
    fill(map, 0, 120);
    ASSERT_EQ(map.bucketCount(), 163u);
    for (std::int32_t k = 0; k < 80; ++k) map.remove(k);
    EXPECT_EQ(map.size(), 40u);
    EXPECT_EQ(map.bucketCount(), 163u) << "40 is the low threshold itself";
    map.remove(80);
    EXPECT_EQ(map.bucketCount(), 53u) << "39 elements: first prime not below 52";
    for (std::int32_t k = 81; k < 120; ++k) map.remove(k);
    EXPECT_TRUE(map.empty());
    EXPECT_EQ(map.bucketCount(), 53u) << "the low threshold of 53 bins is 0";
}

TEST(GasHashMap, SuspensionDefersTheRehashToTheLastResume) {
    IdMap map;
    map.suspendRehash();
    map.suspendRehash();
    fill(map, 0, 100);
    EXPECT_EQ(map.bucketCount(), 17u);
    map.resumeRehash();
    EXPECT_EQ(map.bucketCount(), 17u) << "still suspended once";
    map.resumeRehash();
    EXPECT_EQ(map.bucketCount(), 163u) << "100 elements: first prime not below 133";
    EXPECT_EQ(keysInOrder(map).size(), 100u);

    IdMap small;
    small.suspendRehash();
    fill(small, 0, 15);
    small.resumeRehash();
    EXPECT_EQ(small.bucketCount(), 23u) << "a resume rehashes even under the high threshold";
    small.rehash();
    EXPECT_EQ(small.bucketCount(), 23u);
}

TEST(GasHashMap, IteratesBinsAscendingAndChainsFromTheHead) {
    IdMap map;
    for (std::int32_t k : {1, 18, 35, 2, 0}) map.insert(k, 0);
    EXPECT_EQ(keysInOrder(map), (std::vector<std::int32_t>{0, 35, 18, 1, 2}));

    IdMap grown;
    for (std::int32_t k = 38; k >= 0; --k) grown.insert(k, 0);
    ASSERT_EQ(grown.bucketCount(), 53u);
    std::vector<std::int32_t> ascending;
    for (std::int32_t k = 0; k <= 38; ++k) ascending.push_back(k);
    EXPECT_EQ(keysInOrder(grown), ascending) << "one key per bin after the rehash";

    IdMap empty;
    EXPECT_TRUE(keysInOrder(empty).empty());
}

TEST(GasHashMap, NodesComeInBlocksOfTenAndGoWhenTheMapEmpties) {
    IdMap map;
    EXPECT_EQ(map.nodeBlockCount(), 0u);
    fill(map, 0, 10);
    EXPECT_EQ(map.nodeBlockCount(), 1u);
    map.insert(10, 0);
    EXPECT_EQ(map.nodeBlockCount(), 2u);
    map.remove(3);
    map.insert(3, 0);
    map.insert(11, 0);
    EXPECT_EQ(map.nodeBlockCount(), 2u) << "freed nodes are used again";
    for (std::int32_t k = 0; k < 12; ++k) EXPECT_TRUE(map.remove(k)) << k;
    EXPECT_EQ(map.nodeBlockCount(), 0u);
    EXPECT_FALSE(map.remove(0));
    map.insert(7, 70);
    EXPECT_EQ(*map.find(7), 70);
}

TEST(GasHashMap, RemoveIfUnlinksInOneSweepAndRehashesOnce) {
    IdMap map;
    fill(map, 0, 100);
    ASSERT_EQ(map.bucketCount(), 53u);
    std::vector<std::int32_t> seen;
    const std::uint32_t removed = map.removeIf([&](std::int32_t key, int value) {
        seen.push_back(key);
        EXPECT_EQ(value, key * 10);
        return key % 2 == 0;
    });
    EXPECT_EQ(removed, 50u);
    EXPECT_EQ(seen.size(), 100u) << "every entry is offered once";
    EXPECT_EQ(map.size(), 50u);
    EXPECT_EQ(map.bucketCount(), 67u) << "50 elements: first prime not below 66";
    EXPECT_FALSE(map.rehashSuspended());
    for (std::int32_t k = 0; k < 100; ++k) EXPECT_EQ(map.contains(k), k % 2 == 1) << k;

    map.removeIf([](std::int32_t, int) { return true; });
    EXPECT_TRUE(map.empty());
    EXPECT_EQ(map.nodeBlockCount(), 0u);
    EXPECT_EQ(map.bucketCount(), 17u);
}

TEST(GasHashMap, NegativeIdsHashAsUnsigned) {
    IdMap map;
    map.insert(-1, 1);
    map.insert(INT32_MIN, 2);
    map.insert(0, 3);  // 0xFFFFFFFF is a multiple of 17: the same bin as -1
    EXPECT_EQ(*map.find(-1), 1);
    EXPECT_EQ(*map.find(INT32_MIN), 2);
    EXPECT_EQ(keysInOrder(map), (std::vector<std::int32_t>{0, -1, INT32_MIN})) << "0x80000000 % 17 is 9";
}

TEST(GasHashMapText, HashIsTimesThirtyThreePlusTheUpperCasedSignedByte) {
    EXPECT_EQ(tvl::hashText(""), 0u);
    EXPECT_EQ(tvl::hashText("N2"), 78u * 33u + 50u);
    EXPECT_EQ(tvl::hashText("n2"), tvl::hashText("N2"));
    EXPECT_EQ(tvl::hashText("ab"), 65u * 33u + 66u);
    EXPECT_EQ(tvl::hashText("\xE9"), 0xFFFFFFE9u) << "bytes above 127 count negative";
    EXPECT_EQ(tvl::hashText("\xE9"), tvl::hashText("\xE9")) << "only a to z change case";
    EXPECT_NE(tvl::hashText("\xC9"), tvl::hashText("\xE9"));
    // 33^7 overflows 32 bits: the hash wraps.
    std::uint32_t wrapped = 0;
    for (char c : std::string("ABCDEFGHIJ")) wrapped = wrapped * 33u + static_cast<std::uint32_t>(c);
    EXPECT_EQ(tvl::hashText("abcdefghij"), wrapped);
}

TEST(GasHashMapText, LooksUpWithoutRegardToCase) {
    TextMap map;
    const std::string keys[] = {"N2", "AirMix", "{N2:1;O2:1}"};
    int value = 0;
    for (const std::string& key : keys) map.insert(key.c_str(), value++);
    EXPECT_EQ(*map.find(std::string_view("n2")), 0);
    EXPECT_EQ(*map.find(std::string_view("AIRMIX")), 1);
    EXPECT_EQ(*map.find(std::string_view("{n2:1;o2:1}")), 2);
    EXPECT_EQ(map.find(std::string_view("N2 ")), nullptr);
    EXPECT_EQ(map.find(std::string_view("")), nullptr);
    EXPECT_EQ(*map.find(std::string_view("xN2x").substr(1, 2)), 0) << "a view needs no terminator";
    EXPECT_TRUE(map.remove(std::string_view("airmix")));
    EXPECT_FALSE(map.contains(std::string_view("AirMix")));
}

TEST(GasHashMapAddress, RecordsAreTheirOwnKeys) {
    int records[3] = {};
    tvl::GasHashMap<tvl::AddressKey<int>, double> map;
    for (int& r : records) map.insert(&r, 1.5);
    for (int& r : records) EXPECT_TRUE(map.contains(&r));
    const int* constant = &records[1];
    EXPECT_EQ(*map.find(constant), 1.5);
    int other = 0;
    EXPECT_FALSE(map.contains(&other));
}

}  // namespace
