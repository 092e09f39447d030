#!/usr/bin/env bash
# Installs the Debian 12 packages the build, the program and the tests need.
# Runs apt-get only when something is missing, as root or through sudo.
set -euo pipefail

packages=(cmake ninja-build g++ pkg-config qt6-base-dev libsqlcipher-dev sqlcipher
          libcurl4-openssl-dev googletest libgtest-dev libgmock-dev
          python3-pyftpdlib python3-openssl openssl fonts-dejavu-core xdg-utils libqt6svg6)
packages+=("$@")

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -eq 0 ]; then sudo=(); else sudo=(sudo); fi
echo "Installing: ${missing[*]}"
"${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
"${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
