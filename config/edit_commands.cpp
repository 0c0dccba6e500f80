// The edit commands for syslog output, alert levels and the usage monitors.
// Each writes the pending configuration only; nothing takes effect before a
// save.
#include "plugin/logger_config_cmd.h"
#include "plugin/messages.h"
#include "plugin/trace.h"

namespace {

const char kSigCmdDevice[] = "int CLoggerConfigCmd::CmdDevice()";

const char kSectionSyslog[] = "Syslog";
const char kKeyOutput[] = "Output";
// Indexed by m_nAlertLevel: inf, wrn, err.
const char* const kAlertKeys[] = {"Information", "Warning", "Error"};
// Indexed by m_nDevice: cpu, mem, disk.
const char* const kDeviceSections[] = {"CPU", "MEMORY", "FILESYS"};
const int kDeviceDisk = 2;

const char kKeyAvailable[] = "Available";
const char kKeyInterval[] = "Interval";
const char kKeyCount[] = "Count";
const char kKeyThreshold[] = "Threshold";

const int kSwitchOn = 0x11;

// The name at nIndex, or nullptr when the parser let no valid index through.
template <size_t N>
const char* Pick(const char* const (&names)[N], int nIndex) {
  return nIndex >= 0 && static_cast<size_t>(nIndex) < N ? names[nIndex] : nullptr;
}

}  // namespace

int CLoggerConfigCmd::CmdSyslog() { return EditOnOff(kSectionSyslog, kKeyOutput, true); }

int CLoggerConfigCmd::CmdAlert() {
  const char* pszKey = Pick(kAlertKeys, m_nAlertLevel);
  if (pszKey == nullptr) return ShowApplicationError();
  return EditOnOff(kSectionSyslog, pszKey, true);
}

int CLoggerConfigCmd::CmdDevice() {
  logger_trace::Enter(kSigCmdDevice);
  int nResult;
  const char* pszSection = Pick(kDeviceSections, m_nDevice);
  if (pszSection == nullptr) {
    nResult = ShowApplicationError();
  } else {
    nResult = EditOnOff(pszSection, kKeyAvailable, false);
    if (nResult == 0) {
      // Switching a monitor off leaves its values in the pending
      // configuration as they are. The disk monitor has no threshold of its
      // own: its mount points carry theirs.
      bool bAllWritten = true;
      if (m_nOnOff == kSwitchOn) {
        bAllWritten &= EditIntValue(pszSection, kKeyInterval, m_nInterval) == 0;
        bAllWritten &= EditIntValue(pszSection, kKeyCount, m_nCount) == 0;
        if (m_nDevice != kDeviceDisk) bAllWritten &= EditIntValue(pszSection, kKeyThreshold, m_nThreshold) == 0;
      }
      // Every given value is written even after a failed one; a failed write
      // has shown its own error, and the result stays that of the switch.
      if (bAllWritten) ShowMessage(logger_msg::kHoldParam);
    }
  }
  logger_trace::Leave(kSigCmdDevice);
  return nResult;
}
