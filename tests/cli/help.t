Help comes from the description installed beside each plug-in
(logger.command.ini): the commands, then one command's forms, options,
value sets and the limits in force.

  $ ktl-cli help
  Commands:
    logger   view and edit the configuration of the resource-usage logging tool
  
  "ktl-cli help COMMAND" shows the forms and options of a command; "ktl-cli
  --help" shows ktl-cli's environment and exit statuses. Started on a terminal
  with no command, ktl-cli is a shell: type commands without "ktl-cli", "help"
  for this list, "exit" to leave.
  $ ktl-cli help logger
  logger: view and edit the configuration of the resource-usage logging tool
  
    logger -syslogoutput on|off
        Switch syslog output on or off. Alerts, monitors and mount points can be
        set only while it is on.
  
    logger -alert inf|wrn|err -setting on|off
        Switch the syslog alerts of one level on or off.
          -alert  the alert level: information, warning or error
  
    logger -device cpu|mem|disk -setting on|off [-interval N] [-count N] [-threshold N]
        Switch a usage monitor on or off and set how it samples. With -setting
        off no other option may follow.
          -device       the monitor: cpu usage, memory usage or disk usage
          -interval N   seconds between two samples. Allowed: cpu 1 to 86400, mem
                        1 to 86400, disk 1 to 86400.
          -count N      samples over the threshold before an alert. Allowed: cpu
                        1 to 1000, mem 1 to 1000, disk 1 to 1000.
          -threshold N  usage in percent that counts as over the threshold; for
                        disk, set it per mount point with -mp. Allowed: cpu 10 to
                        100, mem 40 to 100.
  
    logger -mp DIR -setting on|off [-threshold N]
        Watch a mounted file system with the disk usage monitor: switch it on or
        off and set its threshold. With -setting off no threshold may follow.
          -mp DIR       the mount point of a mounted file system
          -threshold N  usage in percent that counts as over the threshold.
                        Allowed: 40 to 100.
  
    logger -confirm [cur|edit]
        Show the pending configuration (edit, the default) or the configuration
        in effect (cur).
  
    logger -save [-nochk]
        Check the pending configuration and put it into effect.
          -nochk  do not ask before saving
  
    logger -discard [-nochk]
        Drop the pending configuration.
          -nochk  do not ask before discarding
  
  The options come in the order shown: the first one chooses the form, those in
  brackets may be left out. Values from a set may be typed in any case.
  The ranges are those in force: from /opt/velmora/ktl/cli/LoggerParams.ini where
  it sets them, else built-in.

The limits shown are read as the plug-in reads them: a limits file changes
them, and the keys it leaves out keep their built-in values.

  $ mkdir -p root/opt/velmora/ktl/cli
  $ printf '[MEMORY]\nTHRESHOLD_MIN = 60\n[DISK]\nTHRESHOLD_MAX = 95\n' > root/opt/velmora/ktl/cli/LoggerParams.ini
  $ KTL_ROOT=$PWD/root ktl-cli help logger | tr -s ' \n' ' ' | grep -o 'Allowed: [^.]*'
  Allowed: cpu 1 to 86400, mem 1 to 86400, disk 1 to 86400
  Allowed: cpu 1 to 1000, mem 1 to 1000, disk 1 to 1000
  Allowed: cpu 10 to 100, mem 60 to 100
  Allowed: 40 to 95

A newcomer's "-h" after the command is the same help.

  $ ktl-cli logger -h | head -1
  logger: view and edit the configuration of the resource-usage logging tool

Help for what is not installed, or for too much at once, is a usage error;
"-h" with more words is the command's own business.

  $ ktl-cli help nosuch
  ktl-cli: Unknown command "nosuch". Commands: logger, help, compare; "ktl-cli help" describes them.
  [2]
  $ ktl-cli help logger extra
  ktl-cli: help takes one command name (see ktl-cli help)
  [2]

