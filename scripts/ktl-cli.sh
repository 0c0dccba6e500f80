#!/usr/bin/env bash
# Sets up the machine, builds the project quietly and runs the development
# host's ktl-cli with the given words, e.g.
#   bash scripts/ktl-cli.sh logger -confirm cur
# The build (the "default" preset) goes to build/ at the top of the checkout,
# or to $KTL_BUILD_DIR.
# Progress goes to standard error in short lines, only when there is work
# to do; build output is shown only when the build fails. Standard output is
# ktl-cli's alone.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build_dir=${KTL_BUILD_DIR:-$top/build}

progress() { echo "ktl-cli.sh: $*" >&2; }

first_time=0
[ -f "$build_dir/build.ninja" ] || first_time=1
[ "$first_time" = 0 ] || progress "setting up packages (installs what is missing)..."
bash "$top/scripts/setup.sh" >&2

if [ "$first_time" = 1 ]; then
  progress "building in $build_dir (first time: about 2 minutes)..."
elif ! ninja -C "$build_dir" -n 2>/dev/null | grep -q '^ninja: no work to do'; then
  progress "building the changes in $build_dir..."
fi
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
