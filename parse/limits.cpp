// The cross-checks of the device form (CheckSetThreshold) and of the
// mount-point form (CheckMountParam): the numeric options against the limits
// file, and the rule that a monitor switched off takes no further values.
//
// Limits are read afresh for every occurrence of an option, minimum first,
// then maximum; a missing file, section or key gives the built-in default.
// A failure traces its reason at level 16 and returns at once, without the
// LEAVE line; values accepted before it stay in their members.
#include <string>

#include "host/profile.h"
#include "host/string_util.h"
#include "plugin/logger_config_cmd.h"
#include "plugin/trace.h"

namespace {

const char kSigCheckSetThreshold[] = "bool CLoggerConfigCmd::CheckSetThreshold()";
const char kSigCheckMountParam[] = "bool CLoggerConfigCmd::CheckMountParam()";

// ---- The limits file and its built-in defaults ----

const char kLimitsFile[] = "/opt/velmora/ktl/cli/LoggerParams.ini";

struct Bound {
  const char* pszKey;
  int nDefault;
};

// The inclusive range of one numeric option.
struct Range {
  Bound min;
  Bound max;
};

struct SectionLimits {
  const char* pszSection;
  Range interval;
  Range count;
  Range threshold;
};

const Range kIntervalRange = {{"INTERVAL_MIN", 1}, {"INTERVAL_MAX", 86400}};
const Range kCountRange = {{"COUNT_MIN", 1}, {"COUNT_MAX", 1000}};

const SectionLimits kCpuLimits = {"CPU", kIntervalRange, kCountRange, {{"THRESHOLD_MIN", 10}, {"THRESHOLD_MAX", 100}}};
const SectionLimits kMemoryLimits = {
    "MEMORY", kIntervalRange, kCountRange, {{"THRESHOLD_MIN", 40}, {"THRESHOLD_MAX", 100}}};
// Also the limits of the mount-point form's "-threshold".
const SectionLimits kDiskLimits = {
    "DISK", kIntervalRange, kCountRange, {{"THRESHOLD_MIN", 40}, {"THRESHOLD_MAX", 100}}};

// ---- The command line ----

const char kOptInterval[] = "-interval";
const char kOptCount[] = "-count";
const char kOptThreshold[] = "-threshold";
const char kOptSetting[] = "-setting";

const int kDeviceCpu = 0;
const int kDeviceMemory = 1;
const int kDeviceDisk = 2;
const int kSwitchOff = 0x10;
const int kNotGiven = -1;

// The device form starts with "-device" and "-setting"; the mount-point
// form with "-mp" and then checks its "-setting" again with the rest.
const size_t kFirstDeviceOption = 2;
const size_t kFirstMountOption = 1;
const size_t kFormOptions = 2;

const SectionLimits& LimitsOfDevice(int nDevice) {
  if (nDevice == kDeviceCpu) return kCpuLimits;
  if (nDevice == kDeviceMemory) return kMemoryLimits;
  return kDiskLimits;
}

int ReadBound(const char* pszSection, const Bound& bound) {
  return GetPrivateProfileIntA(pszSection, bound.pszKey, bound.nDefault, kLimitsFile);
}

void TraceRejected(const char* pszSignature, const CCommandParam& param) {
  logger_trace::Note(CTraceUtility::TRACE_DBG_PARAM, pszSignature, "Parameter Error: %s %s", param.m_strOption.c_str(),
                     param.m_strValue.c_str());
}

void TraceUnknown(const char* pszSignature, const CCommandParam& param) {
  logger_trace::Note(CTraceUtility::TRACE_DBG_PARAM, pszSignature, "Unknown Parameter Error: %s",
                     param.m_strOption.c_str());
}

void TraceOffWithValues(const char* pszSignature, size_t nOptions) {
  logger_trace::Note(CTraceUtility::TRACE_DBG_PARAM, pszSignature, "Monitoring mode OFF, threshold value was set (%d)",
                     static_cast<int>(nOptions));
}

// Checks one value against a range read from the limits file; nMember is
// written only when the value is accepted.
bool CheckInRange(CLoggerConfigCmd& cmd, const char* pszSection, const Range& range, const CCommandParam& param,
                  int& nMember) {
  const int nMin = ReadBound(pszSection, range.min);
  const int nMax = ReadBound(pszSection, range.max);
  return cmd.CheckIntParam(param.m_strValue, nMin, nMax, nMember);
}

}  // namespace

