#!/usr/bin/env bash
# Fuzzes the logger command's whole protocol for a while.
#   scripts/fuzz.sh [SECONDS]     (default 60)
# Builds the libFuzzer target with clang (the "fuzz" preset) in build-fuzz/ and runs it on a copy
# of fuzz/corpus/, so that the committed seeds do not grow. Exits non-zero on
# any crash, leak, sanitizer report or timeout; the reproducing input is left
# in build-fuzz/ (crash-*, leak-*, timeout-*) and can be replayed by passing
# it to build-fuzz/fuzz/logger_command_fuzzer.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-60}
build_dir=$top/build-fuzz

bash "$top/scripts/build.sh" fuzz

corpus=$build_dir/fuzz-corpus
rm -rf "$corpus"
mkdir -p "$corpus"
cp "$top"/fuzz/corpus/* "$corpus"/

cd "$build_dir"
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1}
"$build_dir/fuzz/logger_command_fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
  -print_final_stats=1 "$corpus"
