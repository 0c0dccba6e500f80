#!/usr/bin/env bash
# Runs every ktl-cli of the end-to-end tests under valgrind's memcheck and
# fails on any memory error or leak.
#   scripts/valgrind-e2e.sh [BUILD_DIR]     (default build/, built if missing)
# Each ktl-cli process writes its own log into BUILD_DIR/valgrind-e2e/; a log
# without "ERROR SUMMARY: 0 errors" is printed and fails the run. The tests
# that start ktl-cli through their common runner, and the cram sessions, take
# the valgrind command line from KTL_CLI_WRAPPER.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
# Absolute: the sessions write valgrind logs here from their own directories.
build_dir=$(realpath -m "${1:-$top/build}")

if [ ! -f "$build_dir/build.ninja" ]; then
  bash "$top/scripts/build.sh" default "$build_dir"
fi
if grep -q '^KTL_SANITIZE:BOOL=ON' "$build_dir/CMakeCache.txt"; then
  echo "valgrind-e2e: $build_dir is a sanitizer build; valgrind needs a plain one" >&2
  exit 2
fi
cmake --build "$build_dir" --target devhost_tests

log_dir=$build_dir/valgrind-e2e
rm -rf "$log_dir"
mkdir -p "$log_dir"

valgrind=$(command -v valgrind)
export KTL_CLI_WRAPPER="$valgrind --tool=memcheck --leak-check=full --show-leak-kinds=all
  --errors-for-leak-kinds=all --num-callers=40 --child-silent-after-fork=yes
  --suppressions=$top/scripts/valgrind/ktl-cli.supp
  --log-file=$log_dir/ktl-cli.%p.log"

# Left out: the kill test stops ktl-cli at every file change on purpose, a
# hundred runs; the parallel-edit test runs 27 edits of the forms that the
# cram sessions already run one by one.
status=0
"$build_dir/tests/devhost/devhost_tests" \
  --gtest_filter='Logger*:-LoggerKillTest.*:LoggerConcurrencyTest.EditsStartedAtOnce*' \
  || status=$?
# The sessions that change the state or read hostile files, where a memory
# error would do harm: the life of a configuration, sessions, audit, the
# state directory, inconsistent files, what took effect, compare, leftovers,
# namespaces, the limits file and the README's session. The others (help,
# completion, reasons, the shell, reports, timed waits, the same sessions in
# a PID namespace) run code that the ASan+UBSan run checks on every one of
# them; under valgrind they would double this step.
(cd "$build_dir" &&
  ctest -j2 -R '^cli\.(lifecycle|sessions|audit|state_directory|inconsistent_files|words_match_effect|compare|leftovers|namespaces|limits_file|readme_session)$') ||
  status=$?

shopt -s nullglob
logs=("$log_dir"/ktl-cli.*.log)
if [ "${#logs[@]}" -eq 0 ]; then
  echo "valgrind-e2e: no valgrind log was written; did the tests start ktl-cli?" >&2
  exit 1
fi
# A ktl-cli that a signal ended (the audit session sends SIGTERM, SIGHUP and
# SIGPIPE on purpose) never ran its destructors, so the blocks still
# reachable or possibly lost (pointed into) then are no leak; any other
# error of it, a block definitely lost among them, still counts.
ended_by_signal_cleanly() {
  grep -q 'Process terminating with default action of signal' "$1" || return 1
  local errors reachable
  errors=$(sed -n 's/.*ERROR SUMMARY: \([0-9]*\) errors.*/\1/p' "$1")
  reachable=$(grep -cE 'are (still reachable|possibly lost) in loss record' "$1" || true)
  [ "$errors" = "$reachable" ]
}
bad=0
for log in "${logs[@]}"; do
  if ! grep -q 'ERROR SUMMARY: 0 errors' "$log" && ! ended_by_signal_cleanly "$log"; then
    echo "==== $log" >&2
    cat "$log" >&2
    bad=$((bad + 1))
  fi
done
echo "valgrind-e2e: ${#logs[@]} ktl-cli runs checked, $bad with errors"
if [ "$status" -ne 0 ]; then
  echo "valgrind-e2e: the end-to-end tests failed under valgrind (status $status)" >&2
  exit 1
fi
[ "$bad" -eq 0 ]
