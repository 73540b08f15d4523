// The two air compositions of the start-up, in volume (mole) fractions. "N2AirMix" is
// atmospheric nitrogen: the air without its oxygen, scaled to a sum of 1 and rounded.
#ifndef TAVLIB6_AIR_MIXTURES_H
#define TAVLIB6_AIR_MIXTURES_H

namespace tvl {

struct AirComponent {
    const char* name;
    double fraction;
};

constexpr int kAirMixId = 13;
constexpr int kNitrogenAirMixId = 14;

constexpr AirComponent kAirMix[] = {
    {"N2", 0.7803}, {"O2", 0.2099}, {"Ar", 0.0094}, {"H2", 0.0001}, {"CO2", 0.0003},
};

constexpr AirComponent kNitrogenAirMix[] = {
    {"N2", 0.9876}, {"Ar", 0.0119}, {"H2", 0.0001}, {"CO2", 0.0004},
};

}  // namespace tvl

#endif
