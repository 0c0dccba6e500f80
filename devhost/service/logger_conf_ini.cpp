#include "devhost/service/logger_conf_ini.h"

#include <map>

#include "devhost/service/logger_conf_keys.h"
#include "devhost/service/logger_conf_values.h"

namespace devhost {
namespace {

using namespace conf_keys;

const int kSwitchOn = 0x11;
const int kSwitchOff = 0x10;
const int kSwitchAbsent = 0;
const int kIntegerAbsent = -1;

// Reads the values of one section, keeping the first error.
class CSectionReader {
 public:
  CSectionReader(const IniTree& tree, const std::string& strSection) : m_strSection(strSection) {
    const auto found = tree.find(strSection);
    m_pSection = found == tree.not_found() ? nullptr : &found->second;
  }

  bool Switch(const char* pszKey, int& nValue, std::string& strError) const {
    return Number(pszKey, kSwitchAbsent, nValue, strError);
  }
  bool Integer(const char* pszKey, int& nValue, std::string& strError) const {
    return Number(pszKey, kIntegerAbsent, nValue, strError);
  }
  std::string Text(const char* pszKey) const {
    const std::string* pValue = Find(pszKey);
    return pValue ? *pValue : std::string();
  }

 private:
  const std::string* Find(const char* pszKey) const {
    if (!m_pSection) return nullptr;
    const auto found = m_pSection->find(pszKey);
    return found == m_pSection->not_found() ? nullptr : &found->second.data();
  }

  // A value by the rule of the one table of valid values.
  bool Number(const char* pszKey, int nAbsent, int& nValue, std::string& strError) const {
    const std::string* pValue = Find(pszKey);
    if (!pValue) {
      nValue = nAbsent;
      return true;
    }
    return ReadConfValue(m_strSection, pszKey, *pValue, nValue, strError);
  }

