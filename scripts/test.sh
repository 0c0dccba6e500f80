#!/usr/bin/env bash
# Sets up the machine, then builds and runs every test: once with warnings as
# errors (and the end-to-end ktl-cli runs again under valgrind's memcheck),
# once more under AddressSanitizer and UndefinedBehaviorSanitizer; then the
# guards: a minute of fuzzing, the binary contract against abi/, and
# the Debian packages built, installed, run and removed (needs root).
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

# Announces a step with the minutes and seconds since the start.
step() { printf '== [%02d:%02d] %s\n' $((SECONDS / 60)) $((SECONDS % 60)) "$*"; }
trap 'step "done (exit status $?)"' EXIT

bash "$top/scripts/setup.sh"

step "build and test"
bash "$top/scripts/build.sh" "$top/build" -DKTL_WERROR=ON
(cd "$top/build" && ctest --output-on-failure -j2)

step "end-to-end ktl-cli runs under valgrind memcheck"
bash "$top/scripts/valgrind-e2e.sh" "$top/build"

step "build and test under ASan and UBSan"
# Unoptimised: the sanitizers' instrumentation makes optimised builds of the
# tests several times slower to compile.
bash "$top/scripts/build.sh" "$top/build-sanitize" -DKTL_WERROR=ON -DKTL_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug
(cd "$top/build-sanitize" && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ctest --output-on-failure -j2)

step "fuzz the whole protocol for ${KTL_FUZZ_SECONDS:-60} s"
bash "$top/scripts/fuzz.sh" "${KTL_FUZZ_SECONDS:-60}"

step "binary contract"
bash "$top/scripts/check-abi.sh" "$top/build"

step "packages"
bash "$top/scripts/check-packages.sh" "$top/build-package"
