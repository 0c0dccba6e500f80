The state directory is private to its user. Without HOME or XDG_STATE_HOME
there is none, rather than a shared one in /tmp:

  $ env -u HOME -u XDG_STATE_HOME ktl-cli logger -confirm cur
  ktl-cli: no state directory: neither HOME nor XDG_STATE_HOME is set; set HOME, XDG_STATE_HOME or KTL_STATE_DIR to a directory of your own
  [1]
  $ ls /tmp/ktl-cli
  ls: cannot access '/tmp/ktl-cli': No such file or directory
  [2]

A new state directory is made private; its files are the user's alone, the
configurations readable by all:

  $ ktl-cli logger -syslogoutput on > /dev/null
  $ state=~/.local/state/ktl-cli
  $ stat -c '%A %n' $state $state/* | sed "s#$state#STATE#"
  drwx------ STATE
  -rw------- STATE/audit.log
  -rw------- STATE/ktl-cli.lock
  -rw-r--r-- STATE/logger.edit.ini
  -rw-r--r-- STATE/logger.ini

A directory of another user, or one that group or others can write, is
refused, naming it and what is wrong:

  $ mkdir -m 0700 foreign && chown nobody foreign
  $ KTL_STATE_DIR=$PWD/foreign ktl-cli logger -confirm cur
  ktl-cli: refusing /*/foreign: it belongs to uid 65534, not to you (uid 0) (glob)
  [1]
  $ mkdir -m 0777 shared
  $ KTL_STATE_DIR=$PWD/shared ktl-cli logger -confirm cur
  ktl-cli: refusing /*/shared: group or others can write it (mode 0777; chmod go-w fixes that) (glob)
  [1]
  $ ls -A foreign shared
  foreign:
  
  shared:

The same holds for each file in it, and a symbolic link is never followed,
so a link planted in place of a file cannot make ktl-cli write elsewhere:

  $ chmod g+w $state/logger.ini
  $ ktl-cli logger -confirm cur
  ktl-cli: refusing /*/ktl-cli/logger.ini: group or others can write it (mode 0664; chmod go-w fixes that) (glob)
  [1]
  $ chmod g-w $state/logger.ini
  $ chown nobody $state/logger.edit.ini
  $ ktl-cli logger -confirm edit
  ktl-cli: refusing /*/ktl-cli/logger.edit.ini: it belongs to uid 65534, not to you (uid 0) (glob)
  [1]
  $ chown root $state/logger.edit.ini
  $ mv $state/audit.log audit.log.saved && ln -s $PWD/elsewhere $state/audit.log
  $ ktl-cli logger -syslogoutput off
  ktl-cli: the command was not run: its audit record could not be written (cannot open /*/ktl-cli/audit.log: it is a symbolic link, which is not followed) (glob)
  [1]
  $ ktl-cli logger -confirm cur | sed -n 1p
  ktl-cli: warning: this command leaves no audit record: cannot open /*/ktl-cli/audit.log: it is a symbolic link, which is not followed (glob)
  Logger configuration
  $ ls elsewhere
  ls: cannot access 'elsewhere': No such file or directory
  [2]
  $ rm $state/audit.log && ln -s $PWD/elsewhere $state/ktl-cli.lock.new && mv -T $state/ktl-cli.lock.new $state/ktl-cli.lock
  $ ktl-cli logger -confirm cur
  ktl-cli: cannot open /*/ktl-cli/ktl-cli.lock: it is a symbolic link, which is not followed (glob)
  [1]
  $ ls elsewhere
  ls: cannot access 'elsewhere': No such file or directory
  [2]

