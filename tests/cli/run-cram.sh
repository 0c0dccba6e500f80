#!/usr/bin/env bash
# Runs one cram session file (tests/cli/*.t) against the built ktl-cli.
#   run-cram.sh KTL_CLI_BIN_DIR FILE.t [cram options...]
# Each file is one fresh machine: a new home, so a new state directory
# (~/.local/state/ktl-cli), and the mount listing of tests/cli/mounts.txt in
# place of /bin/mount. KTL_CLI_BIN_DIR holds a `ktl-cli` that the sessions
# call by name, as an administrator types it. KTL_UPDATE_CASES=1 accepts the
# actual output into the file after a deliberate change (review the diff);
# expected lines written as patterns that still match stay as they are.
set -euo pipefail
bin_dir=$(cd "$1" && pwd)
file=$(cd "$(dirname "$2")" && pwd)/$(basename "$2")
shift 2
here=$(cd "$(dirname "$0")" && pwd)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -m 0700 "$work/home"
export HOME=$work/home
unset XDG_STATE_HOME KTL_STATE_DIR KTL_TRACE_FILE KTL_TRACE_MASK KTL_ROOT
export PATH=$bin_dir:$PATH
export KTL_MOUNT_CMD="cat $here/mounts.txt"
export TMPDIR=$work

# cram itself sets LANG, LC_ALL and TZ to C and GMT.
status=0
cram3 --shell=/bin/bash "$@" "$file" || status=$?
if [ "$status" -ne 0 ] && [ "${KTL_UPDATE_CASES:-0}" = 1 ] && [ -f "$file.err" ]; then
  python3 "$here/accept-output.py" "$file" "$file.err"
  echo "run-cram: accepted the actual output into $file" >&2
  status=0
fi
rm -f "$file.err"
exit "$status"
