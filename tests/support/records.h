// Builders of the logger configuration records, for the plug-in's tests and
// the fuzzer's scripted host.
#ifndef KTL_TESTS_SUPPORT_RECORDS_H
#define KTL_TESTS_SUPPORT_RECORDS_H

#include <string>

#include "config/logger_conf.h"

namespace ktl_test {

inline Velmora_LoggerFsThresholdConf FsEntry(int nIndex, int nThreshold, int nAvailable, const std::string& strMount) {
  Velmora_LoggerFsThresholdConf entry;
  entry.nIndex = nIndex;
  entry.nThreshold = nThreshold;
  entry.nAvailable = nAvailable;
  entry.strMount = strMount;
  return entry;
}

inline Velmora_LoggerUsageMonitorConf Monitor(int nAvailable, int nInterval, int nCount, int nThreshold) {
  Velmora_LoggerUsageMonitorConf monitor;
  monitor.nAvailable = nAvailable;
  monitor.nInterval = nInterval;
  monitor.nCount = nCount;
  monitor.nThreshold = nThreshold;
  return monitor;
}

}  // namespace ktl_test

#endif
