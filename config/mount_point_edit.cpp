// The mount-point list of the disk monitor in the pending configuration:
// lookup of a mount point, and CmdMount, which adds or rewrites its entry.
//
// Entry n lives in section "FSNAME-<n>"; "NumFileSys" of section "FILESYS"
// holds the number last given out. Entries are never removed or renumbered.
#include <climits>
#include <cstdio>
#include <cstdlib>

#include "plugin/logger_config_cmd.h"
#include "plugin/messages.h"
#include "plugin/trace.h"

namespace {

const char kSigMultiplex[] =
    "bool CLoggerConfigCmd::isMultiplexDefinition(std::string, Velmora_LoggerFsThresholdConf&)";
const char kSigCmdMount[] = "int CLoggerConfigCmd::CmdMount()";

const char kSectionFilesys[] = "FILESYS";
const char kKeyNumFileSys[] = "NumFileSys";
const char kEntrySectionPrefix[] = "FSNAME-";
const char kKeyAvailable[] = "Available";
const char kKeyThreshold[] = "Threshold";
const char kKeyMount[] = "Mount";

const int kNoIndex = -1;

// The number after the last one given out. The text is read as strtol reads
// it in base 10, so text without digits counts as 0; the value is kept
// within int so that the increment cannot overflow.
int NextEntryNumber(const std::string& strLast) {
  long nLast = std::strtol(strLast.c_str(), nullptr, 10);
  if (nLast > INT_MAX - 1) nLast = INT_MAX - 1;
  if (nLast < INT_MIN) nLast = INT_MIN;
  return static_cast<int>(nLast) + 1;
}

std::string EntrySection(int nNumber) {
  char szSection[32];
  // NOLINTNEXTLINE(cert-err33-c): the prefix and any int fit in the buffer.
  std::snprintf(szSection, sizeof(szSection), "%s%d", kEntrySectionPrefix, nNumber);
  return szSection;
}

}  // namespace

bool CLoggerConfigCmd::isMultiplexDefinition(std::string strMountPoint, Velmora_LoggerFsThresholdConf& entry) {
  logger_trace::Enter(kSigMultiplex, strMountPoint);
  // A pending configuration that cannot be read leaves the list empty.
  Velmora_LoggerConf pending;
  m_pLoggerAcc->ReadConfFile(pending);

  bool bFound = false;
  for (const Velmora_LoggerFsThresholdConf& listed : pending.fs.vecThreshold) {
    // Exact comparison: "/data" and "/data/" are different mount points.
    if (listed.strMount == strMountPoint) {
      entry = listed;
      logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigMultiplex,
                         "Mountpoint(%s) is already exist (threshold=%d, 0x%x)", strMountPoint.c_str(),
                         listed.nThreshold, static_cast<unsigned int>(listed.nAvailable));
      bFound = true;
      break;
    }
  }
  logger_trace::LeaveBool(kSigMultiplex, bFound);
  return bFound;
}

int CLoggerConfigCmd::CmdMount() {
  logger_trace::Enter(kSigCmdMount);
  // Only a directory with a file system mounted on it can be monitored.
  if (!isMounted(m_strMountPoint)) return ShowMessage(logger_msg::kNotMounted);

  Velmora_LoggerFsThresholdConf listed;
  int nNumber;
  if (isMultiplexDefinition(m_strMountPoint, listed) && listed.nIndex != kNoIndex) {
    nNumber = listed.nIndex;  // rewritten in place
  } else {
    std::string strLast;
    if (!m_pLoggerAcc->GetString(kSectionFilesys, kKeyNumFileSys, strLast)) return ShowApplicationError();
    nNumber = NextEntryNumber(strLast);
    EditIntValue(kSectionFilesys, kKeyNumFileSys, nNumber);
  }

  // The writers show their own errors; the entry is written as far as it
  // goes and the edit is reported as held either way.
  const std::string strSection = EntrySection(nNumber);
  EditOnOff(strSection, kKeyAvailable, false);
  EditIntValue(strSection, kKeyThreshold, m_nThreshold);
  m_pLoggerAcc->WriteString(strSection, kKeyMount, m_strMountPoint);

  ShowMessage(logger_msg::kHoldParam);
  logger_trace::Leave(kSigCmdMount);
  return 0;
}
