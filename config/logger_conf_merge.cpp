// Merge of a pending configuration record with the configuration in effect.
// "this" is the pending record, "other" the configuration in effect.
#include "config/logger_conf.h"

#include "plugin/trace.h"

namespace {

const char kSigConf[] = "void Velmora_LoggerConf::operator+=(Velmora_LoggerConf&)";
const char kSigSyslog[] = "void Velmora_LoggerSyslogOutputConf::operator+=(Velmora_LoggerSyslogOutputConf&)";
const char kSigUsage[] = "void Velmora_LoggerUsageMonitorConf::operator+=(Velmora_LoggerUsageMonitorConf&)";
const char kSigFs[] = "void Velmora_LoggerFsUsageMonitorConf::operator+=(Velmora_LoggerFsUsageMonitorConf&)";

// A switch that is not set takes other's value, whatever it is.
void completeSwitch(int& nThis, int nOther) {
  if (!isSwitchSet(nThis)) nThis = nOther;
}

// Other's value wins unless it is -1 (not set there).
void takeIfSet(int& nThis, int nOther) {
  if (nOther != -1) nThis = nOther;
}

}  // namespace

void Velmora_LoggerSyslogOutputConf::operator+=(Velmora_LoggerSyslogOutputConf& other) {
  logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigSyslog, "operator+=()");
  completeSwitch(nOutput, other.nOutput);
  completeSwitch(nInformation, other.nInformation);
  completeSwitch(nWarning, other.nWarning);
  completeSwitch(nError, other.nError);
}

void Velmora_LoggerUsageMonitorConf::operator+=(Velmora_LoggerUsageMonitorConf& other) {
  logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigUsage, "operator+=()");
  completeSwitch(nAvailable, other.nAvailable);
  takeIfSet(nInterval, other.nInterval);
  takeIfSet(nCount, other.nCount);
  takeIfSet(nThreshold, other.nThreshold);
}

void Velmora_LoggerFsUsageMonitorConf::operator+=(Velmora_LoggerFsUsageMonitorConf& other) {
  logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigFs, "operator+=()");
  completeSwitch(nAvailable, other.nAvailable);
  takeIfSet(nInterval, other.nInterval);
  takeIfSet(nCount, other.nCount);

  // The result lists exactly other's mount points, in other's order; a mount
  // point that this list already has keeps this list's (first) entry.
  std::vector<Velmora_LoggerFsThresholdConf> vecMerged;
  vecMerged.reserve(other.vecThreshold.size());
  for (const Velmora_LoggerFsThresholdConf& entry : other.vecThreshold) {
    const Velmora_LoggerFsThresholdConf* pSource = &entry;
    for (const Velmora_LoggerFsThresholdConf& own : vecThreshold) {
      if (own.strMount == entry.strMount) {
        pSource = &own;
        break;
      }
    }
    vecMerged.push_back(*pSource);
  }
  vecThreshold.swap(vecMerged);
}

void Velmora_LoggerConf::operator+=(Velmora_LoggerConf& other) {
  logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigConf, "operator+=()");
  syslogOutput += other.syslogOutput;
  // A monitor that the pending record has switched stands as it is.
  if (!isSwitchSet(cpu.nAvailable)) {
    logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigConf, "operator+=(cpu)");
    cpu += other.cpu;
  }
  if (!isSwitchSet(mem.nAvailable)) {
    logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigConf, "operator+=(mem)");
    mem += other.mem;
  }
  if (!isSwitchSet(fs.nAvailable)) {
    logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigConf, "operator+=(fs)");
    fs += other.fs;
  }
}
