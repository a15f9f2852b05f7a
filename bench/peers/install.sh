#!/usr/bin/env bash
# Installs the peers of the peer benchmark (bench/peers): SOCI with its MySQL
# backend (libsoci-dev; its headers want Boost's, libboost-dev) and Qt SQL's
# MySQL driver (libqt6sql6-mysql; Qt's own headers come with the project's
# qt6-base-dev). Only the benchmark needs them: the library and its tests never do.
set -euo pipefail
packages=(libsoci-dev libboost-dev libqt6sql6-mysql qt6-base-dev)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if ((${#missing[@]})); then
  echo "Installing: ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
echo "The peers are installed; configure the build again (cmake -S . -B build/...) to build bench_peers."
