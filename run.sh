#!/usr/bin/env bash
# The main job: installs what is missing, builds, and runs a trading day on
# the embedded database with the host tool `zaro demo`. Extra arguments go to zaro.
# The build also makes zaro-pos, the back-office program on the Qt kit.
set -euo pipefail
cd "$(dirname "$0")"
source scripts/setup.sh
zaro_build build/release -DCMAKE_BUILD_TYPE=Release -DZARO_TESTS=OFF -DZARO_BENCH=OFF -DZARO_QT=ON
if [ -x build/release/zaro ]; then
  if (($#)); then exec build/release/zaro "$@"; else exec build/release/zaro demo; fi
else
  exec build/release/example_tour "$@"
fi
