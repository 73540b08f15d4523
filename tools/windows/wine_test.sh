#!/usr/bin/env bash
# Runs the 64-bit tavlib6.dll for real under Wine on a virtual X display:
#  1. the Linux build writes the results of a few thousand calls across every listed export
#     (tavlib6_call_check write), and the Windows build of the same program, loading the DLL,
#     compares its own results with them (values, output cells, error codes, error texts),
#     then again with the floating-point traps unmasked, as some hosts run;
#  2. tavlib6_about_check opens the about box and the help message over a host window, checks
#     their texts, menu, icon and placement, and this script takes a screenshot of each.
#
#   tools/windows/wine_test.sh LINUX_BUILD WINDOWS_BUILD
#
# Needs wine, Xvfb and ImageMagick's import (make windows-test installs them). Screenshots and
# logs go to WINDOWS_BUILD/wine-test/.
set -euo pipefail

linux_build=$(realpath "${1:-build}")
windows_build=$(realpath "${2:-build-win64}")
out="$windows_build/wine-test"
rm -rf "$out/run" "$out"/*.png "$out"/*.log
mkdir -p "$out/run"

export WINEPREFIX="$out/prefix"
source "$(dirname "$0")/wine_session.sh"

# The programs stand for host programs; the DLL lies in a folder of its own, found through the
# search path, so that the help search can tell the library's folder from the host's.
mkdir -p "$out/run/lib"
cp "$windows_build/tavlib6.dll" "$out/run/lib/"
cp "$windows_build/tavlib6_call_check.exe" "$windows_build/tavlib6_about_check.exe" "$out/run/"
cd "$out/run"
export WINEPATH="$(windows_path "$(pwd)/lib")"

echo "== the same calls on Linux and on Windows"
timeout 600 "$linux_build/tests/windows/tavlib6_call_check" write expected.txt
status=0
timeout 600 wine tavlib6_call_check.exe compare expected.txt 2>&1 | tr -d '\r' | tee "$out/calls.log" || true
grep -q '^[0-9]* passed, 0 failed$' "$out/calls.log" || status=1
echo "== the same calls with the invalid, zero-divide and overflow traps unmasked"
timeout 600 wine tavlib6_call_check.exe traps expected.txt 2>&1 | tr -d '\r' | tee "$out/traps.log" || true
grep -q '^with traps unmasked: no exception, 0 calls' "$out/traps.log" || status=1

echo "== the about box and the help"
# In a Wine virtual desktop Wine draws the title bars and frames itself; plain Xvfb has no
# window manager to draw them.
timeout 600 wine explorer /desktop=tavlib6,1024x768 tavlib6_about_check.exe "$(windows_path "$(pwd)")" >"$out/about.log" 2>&1 &
about_pid=$!
shoot about "$about_pid"
shoot help-missing "$about_pid"
wait "$about_pid" || true
tr -d '\r' <"$out/about.log" | tee "$out/about.clean.log"
grep -q '^[0-9]* passed, 0 failed$' "$out/about.clean.log" || status=1
[ -f "$out/about.png" ] || { echo "no screenshot of the about box"; status=1; }

if [ "$status" -eq 0 ]; then echo "windows-test: passed"; else echo "windows-test: FAILED"; fi
exit "$status"
