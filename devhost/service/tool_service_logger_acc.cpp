// The development host's logging-tool service.
//
// The state directory holds:
//   logger.ini          the configuration in effect
//   logger.edit.ini     the pending configuration, while edits are pending,
//                       with the session that owns it (section EditSession)
//
// ktl-cli.lock, the state directory's command lock, serialises the commands
// (devhost/files/command_lock.h).
//
// The tool counts as installed when the configuration in effect or the
// shipped default exists; on first use the configuration in effect is
// created from the default. A command opens the state once and answers its
// later calls from that opening (devhost/service/state_view.h). Edits and discards change the command's view of
// the pending configuration (devhost/service/pending_edits.h), which is
// written once the command has run; a save replaces the configuration in
// effect at once.
//
// Every file read is checked (devhost/service/logger_conf_check.h); one that
// fails is refused, never used. "Not installed" is an answer, explained on
// standard error, for which the plug-in shows its own message; other
// failures are explained on standard error, naming the file, and make the
// command fail.
#include "host/tool_service_logger_acc.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>

#include "devhost/files/ini_store.h"
#include "devhost/files/paths.h"
#include "devhost/files/state_directory.h"
#include "devhost/messages/held_messages.h"
#include "devhost/service/edit_session.h"
#include "devhost/service/logger_conf_check.h"
#include "devhost/service/logger_conf_ini.h"
#include "devhost/service/pending_edits.h"
#include "devhost/service/state_view.h"
#include "devhost/utilities/refusal_reasons.h"
#include "host/trace_utility.h"

