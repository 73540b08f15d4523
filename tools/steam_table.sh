#!/bin/sh
# A steam table printed through the tvl command: the saturation line by temperature, then
# isobars from compressed liquid across the saturation line into superheated steam, with the
# transport properties. Every cell is one call of tvl, so the table shows what a host gets from
# the exports (the dispatching (p,T) family and the saturated SWT/SST family).
# Usage: tools/steam_table.sh [path of tvl]
TVL=${1:-build/tvl}

# The value of one export, or "-" where the call fails (out of range, no such state).
value() { "$TVL" "$@" 2>/dev/null || echo "-"; }

# Prints a row with awk: the label columns as they stand, then each value scaled and formatted.
# A failed cell ("-") stays a dash.
# row FORMATS SCALES LABEL... -- VALUE...
row() {
    formats=$1 scales=$2
    shift 2
    labels=""
    while [ "$1" != "--" ]; do labels="$labels $1"; shift; done
    shift
    awk -v formats="$formats" -v scales="$scales" -v labels="$labels" 'BEGIN {
        split(formats, f, " "); split(scales, s, " "); split(labels, l, " ")
        line = ""
        for (k = 1; k in l; k++) line = line sprintf("%-12s", l[k])
        for (k = 1; k < ARGC; k++) {
            dash = f[k]
            sub(/\.[0-9]*[a-z]$/, "s", dash)
            line = line (ARGV[k] == "-" ? sprintf(dash, "-") : sprintf(f[k], ARGV[k] * s[k]))
        }
        print line
    }' "$@"
}

echo "Saturation line by temperature"
printf '%-12s%13s%13s%13s%13s%13s%13s%13s%13s\n' "T [K]" "p [MPa]" "v' [m3/kg]" "v'' [m3/kg]" \
    "h' [kJ/kg]" "h'' [kJ/kg]" "r [kJ/kg]" "s' [kJ/kgK]" "s'' [kJ/kgK]"
for T in 273.16 300 350 373.15 400 450 500 550 600 623.15 640 647; do
    row "%13.6f %13.6g %13.6g %13.3f %13.3f %13.3f %13.5f %13.5f" "1e-6 1 1 1e-3 1e-3 1e-3 1e-3 1e-3" "$T" -- \
        "$(value PST "$T")" "$(value VSWT "$T")" "$(value VSST "$T")" "$(value HSWT "$T")" \
        "$(value HSST "$T")" "$(value RST "$T")" "$(value SSWT "$T")" "$(value SSST "$T")"
done

# One isobar over the given temperatures: liquid rows below the saturation temperature, the
# saturated liquid and steam at it, superheated rows above; with "steam" as the third argument
# all rows lie above the line. Above the critical pressure there is no saturation line to cross.
FORMATS="%12.7g %12.3f %12.5f %12.5f %12.2f %12.3f %12.3f"
SCALES="1 1e-3 1e-3 1e-3 1 1e6 1e3"
isobar() {
    p=$1
    temperatures=$2
    P=$(awk "BEGIN { print $p * 1e6 }")
    echo
    if awk "BEGIN { exit !($P > 22064000) }"; then
        echo "p = $p MPa: supercritical, no saturation line"
        TS=0
    else
        TS=$(value TSP "$P")
        echo "p = $p MPa: saturation temperature $(awk "BEGIN { printf \"%.3f\", $TS }") K"
    fi
    printf '%-12s%-12s%12s%12s%12s%12s%12s%12s%12s\n' "T [K]" "state" "v [m3/kg]" "h [kJ/kg]" "s [kJ/kgK]" \
        "cp [kJ/kgK]" "w [m/s]" "eta [uPa s]" "lam [mW/mK]"
    below=${3:-liquid}
    [ "$TS" = 0 ] && below=fluid
    for T in $temperatures; do
        if [ "$TS" != 0 ] && [ "$below" = liquid ] && awk "BEGIN { exit !($T > $TS) }"; then
            label=$(awk "BEGIN { printf \"%.3f\", $TS }")
            for phase in SWT SST; do
                state="sat.water"
                [ $phase = SST ] && state="sat.steam"
                row "$FORMATS" "$SCALES" "$label" "$state" -- \
                    "$(value V$phase "$TS")" "$(value H$phase "$TS")" "$(value S$phase "$TS")" \
                    "$(value CP$phase "$TS")" "$(value W$phase "$TS")" "$(value DYNVIS$phase "$TS")" \
                    "$(value THERMCOND$phase "$TS")"
            done
            below=steam
        fi
        row "$FORMATS" "$SCALES" "$T" "$below" -- \
            "$(value VPT "$P" "$T")" "$(value HPT "$P" "$T")" "$(value SPT "$P" "$T")" \
            "$(value CPPT "$P" "$T")" "$(value WPT "$P" "$T")" "$(value DYNVISPT "$P" "$T")" \
            "$(value THERMCONDPT "$P" "$T")"
    done
}

for p in 0.01 0.1 1 10 20 25; do isobar "$p" "300 350 400 450 500 600 650 700 800 1000"; done

# High-temperature steam: region 5 from 1073.15 K; the transport equations end below it ("-").
for p in 0.1 10; do isobar "$p" "1100 1500 2000" steam; done

echo
# A turbine stage by the expansion exports: from 10 MPa and 800 K to 10 kPa with an internal
# efficiency of 0.85, beside the isentropic end point (efficiency 1) and the inlet.
echo
echo "Turbine stage: inlet 10 MPa, 800 K; outlet 10 kPa; efficiency 0.85"
printf '%-12s%14s%12s%12s%14s\n' "state" "h [kJ/kg]" "T [K]" "x" "s [kJ/kgK]"
row "%14.3f %12.3f %12s %14.5f" "1e-3 1 1 1e-3" inlet -- \
    "$(value HPT 1e7 800)" 800 - "$(value SPT 1e7 800)"
for stage in "isentropic 1" "outlet 0.85"; do
    set -- $stage
    row "%14.3f %12.3f %12.5f %14.5f" "1e-3 1 1 1e-3" "$1" -- \
        "$(value HEXPANSIONPTPEFF 1e7 800 1e4 "$2")" "$(value TEXPANSIONPTPEFF 1e7 800 1e4 "$2")" \
        "$(value XEXPANSIONPTPEFF 1e7 800 1e4 "$2")" "$(value SEXPANSIONPTPEFF 1e7 800 1e4 "$2")"
done

# The same three states read back from their enthalpy and entropy alone, as off a Mollier chart.
echo
echo "The stage read back by (h,s)"
printf '%-12s%6s%14s%12s%12s\n' "state" "area" "p [MPa]" "T [K]" "x"
for stage in "inlet" "isentropic 1" "outlet 0.85"; do
    set -- $stage
    if [ "$1" = inlet ]; then
        H=$(value HPT 1e7 800) S=$(value SPT 1e7 800)
    else
        H=$(value HEXPANSIONPTPEFF 1e7 800 1e4 "$2") S=$(value SEXPANSIONPTPEFF 1e7 800 1e4 "$2")
    fi
    row "%6d %14.6f %12.3f %12.5f" "1 1e-6 1 1" "$1" -- \
        "$(value WATERSTATEAREAHS "$H" "$S")" "$(value PHS "$H" "$S")" "$(value THS "$H" "$S")" \
        "$(value XHS "$H" "$S")"
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
