A refused command says why in an administrator's words: after its message,
one "reason:" line names the word that was wrong and what was expected
there, whatever the trace mask. After a refused command line comes the
usage of the form its first option selects, or of every form.

  $ r() { ktl-cli logger "$@"; echo "[$?]"; }

A number out of its range, or not a number, or with its value missing (a
"-5" is an option of its own), with the range in force and where it comes
from.

  $ r -device cpu -setting on -threshold 5
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -threshold 5: out of range, 10 to 100 for cpu (CPU THRESHOLD_MIN, THRESHOLD_MAX in /opt/velmora/ktl/cli/LoggerParams.ini)
  usage: logger -device cpu|mem|disk -setting on|off [-interval N] [-count N] [-threshold N]
  [1]
  $ r -device mem -setting on -interval 60 -count 1001 2>&1 | grep reason
  reason: -count 1001: out of range, 1 to 1000 for mem (MEMORY COUNT_MIN, COUNT_MAX in /opt/velmora/ktl/cli/LoggerParams.ini)
  $ r -device cpu -setting on -interval soon 2>&1 | grep reason
  reason: -interval soon: not a number; expected 1 to 86400 for cpu (CPU INTERVAL_MIN, INTERVAL_MAX in /opt/velmora/ktl/cli/LoggerParams.ini)
  $ r -mp /data -setting on -THRESHOLD 101
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -THRESHOLD 101: out of range, 40 to 100 (DISK THRESHOLD_MIN, THRESHOLD_MAX in /opt/velmora/ktl/cli/LoggerParams.ini)
  usage: logger -mp DIR -setting on|off [-threshold N]
  [1]
  $ r -device cpu -setting on -threshold -5
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -threshold: a value is missing
  usage: logger -device cpu|mem|disk -setting on|off [-interval N] [-count N] [-threshold N]
  [1]

The range is the one in force: a limits file changes it, and the keys it
leaves out keep their built-in values.

  $ mkdir -p root/opt/velmora/ktl/cli
  $ printf '[CPU]\nTHRESHOLD_MIN = 50\n' > root/opt/velmora/ktl/cli/LoggerParams.ini
  $ KTL_ROOT=$PWD/root r -device cpu -setting on -threshold 45 2>&1 | grep reason
  reason: -threshold 45: out of range, 50 to 100 for cpu (CPU THRESHOLD_MIN, THRESHOLD_MAX in /opt/velmora/ktl/cli/LoggerParams.ini)
  $ KTL_ROOT=$PWD/root r -device cpu -setting on -threshold 50
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  [0]

A value outside its set; a value with no option before it.

  $ r -alert foo -setting on
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -alert foo: expected inf, wrn or err
  usage: logger -alert inf|wrn|err -setting on|off
  [1]
  $ r -alert -setting on 2>&1 | grep reason
  reason: -alert: a value is missing; expected inf, wrn or err
  $ r -confirm all 2>&1 | grep reason
  reason: -confirm all: expected cur or edit
  $ r -alert inf wrn -setting on
  Error: The command line is not valid. Check the options, their order and their values.
  reason: wrn: a value with no option before it
  usage: logger -alert inf|wrn|err -setting on|off
  [1]

Options missing, misplaced, unknown or not allowed where they stand, also
where the command itself names no word.

  $ r
  Error: The command line is not valid. Check the options, their order and their values.
  reason: an option is missing; the command starts with one of -syslogoutput, -alert, -device, -mp, -confirm, -save or -discard
  usage: logger -syslogoutput on|off
         logger -alert inf|wrn|err -setting on|off
         logger -device cpu|mem|disk -setting on|off [-interval N] [-count N] [-threshold N]
         logger -mp DIR -setting on|off [-threshold N]
         logger -confirm [cur|edit]
         logger -save [-nochk]
         logger -discard [-nochk]
  [1]
  $ r -alert inf
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -setting on|off: missing after -alert inf
  usage: logger -alert inf|wrn|err -setting on|off
  [1]
  $ r -device cpu -interval 30 2>&1 | grep reason
  reason: -interval: not expected here; expected -setting on|off after -device cpu
  $ r -device cpu -threshold 80 -setting on 2>&1 | grep reason
  reason: -threshold: not expected here; expected -setting on|off after -device cpu
  $ r -save -force
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -force: unknown option; expected -nochk after -save
  usage: logger -save [-nochk]
  [1]
  $ r -discard -save 2>&1 | grep -v Error
  reason: -save: not expected here; expected -nochk after -discard
  usage: logger -discard [-nochk]
  [1]
  $ r -setting on -alert inf 2>&1 | grep -v '^  '
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -setting: not expected here; the command starts with one of -syslogoutput, -alert, -device, -mp, -confirm, -save or -discard
  usage: logger -syslogoutput on|off
  [1]
  $ r -verbose 2>&1 | grep reason
  reason: -verbose: unknown option; the command starts with one of -syslogoutput, -alert, -device, -mp, -confirm, -save or -discard
  $ r -device cpu -setting on -interval 5 -colour red 2>&1 | grep reason
  reason: -colour: unknown option; expected -interval, -count or -threshold after -interval 5
  $ r -syslogoutput on -alert inf 2>&1 | grep -v Error
  reason: -alert: not expected here; nothing may follow -syslogoutput on
  usage: logger -syslogoutput on|off
  [1]
  $ r -confirm cur -save 2>&1 | grep reason
  reason: -save: not expected here; nothing may follow -confirm cur
  $ r -mp -setting on 2>&1 | grep reason
  reason: -mp: a value is missing; expected DIR
  $ r -device mem -setting off -interval 30
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -interval: not allowed with -setting off
  usage: logger -device cpu|mem|disk -setting on|off [-interval N] [-count N] [-threshold N]
  [1]
  $ r -mp /data -setting on -threshold 50 -setting off 2>&1 | grep reason
  reason: -threshold: not allowed with -setting off
  $ r -device disk -setting on -interval 60 -threshold 80 2>&1 | grep reason
  reason: -threshold: not allowed with -device disk; set a disk threshold per mount point (-mp DIR -setting on -threshold N)

