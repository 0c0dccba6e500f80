A limits file that says something it cannot mean is reported on standard
error, naming the file, the section and the key, by every command that reads
it: a value that is not a number (and what it is read as), one that does not
fit an int, a minimum above its maximum. Each is said once per command.

  $ mkdir -p root/opt/velmora/ktl/cli
  $ export KTL_ROOT=$PWD/root
  $ printf '[CPU]\nTHRESHOLD_MIN = ten\n[MEMORY]\nCOUNT_MAX = 99999999999\n[DISK]\nTHRESHOLD_MIN = 90\nTHRESHOLD_MAX = 50\n' > root/opt/velmora/ktl/cli/LoggerParams.ini
  $ ktl-cli logger -device cpu -setting on -threshold 50
  ktl-cli: /*/root/opt/velmora/ktl/cli/LoggerParams.ini: [CPU] THRESHOLD_MIN="ten" is not a number; it is read as 0 (glob)
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ ktl-cli logger -device cpu -setting on -threshold 50 2>&1 >/dev/null | grep -c 'is not a number'
  1
  $ ktl-cli logger -mp /data -setting on -threshold 60
  ktl-cli: /*/root/opt/velmora/ktl/cli/LoggerParams.ini: [DISK] THRESHOLD_MIN=90 is above THRESHOLD_MAX=50; no value is in that range (glob)
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -threshold 60: out of range, 90 to 50 (DISK THRESHOLD_MIN, THRESHOLD_MAX in /opt/velmora/ktl/cli/LoggerParams.ini)
  usage: logger -mp DIR -setting on|off [-threshold N]
  [1]

Help reads the limits as the plug-in does, reports them the same way, and
marks each range that a wrong value gave:

  $ ktl-cli help logger 2>&1 | grep -E '^ktl-cli'
  ktl-cli: /*/LoggerParams.ini: [MEMORY] COUNT_MAX=99999999999 does not fit an int; it is read as 2147483647 (glob)
  ktl-cli: /*/LoggerParams.ini: [CPU] THRESHOLD_MIN="ten" is not a number; it is read as 0 (glob)
  ktl-cli: /*/LoggerParams.ini: [DISK] THRESHOLD_MIN=90 is above THRESHOLD_MAX=50; no value is in that range (glob)
  $ ktl-cli help logger 2>/dev/null | tr -s ' \n' ' ' | grep -o 'Allowed: [^.]*'
  Allowed: cpu 1 to 86400, mem 1 to 86400, disk 1 to 86400
  Allowed: cpu 1 to 1000, mem 1 to 2147483647 (COUNT_MAX does not fit an int, read as 2147483647), disk 1 to 1000
  Allowed: cpu 0 to 100 (THRESHOLD_MIN is not a number, read as 0), mem 40 to 100
  Allowed: 90 to 50 (THRESHOLD_MIN 90 is above THRESHOLD_MAX 50)

Each line of the shell is a command of its own and reports again (shell.t,
which runs where the shell is built).
