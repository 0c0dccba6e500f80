// The section fillers of the display: each puts the template data of one
// part of the record into the context. They write no trace lines.
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "plugin/logger_config_cmd.h"

namespace {

const char kOn[] = "On";
const char kOff[] = "Off";
const char kTrue[] = "true";

const char kSyslogOn[] = "SyslogOn";
const char kLogDisp[] = "LogDisp";
const char kInfoOn[] = "InfoOn";
const char kWarnOn[] = "WarnOn";
const char kErrorOn[] = "ErrorOn";

// The keys that every monitor section starts with.
struct MonitorKeys {
  const char* pszOn;
  const char* pszDisp;
  const char* pszInterval;
  const char* pszCount;
};
const MonitorKeys kCpuKeys = {"CpuOn", "CpuDisp", "CpuInterval", "CpuCount"};
const MonitorKeys kMemKeys = {"MemOn", "MemDisp", "MemInterval", "MemCount"};
const MonitorKeys kFileKeys = {"FileOn", "FileDisp", "FileInterval", "FileCount"};
const char kCpuValue[] = "CpuValue";
const char kMemValue[] = "MemValue";
const char kFsList[] = "FsList";
const char kFsName[] = "FsName";
const char kFsValue[] = "FsValue";

// "FsName" is laid out in a buffer of this size, terminator included.
constexpr std::size_t kFsNameBufferSize = 34;
constexpr std::size_t kFsNameMaxChars = kFsNameBufferSize - 1;
const char kEllipsis[] = "...";

const char* OnOffText(int nSwitch) { return isSwitchOn(nSwitch) ? kOn : kOff; }

// A mount point is listed only when exactly the "on" bit is set in the low
// four bits (0x11 and the like; 0x21 counts, 0x13 or -1 do not).
bool isListedEntry(const Velmora_LoggerFsThresholdConf& entry) { return (entry.nAvailable & 0x0F) == 1; }

// The mount point left-justified in 22 columns. Up to 33 characters show
// whole. A longer one would not fit the buffer: it is shown as "..." and its
// last 30 bytes, because the tail is what tells long mount points apart and
// the ellipsis tells the reader that the name was shortened. The cut never
// starts inside a UTF-8 sequence, so the tail may be a little shorter.
std::string FormatFsName(const std::string& strMount) {
  std::string strShown = strMount;
  if (strMount.size() > kFsNameMaxChars) {
    std::size_t nStart = strMount.size() - (kFsNameMaxChars - (sizeof(kEllipsis) - 1));
    while (nStart < strMount.size() && (static_cast<unsigned char>(strMount[nStart]) & 0xC0) == 0x80) ++nStart;
    strShown = kEllipsis + strMount.substr(nStart);
  }
  char szName[kFsNameBufferSize];
  // NOLINTNEXTLINE(cert-err33-c): the name was cut above to fit the buffer.
  std::snprintf(szName, sizeof(szName), "%-22s", strShown.c_str());
  return szName;
}

// Puts the monitor's switch and, when it is on, its "Disp", interval and
// count keys in this order. Returns whether the monitor is on.
bool PutMonitorHead(CTempleteContext& context, const MonitorKeys& keys, int nAvailable, const std::string& strInterval,
                    const std::string& strCount) {
  if (!isSwitchOn(nAvailable)) {
    context.PutData(keys.pszOn, kOff);
    return false;
  }
  context.PutData(keys.pszOn, kOn);
  context.PutData(keys.pszDisp, kTrue);
  context.PutData(keys.pszInterval, strInterval);
  context.PutData(keys.pszCount, strCount);
  return true;
}

}  // namespace

bool CLoggerConfigCmd::ShowSyslogOut(Velmora_LoggerConf& conf, CTempleteContext& context) {
  const Velmora_LoggerSyslogOutputConf& syslog = conf.syslogOutput;
  if (!isSwitchOn(syslog.nOutput)) {
    context.PutData(kSyslogOn, kOff);
    return false;
  }
  context.PutData(kSyslogOn, kOn);
  context.PutData(kLogDisp, kTrue);
  context.PutData(kInfoOn, OnOffText(syslog.nInformation));
  context.PutData(kWarnOn, OnOffText(syslog.nWarning));
  context.PutData(kErrorOn, OnOffText(syslog.nError));
  return true;
}

void CLoggerConfigCmd::ShowCpuInfo(Velmora_LoggerConf& conf, CTempleteContext& context) {
  const Velmora_LoggerUsageMonitorConf& cpu = conf.cpu;
  if (PutMonitorHead(context, kCpuKeys, cpu.nAvailable, Int2String(cpu.nInterval), Int2String(cpu.nCount)))
    context.PutData(kCpuValue, Int2String(cpu.nThreshold));
}

void CLoggerConfigCmd::ShowMemInfo(Velmora_LoggerConf& conf, CTempleteContext& context) {
  const Velmora_LoggerUsageMonitorConf& mem = conf.mem;
  if (PutMonitorHead(context, kMemKeys, mem.nAvailable, Int2String(mem.nInterval), Int2String(mem.nCount)))
    context.PutData(kMemValue, Int2String(mem.nThreshold));
}

void CLoggerConfigCmd::ShowFsInfo(Velmora_LoggerConf& conf, CTempleteContext& context) {
  const Velmora_LoggerFsUsageMonitorConf& fs = conf.fs;
  if (!PutMonitorHead(context, kFileKeys, fs.nAvailable, Int2String(fs.nInterval), Int2String(fs.nCount))) return;

  // Rows in list order, never sorted; the list is put even when empty.
  std::vector<std::map<std::string, std::string> > vecRows;
  std::map<std::string, std::string> row;
  for (const Velmora_LoggerFsThresholdConf& entry : fs.vecThreshold) {
    if (!isListedEntry(entry)) continue;
    row[kFsName] = FormatFsName(entry.strMount);
    row[kFsValue] = Int2String(entry.nThreshold);
    vecRows.push_back(row);
  }
  context.PutData(kFsList, vecRows);
}
