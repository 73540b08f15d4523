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

# The Wine prefix of wine_test.sh, made once. Without Gecko the viewer shows its window, contents
# and index but leaves the page area blank.
export WINEPREFIX="$windows_build/wine-test/prefix"
source "$(dirname "$0")/wine_session.sh"

# The host program and the DLL in folders of their own: the help is found beside the DLL.
cp "$windows_build/tavlib6.dll" "$out/run/lib/"
cp "$windows_build/tavlib6_about_check.exe" "$out/run/"
cp "$chm" "$out/help.chm"
cd "$out/run"
export WINEPATH="$(windows_path "$out/run/lib")"

timeout 600 wine explorer /desktop=tavlib6,1024x768 tavlib6_about_check.exe "$(windows_path "$out/run")" \
    "$(windows_path "$out/help.chm")" >"$out/help.log" 2>&1 &
checker=$!
shoot about "$checker"
shoot help-missing "$checker"
shoot help-viewer "$checker"
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
