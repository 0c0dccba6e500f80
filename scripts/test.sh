#!/usr/bin/env bash
# Sets up the machine, then builds and runs every test: once with warnings as
# errors (and the end-to-end ktl-cli runs again under valgrind's memcheck),
# once more under AddressSanitizer and UndefinedBehaviorSanitizer, once with
# the older std::string ABI and once cross-built for armhf under qemu-arm,
# each build's module checked with check-plugin.sh; then the guards: a minute
# of fuzzing, the binary contract against abi/, and the Debian packages
# (built, installed, run and removed, which needs root; the armhf ones built
# and inspected). The C++ files must match .clang-format first. Each build is
# a preset of CMakePresets.json.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
cd "$top"

# Announces a step with the minutes and seconds since the start.
step() { printf '== [%02d:%02d] %s\n' $((SECONDS / 60)) $((SECONDS % 60)) "$*"; }
trap 'step "done (exit status $?)"' EXIT

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

step "build and test"
build_and_test default

step "end-to-end ktl-cli runs under valgrind memcheck"
bash scripts/valgrind-e2e.sh "$top/build"

step "build and test under ASan and UBSan"
build_and_test sanitize

step "build and test with the older std::string ABI"
build_and_test old-abi

step "build for armhf and test under qemu-arm"
build_and_test armhf

step "fuzz the whole protocol for ${KTL_FUZZ_SECONDS:-60} s"
bash scripts/fuzz.sh "${KTL_FUZZ_SECONDS:-60}"

step "binary contract"
for preset in default old-abi armhf; do
  bash scripts/check-abi.sh "$preset"
done

step "packages"
bash scripts/check-packages.sh "$top/build-package"
bash scripts/check-cross-package.sh "$top/build-armhf" armhf
