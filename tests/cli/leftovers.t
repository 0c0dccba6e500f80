Temporary files carry the id of the process that made them. A command
that makes one first removes those that killed commands left: in TMPDIR
the mount listings ktl-cmd-<pid>.XXXXXX, in the state directory
<file>.tmp.<pid>.XXXXXX. It leaves files of a live process, of another
user, of another pattern and anything that is not a plain file:

  $ ktl-cli logger -syslogoutput on > /dev/null
  $ state=~/.local/state/ktl-cli
  $ for dir in $TMPDIR $state; do
  >   [ $dir = $TMPDIR ] && p=ktl-cmd- || p=logger.ini.tmp.
  >   touch $dir/${p}4194305.Gone01 $dir/${p}$$.Alive1 $dir/${p}4194305.Other1 $dir/${p}4194305.toolong $dir/x${p}4194305.Gone02
  >   touch -d '2 hours ago' $dir/${p}$$.OldLv1
  >   chown nobody $dir/${p}4194305.Other1
  >   ln -s /dev/null $dir/${p}4194305.Link01
  > done
  $ ktl-cli logger -mp /data -setting on > /dev/null
  $ ls $TMPDIR | grep ktl-cmd- | sed "s/$$\./LIVE./" | sort
  ktl-cmd-4194305.Link01
  ktl-cmd-4194305.Other1
  ktl-cmd-4194305.toolong
  ktl-cmd-LIVE.Alive1
  xktl-cmd-4194305.Gone02
  $ ls $state | grep tmp | sed "s/$$\./LIVE./" | sort
  logger.ini.tmp.4194305.Link01
  logger.ini.tmp.4194305.Other1
  logger.ini.tmp.4194305.toolong
  logger.ini.tmp.LIVE.Alive1

A TMPDIR where no file can be made gives way to /tmp, as it does for other
programs; when /tmp fails too, both are named before the refusal that
follows from it:

  $ KTL_FAULT_OPEN="$TMPDIR/ktl-cmd-*:EACCES" ktl-cli logger -mp /var/log -setting on
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ KTL_FAULT_OPEN="*/ktl-cmd-*:ENOSPC" ktl-cli logger -mp /data -setting on 2>&1 | sed -n 1,2p
  ktl-cli: cannot create a temporary file in /*: No space left on device; nor in /tmp: No space left on device (glob)
  Error: The directory is not a mounted file system. Give the mount point of a mounted file system.
