A failure names the file and the system error, and stops the command
before the plug-in can show a guess at the cause ("the logging tool was not
found", "syslog output is off"):

  $ ktl-cli logger -syslogoutput on > /dev/null
  $ state=~/.local/state/ktl-cli
  $ rm $state/ktl-cli.lock && mkdir $state/ktl-cli.lock
  $ ktl-cli logger -alert inf -setting off
  ktl-cli: cannot open /*/ktl-cli/ktl-cli.lock: Is a directory (glob)
  [1]
  $ rmdir $state/ktl-cli.lock
  $ cp $state/logger.ini good.ini && echo 'Output' >> $state/logger.ini
  $ ktl-cli logger -save -nochk
  ktl-cli: /*/ktl-cli/logger.ini:*: malformed INI file: '=' character not found in line (glob)
  [1]
  $ ktl-cli logger -discard -nochk && cp good.ini $state/logger.ini
  The pending changes were discarded.
  $ printf '[Syslog\n' > $state/logger.ini
  $ ktl-cli logger -alert inf -setting off
  ktl-cli: /*/ktl-cli/logger.ini:1: malformed INI file: unmatched '[' (glob)
  [1]
  $ cp good.ini $state/logger.ini
  $ printf '[Syslog]\nOutput=yes\n' > $state/logger.edit.ini
  $ ktl-cli logger -confirm edit
  ktl-cli: /*/ktl-cli/logger.edit.ini: [Syslog] Output="yes" is not a switch (0x11 or 0x10) (glob)
  [1]
  $ rm $state/logger.edit.ini

Output that cannot be written fails the command, whatever it was:

  $ ktl-cli logger -confirm cur > /dev/full
  ktl-cli: cannot write the command's output to standard output: No space left on device
  [1]
  $ ktl-cli --help > /dev/full
  ktl-cli: cannot write the command's output to standard output: No space left on device
  [1]
  $ ktl-cli logger -syslogoutput on > /dev/full
  ktl-cli: cannot write the command's output to standard output: No space left on device
  ktl-cli: the command took effect all the same: The change is pending: "logger -save" applies it, "logger -discard" drops it.
  [1]
