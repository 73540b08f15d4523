#!/bin/sh
# Builds the Octave MEX file BUILD/tavlib6.mex from hosts/octave/tavlib6_mex.c against the
# libraries of BUILD (libtavlib6, libtavlib6x), which it finds beside itself at run time.
#
#   hosts/octave/build.sh BUILD
set -eu
here=$(dirname "$0")
root=$(cd "$here/../.." && pwd)
build=$(cd "${1:-build}" && pwd)
cd "$build"
# mkoctfile hands its link line to a shell, so $ORIGIN is quoted twice.
mkoctfile --mex -o tavlib6.mex -I"$root/include" -I"$root/batch" "$root/hosts/octave/tavlib6_mex.c" \
    -L"$build" -ltavlib6x -ltavlib6 "-Wl,-rpath,'\$ORIGIN'"
rm -f tavlib6_mex.o
