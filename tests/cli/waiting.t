A command waits for the one before it on the same state directory. After
about a second it says whom it waits for, and it gives up after
KTL_LOCK_TIMEOUT seconds:

  $ ktl-cli logger -syslogoutput on > /dev/null
  $ state=~/.local/state/ktl-cli
  $ flock $state/ktl-cli.lock sleep 2.5 &
  $ sleep 0.3
  $ KTL_LOCK_TIMEOUT=2 ktl-cli logger -confirm cur
  ktl-cli: waiting for /*/ktl-cli/ktl-cli.lock, held by another command (pid *) (glob)
  ktl-cli: gave up waiting for /*/ktl-cli/ktl-cli.lock after 2 s: it is held by another command (pid *) (KTL_LOCK_TIMEOUT sets the wait) (glob)
  [1]
  $ wait

A read-only state directory can still be looked at, with or without its lock
files, though without an audit record; a change is refused before it
starts, since its audit record cannot be written:

  $ unshare -m sh -c "mount --bind -o ro $state $state && ktl-cli logger -confirm edit | head -3"
  ktl-cli: warning: this command leaves no audit record: cannot open /*/ktl-cli/audit.log: Read-only file system (glob)
  Logger configuration
  
    Syslog output           : On
  $ ktl-cli logger -discard -nochk > /dev/null
  $ rm $state/*.lock
  $ unshare -m sh -c "mount --bind -o ro $state $state && ktl-cli logger -confirm cur | head -1 && ktl-cli logger -syslogoutput off"
  ktl-cli: warning: this command leaves no audit record: cannot open /*/ktl-cli/audit.log: Read-only file system (glob)
  Logger configuration
  ktl-cli: the command was not run: its audit record could not be written (cannot open /*/ktl-cli/audit.log: Read-only file system) (glob)
  [1]
