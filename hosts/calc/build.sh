#!/bin/sh
# Builds the LibreOffice Calc extension tavlib6.oxt from a build folder that holds libtavlib6.so.
#
#   sh hosts/calc/build.sh BUILD        writes BUILD/tavlib6.oxt (staging in BUILD/calc/oxt)
#
# Needs Python 3 and unoidl-write of the LibreOffice SDK (Debian's libreoffice-dev), which
# compiles the generated interface against LibreOffice's own type libraries.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
build=$(cd "$1" && pwd)
program=${LIBREOFFICE_PROGRAM:-/usr/lib/libreoffice/program}
unoidl_write=${UNOIDL_WRITE:-/usr/lib/libreoffice/sdk/bin/unoidl-write}
stage="$build/calc/oxt"
oxt="$build/tavlib6.oxt"

[ -f "$build/libtavlib6.so" ] || { echo "build.sh: no $build/libtavlib6.so; run make first" >&2; exit 1; }
[ -x "$unoidl_write" ] || { echo "build.sh: no $unoidl_write; install libreoffice-dev" >&2; exit 1; }

rm -rf "$stage" && mkdir -p "$stage/META-INF"
python3 "$root/tools/gen_calc.py" "$stage"
"$unoidl_write" "$program/types.rdb" "$program/types/offapi.rdb" "$stage/idl/XFunctions.idl" "$stage/XFunctions.rdb"
rm -rf "$stage/idl"

version=$(sed -n 's/^project(tavlib6 VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
case $(uname -m) in
    x86_64) platform=linux_x86_64 ;;
    aarch64) platform=linux_aarch64 ;;
    i?86) platform=linux_x86 ;;
    *) platform=all ;;
esac
sed -e "s/@VERSION@/$version/" -e "s/@PLATFORM@/$platform/" "$here/description.xml" > "$stage/description.xml"
cp "$here/description-en.txt" "$here/tavlib6_calc.py" "$stage/"
cp "$here/META-INF/manifest.xml" "$stage/META-INF/"
cp -L "$build/libtavlib6.so" "$stage/pythonpath/"

rm -f "$oxt"
(cd "$stage" && python3 -m zipfile -c "$oxt" META-INF description.xml description-en.txt \
    XFunctions.rdb CalcAddIns.xcu tavlib6_calc.py pythonpath)
echo "wrote $oxt"
