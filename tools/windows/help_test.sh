#!/usr/bin/env bash
# The help file under Wine: with tavlib6.chm beside the 64-bit DLL, tvlSHOWTVLHELP opens the
# HTML help viewer on it (its window, title and table of contents checked) and no message box;
# without the file, the message box still comes. tavlib6_about_check drives both and this
# script photographs the screen at each step.
#
#   tools/windows/help_test.sh WINDOWS_BUILD CHM
#
# Needs wine, Xvfb and ImageMagick's import (make windows-test installs them). Screenshots and
# logs go to WINDOWS_BUILD/help-test/: about.png, help-missing.png, help-viewer.png.
set -euo pipefail

windows_build=$(realpath "${1:-build-win64}")
chm=$(realpath "${2:-$windows_build/tavlib6.chm}")
out="$windows_build/help-test"
rm -rf "$out"
mkdir -p "$out/run/lib"

# The Wine prefix of wine_test.sh, made once; no Mono and no Gecko (nothing to fetch them from),
# so the viewer shows its window, contents and index but leaves the page area blank.
export WINEPREFIX="$windows_build/wine-test/prefix"
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml="
export WINEARCH=win64
export HOME="${HOME:-$out}"

xvfb_pid=""
cleanup() {
    wineserver -k >/dev/null 2>&1 || true
    if [ -n "$xvfb_pid" ]; then kill "$xvfb_pid" 2>/dev/null || true; fi
}
trap cleanup EXIT
display=90
while [ -e "/tmp/.X11-unix/X$display" ] || [ -e "/tmp/.X$display-lock" ]; do display=$((display + 1)); done
Xvfb ":$display" -screen 0 1024x768x24 -nolisten tcp >"$out/xvfb.log" 2>&1 &
xvfb_pid=$!
export DISPLAY=":$display"
for _ in $(seq 1 50); do [ -e "/tmp/.X11-unix/X$display" ] && break; sleep 0.1; done
if [ ! -f "$WINEPREFIX/system.reg" ]; then
    mkdir -p "$WINEPREFIX"
    wineboot -i >"$out/wineboot.log" 2>&1 || true
    wineserver -w
fi

# The host program and the DLL in folders of their own: the help is found beside the DLL.
cp "$windows_build/tavlib6.dll" "$out/run/lib/"
cp "$windows_build/tavlib6_about_check.exe" "$out/run/"
cp "$chm" "$out/help.chm"
cd "$out/run"
windows_path() { echo 'Z:'"$(echo "$1" | tr / '\\')"; }
export WINEPATH="$(windows_path "$out/run/lib")"

timeout 600 wine explorer /desktop=tavlib6,1024x768 tavlib6_about_check.exe "$(windows_path "$out/run")" \
    "$(windows_path "$out/help.chm")" >"$out/help.log" 2>&1 &
checker=$!
shoot() {
    for _ in $(seq 1 600); do
        [ -e "$1.ready" ] && break
        kill -0 "$checker" 2>/dev/null || return 0
        sleep 0.1
    done
    [ -e "$1.ready" ] || return 0
    import -display "$DISPLAY" -window root "$out/$1.png"
    touch "$1.taken"
    echo "screenshot: $out/$1.png"
}
shoot about
shoot help-missing
shoot help-viewer
wait "$checker" || true

log=$(tr -d '\r' <"$out/help.log")
echo "$log" | grep -E "help|message|viewer|contents|passed"
status=0
for expected in '^ok: the message names tavlib6.chm' "^ok: the help viewer's window opens" '^ok: titled after the help file' \
                '^ok: no message box' '^[0-9]+ passed, 0 failed$'; do
    echo "$log" | grep -Eq "$expected" || { echo "missing: $expected"; status=1; }
done
[ -f "$out/help-viewer.png" ] || { echo "no screenshot of the help viewer"; status=1; }
if [ "$status" -eq 0 ]; then echo "help-test: passed"; else echo "help-test: FAILED"; fi
exit "$status"
