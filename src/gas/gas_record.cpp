// GasSpecies: construction, the heat-capacity fit and its two integrals, the rough start
// polynomial of the entropy inversions.
//
// With theta = T/1000 and r = 1/theta, cp/R is sum a_k theta^k + sum b_k r^k. The enthalpy
// and entropy integrals are evaluated in Horner form in theta and in r; one division (r) and
// one logarithm per call.
#include "gas/gas_record.h"

#include <cmath>
#include <cstring>

#include "gas/gas_catalog.h"
#include "gas/gas_constants.h"

namespace tvl {

namespace {

// 1/k, ready-made for the integrals.
constexpr double kReciprocal[] = {0.0, 1.0, 1.0 / 2.0, 1.0 / 3.0, 1.0 / 4.0, 1.0 / 5.0, 1.0 / 6.0, 1.0 / 7.0};

std::unique_ptr<char[]> copyName(std::string_view name) {
    std::unique_ptr<char[]> copy(new char[name.size() + 1]);
    if (!name.empty()) std::memcpy(copy.get(), name.data(), name.size());
    copy[name.size()] = '\0';
    return copy;
}

// Rough-polynomial points, K.
constexpr double kRoughLow = 300.0;
constexpr double kRoughMiddle = 1500.0;
constexpr double kRoughHigh = 2500.0;

}  // namespace

GasSpecies::GasSpecies(const GasFitRow& row, std::string_view rowName, const ModelSettings& settings,
                       GasCatalog& catalog)
    : name(copyName(rowName)), settings(settings), catalog(catalog) {
    molarMass = row.molarMass;
    for (int k = 0; k < kPositivePowerCount; ++k) cpA[k] = row.cpA[k];
    for (int k = 0; k < kNegativePowerCount; ++k) cpB[k] = row.cpB[k];
    enthalpyRefTemperature = row.enthalpyRefTemperature;
    entropyRefTemperature = row.entropyRefTemperature;
    entropyRefPressure = row.entropyRefPressure;
    enthalpyRef = row.enthalpyRef;
    entropyRef = row.entropyRef;
    totalVolume = 1.0;
    totalMass = molarMass;
    gasConstant = kMolarGasConstant / molarMass;

    // Both offsets are worked out with the offsets still at 0. The tabulated entropy holds at
    // entropyRefPressure (101325 Pa) while entropy() stands at 100000 Pa: the difference of
    // the two pressures goes into the offset.
    const double R = gasConstant;
    enthalpyOffset = enthalpyRef / kMolarGasConstant - enthalpy(enthalpyRefTemperature) / R;
    entropyOffset = entropyRef / kMolarGasConstant -
                    (entropy(entropyRefTemperature) + (kLogReferenceStatePressure - std::log(entropyRefPressure)) * R) / R;
    refreshRoughPolynomial();
}

GasSpecies::GasSpecies(const ModelSettings& settings, GasCatalog& catalog) : settings(settings), catalog(catalog) {}

GasSpecies::GasSpecies(std::string_view newName, const ModelSettings& settings, GasCatalog& catalog)
    : name(copyName(newName)), settings(settings), catalog(catalog) {}

// A record whose last reference went releases one reference of each component, and those
// whose last one that was go the same way: one after another, chained through nextToDestroy,
// rather than one inside the other, so that a mixture nested however deep ends without deep
// recursion.
void GasSpecies::destroy(GasSpecies* record) {
    record->nextToDestroy = nullptr;
    while (record != nullptr) {
        GasSpecies* const next = record->nextToDestroy;
        GasSpecies* pending = next;
        for (const auto& component : record->components) {
            if (--component.key->referenceCount == 0) {
                component.key->nextToDestroy = pending;
                pending = component.key;
            }
        }
        delete record;
        record = pending;
    }
}

double GasSpecies::specificHeat(double T) const {
    const double theta = T * 1e-3;
    const double r = 1.0 / theta;
    double positive = cpA[kPositivePowerCount - 1];
    for (int k = kPositivePowerCount - 2; k >= 0; --k) positive = positive * theta + cpA[k];
    double negative = cpB[kNegativePowerCount - 1];
    for (int k = kNegativePowerCount - 2; k >= 0; --k) negative = negative * r + cpB[k];
    return gasConstant * (positive + negative * r);
}

// H(theta) = sum a_k theta^(k+1)/(k+1) + b1 ln theta - sum_(k>=2) b_k r^(k-1)/(k-1), and
// h = R (1000 H + enthalpyOffset).
double GasSpecies::enthalpy(double T, double& cp) const {
    const double theta = T * 1e-3;
    const double r = 1.0 / theta;
    double positive = cpA[kPositivePowerCount - 1];
    double integralPositive = cpA[kPositivePowerCount - 1] * kReciprocal[kPositivePowerCount];
    for (int k = kPositivePowerCount - 2; k >= 0; --k) {
        positive = positive * theta + cpA[k];
        integralPositive = integralPositive * theta + cpA[k] * kReciprocal[k + 1];
    }
    double negative = cpB[kNegativePowerCount - 1];
    double integralNegative = cpB[kNegativePowerCount - 1] * kReciprocal[kNegativePowerCount - 1];
    for (int k = kNegativePowerCount - 2; k >= 1; --k) {
        negative = negative * r + cpB[k];
        integralNegative = integralNegative * r + cpB[k] * kReciprocal[k];
    }
    negative = negative * r + cpB[0];
    cp = gasConstant * (positive + negative * r);
    const double H = integralPositive * theta + cpB[0] * std::log(theta) - integralNegative * r;
    return gasConstant * (1000.0 * H + enthalpyOffset);
}

// S(theta) = a0 ln theta + sum_(k>=1) a_k theta^k/k - sum b_k r^k/k, and
// s = R (S + entropyOffset + mixingEntropy).
double GasSpecies::entropy(double T, double& cp) const {
    const double theta = T * 1e-3;
    const double r = 1.0 / theta;
    double positive = cpA[kPositivePowerCount - 1];
    double integralPositive = cpA[kPositivePowerCount - 1] * kReciprocal[kPositivePowerCount - 1];
    for (int k = kPositivePowerCount - 2; k >= 1; --k) {
        positive = positive * theta + cpA[k];
        integralPositive = integralPositive * theta + cpA[k] * kReciprocal[k];
    }
    positive = positive * theta + cpA[0];
    double negative = cpB[kNegativePowerCount - 1];
    double integralNegative = cpB[kNegativePowerCount - 1] * kReciprocal[kNegativePowerCount];
    for (int k = kNegativePowerCount - 2; k >= 0; --k) {
        negative = negative * r + cpB[k];
        integralNegative = integralNegative * r + cpB[k] * kReciprocal[k + 1];
    }
    cp = gasConstant * (positive + negative * r);
    const double S = cpA[0] * std::log(theta) + integralPositive * theta - integralNegative * r;
    return gasConstant * (S + entropyOffset + mixingEntropy);
}

double GasSpecies::enthalpy(double T) const {
    double cp;
    return enthalpy(T, cp);
}

double GasSpecies::entropy(double T) const {
    double cp;
    return entropy(T, cp);
}

void GasSpecies::refreshRoughPolynomial() {
    const double s1 = entropy(kRoughLow);
    const double s2 = entropy(kRoughMiddle);
    const double s3 = entropy(kRoughHigh);
    const double k1 = (kRoughMiddle - kRoughLow) / (s2 - s1);
    const double k2 = (s2 * s2 - s1 * s1) / (s2 - s1);
    roughT2 = ((kRoughHigh - kRoughLow) - k1 * (s3 - s1)) / (s3 * s3 - s1 * s1 - k2 * (s3 - s1));
    roughT1 = k1 - roughT2 * k2;
    roughT0 = kRoughLow - roughT1 * s1 - roughT2 * s1 * s1;
}

}  // namespace tvl
