On a terminal, ktl-cli with no command is a shell. shell-session.sh types
the lines below into it through a pseudo-terminal and prints the screen.
Tab completes an option and a value (shown as they end up on the line); each
line runs as `ktl-cli WORDS` would, with the same messages and reasons, and
a status other than 0 is shown.

  $ printf 'logger -dev\tc\t-setting on -threshold 5\nlogger -device cpu -setting on -threshold 50\nlogger -confirm edit\nlogger -discard -nochk\nexit\n' | "$TESTDIR/shell-session.sh"
  ktl> logger -device cpu -setting on -threshold 5
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -threshold 5: out of range, 10 to 100 for cpu (CPU THRESHOLD_MIN, THRESHOLD_MAX in /opt/velmora/ktl/cli/LoggerParams.ini)
  usage: logger -device cpu|mem|disk -setting on|off [-interval N] [-count N] [-threshold N]
  exit status 1
  ktl> logger -device cpu -setting on -threshold 50
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  ktl [pending]> logger -confirm edit
  Logger configuration
  
    Syslog output           : On
      Information alerts    : On
      Warning alerts        : On
      Error alerts          : On
    CPU usage monitor       : On
      Interval (seconds)    : 60
      Count                 : 3
      Threshold (%)         : 50
    Memory usage monitor    : On
      Interval (seconds)    : 60
      Count                 : 3
      Threshold (%)         : 90
    Disk usage monitor      : Off
  ktl [pending]> logger -discard -nochk
  The pending changes were discarded.
  ktl> exit

The lines are kept in ~/.ktl_history for the next shell.

  $ sed 's/\\040/ /g' ~/.ktl_history
  _HiStOrY_V2_
  logger -device cpu -setting on -threshold 5
  logger -device cpu -setting on -threshold 50
  logger -confirm edit
  logger -discard -nochk
  exit

Tab lists the candidates when they share no longer start. Ctrl-D on an
empty line ends the shell, like "exit"; the words of a line are split as a
shell splits them.

  $ printf 'logger -d\t\nhelp "logger"\n\004' | "$TESTDIR/shell-session.sh" | sed -n '1,5p;/^exit status/,/^logger:/p;$p'
  ktl> logger -d
  -device  -discard  
  ktl> logger -d
  Error: The command line is not valid. Check the options, their order and their values.
  reason: -d: unknown option; the command starts with one of -syslogoutput, -alert, -device, -mp, -confirm, -save or -discard
  exit status 1
  ktl> help "logger"
  logger: view and edit the configuration of the resource-usage logging tool
  ktl> ^D

Ctrl-C drops the line being typed and ends the wait a command is in, but
not the shell: a question counts as unanswered, and a command waiting for
another one's lock gives up.

  $ printf 'logger -device cpu -setting off\nlogger -confirm cu\003\nlogger -discard\n\003\nexit\ny\n' | "$TESTDIR/shell-session.sh"
  ktl> logger -device cpu -setting off
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  ktl [pending]> logger -confirm cu^C
  ktl [pending]> logger -discard
  This drops 1 pending change (compare logger lists it).
  Discard all pending changes of the logger configuration? [y/n]: ^C
  No answer. Nothing was discarded.
  exit status 5
  ktl [pending]> exit
  There are pending changes that are not saved. Leave anyway? [y/n]: y
  $ flock ~/.local/state/ktl-cli/ktl-cli.lock sleep 60 &
  $ while flock -n ~/.local/state/ktl-cli/ktl-cli.lock true; do sleep 0.1; done
  $ printf 'logger -discard -nochk\n\003\nexit\n' | "$TESTDIR/shell-session.sh"
  ktl> logger -discard -nochk
  ktl-cli: waiting for /*/ktl-cli/ktl-cli.lock, held by another command (pid *) (glob)
  ^Cktl-cli: interrupted while waiting for /*/ktl-cli/ktl-cli.lock, held by another command (pid *) (glob)
  exit status 1
  ktl> exit
  $ pkill -P $! sleep; wait
  $ printf 'logger -discard -nochk\nexit\n' | "$TESTDIR/shell-session.sh"
  ktl> logger -discard -nochk
  The pending changes were discarded.
  ktl> exit

"?" lists the words that may come next where the cursor is, each with what
it means, and leaves the line as typed (Ctrl-C drops it here): the
commands, the options the grammar allows at that point, the values of a
set, the mounted file systems, a number's range in force. A line that is
just "?" (here typed as a character, Ctrl-V ?) lists too.

  $ printf '\026?\nlogger ?\003\nlogger -device cpu -?\003\nlogger -alert ?\003\nlogger -device disk -setting on ?\003\nlogger -device mem -setting on -threshold ?\003\nlogger -mp /d?\003\nlogger -mp /data -setting off ?\003\nexit\n' | "$TESTDIR/shell-session.sh"
  ktl> ?
    logger     view and edit the configuration of the resource-usage logging tool
    help       list the commands, or show the forms and options of one
    compare    list the pending changes against the configuration in effect
    --help     ktl-cli's usage, environment and exit statuses
    --version  the versions of ktl-cli and of the command plug-ins
    exit       leave the shell
    quit       leave the shell
  ktl> logger 
    -syslogoutput  switch syslog output on or off
    -alert         switch the syslog alerts of one level on or off
    -device        switch a usage monitor on or off and set how it samples
    -mp            watch a mounted file system with the disk usage monitor
    -confirm       show the pending configuration (edit, the default) or the configuration in effect (cur)
    -save          check the pending configuration and put it into effect
    -discard       drop the pending configuration
  ktl> logger ^C
  ktl> logger -device cpu -
    -setting  on or off
  ktl> logger -device cpu -^C
  ktl> logger -alert 
    inf  information alerts
    wrn  warning alerts
    err  error alerts
  ktl> logger -alert ^C
  ktl> logger -device disk -setting on 
    -interval  seconds between two samples
    -count     samples over the threshold before an alert
  ktl> logger -device disk -setting on ^C
  ktl> logger -device mem -setting on -threshold 
    <40-100>  usage in percent that counts as over the threshold
  ktl> logger -device mem -setting on -threshold ^C
  ktl> logger -mp /d
    /dev/shm  a mounted file system (tmpfs)
    /data     a mounted file system (ext4)
  ktl> logger -mp /d^C
  ktl> logger -mp /data -setting off 
    (no word may come next here)
  ktl> logger -mp /data -setting off ^C
  ktl> exit

