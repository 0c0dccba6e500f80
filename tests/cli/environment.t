The KTL_* variables redirect what ktl-cli loads, runs and reads; --help
says they are development switches, not to be kept through sudo:

  $ ktl-cli --help | sed -n '/^Environment/,/ignores them/p'
  Environment (current value in brackets). The KTL_* variables are
  development and test switches: they choose what ktl-cli loads, runs and
  reads. Never let other users run ktl-cli through sudo with them kept
  (env_keep); a set-user-ID ktl-cli ignores them.
  $ ktl-cli --help | grep -E '^  (KTL_LOCK_TIMEOUT|KTL_STATE_DIR)'
    KTL_STATE_DIR     state of the logging tool, edit sessions, audit.log [/*/.local/state/ktl-cli] (glob)
    KTL_LOCK_TIMEOUT  seconds to wait for another command's lock [30]
  $ env -u HOME ktl-cli --help | grep -E '^  KTL_STATE_DIR'
    KTL_STATE_DIR     state of the logging tool, edit sessions, audit.log [none: set HOME or KTL_STATE_DIR]
