#!/usr/bin/env bash
# Sets up the machine, builds the project quietly and runs the development
# host's ktl-cli with the given words, e.g.
#   bash scripts/ktl-cli.sh logger -confirm cur
# The build (the "default" preset) goes to build/ at the top of the checkout,
# or to $KTL_BUILD_DIR.
# Build output is shown only when the build fails.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build_dir=${KTL_BUILD_DIR:-$top/build}

bash "$top/scripts/setup.sh" >&2

log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! bash "$top/scripts/build.sh" default "$build_dir" >"$log" 2>&1; then
  cat "$log" >&2
  echo "ktl-cli.sh: the build in $build_dir failed" >&2
  exit 1
fi
rm -f "$log"
trap - EXIT

exec "$build_dir/devhost/ktl-cli" "$@"
