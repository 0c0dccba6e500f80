compare lists what a save would change: every item that differs between the
configuration in effect and the pending one, in the report's labels.

  $ state=$HOME/.local/state/ktl-cli
  $ ktl-cli compare logger
  No pending changes.
  $ ktl-cli logger -device cpu -setting on -threshold 80 > /dev/null
  $ ktl-cli logger -alert wrn -setting off > /dev/null
  $ ktl-cli logger -device mem -setting off > /dev/null
  $ ktl-cli compare logger
  Pending changes (in effect -> pending):
    Warning alerts: On -> Off
    CPU usage monitor, Threshold (%): 90 -> 80
    Memory usage monitor: On -> Off
  $ ktl-cli logger -save -nochk > /dev/null

Mount points added while the disk monitor is off are changes too: the report
does not list them, but a save keeps them.

  $ ktl-cli logger -mp /data -setting on -threshold 70 > /dev/null
  $ ktl-cli logger -confirm edit | grep -c /data
  0
  [1]
  $ ktl-cli compare logger
  Pending changes (in effect -> pending):
    Mount point /data: added (On, Threshold (%) 70)

The save question lists the same changes before it asks. Declined or left
unanswered, nothing is saved and ktl-cli exits with status 5.

  $ echo n | ktl-cli logger -save
  Saving puts 1 pending change into effect (in effect -> pending):
    Mount point /data: added (On, Threshold (%) 70)
  Save the pending changes and put the logger configuration into effect? [y/n]: n
  Nothing was saved.
  [5]
  $ ktl-cli logger -save < /dev/null
  Saving puts 1 pending change into effect (in effect -> pending):
    Mount point /data: added (On, Threshold (%) 70)
  Save the pending changes and put the logger configuration into effect? [y/n]: 
  No answer. Nothing was saved.
  [5]
  $ echo y | ktl-cli logger -save
  Saving puts 1 pending change into effect (in effect -> pending):
    Mount point /data: added (On, Threshold (%) 70)
  Save the pending changes and put the logger configuration into effect? [y/n]: y
  The pending changes were saved and are now in effect.

Switched and added mount points; the discard question counts what it drops.
An edit made with nothing pending starts a new entry even for a mount point
in effect, and both entries are then named by number.

  $ ktl-cli logger -mp /data -setting off > /dev/null
  $ ktl-cli logger -device disk -setting on -interval 600 > /dev/null
  $ ktl-cli logger -mp /var/log -setting on -threshold 85 > /dev/null
  $ ktl-cli compare logger
  Pending changes (in effect -> pending):
    Disk usage monitor: Off -> On
    Disk usage monitor, Interval (seconds): 300 -> 600
    Mount point /data (entry 2): added (Off, Threshold (%) not set)
    Mount point /var/log: added (On, Threshold (%) 85)
  $ printf 'maybe\nno\n' | ktl-cli logger -discard
  This drops 4 pending changes (compare logger lists them).
  Discard all pending changes of the logger configuration? [y/n]: maybe
  Please answer y (yes) or n (no).
  Discard all pending changes of the logger configuration? [y/n]: no
  Nothing was discarded.
  [5]
  $ LC_ALL=C.UTF-8 ktl-cli compare logger | head -2
  Pending changes (in effect \xe2\x86\x92 pending): (esc)
    Disk usage monitor: Off \xe2\x86\x92 On (esc)

A pending file that leaves the disk monitor unset takes the mount points in
effect, as a save would: its own additions are dropped and the comparison
says so by not listing them.

  $ cat > $state/logger.edit.ini <<'INI'
  > [CPU]
  > Available=0x11
  > Interval=60
  > Count=3
  > Threshold=90
  > [FILESYS]
  > NumFileSys=2
  > [FSNAME-1]
  > Available=0x11
  > Threshold=50
  > Mount=/data
  > [FSNAME-2]
  > Available=0x11
  > Threshold=50
  > Mount=/srv
  > INI
  $ ktl-cli compare logger
  Pending changes (in effect -> pending):
    CPU usage monitor, Threshold (%): 80 -> 90
    Mount point /data, Threshold (%): 70 -> 50
  $ printf 'y\n' | ktl-cli logger -discard > /dev/null

With nothing pending there is nothing to decide: the questions are not
asked. A pending configuration equal to the one in effect is no change.

  $ ktl-cli logger -discard
  The pending changes were discarded.
  $ ktl-cli logger -syslogoutput on > /dev/null
  $ ktl-cli compare logger
  No pending changes: the pending configuration is the same as the one in effect.
  $ echo y | ktl-cli logger -discard
  The pending configuration is the same as the one in effect.
  Discard all pending changes of the logger configuration? [y/n]: y
  The pending changes were discarded.

A file that cannot be read is named; compare takes only "logger".

  $ printf '[CPU\n' > $state/logger.edit.ini
  $ ktl-cli compare logger
  ktl-cli: * (glob)
  [1]
  $ rm $state/logger.edit.ini
  $ ktl-cli compare
  usage: compare logger   (the pending configuration against the one in effect)
  [2]
