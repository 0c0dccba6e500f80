Each command that runs leaves one line in audit.log when it ends: time,
user, session, exit status and the command line, with control bytes
written as \xHH so that the log shows on a terminal as it is:

  $ ktl-cli logger -syslogoutput on
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ ktl-cli logger -mp "$(printf '/data\033]0;owned\007')" -setting on
  Error: The directory is not a mounted file system. Give the mount point of a mounted file system.
  reason: /data\x1b]0;owned\x07 is not a mounted file system; mounted: /, /data, /dev/shm, /var/log
  [1]
  $ ktl-cli logger -mp "$(printf '/a\n2026-01-01T00:00:00 user=root')" -setting on
  Error: The directory is not a mounted file system. Give the mount point of a mounted file system.
  reason: /a\x0a2026-01-01T00:00:00 user=root is not a mounted file system; mounted: /, /data, /dev/shm, /var/log
  [1]
  $ ktl-cli logger -device cpu -setting on -threshold 5
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -threshold 5: out of range, 10 to 100 for cpu (CPU THRESHOLD_MIN, THRESHOLD_MAX in /opt/velmora/ktl/cli/LoggerParams.ini)
  usage: logger -device cpu|mem|disk -setting on|off [-interval N] [-count N] [-threshold N]
  [1]
  $ ktl-cli logger -confirm "$(printf 'cur\nrm -rf /')" > /dev/null
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -confirm cur\x0arm -rf /: expected cur or edit
  usage: logger -confirm [cur|edit]
  [1]
  $ ktl-cli logger -confirm cur > /dev/full
  ktl-cli: cannot write the command's output to standard output: No space left on device
  [1]
  $ cat ~/.local/state/ktl-cli/audit.log
  \d{4}-\d\d-\d\dT\d\d:\d\d:\d\d user=root session=\d+ status=0 logger -syslogoutput on (re)
  \d{4}-\d\d-\d\dT\d\d:\d\d:\d\d user=root session=\d+ status=1 logger -mp /data\\x1b\]0;owned\\x07 -setting on (re)
  \d{4}-\d\d-\d\dT\d\d:\d\d:\d\d user=root session=\d+ status=1 logger -mp /a\\x0a2026-01-01T00:00:00 user=root -setting on (re)
  \d{4}-\d\d-\d\dT\d\d:\d\d:\d\d user=root session=\d+ status=1 logger -confirm cur (re)

A refused command line never reached its execution step, so it has no line.

Values in a report are escaped the same way: a mount point cannot drive the
terminal.

  $ export KTL_MOUNT_CMD="printf '/dev/x on /mnt/\033[2J type ext4 (rw)\n'"
  $ ktl-cli logger -device disk -setting on > /dev/null
  $ ktl-cli logger -mp "$(printf '/mnt/\033[2J')" -setting on -threshold 80 > /dev/null
  $ ktl-cli logger -confirm edit | tail -2
      Mount point               Threshold (%)
      /mnt/\x1b[2J                 80
  $ export KTL_MOUNT_CMD="printf '/dev/x on /mnt/\302\2332J type ext4 (rw)\n'"
  $ ktl-cli logger -mp "$(printf '/mnt/\302\2332J')" -setting on -threshold 80 > /dev/null
  $ ktl-cli logger -confirm edit | tail -1
      /mnt/\xc2\x9b2J                 80
  $ ktl-cli logger -mp "$(printf '/\302\233\233')" -setting on 2>&1 | grep -c $'\302\233\|\233'
  0
  [1]
  $ ktl-cli "$(printf 'log\033[31mger')" -confirm cur
  ktl-cli: Unknown command "log\x1b[31mger". Commands: logger, help, compare; "ktl-cli help" describes them.
  [2]
  $ tail -3 ~/.local/state/ktl-cli/audit.log | cut -d' ' -f4-
  status=0 logger -mp /mnt/\xc2\x9b2J -setting on -threshold 80
  status=0 logger -confirm edit
  status=1 logger -mp /\xc2\x9b\x9b -setting on
  $ export KTL_MOUNT_CMD="cat $TESTDIR/mounts.txt"

With standard input, output and error closed, what ktl-cli says goes
nowhere: the files it opens first do not take their places.

  $ ktl-cli logger -syslogoutput off <&- >&- 2>&-
  $ tail -1 ~/.local/state/ktl-cli/audit.log | cut -d' ' -f4-
  status=0 logger -syslogoutput off
  $ grep -vc ' status=' ~/.local/state/ktl-cli/audit.log
  0
  [1]

An audit log that cannot be written stops every command that may change
the state before it changes anything, naming the file and the reason; a
command that only looks goes on with a warning:

  $ for fault in audit.log:EACCES audit.log:ENOSPC; do
  >   KTL_FAULT_OPEN=$fault ktl-cli logger -syslogoutput on
  >   KTL_FAULT_OPEN=$fault ktl-cli logger -save -nochk
  > done
  ktl-cli: the command was not run: its audit record could not be written (cannot open /*/ktl-cli/audit.log: Permission denied) (glob)
  ktl-cli: the command was not run: its audit record could not be written (cannot open /*/ktl-cli/audit.log: Permission denied) (glob)
  ktl-cli: the command was not run: its audit record could not be written (cannot open /*/ktl-cli/audit.log: No space left on device) (glob)
  ktl-cli: the command was not run: its audit record could not be written (cannot open /*/ktl-cli/audit.log: No space left on device) (glob)
  [1]
  $ KTL_FAULT_OPEN=audit.log:EACCES ktl-cli logger -confirm edit | sed -n 1,4p
  ktl-cli: warning: this command leaves no audit record: cannot open /*/ktl-cli/audit.log: Permission denied (glob)
  Logger configuration
  
    Syslog output           : Off
  $ tail -1 ~/.local/state/ktl-cli/audit.log | cut -d' ' -f4-
  status=0 logger -syslogoutput off

A command ended by a signal, at its question or while it prints, still
leaves its line, naming the signal:

  $ ktl-cli logger -syslogoutput on > /dev/null
  $ mkfifo answers && exec 4<>answers
  $ asked() { until grep -q 'y/n' question 2>/dev/null; do sleep 0.1; done; }
  $ ktl-cli logger -save < answers > question & asked; kill -TERM $!; wait $! 2> /dev/null
  [143]
  $ rm question; ktl-cli logger -discard < answers > question & asked; kill -HUP $!; wait $! 2> /dev/null
  [129]
  $ exec 4>&-
  $ python3 -c 'import os, subprocess; r, w = os.pipe(); os.close(r); subprocess.run(["ktl-cli", "logger", "-confirm", "cur"], stdout=w)'
  $ tail -3 ~/.local/state/ktl-cli/audit.log | cut -d' ' -f4-
  status=SIGTERM logger -save
  status=SIGHUP logger -discard
  status=SIGPIPE logger -confirm cur