namespace {

const int kStatusOk = 0;
const int kStatusFailure = 1;
const int kStatusNotInstalled = 176;
const int kStatusHeldByOtherSession = -1;

const char kTraceModule[] = "cli";
// The plug-in's message for a command refused because another session
// holds the pending edits.
const char kRefusedForOtherSession[] = "MSG_CLI_CHECK_PRCID";

using devhost::CStateFiles;

// What the accessor keeps between calls: the session of this command.
struct CLoggerServiceState {
  bool bHasSession = false;
  int nSession = 0;
};

devhost::CPendingEdits& Pending() { return devhost::CPendingEdits::OfThisCommand(); }
devhost::CStateView& View() { return devhost::CStateView::OfThisCommand(); }

// Explains a failure; the command then fails and changes nothing.
void Report(const std::string& strMessage) {
  Pending().Fail();
  // An earlier failed write to standard error would keep the stream failed
  // and silence every later message.
  std::cerr.clear();
  std::cerr << "ktl-cli: " << strMessage << '\n';
}

// What this command has explained already: a command asks the service
// several times, and an answer is explained once.
std::string& LastExplanation() {
  static std::string strLast;
  return strLast;
}

// Explains an answer on standard error without failing the command.
void ExplainOnce(const std::string& strMessage) {
  if (LastExplanation() == strMessage) return;
  LastExplanation() = strMessage;
  std::cerr.clear();
  std::cerr << "ktl-cli: " << strMessage << '\n';
}

// Checks a configuration read from strPath: a complete one when it is to be
// in effect, consistent entries and well-formed values always.
bool CheckedConf(const std::string& strPath, const devhost::IniTree& tree, bool bComplete, Velmora_LoggerConf* pConf) {
  std::string strError;
  Velmora_LoggerConf conf;
  if ((bComplete && !devhost::CheckComplete(tree, strError)) || !devhost::CheckEntries(tree, strError) ||
      !devhost::ConfFromIni(tree, conf, strError)) {
    Report(strPath + ": " + strError);
    return false;
  }
  if (pConf) *pConf = conf;
  return true;
}

// The configuration in effect, read and checked once per opening of the
// state; false (explained) when it is missing, unreadable, malformed or
// refused.
bool ReadEffective(devhost::IniTree& tree, Velmora_LoggerConf* pConf = nullptr) {
  if (const devhost::IniTree* pKept = View().Effective()) {
    tree = *pKept;
    std::string strError;
    return !pConf || devhost::ConfFromIni(tree, *pConf, strError);
  }
  const std::string& strPath = View().Files().strEffective;
  std::string strError;
  switch (devhost::ReadIniFile(strPath, tree, strError)) {
    case devhost::IniRead::kOk:
      if (!CheckedConf(strPath, tree, true, pConf)) return false;
      View().KeepEffective(tree);
      return true;
    case devhost::IniRead::kMissing:
      Report(strPath + " does not exist");
      return false;
    case devhost::IniRead::kError:
      break;
  }
  Report(strError);
  return false;
}

// Copies the shipped default to the configuration in effect, keeping its
// text (and comments) as shipped, once it is known to be a valid
// configuration. The caller holds the state lock.
bool CreateEffectiveFromDefault(const CStateFiles& files) {
  std::string strContent, strError;
  devhost::IniTree tree;
  const devhost::IniRead eRead = devhost::ReadTextFile(files.strDefault, strContent, strError);
  if (eRead == devhost::IniRead::kMissing) strError = files.strDefault + " does not exist";
  if (eRead != devhost::IniRead::kOk || !devhost::ParseIniText(strContent, files.strDefault, tree, strError)) {
    Report(strError);
    return false;
  }
  if (!CheckedConf(files.strDefault, tree, true, nullptr)) return false;
  if (!devhost::WriteFileAtomically(files.strEffective, strContent, strError)) {
    Report(strError);
    return false;
  }
  // Checked already: it is not read again.
  View().KeepEffective(tree);
  return true;
}

bool isInstalled(const CStateFiles& files) {
  return devhost::isPresent(files.strEffective) || devhost::isPresent(files.strDefault);
}

// Opens the command's view of the state, unless it is open under the lock
// holding of now: takes the lock (creating the state directory), makes sure
// the configuration in effect exists and brings the view of the pending
// configuration up to date. kStatusOk, kStatusNotInstalled or
// kStatusFailure. After a failure the command stops: every later call fails
// too, without a second message, so that nothing is shown or written from
// files that were refused.
int OpenState() {
  if (Pending().hasFailed()) return kStatusFailure;
  devhost::CStateView& view = View();
  if (view.isOpen()) return view.Status();
  std::string strError;
  if (!view.Lock(strError)) {
    Report(strError);
    return kStatusFailure;
  }
  const CStateFiles& files = view.Files();
  if (!isInstalled(files)) {
    // An answer, not a failure: the plug-in shows its own message for it.
    ExplainOnce("the logging tool is not installed: neither " + files.strEffective + " nor " + files.strDefault +
                " exists");
    view.Opened(kStatusNotInstalled);
    return kStatusNotInstalled;
  }
  if (!Pending().Refresh(files.strPending, strError)) {
    Report(strError);
    return kStatusFailure;
  }
  if (!devhost::isPresent(files.strEffective) && !CreateEffectiveFromDefault(files)) return kStatusFailure;
  view.Opened(kStatusOk);
  return kStatusOk;
}

// The pending configuration, checked; false (explained) when it is refused.
bool PendingTree(devhost::IniTree& tree, Velmora_LoggerConf* pConf = nullptr) {
  const CStateFiles& files = View().Files();
  std::string strError;
  if (!Pending().Tree(tree, strError)) {
    Report(strError);
    return false;
  }
  if (!Pending().isChanged()) return CheckedConf(files.strPending, tree, false, pConf);
  // An entry is whole only once all of a command's edits are made.
  Velmora_LoggerConf conf;
  if (!devhost::ConfFromIni(tree, conf, strError)) {
    Report(files.strPending + ": " + strError);
    return false;
  }
  if (pConf) *pConf = conf;
  return true;
}

// True when the configuration in effect now is what the pending tree held:
// another command saved it. Both are compared as records, as a save writes
// them.
bool isInEffectNow(const devhost::IniTree& pending) {
  Velmora_LoggerConf pendingConf, effectiveConf, savedConf;
  devhost::IniTree effective;
  std::string strError;
  if (pending.empty() || !devhost::ConfFromIni(pending, pendingConf, strError) ||
      !devhost::ConfFromIni(devhost::ConfToIni(pendingConf), savedConf, strError) ||
      !ReadEffective(effective, &effectiveConf)) {
    return false;
  }
  return devhost::DescribeConf(savedConf) == devhost::DescribeConf(effectiveConf);
}

// Who holds the pending edits, in the same words for a refused edit, save
// and discard: the session, its user, since when, and how to release them.
std::string OwnerRefusal() {
  const devhost::CSessionRecord& owner = Pending().Owner();
  const bool bElsewhere = devhost::isInOtherNamespace(owner);
  std::string strText =
      "the pending changes in " + View().Files().strPending + " belong to session " + std::to_string(owner.nSession);
  if (bElsewhere) strText += " of another PID namespace (pid:[" + std::to_string(owner.nPidNamespace) + "])";
  if (!owner.strUser.empty()) strText += " of user " + owner.strUser;
  if (!owner.strSince.empty()) strText += ", held since " + owner.strSince;
  strText += bElsewhere ? ", whose leader cannot be looked at from here"
                        : ", whose leader (process " + std::to_string(owner.nSession) + ") is still running";
  return strText + "; \"logger -discard\" in that session releases them, or removing the file once it has ended";
}

}  // namespace