Tab completes a value typed in any case, lists the mounted file systems
that a mount point may be, and shows a number's range without putting it
on the line.

  $ printf 'logger -alert I\t\003\nlogger -mp /d\t\003\nlogger -mp /da\t\003\nlogger -device cpu -setting on -interval \t\003\nexit\n' | "$TESTDIR/shell-session.sh"
  ktl> logger -alert inf ^C
  ktl> logger -mp /d
  /dev/shm  /data  
  ktl> logger -mp /d^C
  ktl> logger -mp /data ^C
  ktl> logger -device cpu -setting on -interval 
  <1-86400>  
  ktl> logger -device cpu -setting on -interval ^C
  ktl> exit

While the shell's session has pending edits, its prompt says so, and
"exit", "quit" or Ctrl-D asks before leaving; a declined or unanswered
question stays in the shell. The edits stay pending after the shell ends.

  $ printf 'logger -syslogoutput off\nexit\nn\n\004\n\003\nquit\nmaybe\nyes\n' | "$TESTDIR/shell-session.sh"
  ktl> logger -syslogoutput off
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  ktl [pending]> exit
  There are pending changes that are not saved. Leave anyway? [y/n]: n
  ktl [pending]> ^D
  There are pending changes that are not saved. Leave anyway? [y/n]: ^C
  ktl [pending]> quit
  There are pending changes that are not saved. Leave anyway? [y/n]: maybe
  Please answer y (yes) or n (no).
  There are pending changes that are not saved. Leave anyway? [y/n]: yes
  $ ktl-cli logger -confirm edit | grep Syslog
    Syslog output           : Off

Edits of another session do not mark the prompt, and leaving asks nothing.
An unknown word is an unknown command with the commands of the shell; a
line that starts with "#" is a comment; the shell's help names commands as
the shell takes them; "exit" and "quit" take no words.

  $ printf 'logger -confirm edit\n  # logger -discard -nochk\nfoo bar\nhelp\nhelp nosuch\nexit now\nquit\n' | "$TESTDIR/shell-session.sh"
  ktl> logger -confirm edit
  Logger configuration
  
    Syslog output           : Off
  ktl>   # logger -discard -nochk
  ktl> foo bar
  ktl-cli: Unknown command "foo". Commands: logger, help, compare, exit, quit; "?" lists them with what they do.
  exit status 2
  ktl> help
  Commands:
    logger   view and edit the configuration of the resource-usage logging tool
  
  "help COMMAND" shows the forms and options of a command; "--help" shows
  ktl-cli's environment and exit statuses; "compare logger" lists the pending
  changes. "?" lists the words that may come next and Tab completes them; a line
  that starts with "#" is a comment; "exit" or "quit" leaves the shell.
  ktl> help nosuch
  ktl-cli: Unknown command "nosuch". Commands: logger, help, compare, exit, quit; "?" lists them with what they do.
  exit status 2
  ktl> exit now
  ktl-cli: "exit" takes no words
  ktl> quit
  $ ktl-cli logger -discard -nochk
  The pending changes were discarded.

Without a terminal there is no shell: ktl-cli says how it is used.

  $ ktl-cli < /dev/null > usage 2>&1; echo "status $?"; head -1 usage
  status 2
  Usage: ktl-cli [-v] COMMAND [WORD...]

Something other than a file at ~/.ktl_history, a FIFO say, is left alone:
the shell keeps no history rather than wait on it.

  $ rm ~/.ktl_history && mkfifo ~/.ktl_history
  $ printf 'exit\n' | "$TESTDIR/shell-session.sh"
  ktl-cli: no history is kept: /*/.ktl_history is not a regular file (glob)
  ktl> exit

Each line is a command of its own: a wrong value of the limits file is
reported by every line that reads it.

  $ mkdir -p root/opt/velmora/ktl/cli
  $ printf '[CPU]\nTHRESHOLD_MIN = ten\n' > root/opt/velmora/ktl/cli/LoggerParams.ini
  $ printf 'logger -device cpu -setting on -threshold 50\nlogger -device cpu -setting on -threshold 60\nlogger -discard -nochk\nexit\n' | KTL_ROOT=$PWD/root "$TESTDIR/shell-session.sh" | grep -c 'THRESHOLD_MIN="ten"'
  2
