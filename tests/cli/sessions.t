Pending edits belong to the terminal session that made them (its POSIX
session). Wrappers, subshells and pipelines of this shell are this session;
`setsid` starts a command in another one.

  $ state=$HOME/.local/state/ktl-cli
  $ ktl-cli logger -syslogoutput off
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ timeout 10 ktl-cli logger -syslogoutput on
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ (ktl-cli logger -alert wrn -setting off)
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ { ktl-cli logger -device mem -setting off; } | cat
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ sh -c 'ktl-cli logger -confirm edit' | grep -E 'Warning|Memory'
      Warning alerts        : Off
    Memory usage monitor    : Off

sudo may give its command a terminal and a session of its own, led by a
sudo process: that command is still of the session sudo was started from
(here a shell named sudo stands in for it).

  $ ln -s /bin/sh sudo
  $ setsid -w ./sudo -c 'ktl-cli logger -alert inf -setting off; true'
  The change is pending: "logger -save" applies it, "logger -discard" drops it.

Another session may look, but neither edit, save nor discard; the discard
names the owner.

  $ setsid -w ktl-cli logger -device cpu -setting off
  Error: The logger configuration is being edited in another session. Save or discard the pending changes in that session first.
  ktl-cli: the pending changes in /*/ktl-cli/logger.edit.ini belong to session * of user *, held since *, whose leader (process *) is still running; "logger -discard" in that session releases them, or removing the file once it has ended (glob)
  [1]
  $ setsid -w ktl-cli logger -save -nochk
  Error: The logger configuration is being edited in another session. Save or discard the pending changes in that session first.
  ktl-cli: the pending changes in /*/ktl-cli/logger.edit.ini belong to session * of user *, held since *, whose leader (process *) is still running; "logger -discard" in that session releases them, or removing the file once it has ended (glob)
  [1]
  $ setsid -w ktl-cli logger -discard -nochk
  ktl-cli: the pending changes in /*/ktl-cli/logger.edit.ini belong to session * of user *, held since *, whose leader (process *) is still running; "logger -discard" in that session releases them, or removing the file once it has ended (glob)
  [1]
  $ setsid -w ktl-cli logger -confirm edit | grep Warning
      Warning alerts        : Off
  $ grep -c Warning=0x10 $state/logger.edit.ini
  1

Edits whose session has ended are taken over by the next session that
edits them: here, a session that ends with its one command.

  $ ktl-cli logger -discard -nochk
  The pending changes were discarded.
  $ setsid -w ktl-cli logger -device cpu -setting off
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ ktl-cli logger -device mem -setting off
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ ktl-cli logger -confirm edit | grep -A0 'usage monitor'
    CPU usage monitor       : Off
    Memory usage monitor    : Off
    Disk usage monitor      : Off

A save whose pending changes are discarded while its question is open says
so, and saves nothing. The discard runs once the save has asked; the answer
comes once the pending file is gone.

  $ waitfor() { for i in $(seq 600); do eval "$1" && return; sleep 0.1; done; echo "timed out: $1"; }
  $ { waitfor "[ ! -e $state/logger.edit.ini ]"; echo y; } | ktl-cli logger -save > save.out 2>&1 &
  $ waitfor "grep -q y/n save.out 2>/dev/null"
  $ ktl-cli logger -discard -nochk
  The pending changes were discarded.
  $ wait; cat save.out
  Saving puts 2 pending changes into effect (in effect -> pending):
    CPU usage monitor: On -> Off
    Memory usage monitor: On -> Off
  Save the pending changes and put the logger configuration into effect? [y/n]: y
  ktl-cli: the pending changes were discarded by another command while this one waited for an answer; nothing was saved
  $ ktl-cli logger -confirm cur | grep 'CPU usage'
    CPU usage monitor       : On
