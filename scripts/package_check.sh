#!/usr/bin/env bash
# The library as a package, checked from outside the build tree:
#  1. `cmake --install` of a built tree into a staging prefix: the shared
#     library with its version and SONAME, exactly the public headers (each
#     compiling on its own against the prefix), the CMake package, zarodatos.pc,
#     zaro with its sample day and manual page, and no path into the sources or
#     the build in any installed text file;
#  2. the consumer example, copied out of the sources, built with its CMake
#     package and with pkg-config against that prefix only, run, its output
#     compared;
#  3. `cpack -G DEB`: the three packages, their files and their Depends, then
#     unpacked with dpkg-deb -x into a temp root, and the consumer built and
#     run against that root, and zaro run from it.
# One version runs through all of it: the one project() defines.
#
# Usage: scripts/package_check.sh BUILD_DIR   (an optimised build, already built)
set -euo pipefail

src=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:?usage: scripts/package_check.sh BUILD_DIR}" && pwd)
work=$(mktemp -d "${TMPDIR:-/tmp}/zarodatos-package-XXXXXX")
trap 'rm -rf "$work"' EXIT
unset CMAKE_PREFIX_PATH PKG_CONFIG_PATH LD_LIBRARY_PATH
jobs=$(($(nproc) < 2 ? $(nproc) : 2))

failures=0
fail() {
  echo "FAILED: $*" >&2
  failures=$((failures + 1))
}
# same WHAT EXPECTED ACTUAL
same() {
  if [ "$2" != "$3" ]; then
    fail "$1"
    diff <(printf '%s\n' "$2") <(printf '%s\n' "$3") | sed 's/^/    /' >&2 || true
  fi
}
has() {  # has WHAT TEXT NEEDLE
  case "$2" in *"$3"*) ;; *) fail "$1: '$3' not found in: $2" ;; esac
}

version=$(sed -n 's/^project(ZARODatos VERSION \([0-9][0-9.]*\).*/\1/p' "$src/CMakeLists.txt")
major=${version%%.*}
[ -n "$version" ] || { echo "no version in CMakeLists.txt's project()" >&2; exit 1; }
echo "version $version (SONAME libZARODatos.so.$major)"

# What the consumer example prints.
expected_consumer="ZARODatos $version
articulo created
2 articles
BOC01;2;4,5;Bocadillo de jamón
CAF01;1;1,8;Café con leche"

# ------------------------------------------------------------ the prefix

# check_prefix WHAT PREFIX LIBDIR: what an installed tree holds.
check_prefix() {
  local what=$1 prefix=$2 libdir=$3
  local lib=$prefix/$libdir
  if [ ! -f "$lib/libZARODatos.so.$version" ] || [ -L "$lib/libZARODatos.so.$version" ]; then
    fail "$what: no file $libdir/libZARODatos.so.$version"
  fi
  same "$what: libZARODatos.so.$major" "libZARODatos.so.$version" "$(readlink "$lib/libZARODatos.so.$major")"
  same "$what: libZARODatos.so" "libZARODatos.so.$major" "$(readlink "$lib/libZARODatos.so")"
  same "$what: SONAME" "libZARODatos.so.$major" \
    "$(readelf -d "$lib/libZARODatos.so.$version" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p')"

  # Exactly the public headers: no header of src/, no mysql.h.
  same "$what: installed headers" \
    "$(cd "$src/include" && find ZARODatos.h ZARODatos -name '*.h' | sort)" \
    "$(cd "$prefix/include" && find . -type f | sed 's|^\./||' | sort)"
  [ -z "$(find "$prefix" -name mysql.h)" ] || fail "$what: mysql.h is installed"

  local cm=$lib/cmake/ZARODatos
  for f in ZARODatosConfig.cmake ZARODatosConfigVersion.cmake ZARODatosTargets.cmake; do
    [ -f "$cm/$f" ] || fail "$what: no $libdir/cmake/ZARODatos/$f"
  done
  local targets
  targets=$(cat "$cm/ZARODatosTargets.cmake")
  has "$what: the exported target" "$targets" 'add_library(ZARODatos::ZARODatos SHARED IMPORTED)'
  has "$what: its include folder" "$targets" 'INTERFACE_INCLUDE_DIRECTORIES "${_IMPORT_PREFIX}/include"'
  has "$what: its language level" "$targets" 'INTERFACE_COMPILE_FEATURES "cxx_std_20"'
  for dep in MariaDB::Embedded LibXml2::LibXml2 ICU::uc ICU::i18n; do
    has "$what: its link dependencies" "$targets" "\$<LINK_ONLY:$dep>"
  done
  # The version file: find_package(ZARODatos 1) takes any 1.x.y, and no other major.
  for want in "$major:TRUE" "$major.0:TRUE" "$version:TRUE" "$((major + 1)):FALSE" "$((major - 1)):FALSE"; do
    local asked=${want%%:*}
    local answer
    answer=$(cmake -DPACKAGE_FIND_VERSION="$asked" -DPACKAGE_FIND_VERSION_MAJOR="${asked%%.*}" \
      -DFILE="$cm/ZARODatosConfigVersion.cmake" -P "$work/version_asked.cmake" 2>&1)
    same "$what: find_package(ZARODatos $asked) takes $version" "$version ${want##*:}" "$answer"
  done

  local pc=$lib/pkgconfig/zarodatos.pc
  [ -f "$pc" ] || fail "$what: no $libdir/pkgconfig/zarodatos.pc"
  same "$what: pkg-config --modversion" "$version" \
    "$(PKG_CONFIG_PATH=$lib/pkgconfig pkg-config --modversion zarodatos)"

  same "$what: zaro --version" "zaro (ZARODatos) $version" "$("$prefix/bin/zaro" --version)"
  same "$what: zaro's sample day" "$(cd "$src/tools/zaro/sample" && ls ./*.txt)" \
    "$(cd "$prefix/share/zaro/sample" && ls ./*.txt)"
  local page
  page=$(LC_ALL=C.UTF-8 MANWIDTH=100 man --warnings -M "$prefix/share/man" zaro 2>"$work/man.err")
  has "$what: man zaro" "$page" "zaro - the sales figures of a restaurant's trading day"
  has "$what: man zaro" "$page" "zaro demo [--out DIR] [--sample DIR]"
  has "$what: man zaro" "$page" "zaro $version"
  [ ! -s "$work/man.err" ] || fail "$what: man zaro warns: $(cat "$work/man.err")"

  # Nothing installed points back into the sources or the build.
  local leaks
  leaks=$(grep -rIl -e "$src" -e "$build" "$prefix" || true)
  [ -z "$leaks" ] || fail "$what: files naming the source or build tree: $leaks"
}

