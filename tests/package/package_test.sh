#!/usr/bin/env bash
# Usage: package_test.sh BUILD_DIR CONSUMER_SOURCE_DIR SCRATCH_DIR CXX
# A broken install (missing header, library, config file or .pc entry) fails one of the steps below.
set -euo pipefail
build=$1 consumer=$2 scratch=$3 cxx=$4

rm -rf "$scratch"
mkdir -p "$scratch"
prefix=$scratch/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null

echo "== find_package"
cmake -S "$consumer" -B "$scratch/cmake" -G Ninja -DCMAKE_CXX_COMPILER="$cxx" \
  -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_COMPILE_WARNING_AS_ERROR=ON >/dev/null
cmake --build "$scratch/cmake"
"$scratch/cmake/consumer"

echo "== pkg-config"
pcdir=$(dirname "$(find "$prefix" -name zorbaldata_json.pc | head -n 1)")
export PKG_CONFIG_PATH=$pcdir
libdir=$(pkg-config --variable=libdir zorbaldata_json)
# shellcheck disable=SC2046
"$cxx" -std=c++20 -Wall -Wextra -Werror "$consumer/main.cpp" -o "$scratch/consumer-pc" \
  $(pkg-config --cflags --libs zorbaldata_json)
LD_LIBRARY_PATH=$libdir "$scratch/consumer-pc"
