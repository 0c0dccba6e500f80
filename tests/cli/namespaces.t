Each PID namespace (a container, say) numbers its processes anew, so two of
them each have a session 1. Pending edits record the namespace of the
session that made them; from another namespace it cannot be told whether
that session still runs, so its edits are left alone, and the refusal names
their owner and how to release them.

  $ unshare -p -f --mount-proc true 2>/dev/null || exit 80
  $ state=$HOME/.local/state/ktl-cli

The first container's session edits and goes on running until the test
lets it end.

  $ waitfor() { for i in $(seq 600); do eval "$1" && return; sleep 0.1; done; echo "timed out: $1"; }
  $ unshare -p -f --mount-proc setsid -w sh -c 'ktl-cli logger -syslogoutput off > edit.out; while [ ! -e end ]; do sleep 0.1; done' &
  $ waitfor "[ -s edit.out ]"; cat edit.out
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ grep -c PidNamespace= $state/logger.edit.ini
  1
  $ unshare -p -f --mount-proc setsid -w sh -c 'ktl-cli logger -discard -nochk'
  ktl-cli: the pending changes in /*/ktl-cli/logger.edit.ini belong to session * of another PID namespace (pid:[*]) of user *, held since *, whose leader cannot be looked at from here; "logger -discard" in that session releases them, or removing the file once it has ended (glob)
  [1]
  $ ktl-cli logger -syslogoutput on
  Error: The logger configuration is being edited in another session. Save or discard the pending changes in that session first.
  ktl-cli: the pending changes in /*/ktl-cli/logger.edit.ini belong to session * of another PID namespace (pid:[*]) of user *, held since *, whose leader cannot be looked at from here; "logger -discard" in that session releases them, or removing the file once it has ended (glob)
  [1]

Looking is allowed; once that session has ended, removing the file
releases them.

  $ ktl-cli logger -confirm edit | grep 'Syslog output'
    Syslog output           : Off
  $ touch end; wait
  $ rm $state/logger.edit.ini
  $ ktl-cli logger -syslogoutput on
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
