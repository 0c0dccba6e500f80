// Differences between two logger configurations (see config_changes.h).
#include "devhost/compare/config_changes.h"

#include <string>

namespace devhost {
namespace {

// The labels of the "logger -confirm" report (devhost/templates/).
const char kSyslogOutput[] = "Syslog output";
const char kInformation[] = "Information alerts";
const char kWarning[] = "Warning alerts";
const char kError[] = "Error alerts";
const char kCpuMonitor[] = "CPU usage monitor";
const char kMemMonitor[] = "Memory usage monitor";
const char kDiskMonitor[] = "Disk usage monitor";
const char kInterval[] = "Interval (seconds)";
const char kCount[] = "Count";
const char kThreshold[] = "Threshold (%)";
const char kMountPoint[] = "Mount point ";
const char kNotSet[] = "not set";

// A value as the report shows it; -1 is what a file without the key reads.
std::string NumberText(int nValue) { return nValue == -1 ? kNotSet : std::to_string(nValue); }
std::string SwitchText(int nValue) { return isSwitchOn(nValue) ? "On" : "Off"; }

class CChangeList {
 public:
  CChangeList(std::vector<std::string>& vecLines, const std::string& strArrow)
      : m_vecLines(vecLines), m_strArrow(strArrow) {}

  void Switch(const std::string& strLabel, int nOld, int nNew) {
    if (isSwitchOn(nOld) != isSwitchOn(nNew)) Add(strLabel, SwitchText(nOld), SwitchText(nNew));
  }
  void Number(const std::string& strLabel, int nOld, int nNew) {
    if (nOld != nNew) Add(strLabel, NumberText(nOld), NumberText(nNew));
  }
  void Line(const std::string& strLine) { m_vecLines.push_back(strLine); }

 private:
  void Add(const std::string& strLabel, const std::string& strOld, const std::string& strNew) {
    m_vecLines.push_back(strLabel + ": " + strOld + " " + m_strArrow + " " + strNew);
  }

  std::vector<std::string>& m_vecLines;
  const std::string& m_strArrow;
};

// Interval and count, shared by the three monitors.
template <typename Monitor>
void CompareSampling(CChangeList& changes, const char* pszMonitor, const Monitor& old, const Monitor& now) {
  changes.Switch(pszMonitor, old.nAvailable, now.nAvailable);
  changes.Number(std::string(pszMonitor) + ", " + kInterval, old.nInterval, now.nInterval);
  changes.Number(std::string(pszMonitor) + ", " + kCount, old.nCount, now.nCount);
}

void CompareUsage(CChangeList& changes, const char* pszMonitor, const Velmora_LoggerUsageMonitorConf& old,
                  const Velmora_LoggerUsageMonitorConf& now) {
  CompareSampling(changes, pszMonitor, old, now);
  changes.Number(std::string(pszMonitor) + ", " + kThreshold, old.nThreshold, now.nThreshold);
}

const Velmora_LoggerFsThresholdConf* FindMount(const std::vector<Velmora_LoggerFsThresholdConf>& vecEntries,
                                               const std::string& strMount) {
  for (const Velmora_LoggerFsThresholdConf& entry : vecEntries) {
    if (entry.strMount == strMount) return &entry;
  }
  return nullptr;
}

const Velmora_LoggerFsThresholdConf* FindEntry(const std::vector<Velmora_LoggerFsThresholdConf>& vecEntries,
                                               int nIndex) {
  for (const Velmora_LoggerFsThresholdConf& entry : vecEntries) {
    if (entry.nIndex == nIndex) return &entry;
  }
  return nullptr;
}

size_t CountMount(const std::vector<Velmora_LoggerFsThresholdConf>& vecEntries, const std::string& strMount) {
  size_t nCount = 0;
  for (const Velmora_LoggerFsThresholdConf& entry : vecEntries) nCount += entry.strMount == strMount ? 1 : 0;
  return nCount;
}

std::string EntryText(const Velmora_LoggerFsThresholdConf& entry) {
  return SwitchText(entry.nAvailable) + ", " + kThreshold + " " + NumberText(entry.nThreshold);
}

// Entries keep their number for good (a mount point is never renumbered or
// removed by an edit), so the entries of the two lists are matched by it.
// A mount point that more than one entry names gets the entry's number.
class CMountPointComparison {
 public:
  CMountPointComparison(const std::vector<Velmora_LoggerFsThresholdConf>& vecOld,
                        const std::vector<Velmora_LoggerFsThresholdConf>& vecNew)
      : m_vecOld(vecOld), m_vecNew(vecNew) {}