bool CLoggerConfigCmd::CheckSetThreshold() {
  logger_trace::Enter(kSigCheckSetThreshold);
  m_nInterval = kNotGiven;
  m_nCount = kNotGiven;
  m_nThreshold = kNotGiven;

  const size_t nOptions = m_vecCommandParam.size();
  if (m_nOnOff == kSwitchOff && nOptions > kFormOptions) {
    TraceOffWithValues(kSigCheckSetThreshold, nOptions);
    return false;
  }

  const SectionLimits& limits = LimitsOfDevice(m_nDevice);
  for (size_t i = kFirstDeviceOption; i < nOptions; ++i) {
    const CCommandParam& param = m_vecCommandParam[i];
    const std::string strOption = CStringUtil::StringToLowerCase(param.m_strOption);
    bool bValid = false;
    if (strOption == kOptInterval) {
      bValid = CheckInRange(*this, limits.pszSection, limits.interval, param, m_nInterval);
    } else if (strOption == kOptCount) {
      bValid = CheckInRange(*this, limits.pszSection, limits.count, param, m_nCount);
    } else if (strOption == kOptThreshold) {
      // Disk thresholds are given per mount point, in the mount-point form.
      if (m_nDevice == kDeviceDisk) {
        logger_trace::Note(CTraceUtility::TRACE_DBG_PARAM, kSigCheckSetThreshold,
                           "disk can not appoint threshold option.");
        return false;
      }
      bValid = CheckInRange(*this, limits.pszSection, limits.threshold, param, m_nThreshold);
    } else {
      TraceUnknown(kSigCheckSetThreshold, param);
      return false;
    }
    if (!bValid) {
      TraceRejected(kSigCheckSetThreshold, param);
      return false;
    }
  }

  logger_trace::Leave(kSigCheckSetThreshold);
  return true;
}

bool CLoggerConfigCmd::CheckMountParam() {
  logger_trace::Enter(kSigCheckMountParam);
  m_strMountPoint = m_vecCommandParam[0].m_strValue;

  const size_t nOptions = m_vecCommandParam.size();
  if (m_nOnOff == kSwitchOff && nOptions > kFormOptions) {
    TraceOffWithValues(kSigCheckMountParam, nOptions);
    return false;
  }

  for (size_t i = kFirstMountOption; i < nOptions; ++i) {
    const CCommandParam& param = m_vecCommandParam[i];
    const std::string strOption = CStringUtil::StringToLowerCase(param.m_strOption);
    bool bValid = false;
    if (strOption == kOptSetting) {
      // A later "-setting" overrides the earlier one.
      bValid = CheckOnOffParam(param.m_strValue, m_nOnOff);
    } else if (strOption == kOptThreshold) {
      bValid = CheckInRange(*this, kDiskLimits.pszSection, kDiskLimits.threshold, param, m_nThreshold);
    } else {
      TraceUnknown(kSigCheckMountParam, param);
      return false;
    }
    if (!bValid) {
      TraceRejected(kSigCheckMountParam, param);
      return false;
    }
  }

  // The option count rule above cannot see a "-setting off" that comes
  // after a threshold was accepted with "on".
  if (m_nOnOff == kSwitchOff && m_nThreshold != kNotGiven) {
    logger_trace::Note(CTraceUtility::TRACE_DBG_PARAM, kSigCheckMountParam,
                       "Monitoring mode OFF, threshold value was set");
    return false;
  }

  logger_trace::Leave(kSigCheckMountParam);
  return true;
}
