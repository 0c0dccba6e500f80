The audit line names the real user: a local user by the name in
/etc/passwd (whichever line it is on), a user whom no password database
knows by the number. Each runs with a state directory of their own in a
directory that both can reach (as root only: the session switches users;
a coverage build writes its counts under the user's directory):

  $ [ "$(id -u)" = 0 ] && command -v setpriv > /dev/null || exit 80
  $ shared=$(mktemp -d /tmp/ktl-audit-user.XXXXXX) && chmod 0755 $shared && trap 'rm -rf $shared' EXIT
  $ as() {
  >   local uid=$1; shift
  >   mkdir -m 0700 $shared/$uid && chown $uid $shared/$uid
  >   KTL_STATE_DIR=$shared/$uid GCOV_PREFIX=$shared/$uid/gcov \
  >     setpriv --reuid=$uid --regid=$uid --clear-groups ktl-cli logger "$@"
  >   sed 's/^[^ ]* //; s/ session=[0-9]*//' $shared/$uid/audit.log
  > }
  $ grep -c '^nobody:x:65534:' /etc/passwd
  1
  $ as 65534 -syslogoutput on
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  user=nobody status=0 logger -syslogoutput on
  $ getent passwd 4242 || as 4242 -syslogoutput on
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  user=4242 status=0 logger -syslogoutput on
