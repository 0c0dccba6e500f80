#!/usr/bin/env bash
# Guards the binary contract between the host and the logger plug-in.
#   scripts/check-abi.sh [--update] [PRESET]   (default: default; built if missing)
# Compares the ABI of the built plug-in (its exported factory and the types it
# reaches) with its baseline in abi/, and in the default variant also what
# ktl-cli exports to the plug-ins it loads (every host function and the
# record types, without the devhost:: helpers that only its shell uses). Any change fails with abidiff's
# report. --update rewrites the variant's baselines on purpose; commit them
# with the change that needs them.
#
# Baselines per variant: the default build's are abi/*.abi; another
# variant's are abi/PRESET/. The plug-in has one per variant because the
# variants differ in what the contract's types are made of: the std::string
# of the older ABI is another type under another mangled name, and on ILP32
# every pointer and the record's list are 32 bits. The host is compared in
# the default build only: it is built from the same host/ declarations in
# every variant, so the plug-in's baseline of each variant already holds the
# types both sides exchange.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
source "$top/scripts/presets.sh"
update=0
if [ "${1:-}" = "--update" ]; then
  update=1
  shift
fi
preset=${1:-default}
build_dir=$(preset_dir "$top" "$preset")

if [ ! -f "$build_dir/build.ninja" ]; then
  bash "$top/scripts/build.sh" "$preset"
fi
if [ "$preset" = default ]; then
  baseline_dir=$top/abi
  entries=("plugins/libktl_cli-logger.so:libktl_cli-logger" "devhost/ktl-cli:ktl-cli")
  cmake --build "$build_dir" --target ktl_cli-logger ktl-cli
else
  baseline_dir=$top/abi/$preset
  entries=("plugins/libktl_cli-logger.so:libktl_cli-logger")
  cmake --build "$build_dir" --target ktl_cli-logger
fi

suppressions=$top/abi/suppressions.ini
headers=(--headers-dir "$top/host" --headers-dir "$top/config")
# The representation leaves out build paths, so that it does not depend on
# where the checkout and the build directory are.
abidw_opts=(--no-corpus-path --no-comp-dir-path --short-locs --drop-private-types
  "${headers[@]}")

current=$build_dir/abi
mkdir -p "$current"
status=0
for entry in "${entries[@]}"; do
  lib=$build_dir/${entry%%:*}
  name=${entry##*:}
  extra=()
  # An executable's debug information describes all of it; what it offers
  # the modules it loads is what it exports.
  [ "$name" = ktl-cli ] && extra=(--exported-interfaces-only)
  abidw "${abidw_opts[@]}" "${extra[@]}" --out-file "$current/$name.abi" "$lib"
  baseline=$baseline_dir/$name.abi
  shown=${baseline#"$top"/}
  if [ "$update" -eq 1 ]; then
    mkdir -p "$baseline_dir"
    cp "$current/$name.abi" "$baseline"
    echo "check-abi: updated $shown"
    continue
  fi
  if [ ! -f "$baseline" ]; then
    echo "check-abi: $shown is missing; run scripts/check-abi.sh --update $preset" >&2
    status=1
    continue
  fi
  # abidiff's status is a bit field: 1 tool error, 2 usage error,
  # 4 ABI change, 8 incompatible ABI change. All of them fail the guard.
  rc=0
  abidiff --suppressions "$suppressions" "$baseline" "$current/$name.abi" \
    >"$current/$name.diff" 2>&1 || rc=$?
  if [ "$rc" -ne 0 ]; then
    echo "check-abi: $name differs from $shown (abidiff status $rc):" >&2
    cat "$current/$name.diff" >&2
    status=1
  else
    echo "check-abi: $name matches $shown"
  fi
done
exit "$status"
