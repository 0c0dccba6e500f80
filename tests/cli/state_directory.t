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
  $ ktl-cli logger -confirm cur
  ktl-cli: the command was not run: its audit record could not be written (cannot open /*/ktl-cli/audit.log: it is a symbolic link, which is not followed) (glob)
  [1]
  $ rm $state/audit.log && ln -s $PWD/elsewhere $state/ktl-cli.lock.new && mv -T $state/ktl-cli.lock.new $state/ktl-cli.lock
  $ ktl-cli logger -confirm cur
  ktl-cli: cannot open /*/ktl-cli/ktl-cli.lock: it is a symbolic link, which is not followed (glob)
  [1]
  $ ls elsewhere
  ls: cannot access 'elsewhere': No such file or directory
  [2]
