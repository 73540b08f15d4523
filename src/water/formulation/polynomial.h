// Helpers for the power sums of the coefficient tables: how far a table's exponents reach, and
// the plain sum n x^I y^J over powers already in the scratch tables.
#ifndef TAVLIB6_POLYNOMIAL_H
#define TAVLIB6_POLYNOMIAL_H

#include <cstddef>

#include "water/formulation/power_table.h"
#include "water/formulation/tables/coefficient_types.h"

namespace tvl {

constexpr int magnitude(int k) { return k < 0 ? -k : k; }

// The highest power of x that a sum over the table reads, with exponents reduced by up to
// `derivative` (I, I-1, I-2 for the second derivative).
template <std::size_t N>
constexpr int reachOfI(const PowerTerm (&table)[N], int derivative = 0) {
    int reach = 0;
    for (const PowerTerm& term : table)
        for (int d = 0; d <= derivative; ++d)
            reach = magnitude(term.I - d) > reach ? magnitude(term.I - d) : reach;
    return reach;
}

template <std::size_t N>
constexpr int reachOfJ(const PowerTerm (&table)[N], int derivative = 0) {
    int reach = 0;
    for (const PowerTerm& term : table)
        for (int d = 0; d <= derivative; ++d)
            reach = magnitude(term.J - d) > reach ? magnitude(term.J - d) : reach;
    return reach;
}

// Sum of n x^I y^J in table order, with x and y already in the two tables.
template <std::size_t N>
double powerSum(const PowerTerm (&table)[N], const PowerTable& x, const PowerTable& y) {
    double sum = 0.0;
    for (const PowerTerm& term : table) sum += term.n * x(term.I) * y(term.J);
    return sum;
}

// Fills both tables as far as the coefficient table reaches and sums n x^I y^J.
template <const auto& Table>
double evaluatePowerSum(PowerTable& xPowers, PowerTable& yPowers, double x, double y) {
    constexpr int kReachI = reachOfI(Table);
    constexpr int kReachJ = reachOfJ(Table);
    xPowers.fill(x, kReachI);
    yPowers.fill(y, kReachJ);
    return powerSum(Table, xPowers, yPowers);
}

// The same at the arguments a and b reduced the usual way (a/scale + shift), the result's
// scale left to the caller.
template <const auto& Table, const ReducedForm& Form>
double evaluateReducedSum(PowerTable& xPowers, PowerTable& yPowers, double a, double b) {
    return evaluatePowerSum<Table>(xPowers, yPowers, reduce(a, Form.x), reduce(b, Form.y));
}

}  // namespace tvl

#endif
