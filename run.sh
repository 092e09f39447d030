#!/usr/bin/env bash
# Installs what is missing, builds, and starts Lapkeeper.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBUILD_TESTING=OFF >/dev/null
cmake --build build -j2 --target lapkeeper lapkeeper_manual
exec build/lapkeeper "$@"