# build_consumer WHAT PREFIX LIBDIR: the consumer example, copied out of the
# sources, built with CMake and with pkg-config against PREFIX only, and run.
build_consumer() {
  local what=$1 prefix=$2 libdir=$3
  local dir=$work/consumer-$what
  mkdir -p "$dir"
  cp "$src/examples/consumer/CMakeLists.txt" "$src/examples/consumer/consumer.cpp" "$dir/"

  cmake -S "$dir" -B "$dir/build" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF \
    >"$dir/cmake.log" 2>&1 || { cat "$dir/cmake.log"; fail "$what: the consumer's CMake configure"; return; }
  same "$what: the CMake package found" "$prefix/$libdir/cmake/ZARODatos" \
    "$(sed -n 's/^ZARODatos_DIR:PATH=//p' "$dir/build/CMakeCache.txt")"
  cmake --build "$dir/build" >>"$dir/cmake.log" 2>&1 || { cat "$dir/cmake.log"; fail "$what: the consumer's CMake build"; return; }
  same "$what: the consumer built with find_package" "$expected_consumer" "$("$dir/build/consumer")"

  local flags
  flags=$(PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig pkg-config --cflags --libs zarodatos)
  case "$flags" in *"$src"* | *"$build"*) fail "$what: pkg-config points into the source or build tree: $flags" ;; esac
  # shellcheck disable=SC2086  # the flags are words
  g++ -std=c++20 -Wall -Wextra -Werror "$dir/consumer.cpp" $flags -o "$dir/consumer-pc" ||
    { fail "$what: the consumer built with pkg-config"; return; }
  same "$what: the consumer built with pkg-config" "$expected_consumer" \
    "$(LD_LIBRARY_PATH=$prefix/$libdir "$dir/consumer-pc")"
}

cat >"$work/version_asked.cmake" <<'EOF'
include("${FILE}")
if(PACKAGE_VERSION_COMPATIBLE)
  message("${PACKAGE_VERSION} TRUE")
else()
  message("${PACKAGE_VERSION} FALSE")
endif()
EOF

libdir=$(sed -n 's/^CMAKE_INSTALL_LIBDIR:PATH=//p' "$build/CMakeCache.txt")
stage=$work/stage
echo "== cmake --install into a staging prefix =="
cmake --install "$build" --prefix "$stage" --strip >"$work/install.log"
check_prefix stage "$stage" "$libdir"

echo "== each installed header compiles on its own =="
(cd "$stage/include" && find . -name '*.h' | sed 's|^\./||' | sort) >"$work/headers"
if ! xargs -P "$jobs" -I{} sh -c 'printf "#include <%s>\n" "$1" |
      g++ -std=c++20 -fsyntax-only -Wall -Wextra -Werror -I"$2" -x c++ - || { echo "  $1 does not compile alone"; exit 1; }' \
      _ {} "$stage/include" <"$work/headers"; then
  fail "stage: a public header does not compile on its own against the prefix"
fi

echo "== the consumer against the staging prefix =="
build_consumer stage "$stage" "$libdir"

echo "== zaro from the staging prefix =="
mkdir -p "$work/zaro-stage"
(cd "$work/zaro-stage" && "$stage/bin/zaro" demo >demo.txt 2>&1) || fail "stage: zaro demo: $(cat "$work/zaro-stage/demo.txt")"
has "stage: zaro demo" "$(cat "$work/zaro-stage/demo.txt")" "Trading day 14/03/2026: 45 tickets, gross 627,45 after returns"

