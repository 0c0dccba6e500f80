#!/usr/bin/env bash
# Guards the binary contract between the host and the logger plug-in.
#   scripts/check-abi.sh [--update] [BUILD_DIR]   (default build/, built if missing)
# Compares the ABI of the built plug-in (its exported factory and the types it
# reaches) and of the development host library (every host function and the
# record types, without the host's own devhost:: helpers) with the baselines
# in abi/. Any change fails with abidiff's report. --update rewrites the
# baselines on purpose; commit them with the change that needs them.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
update=0
if [ "${1:-}" = "--update" ]; then
  update=1
  shift
fi
build_dir=${1:-$top/build}

if [ ! -f "$build_dir/build.ninja" ]; then
  bash "$top/scripts/build.sh" "$build_dir"
fi
cmake --build "$build_dir" --target ktl_cli-logger ktl_host

suppressions=$top/abi/suppressions.ini
headers=(--headers-dir "$top/host" --headers-dir "$top/config")
# The representation leaves out build paths, so that it does not depend on
# where the checkout and the build directory are.
abidw_opts=(--no-corpus-path --no-comp-dir-path --short-locs --drop-private-types
  "${headers[@]}")

current=$build_dir/abi
mkdir -p "$current"
status=0
for entry in "plugins/libktl_cli-logger.so:libktl_cli-logger" "lib/ktl-cli/libktl_host.so:libktl_host"; do
  lib=$build_dir/${entry%%:*}
  name=${entry##*:}
  abidw "${abidw_opts[@]}" --out-file "$current/$name.abi" "$lib"
  baseline=$top/abi/$name.abi
  if [ "$update" -eq 1 ]; then
    cp "$current/$name.abi" "$baseline"
    echo "check-abi: updated abi/$name.abi"
    continue
  fi
  if [ ! -f "$baseline" ]; then
    echo "check-abi: abi/$name.abi is missing; run scripts/check-abi.sh --update" >&2
    status=1
    continue
  fi
  # abidiff's status is a bit field: 1 tool error, 2 usage error,
  # 4 ABI change, 8 incompatible ABI change. All of them fail the guard.
  rc=0
  abidiff --suppressions "$suppressions" "$baseline" "$current/$name.abi" \
    >"$current/$name.diff" 2>&1 || rc=$?
  if [ "$rc" -ne 0 ]; then
    echo "check-abi: $name differs from abi/$name.abi (abidiff status $rc):" >&2
    cat "$current/$name.diff" >&2
    status=1
  else
    echo "check-abi: $name matches abi/$name.abi"
  fi
done
exit "$status"