Nothing that the host opens can make it wait: a FIFO in place of one of its
files is refused at once, naming it, instead of holding the command (and
the command lock) for ever. A command that only looks goes on without its
audit record:

  $ rm $state/ktl-cli.lock
  $ mv audit.log.saved $state/audit.log
  $ mv $state/audit.log audit.log.saved && mkfifo -m 0600 $state/audit.log
  $ timeout 10 ktl-cli logger -syslogoutput off
  ktl-cli: the command was not run: its audit record could not be written (refusing /*/ktl-cli/audit.log: it is a FIFO, not a regular file) (glob)
  [1]
  $ timeout 10 ktl-cli logger -confirm cur | sed -n 1p
  ktl-cli: warning: this command leaves no audit record: refusing /*/ktl-cli/audit.log: it is a FIFO, not a regular file (glob)
  Logger configuration
  $ rm $state/audit.log && mv audit.log.saved $state/audit.log
  $ for file in logger.ini logger.edit.ini; do
  >   mv $state/$file saved && mkfifo -m 0600 $state/$file
  >   timeout 10 ktl-cli logger -confirm cur > /dev/null; echo "exit $?"
  >   timeout 10 ktl-cli logger -confirm edit > /dev/null; echo "exit $?"
  >   rm $state/$file && mv saved $state/$file
  > done
  ktl-cli: refusing /*/ktl-cli/logger.ini: it is a FIFO, not a regular file (glob)
  exit 1
  ktl-cli: refusing /*/ktl-cli/logger.ini: it is a FIFO, not a regular file (glob)
  exit 1
  ktl-cli: refusing /*/ktl-cli/logger.edit.ini: it is a FIFO, not a regular file (glob)
  exit 1
  ktl-cli: refusing /*/ktl-cli/logger.edit.ini: it is a FIFO, not a regular file (glob)
  exit 1
  $ mkdir templates && mkfifo templates/logger.mustache
  $ KTL_TEMPLATE_DIR=$PWD/templates timeout 10 ktl-cli logger -confirm cur 2>&1 | sed -n 1p
  ktl-cli: cannot read the template /*/templates/logger.mustache: refusing /*/templates/logger.mustache: it is a FIFO, not a regular file (glob)

The trace file may be a regular file or a character device such as
/dev/null; a FIFO there, read or not, only drops the trace:

  $ mkfifo trace.fifo
  $ KTL_TRACE_MASK=31 KTL_TRACE_FILE=$PWD/trace.fifo timeout 10 ktl-cli logger -confirm cur | sed -n 1p
  Logger configuration
  $ (timeout 10 cat trace.fifo &) && sleep 0.2
  $ KTL_TRACE_MASK=31 KTL_TRACE_FILE=$PWD/trace.fifo timeout 10 ktl-cli logger -confirm cur | sed -n 1p
  Logger configuration
  $ KTL_TRACE_MASK=31 KTL_TRACE_FILE=/dev/null timeout 10 ktl-cli logger -confirm cur | sed -n 1p
  Logger configuration

Every directory above the state directory, up to /, must belong to root or
to the caller, and group and others may write it only when it is sticky
(as /tmp is), or it could be swapped for another one, as ssh demands of the
directories above its keys:

  $ mkdir -m 0777 open
  $ KTL_STATE_DIR=$PWD/open/state ktl-cli logger -confirm cur
  ktl-cli: refusing the state directory /*/open/state: /*/open above it is not safe: group or others can write it (mode 0777; chmod go-w or chmod +t fixes that) (glob)
  [1]
  $ ls -A open
  $ chmod +t open
  $ KTL_STATE_DIR=$PWD/open/state ktl-cli logger -confirm cur | sed -n 1p
  Logger configuration
  $ chmod -t open
  $ KTL_STATE_DIR=$PWD/open/state ktl-cli logger -confirm cur
  ktl-cli: refusing the state directory /*/open/state: /*/open above it is not safe: group or others can write it (mode 0777; chmod go-w or chmod +t fixes that) (glob)
  [1]
  $ mkdir -m 0755 theirs && mkdir -m 0700 theirs/state && chown nobody theirs
  $ KTL_STATE_DIR=$PWD/theirs/state ktl-cli logger -confirm cur
  ktl-cli: refusing the state directory /*/theirs/state: /*/theirs above it is not safe: it belongs to uid 65534, neither to you (uid 0) nor to root (glob)
  [1]

A relative XDG_STATE_HOME is not valid and is ignored, as the XDG rules say:

  $ XDG_STATE_HOME=relative ktl-cli logger -confirm cur | sed -n 1p
  Logger configuration
  $ ls relative
  ls: cannot access 'relative': No such file or directory
  [2]
