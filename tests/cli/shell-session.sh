#!/usr/bin/env bash
# Types the lines of standard input into an interactive `ktl-cli` on a
# pseudo-terminal and prints the screen as plain lines: carriage returns and
# libedit's cursor moves after a completion are removed. The input is sent
# once the shell waits at its first prompt, so the terminal never echoes it
# ahead of the shell.
set -euo pipefail
input=$(cat)
{ sleep "${KTL_SHELL_START_SECONDS:-1}"; printf '%s\n' "$input"; sleep 1; } |
  script -qec ktl-cli /dev/null |
  perl -pe 's/\r\e\[\d+G//g; s/\e\[[0-9;]*[A-Za-z]//g; s/\r//g'
