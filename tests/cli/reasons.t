A refused command says why: after its message come the reasons the plug-in
traced, whatever the trace mask, and the range in force for a number that
was out of it.

  $ ktl-cli logger -device cpu -setting on -threshold 5
  Error: The command line is not valid. Check the options, their order and their values.
  reason: Parameter Error: -threshold 5 (allowed 10 to 100: CPU THRESHOLD_MIN, THRESHOLD_MAX in /opt/velmora/ktl/cli/LoggerParams.ini, or built-in)
  [1]
  $ ktl-cli logger -device mem -setting on -interval 60 -count 1001
  Error: The command line is not valid. Check the options, their order and their values.
  reason: Parameter Error: -count 1001 (allowed 1 to 1000: MEMORY COUNT_MIN, COUNT_MAX in /opt/velmora/ktl/cli/LoggerParams.ini, or built-in)
  [1]
  $ ktl-cli logger -device cpu -setting on -interval soon
  Error: The command line is not valid. Check the options, their order and their values.
  reason: Parameter Error: -interval soon (allowed 1 to 86400: CPU INTERVAL_MIN, INTERVAL_MAX in /opt/velmora/ktl/cli/LoggerParams.ini, or built-in)
  [1]
  $ ktl-cli logger -mp /data -setting on -THRESHOLD 101
  Error: The command line is not valid. Check the options, their order and their values.
  reason: Parameter Error: -THRESHOLD 101 (allowed 40 to 100: DISK THRESHOLD_MIN, THRESHOLD_MAX in /opt/velmora/ktl/cli/LoggerParams.ini, or built-in)
  [1]

Reasons that involve no limits come without a range.

  $ ktl-cli logger -device disk -setting on -interval 60 -threshold 80
  Error: The command line is not valid. Check the options, their order and their values.
  reason: disk can not appoint threshold option.
  [1]
  $ ktl-cli logger -device cpu -setting off -interval 60
  Error: The command line is not valid. Check the options, their order and their values.
  reason: Monitoring mode OFF, threshold value was set (3)
  [1]
  $ ktl-cli logger -verbose
  Error: The command line is not valid. Check the options, their order and their values.
  reason: Unknown Parameter Error: -verbose
  [1]
  $ ktl-cli logger -confirm all
  Error: The command line is not valid. Check the options, their order and their values.
  reason: Parameter(all) not found in cur|edit
  [1]

The range is the one in force: a limits file changes it, and the keys it
leaves out keep their built-in values.

  $ mkdir -p root/opt/velmora/ktl/cli
  $ printf '[CPU]\nTHRESHOLD_MIN = 50\n' > root/opt/velmora/ktl/cli/LoggerParams.ini
  $ KTL_ROOT=$PWD/root ktl-cli logger -device cpu -setting on -threshold 45
  Error: The command line is not valid. Check the options, their order and their values.
  reason: Parameter Error: -threshold 45 (allowed 50 to 100: CPU THRESHOLD_MIN, THRESHOLD_MAX in /opt/velmora/ktl/cli/LoggerParams.ini, or built-in)
  [1]
  $ KTL_ROOT=$PWD/root ktl-cli logger -device cpu -setting on -threshold 50
  The change is held in the pending configuration. Run "logger -save" to put it into effect or "logger -discard" to drop it.

A failure after the words were accepted gives the reasons too; a command
that succeeds prints none.

  $ ktl-cli logger -syslogoutput off
  The change is held in the pending configuration. Run "logger -save" to put it into effect or "logger -discard" to drop it.
  $ ktl-cli logger -alert wrn -setting on
  Error: This setting cannot be changed while syslog output is off. Switch syslog output on first (logger -syslogoutput on).
  reason: SyslogOutput is OFF
  [1]
  $ ktl-cli logger -syslogoutput on
  The change is held in the pending configuration. Run "logger -save" to put it into effect or "logger -discard" to drop it.

The trace file still gets exactly what its mask says: nothing when it is off,
and only the enabled levels otherwise.

  $ test -e ~/.local/state/ktl-cli/trace.log || echo no trace
  no trace
  $ KTL_TRACE_MASK=16 ktl-cli logger -device cpu -setting on -count 0
  Error: The command line is not valid. Check the options, their order and their values.
  reason: Parameter Error: -count 0 (allowed 1 to 1000: CPU COUNT_MIN, COUNT_MAX in /opt/velmora/ktl/cli/LoggerParams.ini, or built-in)
  [1]
  $ sed 's/^[^ ]* //' ~/.local/state/ktl-cli/trace.log
  cli 16 bool CLoggerConfigCmd::CheckSetThreshold() Parameter Error: -count 0
