#!/usr/bin/env bash
# All tests: installs what is missing, builds the library and tests twice
# (optimised, and Debug with AddressSanitizer and UndefinedBehaviorSanitizer)
# and the tests that use threads a third time with ThreadSanitizer,
# fuzzes the text readers for a bounded time, then runs every test program
# in both builds on the embedded database and on a MariaDB server (the Qt
# kit and zaro-pos, offscreen, in the optimised one), and last
# checks the library as a package from outside the build tree (install into a
# staging prefix, Debian packages, the consumer example built against both).
set -euo pipefail
cd "$(dirname "$0")"
source scripts/setup.sh
zaro_build build/test -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZARO_BENCH=ON -DZARO_QT=ON
zaro_build build/asan -DCMAKE_BUILD_TYPE=Debug -DZARO_SANITIZE=ON -DZARO_BENCH=OFF
ZARO_TARGET="test_threads test_internals" zaro_build build/tsan -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZARO_TSAN=ON -DZARO_BENCH=OFF
bash scripts/fuzz.sh "${ZARO_FUZZ_SECONDS:-60}"
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1:detect_stack_use_after_return=0}"
export LSAN_OPTIONS="${LSAN_OPTIONS:-suppressions=$PWD/tests/support/lsan.supp}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"
echo "== thread sanitizer: the tests that use threads, and the engine thread's hand-over =="
TSAN_OPTIONS="${TSAN_OPTIONS:-halt_on_error=1 second_deadlock_stack=1}" ctest --test-dir build/tsan --output-on-failure -R '^(threads|internals)$'
echo "== sanitizer build =="
ctest --test-dir build/asan --output-on-failure -j1
echo "== optimised build =="
ctest --test-dir build/test --output-on-failure -j1
echo "== the library as a package =="
bash scripts/package_check.sh build/test