  void Describe(CChangeList& changes) const {
    for (const Velmora_LoggerFsThresholdConf& old : m_vecOld) {
      const Velmora_LoggerFsThresholdConf* pNow = FindEntry(m_vecNew, old.nIndex);
      if (pNow == nullptr || pNow->strMount != old.strMount) {
        changes.Line(Label(old) + ": removed");
        continue;
      }
      changes.Switch(Label(old), old.nAvailable, pNow->nAvailable);
      changes.Number(Label(old) + ", " + kThreshold, old.nThreshold, pNow->nThreshold);
    }
    for (const Velmora_LoggerFsThresholdConf& now : m_vecNew) {
      const Velmora_LoggerFsThresholdConf* pOld = FindEntry(m_vecOld, now.nIndex);
      if (pOld == nullptr || pOld->strMount != now.strMount) {
        changes.Line(Label(now) + ": added (" + EntryText(now) + ")");
      }
    }
  }

 private:
  std::string Label(const Velmora_LoggerFsThresholdConf& entry) const {
    std::string strLabel = kMountPoint + entry.strMount;
    if (CountMount(m_vecOld, entry.strMount) > 1 || CountMount(m_vecNew, entry.strMount) > 1) {
      strLabel += " (entry " + std::to_string(entry.nIndex) + ")";
    }
    return strLabel;
  }

  const std::vector<Velmora_LoggerFsThresholdConf>& m_vecOld;
  const std::vector<Velmora_LoggerFsThresholdConf>& m_vecNew;
};

void CompleteSwitch(int& nPending, int nEffective) {
  if (!isSwitchSet(nPending)) nPending = nEffective;
}

void TakeIfSet(int& nPending, int nEffective) {
  if (nEffective != -1) nPending = nEffective;
}

void CompleteUsage(Velmora_LoggerUsageMonitorConf& pending, const Velmora_LoggerUsageMonitorConf& effective) {
  if (isSwitchSet(pending.nAvailable)) return;  // a monitor the edits switched stands as it is
  pending.nAvailable = effective.nAvailable;
  TakeIfSet(pending.nInterval, effective.nInterval);
  TakeIfSet(pending.nCount, effective.nCount);
  TakeIfSet(pending.nThreshold, effective.nThreshold);
}

}  // namespace

Velmora_LoggerConf CompletedPending(const Velmora_LoggerConf& pending, const Velmora_LoggerConf& effective) {
  Velmora_LoggerConf completed = pending;
  Velmora_LoggerSyslogOutputConf& syslog = completed.syslogOutput;
  CompleteSwitch(syslog.nOutput, effective.syslogOutput.nOutput);
  CompleteSwitch(syslog.nInformation, effective.syslogOutput.nInformation);
  CompleteSwitch(syslog.nWarning, effective.syslogOutput.nWarning);
  CompleteSwitch(syslog.nError, effective.syslogOutput.nError);
  CompleteUsage(completed.cpu, effective.cpu);
  CompleteUsage(completed.mem, effective.mem);

  Velmora_LoggerFsUsageMonitorConf& fs = completed.fs;
  if (isSwitchSet(fs.nAvailable)) return completed;
  fs.nAvailable = effective.fs.nAvailable;
  TakeIfSet(fs.nInterval, effective.fs.nInterval);
  TakeIfSet(fs.nCount, effective.fs.nCount);
  // The mount points become those in effect, each kept as pending has it.
  std::vector<Velmora_LoggerFsThresholdConf> vecMerged;
  for (const Velmora_LoggerFsThresholdConf& entry : effective.fs.vecThreshold) {
    const Velmora_LoggerFsThresholdConf* pOwn = FindMount(pending.fs.vecThreshold, entry.strMount);
    vecMerged.push_back(pOwn != nullptr ? *pOwn : entry);
  }
  fs.vecThreshold.swap(vecMerged);
  return completed;
}

std::vector<std::string> DescribeChanges(const Velmora_LoggerConf& effective, const Velmora_LoggerConf& completed,
                                         const std::string& strArrow) {
  std::vector<std::string> vecLines;
  CChangeList changes(vecLines, strArrow);
  const Velmora_LoggerSyslogOutputConf& oldSyslog = effective.syslogOutput;
  const Velmora_LoggerSyslogOutputConf& newSyslog = completed.syslogOutput;
  changes.Switch(kSyslogOutput, oldSyslog.nOutput, newSyslog.nOutput);
  changes.Switch(kInformation, oldSyslog.nInformation, newSyslog.nInformation);
  changes.Switch(kWarning, oldSyslog.nWarning, newSyslog.nWarning);
  changes.Switch(kError, oldSyslog.nError, newSyslog.nError);
  CompareUsage(changes, kCpuMonitor, effective.cpu, completed.cpu);
  CompareUsage(changes, kMemMonitor, effective.mem, completed.mem);
  CompareSampling(changes, kDiskMonitor, effective.fs, completed.fs);
  CMountPointComparison(effective.fs.vecThreshold, completed.fs.vecThreshold).Describe(changes);
  return vecLines;
}

}  // namespace devhost
