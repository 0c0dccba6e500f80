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
