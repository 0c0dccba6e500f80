#!/usr/bin/env bash
# Types the lines of standard input into an interactive `ktl-cli` on a
# pseudo-terminal and prints the screen as plain lines, as the terminal
# shows them. Each line is typed
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
: > "$work/screen"  # there before the background job opens it, for the first wait
SHELL=/bin/sh TERM=xterm timeout 120 script -qfec 'exec ktl-cli' /dev/null < "$work/keys" > "$work/screen" &
shell=$!
exec 3> "$work/keys"

# Waits until the screen has grown past $1 bytes and ends with an empty
# prompt (with or without its pending mark), a question or a notice that
# the command waits for a lock: the shell has taken the last line typed and
# waits for the next. Fails at once when the shell has ended: the lines
# left are not typed, and the screen shows where it ended.
screen_size() { stat -c %s "$work/screen"; }
wait_for_prompt() {
  for _ in $(seq 1200); do
    kill -0 "$shell" 2> /dev/null || return 1
    if [ "$(screen_size)" -gt "$1" ]; then
      case $(tail -c 16 "$work/screen") in *"ktl> " | *"ktl [pending]> " | *"[y/n]: ") return ;; esac
      # A whole line only: the terminal ends each with \r\n.
      case $(tail -n 1 "$work/screen") in "ktl-cli: waiting for "*$'\r') return ;; esac
    fi
    sleep 0.05
  done
}
size=0
for line in "${lines[@]}"; do
  wait_for_prompt "$size" || break
  size=$(screen_size)
  # A line that ends in Ctrl-C or Ctrl-D is typed without Enter, as an
  # operator would: an Enter after it would answer what the key brought up.
  case $line in
    *$'\003' | *$'\004') printf '%s' "$line" >&3 ;;
    *) printf '%s\n' "$line" >&3 ;;
  esac
done
status=0
wait "$shell" || status=$?
exec 3>&-
# The terminal's line as it ends up: a carriage return or a move to a column
# (libedit's redraw after a completion or a list) moves where the following
# text is written, over what stands there; "erase to the end of the line"
# erases; other escape sequences change nothing on a plain screen.
perl -ne '
  my $end = s/\n\z// ? "\n" : ""; my ($line, $col) = ("", 0);
  while (length) {
    if (s/^\r//) { $col = 0 }
    elsif (s/^\e\[(\d*)G//) { $col = ($1 || 1) - 1 }
    elsif (s/^\e\[0?K//) { substr($line, $col) = "" if $col < length $line }
    elsif (s/^\e\[[0-9;?]*[A-Za-z]//) {}
    else { s/^(.)//s; $line .= " " x ($col - length $line); substr($line, $col, 1) = $1; $col++ }
  }
  print $line, $end;' "$work/screen"
exit "$status"
