On a terminal, ktl-cli with no command is a shell. shell-session.sh types
the lines below into it through a pseudo-terminal and prints the screen.
Tab completes an option and a value (shown as they end up on the line); each
line runs as `ktl-cli WORDS` would, with the same messages and reasons, and
a status other than 0 is shown.

  $ printf 'logger -dev\tc\t-setting on -threshold 5\nlogger -device cpu -setting on -threshold 50\nlogger -confirm edit\nlogger -discard -nochk\nexit\n' | "$TESTDIR/shell-session.sh"
  ktl> logger -device cpu -setting on -threshold 5
  Error: The command line is not valid. Check the options, their order and their values.
  reason: Parameter Error: -threshold 5 (allowed 10 to 100: CPU THRESHOLD_MIN, THRESHOLD_MAX in /opt/velmora/ktl/cli/LoggerParams.ini, or built-in)
  exit status 1
  ktl> logger -device cpu -setting on -threshold 50
  The change is held in the pending configuration. Run "logger -save" to put it into effect or "logger -discard" to drop it.
  ktl> logger -confirm edit
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
  ktl> logger -discard -nochk
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

  $ printf 'logger -d\t\nhelp "logger"\n\004' | "$TESTDIR/shell-session.sh" | sed -n '1,8p;$p'
  ktl> logger -d
  -device  -discard  
  ktl> logger -d
  Error: The command line is not valid. Check the options, their order and their values.
  reason: Unknown Parameter Error: -d
  exit status 1
  ktl> help "logger"
  logger: view and edit the configuration of the resource-usage logging tool
  ktl> ^D

Ctrl-C drops the line being typed and ends the wait a command is in, but
not the shell: a question counts as unanswered, and a command waiting for
another one's lock gives up.

  $ printf 'logger -device cpu -setting off\nlogger -confirm cu\003\nlogger -discard\n\003\nexit\n' | "$TESTDIR/shell-session.sh"
  ktl> logger -device cpu -setting off
  The change is held in the pending configuration. Run "logger -save" to put it into effect or "logger -discard" to drop it.
  ktl> logger -confirm cu^C
  ktl> logger -discard
  Discard all pending changes of the logger configuration? [y/n]: ^C
  No answer: nothing was done.
  ktl> exit
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

Without a terminal there is no shell: ktl-cli says how it is used.

  $ ktl-cli < /dev/null > usage 2>&1; echo "status $?"; head -1 usage
  status 2
  Usage: ktl-cli COMMAND [WORD...]

Something other than a file at ~/.ktl_history, a FIFO say, is left alone:
the shell keeps no history rather than wait on it.

  $ rm ~/.ktl_history && mkfifo ~/.ktl_history
  $ printf 'exit\n' | "$TESTDIR/shell-session.sh"
  ktl-cli: no history is kept: /*/.ktl_history is not a regular file (glob)
  ktl> exit
