// The development host's logging-tool service.
//
// The state directory holds:
//   logger.ini          the configuration in effect
//   logger.edit.ini     the pending configuration, while edits are pending
//   logger.edit.owner   the session (process id) that owns the pending edits
//   logger.lock         the lock that serialises changes to the above
//
// The tool counts as installed when the configuration in effect or the
// shipped default exists; on first use the configuration in effect is
// created from the default. A failure of these files stops the command with
// a devhost::CServiceFailure naming the file concerned; "not installed", a
// session's edits held by another and a value that cannot be stored are
// answers, explained on standard error.
#include "host/tool_service_logger_acc.h"

#include <unistd.h>

#include <iostream>

#include "devhost/service/edit_session.h"
#include "devhost/files/ini_store.h"
#include "devhost/service/logger_conf_ini.h"
#include "devhost/service/service_failure.h"
#include "devhost/files/state_directory.h"
#include "devhost/files/paths.h"
#include "host/trace_utility.h"

namespace {

const int kStatusOk = 0;
const int kStatusFailure = 1;
const int kStatusNotInstalled = 176;
const int kStatusHeldByOtherSession = -1;

const char kEffectiveFileName[] = "/logger.ini";
const char kPendingFileName[] = "/logger.edit.ini";
const char kOwnerFileName[] = "/logger.edit.owner";
const char kLockFileName[] = "/logger.lock";

const char kTraceModule[] = "cli";

// What the accessor keeps between calls: the session of this command.
struct CLoggerServiceState {
  bool bHasSession = false;
  int nSession = 0;
};

// The service's files, from the environment at the time of the call.
struct CStateFiles {
  std::string strDir = devhost::StateDir();
  std::string strEffective = strDir + kEffectiveFileName;
  std::string strPending = strDir + kPendingFileName;
  std::string strOwner = strDir + kOwnerFileName;
  std::string strLock = strDir + kLockFileName;
  std::string strDefault = devhost::DefaultConfFile();
};

// An answer the plug-in acts on, explained on standard error.
void Warn(const std::string& strMessage) {
  // An earlier failed write to standard error would keep the stream failed
  // and silence every later message.
  std::cerr.clear();
  std::cerr << "logger service: " << strMessage << '\n';
}

// A failure of the state's files stops the command (see service_failure.h).
[[noreturn]] void Report(const std::string& strMessage) {
  throw devhost::CServiceFailure("logger service: " + strMessage);
}

// Reads a configuration file; false (explained) when it is missing,
// unreadable or malformed.
bool ReadTree(const std::string& strPath, devhost::IniTree& tree) {
  std::string strError;
  switch (devhost::ReadIniFile(strPath, tree, strError)) {
    case devhost::IniRead::kOk:
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

// As ReadTree, into a record.
bool ReadConf(const std::string& strPath, Velmora_LoggerConf& conf) {
  devhost::IniTree tree;
  if (!ReadTree(strPath, tree)) return false;
  std::string strError;
  if (!devhost::ConfFromIni(tree, conf, strError)) {
    Report(strPath + ": " + strError);
    return false;
  }
  return true;
}

// Copies the shipped default to the configuration in effect, keeping its
// text (and comments) as shipped, once it is known to be a valid
// configuration. The caller holds the state lock.
bool CreateEffectiveFromDefault(const CStateFiles& files) {
  std::string strContent, strError;
  devhost::IniTree tree;
  Velmora_LoggerConf conf;
  const devhost::IniRead eRead = devhost::ReadTextFile(files.strDefault, strContent, strError);
  if (eRead == devhost::IniRead::kMissing) strError = files.strDefault + " does not exist";
  if (eRead != devhost::IniRead::kOk || !devhost::ParseIniText(strContent, files.strDefault, tree, strError)) {
    Report(strError);
    return false;
  }
  if (!devhost::ConfFromIni(tree, conf, strError)) {
    Report(files.strDefault + ": " + strError);
    return false;
  }
  if (!devhost::WriteFileAtomically(files.strEffective, strContent, strError)) {
    Report(strError);
    return false;
  }
  return true;
}

bool isInstalled(const CStateFiles& files) {
  return devhost::isPresent(files.strEffective) || devhost::isPresent(files.strDefault);
}

// Takes the state lock, creating the state directory, and makes sure the
// configuration in effect exists. kStatusOk, kStatusNotInstalled or
// kStatusFailure.
int OpenState(const CStateFiles& files, devhost::CStateLock& lock, bool bNeedEffective) {
  if (!isInstalled(files)) {
    Warn("the logging tool is not installed: neither " + files.strEffective + " nor " + files.strDefault +
           " exists");
    return kStatusNotInstalled;
  }
  std::string strError;
  if (!devhost::PrepareStateDir(strError) || !lock.Acquire(files.strLock, strError)) {
    Report(strError);
    return kStatusFailure;
  }
  if (bNeedEffective && !devhost::isPresent(files.strEffective) && !CreateEffectiveFromDefault(files)) {
    return kStatusFailure;
  }
  return kStatusOk;
}

}  // namespace

CToolServiceLoggerAcc::CToolServiceLoggerAcc() : m_pState(new CLoggerServiceState) {}

CToolServiceLoggerAcc::~CToolServiceLoggerAcc() { delete static_cast<CLoggerServiceState*>(m_pState); }

int CToolServiceLoggerAcc::initWrite(int nProcessId) {
  CLoggerServiceState& state = *static_cast<CLoggerServiceState*>(m_pState);
  state.bHasSession = true;
  state.nSession = nProcessId;

  const CStateFiles files;
  devhost::CStateLock lock;
  const int nStatus = OpenState(files, lock, true);
  if (nStatus != kStatusOk) return nStatus;
  switch (devhost::WhoOwnsPending(files.strPending, files.strOwner, nProcessId)) {
    case devhost::PendingOwner::kNone:
    case devhost::PendingOwner::kSession:
      return kStatusOk;
    case devhost::PendingOwner::kOther:
      return kStatusHeldByOtherSession;
    case devhost::PendingOwner::kAbandoned:
      break;
  }
  std::string strError;
  if (!devhost::WriteOwner(files.strOwner, nProcessId, strError)) {
    Report(strError);
    return kStatusFailure;
  }
  return kStatusOk;
}

bool CToolServiceLoggerAcc::CheckProcessId(int nProcessId) {
  const CStateFiles files;
  const devhost::PendingOwner eOwner = devhost::WhoOwnsPending(files.strPending, files.strOwner, nProcessId);
  return eOwner == devhost::PendingOwner::kNone || eOwner == devhost::PendingOwner::kSession;
}

int CToolServiceLoggerAcc::GetParameter(Velmora_LoggerConf& conf) {
  const CStateFiles files;
  devhost::CStateLock lock;
  const int nStatus = OpenState(files, lock, true);
  if (nStatus != kStatusOk) return nStatus;
  return ReadConf(files.strEffective, conf) ? kStatusOk : kStatusFailure;
}

bool CToolServiceLoggerAcc::ReadConfFile(Velmora_LoggerConf& conf) {
  const CStateFiles files;
  // No pending edits is an ordinary answer, not a failure worth explaining.
  if (!devhost::hasPendingEdits(files.strPending)) return false;
  return ReadConf(files.strPending, conf);
}

int CToolServiceLoggerAcc::SetParameter(Velmora_LoggerConf conf) {
  const CStateFiles files;
  devhost::CStateLock lock;
  const int nStatus = OpenState(files, lock, false);
  if (nStatus != kStatusOk) return nStatus;
  std::string strError;
  if (!devhost::WriteIniFile(files.strEffective, devhost::ConfToIni(conf), strError)) {
    Report(strError);
    return kStatusFailure;
  }
  return kStatusOk;
}

void CToolServiceLoggerAcc::ShowConf(Velmora_LoggerConf conf) {
  for (const std::string& strLine : devhost::DescribeConf(conf)) {
    CTraceUtility::WriteDebug(kTraceModule, CTraceUtility::TRACE_DBG_NOTE, "ShowConf %s", strLine.c_str());
  }
}

bool CToolServiceLoggerAcc::Discard() {
  const CStateFiles files;
  if (!devhost::isPresent(files.strPending) && !devhost::isPresent(files.strOwner)) return true;
  devhost::CStateLock lock;
  std::string strError;
  if (!lock.Acquire(files.strLock, strError) || !devhost::RemoveFile(files.strPending, strError)) {
    Report(strError);
    return false;
  }
  // Without the pending file an owner record means nothing; a leftover one
  // is harmless, so failing to remove it does not fail the discard.
  if (!devhost::RemoveFile(files.strOwner, strError)) Warn(strError);
  return true;
}

bool CToolServiceLoggerAcc::GetString(std::string strSection, std::string strKey, std::string& strValue) {
  const CStateFiles files;
  devhost::CStateLock lock;
  if (OpenState(files, lock, true) != kStatusOk) return false;
  // The pending configuration starts as a copy of the one in effect, so
  // until the first edit creates it, the one in effect answers for it.
  const std::string& strPath = devhost::hasPendingEdits(files.strPending) ? files.strPending : files.strEffective;
  devhost::IniTree tree;
  if (!ReadTree(strPath, tree)) return false;
  const std::string* pValue = devhost::FindIniValue(tree, strSection, strKey);
  if (!pValue) return false;
  strValue = *pValue;
  return true;
}

bool CToolServiceLoggerAcc::WriteString(std::string strSection, std::string strKey, std::string strValue) {
  const CLoggerServiceState& state = *static_cast<const CLoggerServiceState*>(m_pState);
  // A command that did not go through initWrite edits for the shell that
  // started it, as GetPPID reports it.
  const int nSession = state.bHasSession ? state.nSession : static_cast<int>(getppid());

  std::string strError;
  if (!devhost::isStorableIniEntry(strSection, strKey, strValue, strError)) {
    Warn(strError);
    return false;
  }
  const CStateFiles files;
  devhost::CStateLock lock;
  if (OpenState(files, lock, true) != kStatusOk) return false;

  const devhost::PendingOwner eOwner = devhost::WhoOwnsPending(files.strPending, files.strOwner, nSession);
  if (eOwner == devhost::PendingOwner::kOther) {
    int nOwner = 0;
    devhost::ReadOwner(files.strOwner, nOwner);
    Warn("the pending configuration belongs to session " + std::to_string(nOwner) + ", which is still running");
    return false;
  }
  // Copy on write: the first edit starts from the configuration in effect.
  const std::string& strSource = eOwner == devhost::PendingOwner::kNone ? files.strEffective : files.strPending;
  devhost::IniTree tree;
  if (!ReadTree(strSource, tree)) return false;
  // The owner is recorded before the pending file appears, so that pending
  // edits never exist without one.
  if (eOwner != devhost::PendingOwner::kSession && !devhost::WriteOwner(files.strOwner, nSession, strError)) {
    Report(strError);
    return false;
  }
  devhost::SetIniValue(tree, strSection, strKey, strValue);
  // Pending edits are a working copy: an edit is not waited for on disk (the
  // wait would be most of the command's time), only a save is.
  if (!devhost::WriteIniFile(files.strPending, tree, strError, devhost::Flush::kNone)) {
    Report(strError);
    return false;
  }
  return true;
}