namespace devhost {

bool CommitPendingEdits() {
  std::string strError;
  // A change was made under the lock, which the view holds, or ktl-cli.
  const bool bSaved = CStateView::OfThisCommand().wasSaved();
  const bool bCommitted = CPendingEdits::OfThisCommand().Commit(strError);
  CStateView::OfThisCommand().Forget();
  if (bCommitted) return true;
  if (strError.empty()) return false;
  std::cerr.clear();
  // A save is in effect once the configuration in effect is replaced; what
  // failed after it is only the removal of the pending configuration.
  if (bSaved) {
    std::cerr << "ktl-cli: the pending changes were saved and are now in effect, but " << strError
              << "; \"logger -discard\" drops the pending configuration\n";
  } else {
    std::cerr << "ktl-cli: " << strError << '\n';
  }
  return false;
}

}  // namespace devhost

// A command starts from the files as they are: what an earlier command of
// this process left uncommitted (it stopped on an exception) is forgotten.
CToolServiceLoggerAcc::CToolServiceLoggerAcc() : m_pState(new CLoggerServiceState) {
  Pending().Forget();
  View().Forget();
  devhost::ForgetCurrentSession();
  LastExplanation().clear();
}

CToolServiceLoggerAcc::~CToolServiceLoggerAcc() { delete static_cast<CLoggerServiceState*>(m_pState); }

int CToolServiceLoggerAcc::initWrite(int nProcessId) {
  CLoggerServiceState& state = *static_cast<CLoggerServiceState*>(m_pState);
  state.bHasSession = true;
  state.nSession = nProcessId;

  const int nStatus = OpenState();
  if (nStatus != kStatusOk) return nStatus;
  // Edits of an ended session are taken over by the first edit that changes
  // them, not here: a command that only looks changes nothing.
  if (Pending().OwnerFor(nProcessId) != devhost::PendingOwner::kOther) return kStatusOk;
  // Said with the plug-in's refusal, if the command is refused for it.
  devhost::AddDetailToError(kRefusedForOtherSession, OwnerRefusal());
  return kStatusHeldByOtherSession;
}

bool CToolServiceLoggerAcc::CheckProcessId(int nProcessId) {
  if (OpenState() != kStatusOk) return false;
  return Pending().OwnerFor(nProcessId) != devhost::PendingOwner::kOther;
}

int CToolServiceLoggerAcc::GetParameter(Velmora_LoggerConf& conf) {
  const int nStatus = OpenState();
  if (nStatus != kStatusOk) return nStatus;
  devhost::IniTree tree;
  return ReadEffective(tree, &conf) ? kStatusOk : kStatusFailure;
}

