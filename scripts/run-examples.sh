#!/usr/bin/env bash
# Installs what is missing, builds zqjson, and shows what each document in examples/json converts to
# and how it is written back, then takes a matrix from the small form to the large one and back.
# Meant for a fresh Debian 12 machine, run as root (or with sudo).
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh
cmake --preset default >/dev/null
cmake --build --preset default --target zqjson >/dev/null
zqjson=build/default/tools/zqjson/zqjson

for document in examples/json/*.json; do
  echo "== $document: $(head -c 120 "$document" | tr '\n' ' ')"
  # A document that fails says why once, from the first run.
  if "$zqjson" --describe "$document"; then
    "$zqjson" "$document" || true
  fi
done

echo "== small -> large -> small: examples/json/matrix.json"
large=$("$zqjson" examples/json/matrix.json)
echo "$large"
# The reader takes no white space after the value, so the line end is left off on the way back.
printf '%s' "$large" | "$zqjson" --format small -

echo "== zqjson --format small --pretty examples/json/struct.json"
"$zqjson" --format small --pretty examples/json/struct.json
