#!/bin/sh
# Builds the Octave MEX file in BUILD and runs tests/hosts/octave_test.m in Octave without its
# GUI. Exits 77 (skipped) where Octave or mkoctfile (Debian's octave, liboctave-dev) is missing.
#
#   tests/hosts/octave_test.sh BUILD
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "${1:-build}" && pwd)
if ! command -v mkoctfile >/dev/null 2>&1 || ! command -v octave-cli >/dev/null 2>&1; then
    echo "octave: skipped, no octave-cli and mkoctfile (apt-get install octave liboctave-dev)"
    exit 77
fi
sh "$root/hosts/octave/build.sh" "$build"
TVL="$build/tvl" octave-cli --norc --no-window-system --path "$build" "$root/tests/hosts/octave_test.m"
