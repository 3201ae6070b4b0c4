#!/usr/bin/env bash
# Usage: package_test.sh BUILD_DIR SOURCE_DIR SCRATCH_DIR CXX
# Makes the Debian package, unpacks it into a scratch root and builds the consumer example against
# it, through find_package and through pkg-config; then builds the consumer with the library's source
# tree added as a subdirectory. A broken package (missing header, library, SONAME link, config file,
# .pc entry or command) or a subproject that brings its tests along fails one of the steps below.
set -euo pipefail
build=$1 source=$2 scratch=$3 cxx=$4
consumer=$source/examples/consumer

rm -rf "$scratch"
mkdir -p "$scratch"
root=$scratch/root

echo "== Debian package"
(cd "$scratch" && cpack -G DEB --config "$build/CPackConfig.cmake" -B "$scratch/deb" >/dev/null)
deb=$(find "$scratch/deb" -maxdepth 1 -name '*.deb')
dpkg-deb --info "$deb" | grep -E '^ (Package|Version|Depends):'
dpkg-deb -x "$deb" "$root"
prefix=$root/usr
for path in bin/zqjson lib/libzqfoundation_zorbaldata_json.so lib/cmake/ZorbalDataJson/ZorbalDataJsonConfig.cmake \
  lib/pkgconfig/zorbaldata_json.pc include/foundation/zorbaldata_json.hpp; do
  [[ -e $prefix/$path ]] || { echo "missing from the package: /usr/$path"; exit 1; }
done
# Each library as the linker names it, and the name a program loads it by.
for library in "$prefix"/lib/libzq*.so; do
  soname=$(objdump -p "$library" | awk '$1 == "SONAME" { print $2 }')
  [[ -L $library && -e $prefix/lib/$soname ]] || { echo "no SONAME link for $library"; exit 1; }
done
"$prefix/bin/zqjson" --version

echo "== find_package"
cmake -S "$consumer" -B "$scratch/cmake" -G Ninja -DCMAKE_CXX_COMPILER="$cxx" \
  -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_COMPILE_WARNING_AS_ERROR=ON >/dev/null
cmake --build "$scratch/cmake"
"$scratch/cmake/consumer"

echo "== pkg-config"
export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
libdir=$(pkg-config --variable=libdir zorbaldata_json)
# shellcheck disable=SC2046
"$cxx" -std=c++20 -Wall -Wextra -Werror "$consumer/main.cpp" -o "$scratch/consumer-pc" \
  $(pkg-config --cflags --libs zorbaldata_json)
LD_LIBRARY_PATH=$libdir "$scratch/consumer-pc"

echo "== add_subdirectory"
cmake -S "$consumer" -B "$scratch/subdirectory" -G Ninja -DCMAKE_CXX_COMPILER="$cxx" \
  -DZORBALDATA_JSON_SOURCE_DIR="$source" -DBUILD_TESTING=ON -DCMAKE_COMPILE_WARNING_AS_ERROR=ON >/dev/null
for own in tests bench tools docs; do
  [[ ! -e $scratch/subdirectory/zorbaldata_json/$own ]] || { echo "the subproject brought its $own along"; exit 1; }
done
cmake --build "$scratch/subdirectory" --target consumer -j2
"$scratch/subdirectory/consumer"
