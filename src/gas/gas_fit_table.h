// The thirteen built-in gases: molar mass, the heat-capacity fit cp/R in powers of T/1000 and
// the reference enthalpy and entropy. A row's index is the gas's id in the catalogue.
#ifndef TAVLIB6_GAS_FIT_TABLE_H
#define TAVLIB6_GAS_FIT_TABLE_H

namespace tvl {

constexpr int kPositivePowerCount = 7;  // a0 .. a6, of theta^0 .. theta^6
constexpr int kNegativePowerCount = 6;  // b1 .. b6, of theta^-1 .. theta^-6

struct GasFitRow {
    const char* name;
    double molarMass;                     // kg/mol
    double cpA[kPositivePowerCount];      // cp/R = sum a_k theta^k + sum b_k theta^-k, theta = T/1000
    double cpB[kNegativePowerCount];
    double enthalpyRefTemperature;        // K
    double entropyRefTemperature;         // K
    double entropyRefPressure;            // Pa
    double enthalpyRef;                   // J/mol at enthalpyRefTemperature
    double entropyRef;                    // J/(mol K) at entropyRefTemperature and entropyRefPressure
};

constexpr int kBuiltInGasCount = 13;

// Ids of the rows that other code names.
constexpr int kNitrogenId = 0;
constexpr int kAirRowId = 6;

extern const GasFitRow kGasFitTable[kBuiltInGasCount];

}  // namespace tvl

#endif
