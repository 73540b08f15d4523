#!/bin/sh
# A small steam table printed through the tvl command: the saturation line, then compressed
# liquid at a few pressures. Usage: tools/steam_table.sh [path of tvl]
TVL=${1:-build/tvl}

echo "Saturation line"
printf '%8s %14s %14s\n' "T [K]" "p [Pa]" "dp/dT [Pa/K]"
for T in 273.16 300 350 373.15 400 450 500 550 600 623.15 640 647; do
    printf '%8s %14.6g %14.6g\n' "$T" "$("$TVL" PST "$T")" "$("$TVL" DPDTST "$T")"
done

echo
echo "Compressed liquid (region 1)"
printf '%10s %8s %14s %12s %10s %10s %10s\n' "p [MPa]" "T [K]" "v [m3/kg]" "h [kJ/kg]" "s [kJ/kgK]" "cp [kJ/kgK]" "w [m/s]"
for p in 1 10 50 100; do
    for T in 300 400 500 600; do
        P=$(awk "BEGIN { print $p * 1e6 }")
        TS=$("$TVL" TSP "$P" 2>/dev/null || echo 0)
        if awk "BEGIN { exit !($TS > 0 && $T >= $TS) }"; then continue; fi
        printf '%10s %8s %14.8f %12.3f %10.4f %10.4f %10.2f\n' "$p" "$T" \
            "$("$TVL" V1PT "$P" "$T")" \
            "$(awk "BEGIN { print $("$TVL" H1PT "$P" "$T") / 1000 }")" \
            "$(awk "BEGIN { print $("$TVL" S1PT "$P" "$T") / 1000 }")" \
            "$(awk "BEGIN { print $("$TVL" CP1PT "$P" "$T") / 1000 }")" \
            "$("$TVL" W1PT "$P" "$T")"
    done
done

echo
# J to kJ without awk's six-digit print
kilo() { awk "BEGIN { printf \"%.10g\", $1 / 1000 }"; }

echo "Superheated steam (region 2)"
printf '%10s %8s %14s %12s %10s %10s %10s\n' "p [MPa]" "T [K]" "v [m3/kg]" "h [kJ/kg]" "s [kJ/kgK]" "cp [kJ/kgK]" "w [m/s]"
for p in 0.1 1 10; do
    for T in 500 600 700 800 900 1000; do
        P=$(awk "BEGIN { print $p * 1e6 }")
        TS=$("$TVL" TSP "$P" 2>/dev/null || echo 0)
        if awk "BEGIN { exit !($T <= $TS) }"; then continue; fi
        printf '%10s %8s %14.8f %12.3f %10.4f %10.4f %10.2f\n' "$p" "$T" \
            "$("$TVL" V2PT "$P" "$T")" \
            "$(kilo "$("$TVL" H2PT "$P" "$T")")" \
            "$(kilo "$("$TVL" S2PT "$P" "$T")")" \
            "$(kilo "$("$TVL" CP2PT "$P" "$T")")" \
            "$("$TVL" W2PT "$P" "$T")"
    done
done

echo
echo "High-temperature steam (region 5)"
printf '%10s %8s %14s %12s %10s %10s %10s\n' "p [MPa]" "T [K]" "v [m3/kg]" "h [kJ/kg]" "s [kJ/kgK]" "cp [kJ/kgK]" "w [m/s]"
for p in 0.5 30; do
    for T in 1500 2000; do
        P=$(awk "BEGIN { print $p * 1e6 }")
        printf '%10s %8s %14.8f %12.3f %10.4f %10.4f %10.2f\n' "$p" "$T" \
            "$("$TVL" V5PT "$P" "$T")" \
            "$(kilo "$("$TVL" H5PT "$P" "$T")")" \
            "$(kilo "$("$TVL" S5PT "$P" "$T")")" \
            "$(kilo "$("$TVL" CP5PT "$P" "$T")")" \
            "$("$TVL" W5PT "$P" "$T")"
    done
done

echo
echo "Near-critical fluid (region 3)"
printf '%10s %8s %14s %12s %10s %10s %10s\n' "p [MPa]" "T [K]" "v [m3/kg]" "h [kJ/kg]" "s [kJ/kgK]" "cp [kJ/kgK]" "w [m/s]"
for state in "25 650" "25 700" "50 700" "100 750"; do
    set -- $state
    P=$(awk "BEGIN { print $1 * 1e6 }")
    printf '%10s %8s %14.8f %12.3f %10.4f %10.4f %10.2f\n' "$1" "$2" \
        "$("$TVL" V3PT "$P" "$2")" \
        "$(awk "BEGIN { print $("$TVL" H3PT "$P" "$2") / 1000 }")" \
        "$(awk "BEGIN { print $("$TVL" S3PT "$P" "$2") / 1000 }")" \
        "$(awk "BEGIN { print $("$TVL" CP3PT "$P" "$2") / 1000 }")" \
        "$("$TVL" W3PT "$P" "$2")"
done

echo
echo "Ideal gases: the row \"Air\", the mixture \"AirMix\" and a flue gas by composition text"
FLUE="N2:75;CO2:12;H2O:10;O2:3"
printf '%-26s %8s %12s %12s %12s\n' "gas" "T [K]" "cp [J/kgK]" "h [kJ/kg]" "s [J/kgK]"
for GAS in "Air" "AirMix" "$FLUE"; do
    for T in 300 500 1000 1500 2000; do
        printf '%-26s %8s %12.3f %12.3f %12.3f\n' "$GAS" "$T" \
            "$("$TVL" gCPGST "$GAS" "$T")" \
            "$(awk "BEGIN { printf \"%.6f\", $("$TVL" gHGST "$GAS" "$T") / 1000 }")" \
            "$("$TVL" gSGST "$GAS" "$T")"
    done
done
echo "Composition of AirMix in volume fractions: $("$TVL" gGSGS "AirMix")"
echo "Flue gas: molar mass $("$TVL" -p 8 gMMGS "$FLUE") kg/mol, T at h = 1500 kJ/kg: $("$TVL" -p 8 gTGSH "$FLUE" 1.5e6) K"
