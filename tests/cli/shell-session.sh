#!/usr/bin/env bash
# Types the lines of standard input into an interactive `ktl-cli` on a
# pseudo-terminal and prints the screen as plain lines: carriage returns and
# libedit's cursor moves after a completion are removed. Each line is typed
# only when the shell waits at an empty prompt, as an operator types: then
# libedit has the terminal, and the terminal does not echo the line ahead of
# the shell. The input must end the shell (exit or Ctrl-D).
set -euo pipefail
mapfile -t lines
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkfifo "$work/keys"
timeout 60 script -qfec ktl-cli /dev/null < "$work/keys" > "$work/screen" &
shell=$!
exec 3> "$work/keys"

# True once the screen ends with an empty prompt.
at_prompt() { [ "$(tail -c 5 "$work/screen")" = "ktl> " ]; }
for line in "${lines[@]}"; do
  for _ in $(seq 600); do
    at_prompt && break
    sleep 0.05
  done
  printf '%s\n' "$line" >&3
  # Let the shell take the line before looking for the next prompt.
  sleep 0.2
done
status=0
wait "$shell" || status=$?
exec 3>&-
perl -pe 's/\r\e\[\d+G//g; s/\e\[[0-9;]*[A-Za-z]//g; s/\r//g' "$work/screen"
exit "$status"
