#!/usr/bin/env bash
# Runs a command as the first process of a new PID namespace, as a session
# started from outside a container sees it: getsid answers 0 there, since
# the session's leader has no process id inside. Skipped (77) where this
# user may not make namespaces.
#   in-pid-namespace.sh COMMAND [ARGS...]
set -euo pipefail
if ! unshare --pid --fork --mount-proc true 2>/dev/null; then
  echo "in-pid-namespace: cannot make a PID namespace here; skipped" >&2
  exit 77
fi
exec unshare --pid --fork --mount-proc "$@"