# ------------------------------------------------------------ the Debian packages

echo "== cpack -G DEB =="
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work/deb" >"$work/cpack.log" 2>&1 ||
  { cat "$work/cpack.log"; fail "cpack -G DEB"; exit 1; }
arch=$(dpkg --print-architecture)
runtime=$work/deb/libzarodatos${major}_${version}_${arch}.deb
dev=$work/deb/libzarodatos-dev_${version}_${arch}.deb
tool=$work/deb/zaro_${version}_${arch}.deb
for deb in "$runtime" "$dev" "$tool"; do
  [ -f "$deb" ] || { fail "no package $(basename "$deb") (made: $(cd "$work/deb" && ls ./*.deb))"; exit 1; }
  same "$(basename "$deb"): Version" "$version" "$(dpkg-deb -f "$deb" Version)"
done

# The files of a package, as paths under the prefix /usr.
files() { dpkg-deb -c "$1" | awk '$1 !~ /^d/ {print $6}' | sed 's|^\./usr/||' | sort; }
same "libzarodatos$major: files" "$(printf '%s\n' "$libdir/libZARODatos.so.$major" "$libdir/libZARODatos.so.$version")" \
  "$(files "$runtime")"
same "libzarodatos-dev: files" "$(
  (cd "$stage" && find include "$libdir/cmake" "$libdir/pkgconfig" -type f && echo "$libdir/libZARODatos.so") | sort
)" "$(files "$dev")"
same "zaro: files" "$(
  echo bin/zaro
  echo share/man/man1/zaro.1
  (cd "$src/tools/zaro/sample" && ls ./*.txt) | sed 's|^\./|share/zaro/sample/|'
)" "$(files "$tool")"

# Depends: each shared library a binary needs comes from a package that its
# Depends names; the development package needs the development packages of
# the libraries a host links with.
depends() { dpkg-deb -f "$1" Depends | tr ',' '\n' | sed 's/^ *//; s/ *(.*//' | sort; }
packages_needed() {  # the Debian packages of the shared libraries a binary names
  local binary=$1 soname path
  for soname in $(readelf -d "$binary" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p'); do
    [ "${soname#libZARODatos}" = "$soname" ] || continue
    path=$(ldconfig -p | awk -v s="$soname" '$1 == s && /x86-64|x86_64|64bit/ {print $NF; exit}')
    [ -n "$path" ] || path=$(ldconfig -p | awk -v s="$soname" '$1 == s {print $NF; exit}')
    { dpkg -S "$path" 2>/dev/null || dpkg -S "$(readlink -f "$path")" 2>/dev/null ||
      dpkg -S "/usr$path" 2>/dev/null || echo "unknown-package-of-$soname:"; } | head -1 | sed 's/:.*//'
  done | sort -u
}
root=$work/root
for deb in "$runtime" "$dev" "$tool"; do dpkg-deb -x "$deb" "$root"; done
for pair in "$runtime:usr/$libdir/libZARODatos.so.$version" "$tool:usr/bin/zaro"; do
  deb=${pair%%:*}
  for p in $(packages_needed "$root/${pair#*:}"); do
    has "$(basename "$deb"): Depends" "$(depends "$deb" | tr '\n' ' ')" "$p "
  done
done
runtime_depends=$(depends "$runtime" | tr '\n' ' ')
for p in libmariadbd19 libxml2 libicu72; do has "libzarodatos$major: Depends" "$runtime_depends" "$p "; done
same "libzarodatos-dev: Depends" "libicu-dev|libmariadbd-dev|libxml2-dev|libzarodatos$major ($version)" \
  "$(dpkg-deb -f "$dev" Depends | tr ',' '\n' | sed 's/^ *//; s/(= /(/' | sort | paste -sd'|')"
has "zaro: Depends" "$(dpkg-deb -f "$tool" Depends)" "libzarodatos$major (= $version)"
same "libzarodatos$major: shlibs" "libZARODatos $major libzarodatos$major (>= $version)" \
  "$(dpkg-deb -I "$runtime" shlibs)"

echo "== the packages unpacked into a temp root =="
check_prefix deb "$root/usr" "$libdir"
build_consumer deb "$root/usr" "$libdir"
# The packaged zaro finds its sample day where the package put it.
mkdir -p "$work/zaro-deb"
(cd "$work/zaro-deb" && "$root/usr/bin/zaro" demo >demo.txt 2>&1) || fail "deb: zaro demo: $(cat "$work/zaro-deb/demo.txt")"
has "deb: zaro demo" "$(cat "$work/zaro-deb/demo.txt")" "Trading day 14/03/2026: 45 tickets, gross 627,45 after returns"
rm "$root/usr/share/zaro/sample/fin_dia.txt"
missing=$(cd "$work/zaro-deb" && { "$root/usr/bin/zaro" demo 2>&1 >/dev/null || true; })
has "deb: zaro demo reads the packaged sample day" "$missing" "$root/usr/share/zaro/sample/fin_dia.txt"

if ((failures)); then
  echo "package check: $failures failure(s)" >&2
  exit 1
fi
echo "package check: all good (version $version, ${SECONDS} s)"
