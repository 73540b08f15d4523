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
export WINEDEBUG=-all
# No Mono and no Gecko: nothing here needs them, and there is nothing to download them from.
export WINEDLLOVERRIDES="mscoree,mshtml="
export WINEARCH=win64
export HOME="${HOME:-$out}"

xvfb_pid=""
cleanup() {
    wineserver -k >/dev/null 2>&1 || true
    if [ -n "$xvfb_pid" ]; then kill "$xvfb_pid" 2>/dev/null || true; fi
}
trap cleanup EXIT

# A display of our own: the first free number from 90 on.
display=90
while [ -e "/tmp/.X11-unix/X$display" ] || [ -e "/tmp/.X$display-lock" ]; do display=$((display + 1)); done
Xvfb ":$display" -screen 0 1024x768x24 -nolisten tcp >"$out/xvfb.log" 2>&1 &
xvfb_pid=$!
export DISPLAY=":$display"
for _ in $(seq 1 50); do [ -e "/tmp/.X11-unix/X$display" ] && break; sleep 0.1; done

if [ ! -f "$WINEPREFIX/system.reg" ]; then
    echo "== creating the Wine prefix"
    wineboot -i >"$out/wineboot.log" 2>&1 || true
    wineserver -w
fi

# The programs stand for host programs; the DLL lies in a folder of its own, found through the
# search path, so that the help search can tell the library's folder from the host's.
mkdir -p "$out/run/lib"
cp "$windows_build/tavlib6.dll" "$out/run/lib/"
cp "$windows_build/tavlib6_call_check.exe" "$windows_build/tavlib6_about_check.exe" "$out/run/"
cd "$out/run"
export WINEPATH='Z:'"$(pwd | tr / '\\')"'\lib'

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
timeout 600 wine explorer /desktop=tavlib6,1024x768 tavlib6_about_check.exe 'Z:'"$(pwd | tr / '\\')" >"$out/about.log" 2>&1 &
about_pid=$!
shoot() {
    local name=$1
    for _ in $(seq 1 600); do
        [ -e "$name.ready" ] && break
        kill -0 "$about_pid" 2>/dev/null || return 0
        sleep 0.1
    done
    [ -e "$name.ready" ] || return 0
    import -display "$DISPLAY" -window root "$out/$name.png"
    touch "$name.taken"
    echo "screenshot: $out/$name.png"
}
shoot about
shoot help-missing
wait "$about_pid" || true
tr -d '\r' <"$out/about.log" | tee "$out/about.clean.log"
grep -q '^[0-9]* passed, 0 failed$' "$out/about.clean.log" || status=1
[ -f "$out/about.png" ] || { echo "no screenshot of the about box"; status=1; }

if [ "$status" -eq 0 ]; then echo "windows-test: passed"; else echo "windows-test: FAILED"; fi
exit "$status"