A plug-in without its description is still listed, and its help says what
is missing.

  $ mkdir plugins
  $ installed=$(ktl-cli --help | sed -n 's/^  KTL_PLUGIN_DIR.*\[\(.*\)\]$/\1/p')
  $ ln -s "$installed/libktl_cli-logger.so" plugins/libktl_cli-bare.so
  $ KTL_PLUGIN_DIR=$PWD/plugins ktl-cli help
  Commands:
    bare   (no description; ktl-cli help bare says why)
  
  "ktl-cli help COMMAND" shows the forms and options of a command; "ktl-cli
  --help" shows ktl-cli's environment and exit statuses. Started on a terminal
  with no command, ktl-cli is a shell: type commands without "ktl-cli", "help"
  for this list, "exit" to leave.
  $ KTL_PLUGIN_DIR=$PWD/plugins ktl-cli help bare
  ktl-cli: no help for command "bare": */plugins/bare.command.ini: cannot be read (glob)
  [2]

A broken description is named with what is wrong in it; the command list
still shows the command.

  $ printf '[command]\nsummary = a test\nforms = only\n' > plugins/bare.command.ini
  $ KTL_PLUGIN_DIR=$PWD/plugins ktl-cli help bare
  ktl-cli: no help for command "bare": */plugins/bare.command.ini: no section [form only] (glob)
  [2]
  $ printf '[command]\nforms = only\n[form only]\noptions = -x\n[limits A]\nX_MIN = low\n' > plugins/bare.command.ini
  $ KTL_PLUGIN_DIR=$PWD/plugins ktl-cli help bare
  ktl-cli: no help for command "bare": */plugins/bare.command.ini: [limits A] X_MIN is not a number: low (glob)
  [2]
  $ printf '[command]\nforms = only\n[form only]\noptions = -x\n[only -x]\nvalues = a|b\nvalue_meanings = just one\n' > plugins/bare.command.ini
  $ KTL_PLUGIN_DIR=$PWD/plugins ktl-cli help bare
  ktl-cli: no help for command "bare": */plugins/bare.command.ini: [only -x] gives 1 value meanings for 2 values (glob)
  [2]
  $ printf '[command]\nforms\n' > plugins/bare.command.ini
  $ KTL_PLUGIN_DIR=$PWD/plugins ktl-cli help bare
  ktl-cli: no help for command "bare": */plugins/bare.command.ini:2: '=' character not found in line (glob)
  [2]
  $ KTL_PLUGIN_DIR=$PWD/plugins ktl-cli help | sed -n 2p
    bare   (no description; ktl-cli help bare says why)

`ktl-cli --version` names the versions of the host and of the plug-in
package built with it.

  $ ktl-cli --version
  ktl-cli (ktl-cli-host) *.*.* (glob)
  libktl_cli-logger (ktl-cli-logger) *.*.* (glob)

A word that names no installed command is an unknown command, whatever it
looks like, with the same status; a plug-in that is there but cannot be
loaded is a loading failure, with the loader's reason.

  $ ktl-cli foo -confirm cur
  ktl-cli: Unknown command "foo". Commands: logger, help, compare; "ktl-cli help" describes them.
  [2]
  $ ktl-cli '?'
  ktl-cli: Unknown command "?". Commands: logger, help, compare; "ktl-cli help" describes them.
  [2]
  $ KTL_PLUGIN_DIR=$PWD/plugins ktl-cli foo
  ktl-cli: Unknown command "foo". Commands: bare, help, compare; "ktl-cli help" describes them.
  [2]
  $ printf 'not a library' > plugins/libktl_cli-broken.so
  $ ln -s nowhere.so plugins/libktl_cli-dangling.so
  $ KTL_PLUGIN_DIR=$PWD/plugins ktl-cli broken -x
  ktl-cli: cannot load the plug-in of command "broken" (*/plugins/libktl_cli-broken.so): */plugins/libktl_cli-broken.so: file too short (glob)
  [3]
  $ KTL_PLUGIN_DIR=$PWD/plugins ktl-cli dangling
  ktl-cli: cannot load the plug-in of command "dangling" (*/plugins/libktl_cli-dangling.so): */plugins/libktl_cli-dangling.so: cannot open shared object file: No such file or directory (glob)
  [3]
