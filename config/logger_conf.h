// The logger configuration record exchanged between the "logger" plug-in and
// the host's logging-tool accessor (CToolServiceLoggerAcc).
//
// The layout is part of the binary contract: fifteen 32-bit ints, then the
// list of mount-point entries. Fields must not be added, removed or
// reordered. The types are plain values; copies are deep.
//
// Switches hold 0x11 (on), 0x10 (off) or 0 (not set). Integers hold -1 when
// the configuration that was read lacks them; a default-constructed record
// holds 0 everywhere and an empty list.
//
// The merge operators complete a pending record ("this") from the
// configuration in effect ("other"), which they do not change. They are
// defined by the plug-in and trace at level 1.
#ifndef KTL_CONFIG_LOGGER_CONF_H
#define KTL_CONFIG_LOGGER_CONF_H

#include <cstddef>
#include <string>
#include <vector>

// Syslog output and the alert levels written to syslog (section "Syslog").
struct Velmora_LoggerSyslogOutputConf {
  int nOutput;       // "Output": syslog output on/off
  int nInformation;  // "Information": information-level alerts on/off
  int nWarning;      // "Warning": warning-level alerts on/off
  int nError;        // "Error": error-level alerts on/off

  Velmora_LoggerSyslogOutputConf() : nOutput(0), nInformation(0), nWarning(0), nError(0) {}

  // Each switch that this record has not set takes other's value.
  void operator+=(Velmora_LoggerSyslogOutputConf& other);
};

// One usage monitor: "CPU" or "MEMORY".
struct Velmora_LoggerUsageMonitorConf {
  int nAvailable;  // "Available": monitor on/off
  int nInterval;   // "Interval"; -1 = not set
  int nCount;      // "Count"; -1 = not set
  int nThreshold;  // "Threshold", usage in percent; -1 = not set

  Velmora_LoggerUsageMonitorConf() : nAvailable(0), nInterval(0), nCount(0), nThreshold(0) {}

  // Takes other's switch when this one is not set, and every value of other
  // that is not -1.
  void operator+=(Velmora_LoggerUsageMonitorConf& other);
};

// One mount point of the disk monitor: section "FSNAME-<nIndex>".
struct Velmora_LoggerFsThresholdConf {
  int nIndex;            // the number of the entry's section; -1 = none
  int nThreshold;        // "Threshold", usage in percent
  int nAvailable;        // "Available": this mount point on/off
  std::string strMount;  // "Mount": the mount point's directory

  Velmora_LoggerFsThresholdConf() : nIndex(0), nThreshold(0), nAvailable(0) {}
};

// The disk monitor: section "FILESYS" and its mount-point entries.
struct Velmora_LoggerFsUsageMonitorConf {
  int nAvailable;                                           // "Available": disk monitor on/off
  int nInterval;                                            // "Interval"; -1 = not set
  int nCount;                                               // "Count"; -1 = not set
  std::vector<Velmora_LoggerFsThresholdConf> vecThreshold;  // in entry order

  Velmora_LoggerFsUsageMonitorConf() : nAvailable(0), nInterval(0), nCount(0) {}

  // As the usage monitor for the scalars; the list becomes other's mount
  // points in other's order, each taken from this list when it has one.
  void operator+=(Velmora_LoggerFsUsageMonitorConf& other);
};

struct Velmora_LoggerConf {
  Velmora_LoggerSyslogOutputConf syslogOutput;
  Velmora_LoggerUsageMonitorConf cpu;
  Velmora_LoggerUsageMonitorConf mem;
  Velmora_LoggerFsUsageMonitorConf fs;

  // Completes every sub-record; a monitor whose switch this record has set
  // is kept whole.
  void operator+=(Velmora_LoggerConf& other);
};

// The layout both sides of the contract rely on, on ILP32 and LP64 targets
// alike: fifteen 32-bit ints, then the list at the list's own alignment
// (offset 60 on ILP32, 64 on LP64).
namespace logger_conf_layout {
// nOffset rounded up to the next multiple of nAlign.
constexpr std::size_t AlignUp(std::size_t nOffset, std::size_t nAlign) {
  return (nOffset + nAlign - 1) / nAlign * nAlign;
}
const std::size_t kInt = sizeof(int);
const std::size_t kListAlign = alignof(std::vector<Velmora_LoggerFsThresholdConf>);
}  // namespace logger_conf_layout

static_assert(sizeof(int) == 4, "the record's fields are 32-bit ints");
static_assert(sizeof(Velmora_LoggerSyslogOutputConf) == 4 * logger_conf_layout::kInt, "four switches");
static_assert(sizeof(Velmora_LoggerUsageMonitorConf) == 4 * logger_conf_layout::kInt, "four integers");
static_assert(offsetof(Velmora_LoggerConf, cpu) == 4 * logger_conf_layout::kInt, "syslog output first");
static_assert(offsetof(Velmora_LoggerConf, mem) == 8 * logger_conf_layout::kInt, "cpu second");
static_assert(offsetof(Velmora_LoggerConf, fs) == 12 * logger_conf_layout::kInt, "memory third");
static_assert(offsetof(Velmora_LoggerConf, fs) + offsetof(Velmora_LoggerFsUsageMonitorConf, vecThreshold) ==
                  logger_conf_layout::AlignUp(15 * logger_conf_layout::kInt, logger_conf_layout::kListAlign),
              "fifteen integers, then the list");
static_assert(offsetof(Velmora_LoggerFsThresholdConf, strMount) ==
                  logger_conf_layout::AlignUp(3 * logger_conf_layout::kInt, alignof(std::string)),
              "three integers, then the mount point");

// The two predicates on switches.
// Set (used by the merge): the low byte has bit 0x01 or 0x10.
inline bool isSwitchSet(int nValue) { return (nValue & 0x11) != 0; }
// On (used by the checks and the display): the low four bits are not all 0.
inline bool isSwitchOn(int nValue) { return (nValue & 0x0F) != 0; }

#endif