bool CToolServiceLoggerAcc::ReadConfFile(Velmora_LoggerConf& conf) {
  if (OpenState() != kStatusOk) return false;
  if (Pending().wereDroppedMeanwhile()) {
    Report(isInEffectNow(Pending().FirstSeen())
               ? "the pending changes were saved by another command while this one waited for an answer; "
                 "they are in effect, and this command saved nothing"
               : "the pending changes were discarded by another command while this one waited for an answer; "
                 "nothing was saved");
    return false;
  }
  // No pending edits is an ordinary answer, not a failure: noted, in case
  // it explains a refusal (a save with nothing to save).
  if (!Pending().hasEdits()) {
    devhost::NoteHostFact("nothing pending");
    return false;
  }
  devhost::IniTree tree;
  return PendingTree(tree, &conf);
}

int CToolServiceLoggerAcc::SetParameter(Velmora_LoggerConf conf) {
  const int nStatus = OpenState();
  if (nStatus != kStatusOk) return nStatus;
  const CStateFiles& files = View().Files();
  const devhost::IniTree tree = devhost::ConfToIni(conf);
  std::string strError;
  if (!CheckedConf(files.strEffective, tree, true, nullptr)) return kStatusFailure;
  if (!devhost::WriteIniFile(files.strEffective, tree, strError)) {
    Report(strError);
    return kStatusFailure;
  }
  View().KeepEffective(tree);
  View().NoteSaved();
  return kStatusOk;
}

void CToolServiceLoggerAcc::ShowConf(Velmora_LoggerConf conf) {
  for (const std::string& strLine : devhost::DescribeConf(conf)) {
    CTraceUtility::WriteDebug(kTraceModule, CTraceUtility::TRACE_DBG_NOTE, "ShowConf %s", strLine.c_str());
  }
}

bool CToolServiceLoggerAcc::Discard() {
  const CLoggerServiceState& state = *static_cast<const CLoggerServiceState*>(m_pState);
  const int nSession = state.bHasSession ? state.nSession : devhost::CurrentSession();
  if (OpenState() != kStatusOk) return false;
  if (Pending().OwnerFor(nSession) == devhost::PendingOwner::kOther) {
    Report(OwnerRefusal());
    return false;
  }
  if (Pending().hasEdits()) Pending().Remove();
  return true;
}

bool CToolServiceLoggerAcc::GetString(std::string strSection, std::string strKey, std::string& strValue) {
  if (OpenState() != kStatusOk) return false;
  // The pending configuration starts as a copy of the one in effect, so
  // until the first edit creates it, the one in effect answers for it.
  devhost::IniTree tree;
  if (Pending().hasEdits() ? !PendingTree(tree) : !ReadEffective(tree)) return false;
  const std::string* pValue = devhost::FindIniValue(tree, strSection, strKey);
  if (!pValue) return false;
  strValue = *pValue;
  return true;
}

bool CToolServiceLoggerAcc::WriteString(std::string strSection, std::string strKey, std::string strValue) {
  const CLoggerServiceState& state = *static_cast<const CLoggerServiceState*>(m_pState);
  // A command that did not go through initWrite edits for the session that
  // started it, as GetPPID reports it.
  const int nSession = state.bHasSession ? state.nSession : devhost::CurrentSession();

  if (OpenState() != kStatusOk) return false;
  const CStateFiles& files = View().Files();
  std::string strError;
  if (!devhost::isStorableIniEntry(strSection, strKey, strValue, strError) ||
      !devhost::CheckEdit(strSection, strKey, strValue, strError)) {
    Report(files.strPending + ": " + strError);
    return false;
  }
  if (Pending().OwnerFor(nSession) == devhost::PendingOwner::kOther) {
    Report(OwnerRefusal());
    return false;
  }
  // The edit is written when the command ends; a directory that cannot take
  // it is refused now, before the plug-in reports the change as held.
  if (access(files.strDir.c_str(), W_OK) != 0) {
    Report("cannot change " + files.strPending + ": " + files.strDir + ": " + std::strerror(errno));
    return false;
  }
  // Copy on write: the first edit starts from the configuration in effect.
  devhost::IniTree tree;
  if (Pending().hasEdits() ? !PendingTree(tree) : !ReadEffective(tree)) return false;
  devhost::SetIniValue(tree, strSection, strKey, strValue);
  Pending().Replace(tree, nSession);
  return true;
}
