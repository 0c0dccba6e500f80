A command opens the state once: it takes the lock once, and opens each file
of the state directory at most once while it holds it. Only a question lets
the lock go; the command then takes it again and reads what another command
may have changed meanwhile. Each command below is traced (strace), showing
in order each file of the state directory it opens or tries to open (a
replacement's temporary file as NAME.tmp) and each time it takes the lock.
LeakSanitizer cannot work under strace, so a sanitized build leaves it out;
runs under valgrind or an emulator, whose own file look-ups would be
counted, skip the session.

  $ strace -f -o /dev/null true 2>/dev/null && [ -z "${KTL_CLI_WRAPPER:-}" ] || exit 80
  $ grep -q qemu "$(command -v ktl-cli)" && exit 80 || true
  $ state=$HOME/.local/state/ktl-cli
  $ opens() {
  >   ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0 \
  >     strace -f -qq -e trace=openat,flock -o trace.txt ktl-cli logger "$@" > /dev/null
  >   local status=$?
  >   awk -v dir="$state/" '
  >     /flock\(.*LOCK_EX/ { print "lock" }
  >     /openat\(/ && !/O_DIRECTORY/ {
  >       split($0, q, "\""); path = q[2]
  >       if (index(path, dir) == 1 && index(substr(path, length(dir) + 1), "/") == 0) {
  >         name = substr(path, length(dir) + 1); sub(/\.tmp\..*/, ".tmp", name); print "  " name
  >       }
  >     }' trace.txt
  >   return $status
  > }
  $ ktl-cli logger -confirm cur > /dev/null

An edit, a new mount point, a look at the pending configuration and a save
without its question:

  $ opens -syslogoutput on
    ktl-cli.lock
  lock
    logger.edit.ini
    audit.log
    logger.ini
    logger.edit.ini.tmp
  $ opens -device disk -setting on
    ktl-cli.lock
  lock
    logger.edit.ini
    audit.log
    logger.edit.ini.tmp
  $ opens -mp /data -setting on
    ktl-cli.lock
  lock
    logger.edit.ini
    audit.log
    logger.edit.ini.tmp
  $ opens -confirm edit
    ktl-cli.lock
  lock
    logger.edit.ini
    audit.log
    logger.ini
  $ opens -save -nochk
    ktl-cli.lock
  lock
    logger.edit.ini
    audit.log
    logger.ini
    logger.ini.tmp

A question lets the lock go: the save reads the pending configuration
again after the answer, and only then.

  $ ktl-cli logger -syslogoutput off > /dev/null
  $ echo y | opens -save
    ktl-cli.lock
  lock
    logger.edit.ini
    audit.log
    logger.ini
  lock
    logger.edit.ini
    logger.ini
    logger.ini.tmp
