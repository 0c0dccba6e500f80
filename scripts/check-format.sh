#!/usr/bin/env bash
# Checks that every C++ file of the repository is formatted as .clang-format
# says. Lists the files that differ and exits 1 when there is one.
#   scripts/check-format.sh [FILE...]     (default: every tracked *.cpp and *.h)
# Reformat a file with: clang-format -i FILE
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
cd "$top"
if [[ $# -gt 0 ]]; then files=("$@"); else mapfile -t files < <(git ls-files '*.cpp' '*.h'); fi
differ=0
for file in "${files[@]}"; do
  if ! clang-format --style=file --dry-run --Werror "$file" >/dev/null 2>&1; then
    echo "$file"
    differ=$((differ + 1))
  fi
done
if [[ $differ -gt 0 ]]; then
  echo "$differ file(s) differ from .clang-format; reformat with: clang-format -i FILE" >&2
  exit 1
fi
