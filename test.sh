#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test through CTest.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
cmake -S . -B build-test -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBUILD_TESTING=ON -DLK_WERROR=ON
cmake --build build-test -j2
export XDG_RUNTIME_DIR="$(mktemp -d)"
chmod 700 "$XDG_RUNTIME_DIR"
ctest --test-dir build-test -j2 --output-on-failure --no-tests=error
