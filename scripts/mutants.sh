#!/usr/bin/env bash
# Mutation check: applies small faults to the plug-in and the development
# host one at a time, rebuilds what changed, runs the tests and prints which
# faults were caught and which survived. Not part of CI: it takes minutes.
#
#   scripts/mutants.sh [--ref REF] [--out FILE] [NAME...]
#
# The sources are copied to a scratch directory first (the worktree's files,
# or those of commit REF with --ref), so the checkout is never modified. With
# NAMEs, only the faults whose names contain one of them run. A fault names its file by path; when the path
# does not exist (files move), the first file of the same name anywhere in
# the tree is taken. A fault whose original text is not found is "n/a".
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

ref=""
out=""
while [[ $# -gt 0 && $1 == --* ]]; do
  case $1 in
    --ref) ref=$2; shift 2 ;;
    --out) out=$2; shift 2 ;;
    *) echo "usage: $0 [--ref REF] [--out FILE] [NAME...]" >&2; exit 2 ;;
  esac
done
only=("$@")

scratch=${KTL_MUTANTS_DIR:-${TMPDIR:-/tmp}/ktl-mutants-$(id -u)}
src=$scratch/src
build=$scratch/build
per_test_timeout=${KTL_MUTANTS_TIMEOUT:-60}

# name @@ file @@ exact original text @@ replacement ("<NL>" is a line break)
faults=$(cat <<'EOF'
cpu threshold minimum @@ parse/limits.cpp @@ {"CPU", kIntervalRange, kCountRange, {{"THRESHOLD_MIN", 10} @@ {"CPU", kIntervalRange, kCountRange, {{"THRESHOLD_MIN", 11}
disk threshold maximum @@ parse/limits.cpp @@ "DISK", kIntervalRange, kCountRange, {{"THRESHOLD_MIN", 40}, {"THRESHOLD_MAX", 100}} @@ "DISK", kIntervalRange, kCountRange, {{"THRESHOLD_MIN", 40}, {"THRESHOLD_MAX", 101}}
count maximum @@ parse/limits.cpp @@ {"COUNT_MAX", 1000} @@ {"COUNT_MAX", 999}
off with values counted one more @@ parse/limits.cpp @@ nOptions > kFormOptions @@ nOptions > kFormOptions + 1
off with values trace dropped @@ parse/limits.cpp @@ TraceOffWithValues(kSigCheckSetThreshold, nOptions); @@ (void)0;
syslog pair count off by one @@ parse/check_param.cpp @@ return isCountWithin(pairs, 1) ? Outcome::kAcceptWithExitTrace : Outcome::kRefuse; @@ return isCountWithin(pairs, 2) ? Outcome::kAcceptWithExitTrace : Outcome::kRefuse;
alert levels swapped @@ parse/check_param.cpp @@ strValue == "inf" ? 0 : strValue == "wrn" ? 1 : 2 @@ strValue == "inf" ? 1 : strValue == "wrn" ? 0 : 2
nochk with three pairs @@ parse/check_param.cpp @@ if (pairs.size() != 2) return true; @@ if (pairs.size() < 2) return true;
confirm asks for the session @@ parse/check_param.cpp @@ cmd.m_bSkipProcessCheck = true;<NL>  pExecMethod = &CLoggerConfigCmd::Confirm; @@ pExecMethod = &CLoggerConfigCmd::Confirm;
exception result @@ parse/check_param.cpp @@ const int kExceptionResult = 241; @@ const int kExceptionResult = 240;
analyze error trace dropped @@ parse/check_param.cpp @@ logger_trace::Note(CTraceUtility::TRACE_DBG_PARAM, kSigCheckParam, "Parameter Analyze Error"); @@ (void)0;
value compared as typed @@ parse/value_checkers.cpp @@ if (strEntry == strLower) { @@ if (strEntry == strValue) {
six digits accepted @@ parse/value_checkers.cpp @@ const size_t kMaxDigits = 5; @@ const size_t kMaxDigits = 6;
host step result ignored @@ plugin/exec.cpp @@ nResult = 1; @@ nResult = 0;
session messages swapped @@ plugin/exec.cpp @@ nResult = ShowMessage(logger_msg::kCheckProcessId); @@ nResult = ShowMessage(logger_msg::kMonitorToolNotFound);
process check never skipped @@ plugin/exec.cpp @@ } else if (m_bSkipProcessCheck) { @@ } else if (false) {
checkexec for the wrong commands @@ plugin/check_exec.cpp @@ if (m_nSettingCmd == 1 && !isSyslogoutputOn()) @@ if (m_nSettingCmd == 0 && !isSyslogoutputOn())
syslog switch from the wrong record @@ plugin/check_exec.cpp @@ if (!m_pLoggerAcc->ReadConfFile(conf)) m_pLoggerAcc->GetParameter(conf); @@ m_pLoggerAcc->GetParameter(conf);
session not claimed @@ plugin/construction.cpp @@ loggerAcc->initWrite(GetPPID()); @@ (void)0;
trace percent not doubled @@ plugin/trace.cpp @@ if (c == '%') strEscaped += '%'; @@ (void)0;
application error code @@ plugin/messages.h @@ 0xFF000001UL @@ 0xFF000002UL
unset value written @@ config/value_writers.cpp @@ if (nValue == kNotGiven) return 0; @@ if (nValue == -2) return 0;
on written as text @@ config/value_writers.cpp @@ const char kOn[] = "0x11"; @@ const char kOn[] = "on";
hold message dropped @@ config/value_writers.cpp @@ if (bShowHold) ShowMessage(logger_msg::kHoldParam); @@ (void)bShowHold;
alert keys swapped @@ config/edit_commands.cpp @@ {"Information", "Warning", "Error"} @@ {"Information", "Error", "Warning"}
hold shown after a failed write @@ config/edit_commands.cpp @@ if (bAllWritten) ShowMessage(logger_msg::kHoldParam); @@ ShowMessage(logger_msg::kHoldParam);
next entry number off by one @@ config/mount_point_edit.cpp @@ return static_cast<int>(nLast) + 1; @@ return static_cast<int>(nLast) + 2;
last listed entry taken @@ config/mount_point_edit.cpp @@ bFound = true;<NL>      break; @@ bFound = true;
entry without a number rewritten @@ config/mount_point_edit.cpp @@ && listed.nIndex != kNoIndex) { @@ ) {
mount hold message dropped @@ config/mount_point_edit.cpp @@ ShowMessage(logger_msg::kHoldParam);<NL>  logger_trace::Leave(kSigCmdMount); @@ logger_trace::Leave(kSigCmdMount);
merge switch from the wrong side @@ config/logger_conf_merge.cpp @@ if (!isSwitchSet(nThis)) nThis = nOther; @@ if (isSwitchSet(nOther)) nThis = nOther;
merge values from the wrong side @@ config/logger_conf_merge.cpp @@ if (nOther != -1) nThis = nOther; @@ if (nThis == -1) nThis = nOther;
merge disk list from the wrong side @@ config/logger_conf_merge.cpp @@ pSource = &own; @@ (void)own;
switched monitor merged @@ config/logger_conf_merge.cpp @@ if (!isSwitchSet(cpu.nAvailable)) { @@ if (true) {
listing line buffer @@ pending/mount_check.cpp @@ const std::streamsize kLineBufferSize = 1024; @@ const std::streamsize kLineBufferSize = 1023;
listing file left behind @@ pending/mount_check.cpp @@ ::unlink(strPath.c_str()); @@ (void)0;
type marker without its blank @@ pending/mount_check.cpp @@ const char kTypeMarker[] = " type"; @@ const char kTypeMarker[] = "type";
switched-off mount point counted @@ pending/mount_check.cpp @@ if (isMounted(entry.strMount) && isSwitchOn(entry.nAvailable)) ++nUsable; @@ if (isMounted(entry.strMount)) ++nUsable;
mounted leave line dropped @@ pending/mount_check.cpp @@ logger_trace::LeaveBool(kSigIsMounted, bFound); @@ (void)0;
pending kept after a save @@ pending/save.cpp @@ m_pLoggerAcc->Discard(); @@ (void)0;
save asks the discard question @@ pending/save.cpp @@ Inquiry(logger_msg::kAskSave, 0) @@ Inquiry(logger_msg::kAskDiscard, 0)
another session stops the save @@ pending/save.cpp @@ if (!m_pLoggerAcc->CheckProcessId(GetPPID())) ShowMessage(logger_msg::kCheckProcessId); @@ if (!m_pLoggerAcc->CheckProcessId(GetPPID())) return ShowMessage(logger_msg::kCheckProcessId);
mount check skipped by save @@ pending/save.cpp @@ if (CheckEffectiveFileSystem(pending) != 0) return ShowMessage(logger_msg::kSaveRefused); @@ (void)0;
discard note dropped @@ pending/discard.cpp @@ logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigDiscard, "Discard Completed"); @@ (void)0;
discard nochk inverted @@ pending/discard.cpp @@ m_nNoCheck != 0 || @@ m_nNoCheck == 0 ||
confirm types swapped @@ pending/confirm.cpp @@ m_strConfirmType != kConfirmCurrent @@ m_strConfirmType == kConfirmCurrent
display name buffer @@ display/section_fillers.cpp @@ constexpr std::size_t kFsNameBufferSize = 34; @@ constexpr std::size_t kFsNameBufferSize = 35;
display name padding @@ display/section_fillers.cpp @@ "%-22s" @@ "%-21s"
display lists every entry on @@ display/section_fillers.cpp @@ return (entry.nAvailable & 0x0F) == 1; @@ return isSwitchOn(entry.nAvailable);
display text cut at a NUL @@ display/show.cpp @@ std::cout.write(strText.data(), static_cast<std::streamsize>(strText.size())); @@ std::cout << strText.c_str();
display init trace text @@ display/show.cpp @@ const char kInitError[] = "TempleteContext Init Error"; @@ const char kInitError[] = "TemplateContext Init Error";
host: file not flushed to disk @@ devhost/files/ini_store.cpp @@ } else if (eFlush == Flush::kToDisk && fsync(nFd) != 0) { @@ } else if (false) {
host: prompt not flushed @@ devhost/messages/message_inquiry.cpp @@ std::cout << strQuestion << " [y/n]: " << std::flush; @@ std::cout << strQuestion << " [y/n]: ";
host: control bytes written raw @@ devhost/utilities/terminal_text.cpp @@ if (uc < 0x20 || uc == 0x7f || (uc >= 0x80 && uc <= 0x9f)) { @@ if (uc == 0x7f) {
host: C1 controls in UTF-8 written raw @@ devhost/utilities/terminal_text.cpp @@ } else if (nLength == 2 && uc == 0xc2 && @@ } else if (false &&
host: error message result @@ devhost/messages/message.cpp @@ const int kErrorShownResult = 1; @@ const int kErrorShownResult = 0;
host: message code width @@ devhost/messages/message.cpp @@ std::setw(8) @@ std::setw(6)
host: exec after a failed check @@ devhost/cli/drive_command.cpp @@ if (!StepSucceeded("CheckExec", command.CheckExec())) return kExitCommandFailed; @@ StepSucceeded("CheckExec", command.CheckExec());
host: value word taken as option value @@ devhost/command/command.cpp @@ if (i + 1 < vecParam.size() && !isOptionWord(vecParam[i + 1])) param.m_strValue = vecParam[++i]; @@ if (i + 1 < vecParam.size()) param.m_strValue = vecParam[++i];
host: other session ignored @@ devhost/service/tool_service_logger_acc.cpp @@ if (Pending().OwnerFor(nProcessId) != devhost::PendingOwner::kOther) return kStatusOk; @@ return kStatusOk;
host: not-installed status @@ devhost/service/tool_service_logger_acc.cpp @@ const int kStatusNotInstalled = 176; @@ const int kStatusNotInstalled = 175;
host: edits restart from the effective file @@ devhost/service/tool_service_logger_acc.cpp @@ if (Pending().hasEdits() ? !PendingTree(tree) : !ReadEffective(tree)) return false;<NL>  devhost::SetIniValue @@ if (!ReadEffective(tree)) return false;<NL>  devhost::SetIniValue
host: empty pending file counts @@ devhost/service/pending_edits.cpp @@ m_bHasEdits = !strText.empty(); @@ m_bHasEdits = true;
host: reused process id owns @@ devhost/service/edit_session.cpp @@ return nNow == 0 || nNow == record.nLeaderStart; @@ return true;
host: state read again on every call @@ devhost/service/state_view.h @@ bool isOpen() const { return m_bOpen && m_nHolding == CommandLockHolding(); } @@ bool isOpen() const { return false; }
host: state not read again after a question @@ devhost/service/state_view.h @@ bool isOpen() const { return m_bOpen && m_nHolding == CommandLockHolding(); } @@ bool isOpen() const { return m_bOpen; }
host: owner of another PID namespace taken for dead @@ devhost/service/edit_session.cpp @@ if (isInOtherNamespace(record)) return true; @@ (void)0;
host: success shown before the commit @@ devhost/messages/held_messages.cpp @@ if (Held().bHolding) { @@ if (false) {
host: negative interval read @@ devhost/service/logger_conf_values.cpp @@ if (!ParseWholeInt(strValue, 10, nParsed) || nParsed < 1) return false; @@ if (!ParseWholeInt(strValue, 10, nParsed)) return false;
host: limits minimum above maximum unreported @@ devhost/utilities/profile.cpp @@ if (nMin > nMax) { @@ if (false) {
host: trace levels not filtered @@ devhost/utilities/trace_utility.cpp @@ if (!bTraced) return; @@ if (false) return;
host: diagnostic without a rule dropped @@ devhost/help/refusal_explanation.cpp @@ lines.Add(diagnostic.strText);<NL>      continue; @@ continue;
host: a mount point found is reported @@ devhost/help/refusal_explanation.cpp @@ data.set("found", bFound); @@ data.set("found", false);
host: no word named when the plug-in names none @@ devhost/help/refusal_explanation.cpp @@ if (lines.Lines().empty() && bUsageError) @@ if (false)
host: state lock not taken @@ devhost/files/lock_file.cpp @@ while (flock(nFd, LOCK_EX | LOCK_NB) != 0) { @@ while (false) {
host: command lock not taken after the state check @@ devhost/files/command_lock.cpp @@ if (!PrepareStateDir(strError) || !m_lock.Acquire(strDir + kCommandLockFileName, strError)) return false; @@ if (!PrepareStateDir(strError)) return false;
host: appended file opened without O_APPEND @@ devhost/files/append_file.cpp @@ O_WRONLY | O_APPEND | O_CREAT, 0600 @@ O_WRONLY | O_CREAT, 0600
host: files opened waiting @@ devhost/files/safe_open.cpp @@ O_CLOEXEC | O_NONBLOCK | O_NOCTTY @@ O_CLOEXEC | O_NOCTTY
host: closed standard descriptors left closed @@ devhost/cli/ktl_cli.cpp @@ if (!devhost::FillClosedStandardDescriptors()) @@ if (false)
host: change runs without its audit record @@ devhost/command/command.cpp @@ if (eStart == devhost::AuditStart::kStarted) return kOk; @@ return kOk;
host: signal leaves no audit line @@ devhost/command/audit_log.cpp @@ && current.sa_handler == SIG_DFL; @@ && false;
host: unsafe parent of the state directory @@ devhost/files/state_directory.cpp @@ if ((st.st_mode & (S_IWGRP | S_IWOTH)) && !(st.st_mode & S_ISVTX)) { @@ if (false) {
host: template nesting unbounded @@ devhost/messages/template_cache.cpp @@ if (SectionDepth(strText) > kMaxSectionDepth) { @@ if (false) {
host: no fallback for TMPDIR @@ devhost/utilities/ktl_util.cpp @@ if (strDir != kFallbackTempDir) { @@ if (false) {
host: last entry not written @@ devhost/service/logger_conf_ini.cpp @@ for (int nNumber = 1; nNumber <= nEntries; ++nNumber) { @@ for (int nNumber = 1; nNumber < nEntries; ++nNumber) {
host: limit sign dropped @@ devhost/utilities/profile.cpp @@ if (bNegative) llValue = -llValue; @@ (void)bNegative;
host: discard keeps the pending file @@ devhost/service/tool_service_logger_acc.cpp @@ if (Pending().hasEdits()) Pending().Remove(); @@ (void)0;
host: discard from another live session @@ devhost/service/tool_service_logger_acc.cpp @@ if (Pending().OwnerFor(nSession) == devhost::PendingOwner::kOther) {<NL>    Report(OwnerRefusal());<NL>    return false;<NL>  }<NL>  if (Pending().hasEdits()) Pending().Remove(); @@ if (false) {<NL>    Report(OwnerRefusal());<NL>    return false;<NL>  }<NL>  if (Pending().hasEdits()) Pending().Remove();
host: takeover keeps the ended owner @@ devhost/service/pending_edits.cpp @@ if (!isSameSession(m_owner, owner)) { @@ if (false) {
host: hidden session leader taken as none @@ devhost/service/edit_session.cpp @@ if (nSession >= 1) return nSession; @@ return nSession;
host: sudo session taken as the operator's @@ devhost/service/edit_session.cpp @@ nSession = nOuter; @@ (void)nOuter;
host: question not ended by Ctrl-C @@ devhost/messages/message_inquiry.cpp @@ if (devhost::isInterrupted()) { @@ if (false) {
host: lock wait not ended by Ctrl-C @@ devhost/files/lock_file.cpp @@ if (!bWaitForEver && isInterrupted()) { @@ if (false) {
host: Ctrl-C at the prompt runs the line @@ devhost/shell/shell.cpp @@ if (state.bCancelled) { @@ if (false) {
host: prompt without its pending mark @@ devhost/shell/shell.cpp @@ return hasOwnPendingEdits() ? kPendingPrompt : kPrompt; @@ return kPrompt;
host: leave question declined leaves @@ devhost/shell/leave_question.cpp @@ if (strAnswer == "n" || strAnswer == "no") return false; @@ if (strAnswer == "n" || strAnswer == "no") return true;
host: unknown command goes to the loader @@ devhost/cli/ktl_cli.cpp @@ if (!devhost::isInstalledCommand(strCommand)) return @@ if (false) return
host: completion offers optional options first @@ devhost/help/completion.cpp @@ if (nRequired++ == m_nRequiredGiven) return {&option}; @@ (void)nRequired;
host: completion goes on after -setting off @@ devhost/help/completion.cpp @@ strValue == m_pInHand->strEndsForm) m_bEnded = true; @@ strValue == m_pInHand->strEndsForm) (void)0;
EOF
)

# Applies (or, with --restore, undoes) one fault in the scratch tree. Prints
# the file it changed, or nothing when the file or the text is not there.
apply_fault() {
  python3 - "$src" "$@" <<'PY'
import os, sys
root, path, original, replacement = sys.argv[1:5]
decode = lambda s: s.replace("<NL>", "\n")
original, replacement = decode(original), decode(replacement)
target = os.path.join(root, path)
if not os.path.isfile(target):
    name = os.path.basename(path)
    matches = sorted(os.path.join(d, name) for d, _, files in os.walk(root) if name in files)
    target = matches[0] if matches else ""
if target:
    text = open(target, encoding="utf-8").read()
    if original in text:
        open(target + ".mutant-orig", "w", encoding="utf-8").write(text)
        open(target, "w", encoding="utf-8").write(text.replace(original, replacement, 1))
        print(target)
PY
}

# Brings the scratch tree to the sources' content: a file is rewritten only
# when its content differs, so that the next build recompiles exactly what
# changed since the last run (faults are undone with a new time stamp).
sync_tree() {
  python3 - "$1" "$2" <<'PY'
import filecmp, os, shutil, sys
stage, src = sys.argv[1:3]
wanted = set()
for d, _, files in os.walk(stage):
    for name in files:
        rel = os.path.relpath(os.path.join(d, name), stage)
        wanted.add(rel)
        target = os.path.join(src, rel)
        if not os.path.isfile(target) or not filecmp.cmp(os.path.join(stage, rel), target, shallow=False):
            os.makedirs(os.path.dirname(target), exist_ok=True)
            shutil.copy(os.path.join(stage, rel), target)
for d, _, files in os.walk(src):
    for name in files:
        if os.path.relpath(os.path.join(d, name), src) not in wanted:
            os.remove(os.path.join(d, name))
PY
}

echo "== copying the sources ${ref:+of $ref }to $src"
stage=$scratch/stage
rm -rf "$stage"
mkdir -p "$stage" "$src"
if [[ -n $ref ]]; then
  git -C "$top" archive "$ref" | tar -x -C "$stage"
else
  (cd "$top" && git ls-files -z --cached --others --exclude-standard | xargs -0 cp --parents -t "$stage")
fi
sync_tree "$stage" "$src"
rm -rf "$stage"

echo "== building"
cmake -S "$src" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug >/dev/null
nice cmake --build "$build" >/dev/null
run_tests() {
  (cd "$build" && nice ctest --stop-on-failure --timeout "$per_test_timeout" 2>&1)
}
if ! run_tests >"$scratch/baseline.log"; then
  echo "the tests fail without a fault; see $scratch/baseline.log" >&2
  exit 1
fi

table=$(mktemp)
printf '%-3s %-42s %-9s %s\n' "#" "fault" "result" "first failing test" >"$table"
n=0
while IFS= read -r line; do
  [[ -z $line ]] && continue
  name=${line%% @@ *}; rest=${line#* @@ }
  file=${rest%% @@ *}; rest=${rest#* @@ }
  original=${rest%% @@ *}; replacement=${rest#* @@ }
  n=$((n + 1))
  if [[ ${#only[@]} -gt 0 ]]; then
    wanted=0
    for pattern in "${only[@]}"; do [[ $name == *"$pattern"* ]] && wanted=1; done
    [[ $wanted == 1 ]] || continue
  fi
  changed=$(apply_fault "$file" "$original" "$replacement")
  if [[ -z $changed ]]; then
    result="n/a"; detail="$file: original text not found"
  elif ! nice cmake --build "$build" >"$scratch/build.log" 2>&1; then
    result="caught"; detail="(does not build)"
  elif log=$(run_tests); then
    result="SURVIVED"; detail=""
  else
    result="caught"
    detail=$(grep -m1 '\*\*\*' <<<"$log" | sed -E 's/.*Test +#[0-9]+: ([^ ]+).*\*\*\*([A-Za-z]+).*/\1 (\2)/' || true)
  fi
  # Restored with a new time stamp, so that the next build recompiles it.
  if [[ -n $changed ]]; then mv "$changed.mutant-orig" "$changed" && touch "$changed"; fi
  printf '%-3s %-42s %-9s %s\n' "$n" "$name" "$result" "$detail" | tee -a "$table"
done <<<"$faults"

# Leaves the scratch build as it was, for the next run.
nice cmake --build "$build" >/dev/null 2>&1 || true
echo
echo "== $(grep -c ' caught ' "$table") caught, $(grep -c ' SURVIVED ' "$table") survived, $(grep -c ' n/a ' "$table") n/a"
cat "$table"
[[ -n $out ]] && cp "$table" "$out"
rm -f "$table"
