#!/usr/bin/env bash
# Installs the Debian packages that building and testing need, and any named as arguments, when missing.
set -euo pipefail

packages=(g++ clang-15 cmake ninja-build pkgconf libgtest-dev libgmock-dev libbenchmark-dev libboost-dev rapidjson-dev libsimdjson-dev doxygen "$@")
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if ((${#missing[@]})); then
  sudo=""
  [ "$(id -u)" -eq 0 ] || sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
