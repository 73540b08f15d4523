#!/bin/sh
# Installs the build into a fresh prefix with `make install PREFIX=...`, then builds a small C
# program outside the tree against it twice, found through the CMake package and through
# pkg-config, and runs both; the installed tvl must run too. Then the same with Debian's
# multiarch libdir (lib/x86_64-linux-gnu), for which the build directory is configured for the
# time of the install and set back afterwards (nothing is compiled again; tvl is linked again
# for its longer run path).
# Usage: check_install.sh SOURCE_DIR BUILD_DIR
set -eu
SOURCE=$1
BUILD=$2
WORK=$(mktemp -d)
LIBDIR_BEFORE=$(sed -n 's/^CMAKE_INSTALL_LIBDIR:PATH=//p' "$BUILD/CMakeCache.txt")
restore() {
    [ -z "${MULTIARCH:-}" ] || cmake -DCMAKE_INSTALL_LIBDIR="$LIBDIR_BEFORE" "$BUILD" > /dev/null 2>&1 || true
    rm -rf "$WORK"
}
trap restore EXIT
EXPECTED="TSP(1e5) = 372.755919 K; PST(200) fails with 2; batch of 3 enthalpies ok"

check() {
    output=$("$@")
    [ "$output" = "$EXPECTED" ] || { echo "$1 printed: $output"; exit 1; }
}

# consume PREFIX LIBDIR: the installed files, the two consumers and the installed tvl.
consume() {
    prefix=$1
    libdir=$2
    for file in include/tavlib6.h include/tavlib6x.h $libdir/libtavlib6.so $libdir/libtavlib6x.so bin/tvl \
                $libdir/cmake/tavlib6/tavlib6Config.cmake $libdir/pkgconfig/tavlib6.pc $libdir/pkgconfig/tavlib6x.pc; do
        [ -e "$prefix/$file" ] || { echo "not installed: $file"; exit 1; }
    done
    # Through the CMake package.
    cmake -S "$SOURCE/tests/install/consumer" -B "$prefix.cmake" -DCMAKE_PREFIX_PATH="$prefix" > "$WORK/cmake.log" 2>&1 ||
        { cat "$WORK/cmake.log"; exit 1; }
    cmake --build "$prefix.cmake" > "$WORK/cmake-build.log" 2>&1 || { cat "$WORK/cmake-build.log"; exit 1; }
    check "$prefix.cmake/consumer"
    # Through pkg-config.
    flags=$(PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig" pkg-config --cflags --libs tavlib6x)
    found=$(PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig" pkg-config --variable=libdir tavlib6)
    [ "$(cd "$found" && pwd -P)" = "$(cd "$prefix/$libdir" && pwd -P)" ] || { echo "pkg-config libdir: $found"; exit 1; }
    cc -o "$prefix.pc" "$SOURCE/tests/install/consumer/consumer.c" $flags -Wl,-rpath,"$found"
    check "$prefix.pc"
    # The installed command finds its library beside it.
    [ "$("$prefix/bin/tvl" -p 7 TSP 1e5)" = "372.7559" ] || { echo "installed tvl failed"; exit 1; }
}

make -s -C "$SOURCE" install PREFIX="$WORK/prefix" BUILD="$BUILD" > "$WORK/install.log" 2>&1 || { cat "$WORK/install.log"; exit 1; }
consume "$WORK/prefix" "$LIBDIR_BEFORE"

MULTIARCH=lib/x86_64-linux-gnu
cmake -DCMAKE_INSTALL_LIBDIR=$MULTIARCH "$BUILD" > "$WORK/configure.log" 2>&1 || { cat "$WORK/configure.log"; exit 1; }
{ cmake --build "$BUILD" --target tavlib6 tavlib6x tvl && cmake --install "$BUILD" --prefix "$WORK/multiarch"; } \
    > "$WORK/install.log" 2>&1 || { cat "$WORK/install.log"; exit 1; }
consume "$WORK/multiarch" $MULTIARCH
echo "install, CMake package and pkg-config, with lib and with $MULTIARCH: ok"
