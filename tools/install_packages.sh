#!/bin/sh
# Installs the Debian packages named as arguments that are not installed yet (apt-get update
# once first). Needs root, or sudo without a password. Waits for another apt run to finish
# rather than failing on its lock.
set -eu
missing=""
for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing="$missing $package"
done
[ -z "$missing" ] && exit 0
if [ "$(id -u)" -eq 0 ]; then
    sudo=""
elif command -v sudo >/dev/null 2>&1; then
    sudo="sudo"
else
    echo "install these Debian packages as root:$missing" >&2
    exit 1
fi
echo "installing:$missing"
lock="-o DPkg::Lock::Timeout=600"
$sudo apt-get $lock update -q
DEBIAN_FRONTEND=noninteractive $sudo apt-get $lock install -y -q --no-install-recommends $missing
