The manual pages render without a warning, and the forms in the synopsis of
ktl-cli-logger(1) are those that `ktl-cli help logger` shows (which a test
drives through the plug-in).

  $ pages=$TESTDIR/../../devhost/man
  $ for page in ktl-cli ktl-cli-logger; do MANWIDTH=80 man --warnings -l "$pages/$page.1" > /dev/null; done
  $ MANWIDTH=200 man -l "$pages/ktl-cli-logger.1" | sed -n '/^SYNOPSIS/,/^$/p' | sed '1d;$d;s/^ *//;s/^ktl-cli //' > man-forms
  $ ktl-cli help logger | sed -n 's/^  logger /logger /p' > help-forms
  $ diff -i help-forms man-forms
  $ wc -l < man-forms
  7

A broken page would show here: a warning is output.

  $ printf '.TH X 1\n.SH NAME\n.BOGUS x\n' > broken.1
  $ man --warnings -l broken.1 2>&1 >/dev/null | grep -c warning
  1