A mount point that is not mounted: one line, with what is mounted, the
kernel's own file systems (/proc, /sys) left out.

  $ r -mp /srv/data -setting on
  Error: The directory is not a mounted file system. Give the mount point of a mounted file system.
  reason: /srv/data is not a mounted file system; mounted: /, /data, /dev/shm, /var/log
  [1]

A save refused because no mount point it watches is mounted: one line for
each of them that is not, none for notes that explain nothing.

  $ r -device disk -setting on > /dev/null
  $ r -mp /data -setting on > /dev/null
  $ r -mp /var/log -setting on > /dev/null
  $ sed '/\/data\|\/var\/log/d' ${KTL_MOUNT_CMD#cat } > mounts
  $ KTL_MOUNT_CMD="cat mounts" r -save -nochk
  Error: The configuration was not saved: the disk usage monitor is on but watches no mounted, switched-on mount point. Add or switch on a mount point, or switch the disk monitor off.
  reason: /data is not a mounted file system; mounted: /, /dev/shm
  reason: /var/log is not a mounted file system; mounted: /, /dev/shm
  [1]
  $ r -discard -nochk
  The pending changes were discarded.
  [0]

A save with nothing pending says so. A refusal while syslog output is off
needs no reason beyond its message.

  $ r -save -nochk
  Error: The logging tool's service failed to carry out the request. Try again; if the error persists, contact your support representative. (code 0xFF000001)
  reason: there are no pending changes to save
  [1]
  $ r -syslogoutput off
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  [0]
  $ r -alert wrn -setting on
  Error: This setting cannot be changed while syslog output is off. Switch syslog output on first (logger -syslogoutput on).
  [1]
  $ r -discard -nochk > /dev/null

A command that succeeds prints no reason. Control bytes from the command
line are escaped.

  $ r -confirm cur > /dev/null
  $ r -confirm "$(printf 'cur\033[2J')" 2>&1 | grep reason
  reason: -confirm cur\x1b[2J: expected cur or edit

The raw trace is there for whoever needs it: `ktl-cli -v` prints every line
on standard error, and the trace file gets exactly what its mask says.

  $ ktl-cli -v logger -device cpu -setting on -count 0 2>&1 | grep -E '^trace: cli (16|1) '
  trace: cli 16 bool CLoggerConfigCmd::CheckSetThreshold() Parameter Error: -count 0
  $ ktl-cli --verbose logger -confirm cur 2>&1 >/dev/null | sed -n 1p
  trace: cli 4 [ENTER] virtual int CLoggerConfigCmd::CheckParam(std::vector<std::basic_string<char, std::char_traits<char>, std::allocator<char> >, std::allocator<std::basic_string<char, std::char_traits<char>, std::allocator<char> > > >)
  $ test -e ~/.local/state/ktl-cli/trace.log || echo no trace
  no trace
  $ KTL_TRACE_MASK=16 r -device cpu -setting on -count 0 2>&1 | grep reason
  reason: -count 0: out of range, 1 to 1000 for cpu (CPU COUNT_MIN, COUNT_MAX in /opt/velmora/ktl/cli/LoggerParams.ini)
  $ sed 's/^[^ ]* //' ~/.local/state/ktl-cli/trace.log
  cli 16 bool CLoggerConfigCmd::CheckSetThreshold() Parameter Error: -count 0

The words come from logger.reasons.ini beside the plug-in. A diagnostic it
has no rule for is shown as traced, never dropped; a broken file is named
and the diagnostics are shown as traced.

  $ installed=$(ktl-cli --help | sed -n 's/^  KTL_PLUGIN_DIR.*\[\(.*\)\]$/\1/p')
  $ mkdir plugins && cp "$installed"/libktl_cli-logger.so "$installed"/logger.command.ini plugins/
  $ sed '/^\[traced disk can not/,/^$/d' "$installed/logger.reasons.ini" > plugins/logger.reasons.ini
  $ KTL_PLUGIN_DIR=$PWD/plugins r -device disk -setting on -threshold 80 2>&1 | grep reason
  reason: disk can not appoint threshold option.
  $ printf '[traced Parameter Error: %%s %%s]\nfields = option value\n' > plugins/logger.reasons.ini
  $ KTL_PLUGIN_DIR=$PWD/plugins r -device cpu -setting on -threshold 5
  Error: The command line is not valid. Check the options, their order and their values.
  ktl-cli: */plugins/logger.reasons.ini: [traced Parameter Error: %s %s] needs either "says" or "explain = grammar" (glob)
  reason: Parameter Error: -threshold 5
  [1]
