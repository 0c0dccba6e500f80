What a command says matches what took effect. Its messages of success
("held", "saved", "discarded") are shown once its change is on disk; when
the change fails at the end, the failure is shown instead, and when the
change took effect but something after it failed, the failure says what
took effect.

  $ state=$HOME/.local/state/ktl-cli
  $ ktl-cli logger -device cpu -setting off
  The change is pending: "logger -save" applies it, "logger -discard" drops it.

A discard that cannot remove the pending configuration (here a mount
point, which unlink refuses) says so, and not that it discarded anything:

  $ unshare -m sh -c "mount --bind $state/logger.edit.ini $state/logger.edit.ini && ktl-cli logger -discard -nochk"
  ktl-cli: cannot remove /*/ktl-cli/logger.edit.ini: Device or resource busy (glob)
  [1]
  $ grep -A1 CPU $state/logger.edit.ini
  [CPU]
  Available=0x10

A change whose message cannot be written is held all the same, and the
failure says so:

  $ ktl-cli logger -alert wrn -setting off > /dev/full
  ktl-cli: cannot write the command's output to standard output: No space left on device
  ktl-cli: the command took effect all the same: The change is pending: "logger -save" applies it, "logger -discard" drops it.
  [1]
  $ grep Warning= $state/logger.edit.ini
  Warning=0x10

A save that put the configuration into effect but cannot remove the pending
one (here a mount point, which unlink refuses) says that it saved:

  $ unshare -m sh -c "mount --bind $state/logger.edit.ini $state/logger.edit.ini && ktl-cli logger -save -nochk"
  ktl-cli: the pending changes were saved and are now in effect, but cannot remove /*/ktl-cli/logger.edit.ini: Device or resource busy; "logger -discard" drops the pending configuration (glob)
  [1]
  $ grep -E '^Warning=|^Available=0x10' $state/logger.ini
  Warning=0x10
  Available=0x10
  Available=0x10
  $ ktl-cli logger -discard -nochk
  The pending changes were discarded.

A save whose pending changes another command saved while its question was
open says that they are in effect (one discarded meanwhile says that it
was discarded; see lifecycle.t):

  $ ktl-cli logger -syslogoutput off > /dev/null
  $ waitfor() { for i in $(seq 600); do eval "$1" && return; sleep 0.1; done; echo "timed out: $1"; }
  $ { waitfor "[ ! -e $state/logger.edit.ini ]"; echo y; } | ktl-cli logger -save > save.out 2>&1 &
  $ waitfor "grep -q y/n save.out 2>/dev/null"
  $ ktl-cli logger -save -nochk
  The pending changes were saved and are now in effect.
  $ wait; cat save.out
  Saving puts 1 pending change into effect (in effect -> pending):
    Syslog output: On -> Off
  Save the pending changes and put the logger configuration into effect? [y/n]: y
  ktl-cli: the pending changes were saved by another command while this one waited for an answer; they are in effect, and this command saved nothing
