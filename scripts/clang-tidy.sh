#!/usr/bin/env bash
# Runs clang-tidy, as .clang-tidy says, on the product code: the plug-in's
# and the development host's sources in the compile database of a build,
# with their own headers. Prints each finding once and fails on any.
#   scripts/clang-tidy.sh [BUILD_DIR] [FILE...]   (default: build/, every product source)
# KTL_TIDY_JOBS sets how many files are checked at once (default 2).
# A deliberate finding is silenced where it is, with NOLINT(check) and why.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build_dir=$(cd "${1:-$top/build}" && pwd)
shift || true
database=$build_dir/compile_commands.json
[ -f "$database" ] || { echo "clang-tidy: no $database; configure a build first (cmake --preset default)" >&2; exit 2; }

cd "$top"
if [[ $# -gt 0 ]]; then
  files=("$@")
else
  # Only sources the build compiles: a cross build may leave the shell out.
  mapfile -t files < <(git ls-files 'plugin/*.cpp' 'parse/*.cpp' 'config/*.cpp' 'pending/*.cpp' 'display/*.cpp' \
    'devhost/*.cpp' | while read -r file; do grep -qF "\"$top/$file\"" "$database" && echo "$file"; done)
fi
[ "${#files[@]}" -gt 0 ] || { echo "clang-tidy: no product source of $top in $database" >&2; exit 2; }

report=$(mktemp)
trap 'rm -f "$report"' EXIT
echo "clang-tidy: ${#files[@]} files, ${KTL_TIDY_JOBS:-2} at a time"
# The compile commands are GCC's: clang does not know some of its warning
# options. clang-tidy's own statistics go to standard error and are dropped.
status=0
printf '%s\n' "${files[@]}" |
  xargs -P "${KTL_TIDY_JOBS:-2}" -n 1 clang-tidy --quiet -p "$build_dir" \
    --extra-arg=-Wno-unknown-warning-option 2>/dev/null >"$report" || status=$?

# A finding in a header is reported by every file that includes it.
findings=$(grep -E '^[^ ].*:[0-9]+:[0-9]+: (warning|error): ' "$report" | sort -u || true)
if [ -n "$findings" ]; then
  cat "$report"
  echo "== $(wc -l <<<"$findings") finding(s)"
  echo "$findings"
  exit 1
fi
[ "$status" -eq 0 ] || { cat "$report"; echo "clang-tidy: failed (exit status $status) without a finding" >&2; exit 1; }
echo "clang-tidy: no finding"
