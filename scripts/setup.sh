#!/usr/bin/env bash
# Installs the Debian packages the project needs when any is missing.
# Quiet when all are in place. Sourced or run by run.sh and test.sh.
set -euo pipefail

ZARO_PACKAGES=(g++ cmake make pkg-config man-db
  libmariadbd-dev mariadb-server galera-4 rsync socat
  libxml2-dev libicu-dev
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  clang libclang-rt-14-dev
  qt6-base-dev fonts-dejavu-core)

zaro_missing=()
for p in "${ZARO_PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || zaro_missing+=("$p")
done
if ((${#zaro_missing[@]})); then
  echo "Installing: ${zaro_missing[*]}"
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${zaro_missing[@]}" >/dev/null
fi

# Configures and builds one build folder: zaro_build DIR [cmake options...];
# ZARO_TARGET="name ..." builds those targets alone.
zaro_build() {
  local dir="$1"; shift
  if [ ! -f "$dir/CMakeCache.txt" ]; then
    cmake -S . -B "$dir" "$@" >/dev/null
  fi
  local target=()
  # shellcheck disable=SC2206  # one word per target
  [ -z "${ZARO_TARGET:-}" ] || target=(--target $ZARO_TARGET)
  if ! cmake --build "$dir" -j"$(nproc)" "${target[@]}" >"$dir/build.log" 2>&1; then
    cat "$dir/build.log"
    echo "Build failed in $dir" >&2
    return 1
  fi
}
