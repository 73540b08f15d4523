// Bounds of a function of pressure, per bucket of pressures whose doubles share their top 16
// bits (sign, exponent and four mantissa bits: sixteen buckets an octave). The functions bounded
// here change monotonically with p, so within a bucket each lies between its values at the
// bucket's ends; the bounds are widened by far more than the rounding of the equations behind
// them. A value outside the bounds lies on one side of the function for sure, and only a value
// inside them needs the equation: the selections by (p,T), (p,h) and (p,s) decide most points so.
#ifndef TAVLIB6_PRESSURE_BUCKETS_H
#define TAVLIB6_PRESSURE_BUCKETS_H

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tvl {

class PressureBuckets {
public:
    // The buckets from that of lowest through that of highest; value(p) is called at their ends,
    // so it must be defined up to the end of highest's bucket.
    template <class Value>
    PressureBuckets(double lowest, double highest, double widening, Value value)
        : first(key(lowest)), count(std::min<uint64_t>(key(highest) - key(lowest) + 1, kMaxCount)) {
        double start = value(pressureAt(first));
        for (uint64_t k = 0; k < count; ++k) {
            const double end = value(pressureAt(first + k + 1));
            lower[k] = std::min(start, end) - widening;
            upper[k] = std::max(start, end) + widening;
            start = end;
        }
    }

    // -1: y below the function everywhere in p's bucket, 1: above it everywhere, 0: too close to
    // tell, or p outside the table, or a NaN.
    int side(double p, double y) const {
        const uint64_t k = key(p) - first;
        if (k >= count) return 0;
        if (y < lower[k]) return -1;
        if (y > upper[k]) return 1;
        return 0;
    }

    // The same for y against value(p) * m as a selection rounds it. Multiplying by a positive m
    // and rounding keeps the order of numbers, so the bounds times m bound that product; a margin
    // outside a sane band around 1 (a hostile tolerance) is left to the comparison.
    int sideOfScaled(double p, double m, double y) const {
        if (!(m >= 0.5 && m <= 2.0)) return 0;
        const uint64_t k = key(p) - first;
        if (k >= count) return 0;
        if (y < lower[k] * m) return -1;
        if (y > upper[k] * m) return 1;
        return 0;
    }

    // The table itself, for code that reads many buckets at once (the batch library's lanes):
    // the key of the first bucket, the number of buckets and the bounds of bucket k.
    static uint64_t key(double p) {
        uint64_t bits;
        std::memcpy(&bits, &p, sizeof bits);
        return bits >> 48;
    }
    uint64_t firstKey() const { return first; }
    uint64_t size() const { return count; }
    const double* lowerBounds() const { return lower; }
    const double* upperBounds() const { return upper; }

private:
    static constexpr uint64_t kMaxCount = 16 * 18;  // 18 octaves, from 611 Pa past 100 MPa

    static double pressureAt(uint64_t key) {
        const uint64_t bits = key << 48;
        double p;
        std::memcpy(&p, &bits, sizeof p);
        return p;
    }

    uint64_t first;
    uint64_t count;
    double lower[kMaxCount];
    double upper[kMaxCount];
};

}  // namespace tvl

#endif
