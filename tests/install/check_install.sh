#!/bin/sh
# Installs the build into a fresh prefix with `make install PREFIX=...`, then builds a small C
# program outside the tree against it twice, found through the CMake package and through
# pkg-config, and runs both; the installed tvl must run too.
# Usage: check_install.sh SOURCE_DIR BUILD_DIR
set -eu
SOURCE=$1
BUILD=$2
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
PREFIX=$WORK/prefix
EXPECTED="TSP(1e5) = 372.755919 K; PST(200) fails with 2; batch of 3 enthalpies ok"

make -s -C "$SOURCE" install PREFIX="$PREFIX" BUILD="$BUILD" > "$WORK/install.log" 2>&1 || { cat "$WORK/install.log"; exit 1; }
for file in include/tavlib6.h include/tavlib6x.h lib/libtavlib6.so lib/libtavlib6x.so bin/tvl \
            lib/cmake/tavlib6/tavlib6Config.cmake lib/pkgconfig/tavlib6.pc lib/pkgconfig/tavlib6x.pc; do
    [ -e "$PREFIX/$file" ] || { echo "not installed: $file"; exit 1; }
done

check() {
    output=$("$@")
    [ "$output" = "$EXPECTED" ] || { echo "$1 printed: $output"; exit 1; }
}

# Through the CMake package.
cmake -S "$SOURCE/tests/install/consumer" -B "$WORK/cmake" -DCMAKE_PREFIX_PATH="$PREFIX" > "$WORK/cmake.log" 2>&1 ||
    { cat "$WORK/cmake.log"; exit 1; }
cmake --build "$WORK/cmake" > "$WORK/cmake-build.log" 2>&1 || { cat "$WORK/cmake-build.log"; exit 1; }
check "$WORK/cmake/consumer"

# Through pkg-config.
export PKG_CONFIG_PATH="$PREFIX/lib/pkgconfig"
FLAGS=$(pkg-config --cflags --libs tavlib6x)
LIBDIR=$(pkg-config --variable=libdir tavlib6)
cc -o "$WORK/consumer-pc" "$SOURCE/tests/install/consumer/consumer.c" $FLAGS -Wl,-rpath,"$LIBDIR"
check "$WORK/consumer-pc"

# The installed command finds its library beside it.
[ "$("$PREFIX/bin/tvl" -p 7 TSP 1e5)" = "372.7559" ] || { echo "installed tvl failed"; exit 1; }
echo "install, CMake package and pkg-config: ok"
