A configuration that does not hold together is refused, naming the file,
the section and the key; the command fails and writes nothing.

  $ state=$HOME/.local/state/ktl-cli
  $ ktl-cli logger -mp /data -setting on -threshold 55
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ cp $state/logger.edit.ini good.ini
  $ refused() { sed "$1" good.ini > $state/logger.edit.ini; cp $state/logger.edit.ini before.ini; ktl-cli logger "${@:2}"; echo "[$?]"; cmp -s before.ini $state/logger.edit.ini || echo changed; }

NumFileSys beyond four digits, negative, or below the highest entry (so the
next mount point would overwrite an entry):

  $ refused s/NumFileSys=1/NumFileSys=99999999999/ -mp /var/log -setting on
  ktl-cli: */logger.edit.ini: [FILESYS] NumFileSys: "99999999999" is not a number from 0 to 9999 (glob)
  [1]
  $ refused s/NumFileSys=1/NumFileSys=-4/ -confirm edit
  ktl-cli: */logger.edit.ini: [FILESYS] NumFileSys: "-4" is not a number from 0 to 9999 (glob)
  [1]
  $ refused 's/NumFileSys=1/NumFileSys=1\n[FSNAME-2]\nMount=\/dev\/shm/' -mp /var/log -setting on
  ktl-cli: */logger.edit.ini: [FILESYS] NumFileSys: "1" is below the highest entry number, [FSNAME-2] (glob)
  [1]
  $ refused s/NumFileSys=1/NumFileSys=/ -save -nochk
  ktl-cli: */logger.edit.ini: [FILESYS] NumFileSys: "" is not a number from 0 to 9999 (glob)
  [1]

An entry without its mount point, and entry sections out of range:

  $ refused '/^Mount=/d' -save -nochk
  ktl-cli: */logger.edit.ini: [FSNAME-1] Mount: missing; every mount-point section names its mount point (glob)
  [1]
  $ refused 's/FSNAME-1/FSNAME-0/' -confirm edit
  ktl-cli: */logger.edit.ini: [FSNAME-0]: not a mount-point section (FSNAME-1 to FSNAME-9999) (glob)
  [1]

A malformed file is still the owner's to discard:

  $ refused 's/^Mount=.*/Mount/' -discard -nochk
  The pending changes were discarded.
  [0]
  changed

An edit that would go beyond FSNAME-9999 fails, and the command leaves the
pending file as it was:

  $ refused s/NumFileSys=1/NumFileSys=9999/ -mp /var/log -setting on
  ktl-cli: */logger.edit.ini: cannot write [FILESYS] NumFileSys: "10000" is not a number from 0 to 9999 (glob)
  [1]
  $ rm $state/logger.edit.ini

The configuration in effect, and the shipped default it starts from, hold
every key of the default; an empty one is refused:

  $ : > $state/logger.ini
  $ ktl-cli logger -confirm cur; echo "[$?]"
  ktl-cli: */.local/state/ktl-cli/logger.ini: [Syslog] Output: missing; a configuration holds every key of the shipped default (glob)
  [1]
  $ ktl-cli logger -syslogoutput on
  ktl-cli: */.local/state/ktl-cli/logger.ini: [Syslog] Output: missing; a configuration holds every key of the shipped default (glob)
  [1]
  $ rm $state/logger.ini
  $ : > empty.ini
  $ KTL_DEFAULT_CONF=$PWD/empty.ini ktl-cli logger -confirm cur
  ktl-cli: */empty.ini: [Syslog] Output: missing; a configuration holds every key of the shipped default (glob)
  [1]
  $ ls $state
  audit.log
  ktl-cli.lock

Values that are not numbers, and files that are not INI files:

  $ printf '[CPU]\nInterval=sixty\n' > broken.ini
  $ KTL_DEFAULT_CONF=$PWD/broken.ini ktl-cli logger -confirm cur
  ktl-cli: */broken.ini: [Syslog] Output: missing; a configuration holds every key of the shipped default (glob)
  [1]
  $ sed 's/^Interval=60/Interval=sixty/' $TESTDIR/../../devhost/default/logger.ini > broken.ini
  $ KTL_DEFAULT_CONF=$PWD/broken.ini ktl-cli logger -confirm cur
  ktl-cli: */broken.ini: [CPU] Interval="sixty" is not a decimal number from 1 to 2147483647 (glob)
  [1]

Values out of what a save could write back are refused as they are read,
naming the file, the section, the key and what the value should be:

  $ ktl-cli logger -confirm cur > /dev/null
  $ cp $state/logger.ini good.ini
  $ sed -i 's/^Interval=60/Interval=-1/' $state/logger.ini
  $ ktl-cli logger -confirm cur
  ktl-cli: */logger.ini: [CPU] Interval="-1" is not a decimal number from 1 to 2147483647 (glob)
  [1]
  $ sed 's/^Available=0x10/Available=0x7/' good.ini > $state/logger.ini
  $ ktl-cli logger -syslogoutput off
  ktl-cli: */logger.ini: [FILESYS] Available="0x7" is not a switch (0x11 or 0x10) (glob)
  [1]
  $ rm $state/logger.ini
  $ printf 'Output=0x11\n[Syslog]\n' > broken.ini
  $ KTL_DEFAULT_CONF=$PWD/broken.ini ktl-cli logger -confirm cur
  ktl-cli: */broken.ini: malformed INI file: key "Output" stands before any section (glob)
  [1]
  $ printf '[MEMORY]\nCount\n' > broken.ini
  $ KTL_DEFAULT_CONF=$PWD/broken.ini ktl-cli logger -confirm cur
  ktl-cli: */broken.ini:2: malformed INI file: '=' character not found in line (glob)
  [1]

With neither a configuration in effect nor a shipped default, the tool is
not installed:

  $ KTL_DEFAULT_CONF=$PWD/none.ini ktl-cli logger -confirm cur
  ktl-cli: the logging tool is not installed: neither */logger.ini nor */none.ini exists (glob)
  Error: The resource-usage logging tool is not installed.
  [1]
