The life of a configuration: edits of every kind are held in the pending
configuration, shown by -confirm edit, and put into effect by -save.

  $ state=$HOME/.local/state/ktl-cli
  $ ktl-cli logger -alert err -setting off
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ ktl-cli logger -device cpu -setting on -interval 30 -count 5 -threshold 70
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ ktl-cli logger -device disk -setting on -interval 600
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ ktl-cli logger -mp /data -setting on -threshold 80
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ ktl-cli logger -mp /var/log -setting off
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ ktl-cli logger -confirm edit > edit.out; tail -8 edit.out
      Interval (seconds)    : 60
      Count                 : 3
      Threshold (%)         : 90
    Disk usage monitor      : On
      Interval (seconds)    : 600
      Count                 : 3
      Mount point               Threshold (%)
      /data                     80
  $ ktl-cli logger -confirm cur | grep -c /data
  0
  [1]

A refused command shows one message, changes neither file, and fails: the
command line, a directory that is not mounted, the check of the
configuration to save (the disk monitor is on, but its one mount point that
is switched on is not mounted any more), and a command of another session.

  $ cp $state/logger.ini cur.ini; cp $state/logger.edit.ini edit.ini
  $ unchanged() { cmp -s cur.ini $state/logger.ini && cmp -s edit.ini $state/logger.edit.ini && echo unchanged; }
  $ ktl-cli logger -verbose; unchanged
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -verbose: unknown option; the command starts with one of -syslogoutput, -alert, -device, -mp, -confirm, -save or -discard
  usage: logger -syslogoutput on|off
         logger -alert inf|wrn|err -setting on|off
         logger -device cpu|mem|disk -setting on|off [-interval N] [-count N] [-threshold N]
         logger -mp DIR -setting on|off [-threshold N]
         logger -confirm [cur|edit]
         logger -save [-nochk]
         logger -discard [-nochk]
  unchanged
  $ ktl-cli logger -mp /data/ -setting on; unchanged
  Error: The directory is not a mounted file system. Give the mount point of a mounted file system.
  reason: /data/ is not a mounted file system; mounted: /, /data, /dev/shm, /var/log
  unchanged
  $ echo y | KTL_MOUNT_CMD=true ktl-cli logger -save; unchanged
  Saving puts 8 pending changes into effect (in effect -> pending):
    Error alerts: On -> Off
    CPU usage monitor, Interval (seconds): 60 -> 30
    CPU usage monitor, Count: 3 -> 5
    CPU usage monitor, Threshold (%): 90 -> 70
    Disk usage monitor: Off -> On
    Disk usage monitor, Interval (seconds): 300 -> 600
    Mount point /data: added (On, Threshold (%) 80)
    Mount point /var/log: added (Off, Threshold (%) not set)
  Save the pending changes and put the logger configuration into effect? [y/n]: y
  Error: The configuration was not saved: the disk usage monitor is on but watches no mounted, switched-on mount point. Add or switch on a mount point, or switch the disk monitor off.
  unchanged
  $ setsid -w ktl-cli logger -syslogoutput off; unchanged
  Error: The logger configuration is being edited in another session. Save or discard the pending changes in that session first.
  ktl-cli: the pending changes in /*/ktl-cli/logger.edit.ini belong to session * of user *, held since *, whose leader (process *) is still running; "logger -discard" in that session releases them, or removing the file once it has ended (glob)
  unchanged
  $ setsid -w ktl-cli logger -save -nochk; unchanged
  Error: The logger configuration is being edited in another session. Save or discard the pending changes in that session first.
  ktl-cli: the pending changes in /*/ktl-cli/logger.edit.ini belong to session * of user *, held since *, whose leader (process *) is still running; "logger -discard" in that session releases them, or removing the file once it has ended (glob)
  unchanged

The save puts the pending configuration into effect and drops it; what is
in effect is what was confirmed.

  $ ktl-cli logger -save -nochk
  The pending changes were saved and are now in effect.
  $ ls $state
  audit.log
  ktl-cli.lock
  logger.ini
  $ sed -n '/^\[FILESYS\]/,$p' $state/logger.ini
  [FILESYS]
  Available=0x11
  Interval=600
  Count=3
  NumFileSys=2
  [FSNAME-1]
  Available=0x11
  Threshold=80
  Mount=/data
  [FSNAME-2]
  Available=0x10
  Mount=/var/log
  $ ktl-cli logger -confirm cur | cmp - edit.out && echo same
  same

A discard drops the pending edits after its question:

  $ ktl-cli logger -syslogoutput off
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ echo n | ktl-cli logger -discard
  This drops 1 pending change (compare logger lists it).
  Discard all pending changes of the logger configuration? [y/n]: n
  Nothing was discarded.
  [5]
  $ echo y | ktl-cli logger -discard
  This drops 1 pending change (compare logger lists it).
  Discard all pending changes of the logger configuration? [y/n]: y
  The pending changes were discarded.
  $ ls $state | grep -c edit
  0
  [1]

The trace: a rejected parameter (level 16) and ktl-cli's notes (level 1).

  $ KTL_TRACE_MASK=0x11 ktl-cli logger -device cpu -setting on -threshold 5
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -threshold 5: out of range, 10 to 100 for cpu (CPU THRESHOLD_MIN, THRESHOLD_MAX in /opt/velmora/ktl/cli/LoggerParams.ini)
  usage: logger -device cpu|mem|disk -setting on|off [-interval N] [-count N] [-threshold N]
  [1]
  $ sed 's/^[-0-9T:]* //' $state/trace.log
  cli 16 bool CLoggerConfigCmd::CheckSetThreshold() Parameter Error: -threshold 5
  ktl-cli 1 CheckParam returned 1

A tool that is not installed: no configuration in effect and no shipped
default.

  $ KTL_STATE_DIR=$PWD/none KTL_DEFAULT_CONF=$PWD/none.ini ktl-cli logger -confirm cur
  ktl-cli: the logging tool is not installed: neither */none/logger.ini nor */none.ini exists (glob)
  Error: The resource-usage logging tool is not installed.
  [1]
  $ KTL_STATE_DIR=$PWD/none KTL_DEFAULT_CONF=$PWD/none.ini ktl-cli logger -syslogoutput on
  ktl-cli: the logging tool is not installed: neither */none/logger.ini nor */none.ini exists (glob)
  Error: The resource-usage logging tool was not found. Check that it is installed and running.
  [1]
