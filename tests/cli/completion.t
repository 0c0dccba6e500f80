bash completion offers what the shell's Tab key offers: command names, the
first options of the forms, the options of the chosen form not given yet,
and the values of an option that takes one from a set.

  $ source "$TESTDIR/../../devhost/completion/ktl-cli"
  $ complete -p ktl-cli
  complete -F _ktl_cli ktl-cli
  $ offer() { COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _ktl_cli; echo "${COMPREPLY[*]}"; }
  $ offer ktl-cli ''
  help logger
  $ offer ktl-cli help ''
  logger
  $ offer ktl-cli logger ''
  -alert -confirm -device -discard -mp -save -syslogoutput
  $ offer ktl-cli logger -d
  -device -discard
  $ offer ktl-cli logger -device ''
  cpu disk mem
  $ offer ktl-cli logger -device cpu -setting on ''
  -count -interval -threshold
  $ offer ktl-cli logger -device cpu -setting on -count 3 -t
  -threshold
  $ offer ktl-cli logger -confirm ''
  cur edit
  $ offer ktl-cli logger -save ''
  -nochk

Nothing is offered for free text and numbers, for an unknown form or for a
command that is not installed.

  $ offer ktl-cli logger -mp ''
  
  $ offer ktl-cli logger -device cpu -setting on -count ''
  
  $ offer ktl-cli logger -verbose ''
  
  $ offer ktl-cli nosuch ''
  
