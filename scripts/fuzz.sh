#!/usr/bin/env bash
# Fuzzes the platform's text readers (CDbl, IsNumeric, CDate, IsDate, Val,
# Format, CStr, comparisons) with libFuzzer for the given seconds (default
# 60). Builds in build/fuzz with clang; prints one summary line; exits
# non-zero on a finding, leaving the crashing input in build/fuzz/.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
dir=build/fuzz
export CC=clang CXX=clang++
mkdir -p "$dir"
if [ ! -f "$dir/CMakeCache.txt" ]; then
  cmake -S fuzz -B "$dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo >"$dir/configure.log" 2>&1 || { cat "$dir/configure.log"; exit 1; }
fi
cmake --build "$dir" -j"$(nproc)" >"$dir/build.log" 2>&1 || { cat "$dir/build.log"; echo "Fuzz build failed" >&2; exit 1; }

# A few seeds; the corpus grows across runs.
corpus="$dir/corpus"
mkdir -p "$corpus"
seed() { printf '%b' "$2" >"$corpus/seed-$1"; }
seed 1 '1.234,5\0#,##0.00'
seed 2 '15/03/2024 10:30:00\0dd-mm-yyyy hh:nn'
seed 3 '&HFFFF\00.00E+00'
seed 4 '(12,5)\0#,##0;(#,##0);\\z'
seed 5 '2024-03-15T10:30\0dddd, d \\d\\e mmmm'
seed 6 ' 2 45 7\0"x"0%'
seed 7 '10:30 PM\0h:mm AM/PM'
seed 8 'abc\0ABC'

log="$dir/fuzz.log"
if ! "$dir/fuzz_text_readers" -max_total_time="$seconds" -timeout=10 -print_final_stats=1 \
    -dict=fuzz/text_readers.dict -artifact_prefix="$dir/" "$corpus" >"$log" 2>&1; then
  tail -n 60 "$log"
  echo "Fuzzing found a problem: see $log and the crash-* file in $dir" >&2
  exit 1
fi
runs=$(grep -o 'stat::number_of_executed_units: *[0-9]*' "$log" | grep -o '[0-9]*$' || echo "?")
echo "fuzz_text_readers: ${seconds}s, ${runs} executions, no finding"
