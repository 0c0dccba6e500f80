#!/usr/bin/env bash
# Checks that the README's example session is the cram session
# tests/cli/readme_session.t, word for word: the README shows the session's
# indented lines (commands and output) as a code block right after the line
# "<!-- session: tests/cli/readme_session.t -->", up to the first line that is
# neither indented nor blank.
set -euo pipefail
top=$(cd "$(dirname "$0")/../.." && pwd)
marker='<!-- session: tests/cli/readme_session.t -->'

expected=$(sed -n 's/^  //p' "$top/tests/cli/readme_session.t")
shown=$(awk -v marker="$marker" '
  $0 == marker { inside = 1; next }
  !inside { next }
  /^    / { print substr($0, 5); started = 1; next }
  /^$/ { if (started) print ""; next }
  { exit }' "$top/README.md")

if [ "$expected" != "$shown" ]; then
  echo "check-readme: the README's example session differs from tests/cli/readme_session.t:" >&2
  diff -u <(printf '%s\n' "$expected") <(printf '%s\n' "$shown") >&2 || true
  exit 1
fi
echo "check-readme: the README's example session is tests/cli/readme_session.t"