  std::string m_strSection;
  const IniTree* m_pSection;
};

bool ReadMonitor(const IniTree& tree, const char* pszSection, Velmora_LoggerUsageMonitorConf& monitor,
                 std::string& strError) {
  const CSectionReader reader(tree, pszSection);
  return reader.Switch(kKeyAvailable, monitor.nAvailable, strError) &&
         reader.Integer(kKeyInterval, monitor.nInterval, strError) &&
         reader.Integer(kKeyCount, monitor.nCount, strError) &&
         reader.Integer(kKeyThreshold, monitor.nThreshold, strError);
}

// The entry number of an entry section's name: "FSNAME-" and a decimal
// number from 1 without leading zeros. 0 when the name is not an entry
// section, -1 when it starts like one but carries no valid number.
int EntryNumberOf(const std::string& strSection) {
  const std::string strPrefix = kEntrySectionPrefix;
  if (strSection.compare(0, strPrefix.size(), strPrefix) != 0) return 0;
  const std::string strNumber = strSection.substr(strPrefix.size());
  int nNumber = 0;
  if (strNumber.empty() || strNumber[0] < '1' || strNumber[0] > '9' || !ParseWholeInt(strNumber, 10, nNumber))
    return -1;
  return nNumber;
}

bool ReadEntries(const IniTree& tree, std::vector<Velmora_LoggerFsThresholdConf>& entries, std::string& strError) {
  std::map<int, Velmora_LoggerFsThresholdConf> byNumber;
  for (const auto& section : tree) {
    const int nNumber = EntryNumberOf(section.first);
    if (nNumber == 0) continue;
    if (nNumber < 0) {
      strError =
          "[" + section.first + "] is not a mount-point section (expected " + kEntrySectionPrefix + "<number from 1>)";
      return false;
    }
    Velmora_LoggerFsThresholdConf entry;
    entry.nIndex = nNumber;
    const CSectionReader reader(tree, section.first);
    if (!reader.Switch(kKeyAvailable, entry.nAvailable, strError) ||
        !reader.Integer(kKeyThreshold, entry.nThreshold, strError)) {
      return false;
    }
    entry.strMount = reader.Text(kKeyMount);
    byNumber[nNumber] = entry;
  }
  entries.clear();
  for (const auto& numbered : byNumber) entries.push_back(numbered.second);
  return true;
}

void PutSwitch(IniTree& tree, const std::string& strSection, const char* pszKey, int nValue) {
  if (nValue != kSwitchAbsent) SetIniValue(tree, strSection, pszKey, FormatSwitch(nValue));
}

void PutInteger(IniTree& tree, const std::string& strSection, const char* pszKey, int nValue) {
  if (nValue != kIntegerAbsent) SetIniValue(tree, strSection, pszKey, std::to_string(nValue));
}

void PutMonitor(IniTree& tree, const char* pszSection, const Velmora_LoggerUsageMonitorConf& monitor) {
  PutSwitch(tree, pszSection, kKeyAvailable, monitor.nAvailable);
  PutInteger(tree, pszSection, kKeyInterval, monitor.nInterval);
  PutInteger(tree, pszSection, kKeyCount, monitor.nCount);
  PutInteger(tree, pszSection, kKeyThreshold, monitor.nThreshold);
}

std::string DescribeMonitor(const char* pszSection, const Velmora_LoggerUsageMonitorConf& monitor) {
  return std::string("[") + pszSection + "] " + kKeyAvailable + "=" + FormatSwitch(monitor.nAvailable) + " " +
         kKeyInterval + "=" + std::to_string(monitor.nInterval) + " " + kKeyCount + "=" +
         std::to_string(monitor.nCount) + " " + kKeyThreshold + "=" + std::to_string(monitor.nThreshold);
}

}  // namespace

bool ConfFromIni(const IniTree& tree, Velmora_LoggerConf& conf, std::string& strError) {
  Velmora_LoggerConf read;
  const CSectionReader syslog(tree, kSectionSyslog);
  const CSectionReader fs(tree, kSectionFileSystem);
  const bool bRead =
      syslog.Switch(kKeyOutput, read.syslogOutput.nOutput, strError) &&
      syslog.Switch(kKeyInformation, read.syslogOutput.nInformation, strError) &&
      syslog.Switch(kKeyWarning, read.syslogOutput.nWarning, strError) &&
      syslog.Switch(kKeyError, read.syslogOutput.nError, strError) &&
      ReadMonitor(tree, kSectionCpu, read.cpu, strError) && ReadMonitor(tree, kSectionMemory, read.mem, strError) &&
      fs.Switch(kKeyAvailable, read.fs.nAvailable, strError) && fs.Integer(kKeyInterval, read.fs.nInterval, strError) &&
      fs.Integer(kKeyCount, read.fs.nCount, strError) && ReadEntries(tree, read.fs.vecThreshold, strError);
  if (bRead) conf = read;
  return bRead;
}

IniTree ConfToIni(const Velmora_LoggerConf& conf) {
  IniTree tree;
  PutSwitch(tree, kSectionSyslog, kKeyOutput, conf.syslogOutput.nOutput);
  PutSwitch(tree, kSectionSyslog, kKeyInformation, conf.syslogOutput.nInformation);
  PutSwitch(tree, kSectionSyslog, kKeyWarning, conf.syslogOutput.nWarning);
  PutSwitch(tree, kSectionSyslog, kKeyError, conf.syslogOutput.nError);
  PutMonitor(tree, kSectionCpu, conf.cpu);
  PutMonitor(tree, kSectionMemory, conf.mem);
  PutSwitch(tree, kSectionFileSystem, kKeyAvailable, conf.fs.nAvailable);
  PutInteger(tree, kSectionFileSystem, kKeyInterval, conf.fs.nInterval);
  PutInteger(tree, kSectionFileSystem, kKeyCount, conf.fs.nCount);
  // A saved list is complete: its entries take the numbers 1..N, whatever
  // numbers the pending configuration gave them, so no gaps are kept.
  const int nEntries = static_cast<int>(conf.fs.vecThreshold.size());
  SetIniValue(tree, kSectionFileSystem, kKeyNumFileSys, std::to_string(nEntries));
  for (int nNumber = 1; nNumber <= nEntries; ++nNumber) {
    const Velmora_LoggerFsThresholdConf& entry = conf.fs.vecThreshold[nNumber - 1];
    const std::string strSection = kEntrySectionPrefix + std::to_string(nNumber);
    PutSwitch(tree, strSection, kKeyAvailable, entry.nAvailable);
    PutInteger(tree, strSection, kKeyThreshold, entry.nThreshold);
    SetIniValue(tree, strSection, kKeyMount, entry.strMount);
  }
  return tree;
}

std::vector<std::string> DescribeConf(const Velmora_LoggerConf& conf) {
  std::vector<std::string> lines;
  const Velmora_LoggerSyslogOutputConf& syslog = conf.syslogOutput;
  lines.push_back(std::string("[") + kSectionSyslog + "] " + kKeyOutput + "=" + FormatSwitch(syslog.nOutput) + " " +
                  kKeyInformation + "=" + FormatSwitch(syslog.nInformation) + " " + kKeyWarning + "=" +
                  FormatSwitch(syslog.nWarning) + " " + kKeyError + "=" + FormatSwitch(syslog.nError));
  lines.push_back(DescribeMonitor(kSectionCpu, conf.cpu));
  lines.push_back(DescribeMonitor(kSectionMemory, conf.mem));
  lines.push_back(std::string("[") + kSectionFileSystem + "] " + kKeyAvailable + "=" +
                  FormatSwitch(conf.fs.nAvailable) + " " + kKeyInterval + "=" + std::to_string(conf.fs.nInterval) +
                  " " + kKeyCount + "=" + std::to_string(conf.fs.nCount) + " " + kKeyNumFileSys + "=" +
                  std::to_string(conf.fs.vecThreshold.size()));
  for (const Velmora_LoggerFsThresholdConf& entry : conf.fs.vecThreshold) {
    lines.push_back(std::string("[") + kEntrySectionPrefix + std::to_string(entry.nIndex) + "] " + kKeyAvailable + "=" +
                    FormatSwitch(entry.nAvailable) + " " + kKeyThreshold + "=" + std::to_string(entry.nThreshold) +
                    " " + kKeyMount + "=" + entry.strMount);
  }
  return lines;
}

std::string FormatSwitch(int nValue) {
  if (nValue == kSwitchOn) return "0x11";
  if (nValue == kSwitchOff) return "0x10";
  return std::to_string(nValue);
}

}  // namespace devhost
