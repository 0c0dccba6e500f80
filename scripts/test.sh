#!/usr/bin/env bash
# Sets up the machine, then builds with warnings as errors and runs every
# test: with coverage counters (coverage per folder, with floors; this run
# stands for the default build's, whose end-to-end ktl-cli runs go under
# valgrind's memcheck), under AddressSanitizer and UndefinedBehaviorSanitizer,
# cross-built for armhf (older std::string ABI) under qemu-arm,
# each build's module checked with check-plugin.sh; the plug-in alone with
# GCC 11 (and its own tests) and with clang; then the guards: 20 seconds of fuzzing, the
# binary contract against abi/, and the Debian packages (built, inspected by
# lintian, installed, run and removed, which needs root; the armhf and arm64
# plug-in packages built and inspected). The C++ files must match
# .clang-format first; clang-tidy checks the product code in the background
# from the default build on and is waited for at the end. Each build is a
# preset of CMakePresets.json.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
cd "$top"

# Announces a step with the minutes and seconds since the start.
step() { printf '== [%02d:%02d] %s\n' $((SECONDS / 60)) $((SECONDS % 60)) "$*"; }
# A step that fails also ends the background clang-tidy (its own session).
tidy_pid=
trap 'status=$?; [ -z "$tidy_pid" ] || kill -- "-$tidy_pid" 2>/dev/null || true; step "done (exit status $status)"' EXIT

bash scripts/setup.sh
bash scripts/setup.sh --cross

# Builds a preset, runs its tests and checks its module.
build_and_test() {
  local preset=$1
  bash scripts/build.sh "$preset"
  ctest --preset "$preset"
  bash scripts/check-plugin.sh "$(source scripts/presets.sh; preset_dir "$top" "$preset")"
}

step "formatting (.clang-format)"
bash scripts/check-format.sh

# The product alone: the tests are built, with warnings as errors too, by
# the coverage and sanitizer builds; valgrind's step builds what it runs.
step "build the product with warnings as errors"
cmake --preset default >/dev/null
cmake --build --preset default --target ktl-cli ktl_cli-logger
bash scripts/check-plugin.sh "$top/build"

# clang-tidy needs only the default build's compile database and one core;
# it runs beside the steps below, which leave a core idle now and then.
tidy_log=$top/build/clang-tidy.log
KTL_TIDY_JOBS=1 setsid bash scripts/clang-tidy.sh "$top/build" >"$tidy_log" 2>&1 &
tidy_pid=$!

step "every test with coverage counters, coverage per folder"
bash scripts/coverage.sh "$top/build-coverage"

step "end-to-end ktl-cli runs under valgrind memcheck"
bash scripts/valgrind-e2e.sh "$top/build"

step "build and test under ASan and UBSan"
build_and_test sanitize

# The armhf build below uses the older std::string ABI too and runs every
# test with it; here the x86-64 module alone is built, for its own checks
# and its binary contract.
step "the plug-in with the older std::string ABI"
cmake --preset old-abi >/dev/null
cmake --build --preset old-abi --target ktl_cli-logger
bash scripts/check-plugin.sh "$top/build-old-abi"

step "build for armhf and test under qemu-arm"
build_and_test armhf

step "the plug-in with GCC 11 (and its tests) and with clang, C++11, warnings as errors"
build_and_test gcc11
bash scripts/build.sh clang
bash scripts/check-plugin.sh "$top/build-clang" >/dev/null

step "fuzz the whole protocol for ${KTL_FUZZ_SECONDS:-20} s"
bash scripts/fuzz.sh "${KTL_FUZZ_SECONDS:-20}"

step "binary contract"
for preset in default old-abi armhf; do
  bash scripts/check-abi.sh "$preset"
done

step "packages"
bash scripts/check-packages.sh "$top/build-package"
bash scripts/check-cross-package.sh "$top/build-armhf" armhf
# The aarch64 variant is built here for its package and contract only.
cmake --preset aarch64 >/dev/null
bash scripts/check-cross-package.sh "$top/build-aarch64" arm64
bash scripts/check-abi.sh aarch64

step "static analysis (clang-tidy, started after the first build)"
tidy_status=0
wait "$tidy_pid" || tidy_status=$?
tidy_pid=
if [ "$tidy_status" -ne 0 ]; then
  cat "$tidy_log"
  exit 1
fi
tail -n 1 "$tidy_log"
