#!/usr/bin/env bash
# Configures and builds the project into a build directory.
#   scripts/build.sh [BUILD_DIR] [extra cmake options...]
# BUILD_DIR defaults to build/ at the top of the checkout.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build_dir=${1:-$top/build}
shift || true
cmake -S "$top" -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
cmake --build "$build_dir"
