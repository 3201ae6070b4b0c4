#!/usr/bin/env bash
# Installs what is missing, builds zqjson, and shows what each document in examples/json converts to.
# Meant for a fresh Debian 12 machine, run as root (or with sudo).
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh
cmake --preset default >/dev/null
cmake --build --preset default --target zqjson >/dev/null

for document in examples/json/*.json; do
  echo "== $document: $(head -c 120 "$document" | tr '\n' ' ')"
  build/default/tools/zqjson/zqjson "$document" || true
done
