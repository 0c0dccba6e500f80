#!/usr/bin/env bash
# Configures and builds one variant from its preset in CMakePresets.json.
#   scripts/build.sh [PRESET] [BUILD_DIR]
# PRESET defaults to "default"; BUILD_DIR to the preset's own directory
# (build/ for the default, build-<preset>/ for the others).
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
preset=${1:-default}
cd "$top"
if [ -n "${2:-}" ]; then
  cmake --preset "$preset" -B "$2" >/dev/null
  cmake --build "$2"
else
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
fi
