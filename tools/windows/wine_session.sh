# Sourced by the Wine tests: the Wine settings, a virtual X display of their own, the Wine prefix
# (made once) and screenshots on request of the program under test. The caller sets WINEPREFIX
# and `out`, the folder for logs and screenshots.
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
    mkdir -p "$WINEPREFIX"
    wineboot -i >"$out/wineboot.log" 2>&1 || true
    wineserver -w
fi

windows_path() { echo 'Z:'"$(echo "$1" | tr / '\\')"; }

# shoot NAME PID: once the program PID has put up what NAME shows (it leaves NAME.ready in the
# current folder), photograph the screen into $out/NAME.png and tell it (NAME.taken).
shoot() {
    local name=$1 pid=$2
    for _ in $(seq 1 600); do
        [ -e "$name.ready" ] && break
        kill -0 "$pid" 2>/dev/null || return 0
        sleep 0.1
    done
    [ -e "$name.ready" ] || return 0
    import -display "$DISPLAY" -window root "$out/$name.png"
    touch "$name.taken"
    echo "screenshot: $out/$name.png"
}
