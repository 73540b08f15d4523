// Scratch table of the successive powers of one reduced variable. A region function fills the
// entries it will read, by repeated multiplication, before it sums its terms; nothing in the
// table survives the evaluation that wrote it.
#ifndef TAVLIB6_POWER_TABLE_H
#define TAVLIB6_POWER_TABLE_H

namespace tvl {

class PowerTable {
public:
    static constexpr int kSize = 121;

    PowerTable() { values[0] = 1.0; }

    // values[k] = base^k for k = 1 .. highest.
    void fill(double base, int highest) {
        for (int k = 0; k < highest; ++k) values[k + 1] = values[k] * base;
    }

    // base^k; a negative k reads the reciprocal of the positive entry.
    double operator()(int k) const { return k >= 0 ? values[k] : 1.0 / values[-k]; }

private:
    double values[kSize];
};

}  // namespace tvl

#endif
