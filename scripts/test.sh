#!/usr/bin/env bash
# Installs what is missing, then configures, builds and runs the whole suite under the default and the
# asan presets, with Clang, and the concurrency tests under ThreadSanitizer, warnings as errors. Meant for
# a fresh Debian 12 machine, run as root (or with sudo).
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh

# Presets may be named on the command line; by default those that CI runs.
presets=("$@")
((${#presets[@]})) || presets=(default asan clang tsan)
for p in "${presets[@]}"; do
  echo "=== $p"
  cmake --preset "$p" -DCMAKE_COMPILE_WARNING_AS_ERROR=ON
  cmake --build --preset "$p"
  ctest --preset "$p"
done
