#!/usr/bin/env bash
# Seeded mutation check of the library against the unit suite; see scripts/mutation_check.py --help.
# Installs what it needs on Debian 12 (run as root or with sudo), then passes its arguments on.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-packages.sh python3 ccache
exec python3 scripts/mutation_check.py "$@"
