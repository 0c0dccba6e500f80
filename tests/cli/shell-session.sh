#!/usr/bin/env bash
# Types the lines of standard input into an interactive `ktl-cli` on a
# pseudo-terminal and prints the screen as plain lines: carriage returns and
# libedit's cursor moves after a completion are removed. Each line is typed
# only when the shell waits at an empty prompt, a question or a lock, as an
# operator types: then libedit or the question has the terminal, and the terminal
# does not echo the line ahead of the shell. The input must end the shell
# (exit or Ctrl-D).
set -euo pipefail
mapfile -t lines
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkfifo "$work/keys"
# script starts its command through $SHELL; exec makes ktl-cli that process,
# so that a Ctrl-C reaches ktl-cli alone. A shell left waiting would die of
# it (dash does, when SHELL is unset or /bin/sh) and set the exit status.
# The terminal type is fixed too: libedit redraws differently on others.
SHELL=/bin/sh TERM=xterm timeout 120 script -qfec 'exec ktl-cli' /dev/null < "$work/keys" > "$work/screen" &
shell=$!
exec 3> "$work/keys"

# Waits until the screen has grown past $1 bytes and ends with an empty
# prompt, a question or a notice that the command waits for a lock: the
# shell has taken the last line typed and waits for the next.
screen_size() { stat -c %s "$work/screen"; }
wait_for_prompt() {
  for _ in $(seq 1200); do
    if [ "$(screen_size)" -gt "$1" ]; then
      case $(tail -c 7 "$work/screen") in *"ktl> " | "[y/n]: ") return ;; esac
      # A whole line only: the terminal ends each with \r\n.
      case $(tail -n 1 "$work/screen") in "ktl-cli: waiting for "*$'\r') return ;; esac
    fi
    sleep 0.05
  done
}
size=0
for line in "${lines[@]}"; do
  wait_for_prompt "$size"
  size=$(screen_size)
  # A line that ends in Ctrl-C is typed without Enter, as an operator would.
  case $line in
    *$'\003') printf '%s' "$line" >&3 ;;
    *) printf '%s\n' "$line" >&3 ;;
  esac
done
status=0
wait "$shell" || status=$?
exec 3>&-
perl -pe 's/\r\e\[\d+G//g; s/\e\[[0-9;]*[A-Za-z]//g; s/\r//g' "$work/screen"
exit "$status"
