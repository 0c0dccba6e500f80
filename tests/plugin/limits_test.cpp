// The cross-checks against the limits file: CheckSetThreshold (device form)
// and CheckMountParam (mount-point form).
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/plugin/plugin_test_support.h"

namespace {

const std::string kLimitsFile = "/opt/velmora/ktl/cli/LoggerParams.ini";
const std::string kDeviceSig = "bool CLoggerConfigCmd::CheckSetThreshold()";
const std::string kMountSig = "bool CLoggerConfigCmd::CheckMountParam()";
const int kOn = 0x11;
const int kOff = 0x10;

std::vector<std::string> Words(const std::string& strLine) {
  std::istringstream in(strLine);
  std::vector<std::string> vecWords;
  for (std::string strWord; in >> strWord;) vecWords.push_back(strWord);
  return vecWords;
}

// The limits read, in order, as "SECTION/KEY/default".
std::vector<std::string> LimitReads() {
  std::vector<std::string> vecReads;
  for (const auto& call : scripted::callsOf("GetPrivateProfileIntA")) {
    EXPECT_EQ(call.vecArgs[3], kLimitsFile);
    vecReads.push_back(call.vecArgs[0] + "/" + call.vecArgs[1] + "/" + call.vecArgs[2]);
  }
  return vecReads;
}

std::string Failure(const std::string& strSig, const std::string& strMessage) {
  return "16|" + strSig + " " + strMessage;
}

// Groups the words with the host's base grouping, as the grammar does before
// calling a cross-check, and sets what the grammar would have set.
void Prepare(CLoggerConfigCmd& cmd, const std::string& strLine, int nDevice, int nOnOff) {
  ASSERT_EQ(cmd.CCommand::CheckParam(Words(strLine)), 0) << strLine;
  cmd.m_nDevice = nDevice;
  cmd.m_nOnOff = nOnOff;
  scripted::calls().clear();
}

struct DeviceCase {
  const char* name;
  std::string line;
  int device;
  int onOff;
  std::map<std::string, int> profile;
  bool expected;
  int interval, count, threshold;
  std::vector<std::string> reads;
  std::string failure;  // the trace of a refusal; empty on success
};
KTL_PRINT_CASE_BY_NAME(DeviceCase)

class DeviceLimitsTest : public PluginTest, public ::testing::WithParamInterface<DeviceCase> {};

TEST_P(DeviceLimitsTest, ChecksEachOptionAgainstTheDeviceSection) {
  const DeviceCase& c = GetParam();
  scripted::script().mapProfile = c.profile;
  CLoggerConfigCmd cmd;
  Prepare(cmd, c.line, c.device, c.onOff);
  cmd.m_nInterval = cmd.m_nCount = cmd.m_nThreshold = 7;  // reset on entry

  EXPECT_EQ(cmd.CheckSetThreshold(), c.expected);
  EXPECT_EQ(cmd.m_nInterval, c.interval);
  EXPECT_EQ(cmd.m_nCount, c.count);
  EXPECT_EQ(cmd.m_nThreshold, c.threshold);
  EXPECT_EQ(LimitReads(), c.reads);
  const std::string strLast = c.expected ? "4|[LEAVE] " + kDeviceSig : Failure(kDeviceSig, c.failure);
  EXPECT_EQ(scripted::traces(), (std::vector<std::string>{"4|[ENTER] " + kDeviceSig, strLast}));
}

const std::vector<std::string> kCpuThresholdReads{"CPU/THRESHOLD_MIN/10", "CPU/THRESHOLD_MAX/100"};
const std::vector<std::string> kCpuIntervalReads{"CPU/INTERVAL_MIN/1", "CPU/INTERVAL_MAX/86400"};
const std::vector<std::string> kCpuCountReads{"CPU/COUNT_MIN/1", "CPU/COUNT_MAX/1000"};
const std::vector<std::string> kDiskIntervalCountReads{"DISK/INTERVAL_MIN/1", "DISK/INTERVAL_MAX/86400",
                                                       "DISK/COUNT_MIN/1", "DISK/COUNT_MAX/1000"};

INSTANTIATE_TEST_SUITE_P(
    Lines, DeviceLimitsTest,
    ::testing::Values(
        DeviceCase{"cpu threshold below", "-device cpu -setting on -threshold 5", 0, kOn, {}, false, -1, -1, -1,
                   kCpuThresholdReads, "Parameter Error: -threshold 5"},
        DeviceCase{"cpu threshold minimum", "-device cpu -setting on -threshold 10", 0, kOn, {}, true, -1, -1, 10,
                   kCpuThresholdReads, ""},
        DeviceCase{"cpu threshold maximum", "-device cpu -setting on -threshold 100", 0, kOn, {}, true, -1, -1, 100,
                   kCpuThresholdReads, ""},
        DeviceCase{"cpu threshold 30", "-device cpu -setting on -threshold 30", 0, kOn, {}, true, -1, -1, 30,
                   kCpuThresholdReads, ""},
        DeviceCase{"mem threshold 30", "-device mem -setting on -threshold 30", 1, kOn, {}, false, -1, -1, -1,
                   {"MEMORY/THRESHOLD_MIN/40", "MEMORY/THRESHOLD_MAX/100"}, "Parameter Error: -threshold 30"},
        DeviceCase{"disk interval and count", "-device disk -setting on -interval 60 -count 5", 2, kOn, {}, true, 60,
                   5, -1, kDiskIntervalCountReads, ""},
        DeviceCase{"disk threshold after accepted values", "-device disk -setting on -interval 60 -count 5 -threshold 80",
                   2, kOn, {}, false, 60, 5, -1, kDiskIntervalCountReads, "disk can not appoint threshold option."},
        DeviceCase{"off alone", "-device cpu -setting off", 0, kOff, {}, true, -1, -1, -1, {}, ""},
        DeviceCase{"off with a value", "-device cpu -setting off -interval 60", 0, kOff, {}, false, -1, -1, -1, {},
                   "Monitoring mode OFF, threshold value was set (3)"},
        DeviceCase{"interval maximum", "-device mem -setting on -interval 86400", 1, kOn, {}, true, 86400, -1, -1,
                   {"MEMORY/INTERVAL_MIN/1", "MEMORY/INTERVAL_MAX/86400"}, ""},
        DeviceCase{"interval above", "-device cpu -setting on -interval 86401", 0, kOn, {}, false, -1, -1, -1,
                   kCpuIntervalReads, "Parameter Error: -interval 86401"},
        DeviceCase{"count maximum", "-device cpu -setting on -count 1000", 0, kOn, {}, true, -1, 1000, -1,
                   kCpuCountReads, ""},
        DeviceCase{"count above, interval kept", "-device cpu -setting on -interval 60 -count 1001", 0, kOn, {}, false,
                   60, -1, -1, {"CPU/INTERVAL_MIN/1", "CPU/INTERVAL_MAX/86400", "CPU/COUNT_MIN/1", "CPU/COUNT_MAX/1000"},
                   "Parameter Error: -count 1001"},
        DeviceCase{"file minimum refuses", "-device cpu -setting on -threshold 45", 0, kOn,
                   {{"CPU/THRESHOLD_MIN", 50}}, false, -1, -1, -1, kCpuThresholdReads, "Parameter Error: -threshold 45"},
        DeviceCase{"file minimum with default maximum", "-device cpu -setting on -threshold 100", 0, kOn,
                   {{"CPU/THRESHOLD_MIN", 50}, {"MEMORY/THRESHOLD_MAX", 60}}, true, -1, -1, 100, kCpuThresholdReads, ""},
        DeviceCase{"file maximum beyond five digits", "-device cpu -setting on -count 100000", 0, kOn,
                   {{"CPU/COUNT_MAX", 500000}}, false, -1, -1, -1, kCpuCountReads, "Parameter Error: -count 100000"},
        DeviceCase{"five digits under a large maximum", "-device cpu -setting on -count 99999", 0, kOn,
                   {{"CPU/COUNT_MAX", 500000}}, true, -1, 99999, -1, kCpuCountReads, ""},
        DeviceCase{"file minimum above maximum", "-device cpu -setting on -interval 45", 0, kOn,
                   {{"CPU/INTERVAL_MIN", 50}, {"CPU/INTERVAL_MAX", 40}}, false, -1, -1, -1, kCpuIntervalReads,
                   "Parameter Error: -interval 45"},
        DeviceCase{"repeated option reads again", "-device cpu -setting on -interval 10 -interval 20", 0, kOn, {}, true,
                   20, -1, -1, {"CPU/INTERVAL_MIN/1", "CPU/INTERVAL_MAX/86400", "CPU/INTERVAL_MIN/1",
                                "CPU/INTERVAL_MAX/86400"}, ""},
        DeviceCase{"setting after its place", "-device cpu -setting on -setting off", 0, kOn, {}, false, -1, -1, -1, {},
                   "Unknown Parameter Error: -setting"},
        DeviceCase{"unknown option", "-device cpu -setting on -interval 5 -bogus 1", 0, kOn, {}, false, 5, -1, -1,
                   kCpuIntervalReads, "Unknown Parameter Error: -bogus"},
        DeviceCase{"upper-case option", "-device cpu -setting on -INTERVAL 60", 0, kOn, {}, true, 60, -1, -1,
                   kCpuIntervalReads, ""},
        DeviceCase{"refusal traced as typed", "-device cpu -setting on -Count 0", 0, kOn, {}, false, -1, -1, -1,
                   kCpuCountReads, "Parameter Error: -Count 0"},
        DeviceCase{"option without value", "-device cpu -setting on -threshold", 0, kOn, {}, false, -1, -1, -1,
                   kCpuThresholdReads, "Parameter Error: -threshold "}),
    CaseName<DeviceCase>);

struct MountCase {
  const char* name;
  std::string line;
  int onOff;  // as the grammar set it from position 1
  std::map<std::string, int> profile;
  bool expected;
  int onOffAfter;
  int threshold;
  std::vector<std::string> reads;
  std::vector<std::string> failure;  // the trace lines of a refusal; empty on success
};
KTL_PRINT_CASE_BY_NAME(MountCase)

class MountLimitsTest : public PluginTest, public ::testing::WithParamInterface<MountCase> {};

TEST_P(MountLimitsTest, ChecksSettingAndThresholdAgainstTheDiskSection) {
  const MountCase& c = GetParam();
  scripted::script().mapProfile = c.profile;
  CLoggerConfigCmd cmd;
  Prepare(cmd, c.line, -1, c.onOff);

  EXPECT_EQ(cmd.CheckMountParam(), c.expected);
  EXPECT_EQ(cmd.m_strMountPoint, Words(c.line)[1]);
  EXPECT_EQ(cmd.m_nOnOff, c.onOffAfter);
  EXPECT_EQ(cmd.m_nThreshold, c.threshold);
  EXPECT_EQ(cmd.m_nInterval, -1);
  EXPECT_EQ(cmd.m_nCount, -1);
  EXPECT_EQ(LimitReads(), c.reads);
  std::vector<std::string> vecTraces{"4|[ENTER] " + kMountSig};
  vecTraces.insert(vecTraces.end(), c.failure.begin(), c.failure.end());
  if (c.expected) vecTraces.push_back("4|[LEAVE] " + kMountSig);
  EXPECT_EQ(scripted::traces(), vecTraces);
}

std::string MountFailure(const std::string& strMessage) { return Failure(kMountSig, strMessage); }

const std::vector<std::string> kDiskThresholdReads{"DISK/THRESHOLD_MIN/40", "DISK/THRESHOLD_MAX/100"};

INSTANTIATE_TEST_SUITE_P(
    Lines, MountLimitsTest,
    ::testing::Values(
        MountCase{"threshold 90", "-mp /data -setting on -threshold 90", kOn, {}, true, kOn, 90, kDiskThresholdReads,
                  {}},
        MountCase{"no threshold", "-mp /srv -setting ON", kOn, {}, true, kOn, -1, {}, {}},
        MountCase{"threshold below", "-mp /data -setting on -threshold 39", kOn, {}, false, kOn, -1,
                  kDiskThresholdReads, {MountFailure("Parameter Error: -threshold 39")}},
        MountCase{"threshold above", "-mp /data -setting on -threshold 101", kOn, {}, false, kOn, -1,
                  kDiskThresholdReads, {MountFailure("Parameter Error: -threshold 101")}},
        MountCase{"file minimum of the disk section", "-mp /data -setting on -threshold 30", kOn,
                  {{"DISK/THRESHOLD_MIN", 20}, {"CPU/THRESHOLD_MIN", 50}}, true, kOn, 30, kDiskThresholdReads, {}},
        MountCase{"interval refused", "-mp /data -setting on -interval 60", kOn, {}, false, kOn, -1, {},
                  {MountFailure("Unknown Parameter Error: -interval")}},
        MountCase{"count refused, threshold kept", "-mp /data -setting on -threshold 50 -count 5", kOn, {}, false, kOn,
                  50, kDiskThresholdReads, {MountFailure("Unknown Parameter Error: -count")}},
        MountCase{"off with a threshold", "-mp /data -setting off -threshold 90", kOff, {}, false, kOff, -1, {},
                  {MountFailure("Monitoring mode OFF, threshold value was set (3)")}},
        MountCase{"off alone", "-mp /data -setting off", kOff, {}, true, kOff, -1, {}, {}},
        MountCase{"later setting overrides", "-mp /data -setting on -setting off", kOn, {}, true, kOff, -1, {}, {}},
        MountCase{"later off after a threshold", "-mp /data -setting on -threshold 90 -setting off", kOn, {}, false,
                  kOff, 90, kDiskThresholdReads, {MountFailure("Monitoring mode OFF, threshold value was set")}},
        MountCase{"later setting refused", "-mp /data -setting on -setting maybe", kOn, {}, false, kOn, -1, {},
                  {"16|bool CLoggerConfigCmd::CheckStrParam(std::string, std::string, std::string&) Parameter(maybe) not found in on|off",
                   MountFailure("Parameter Error: -setting maybe")}},
        MountCase{"upper-case option", "-mp /data -setting on -THRESHOLD 90", kOn, {}, true, kOn, 90,
                  kDiskThresholdReads, {}},
        MountCase{"repeated threshold", "-mp /DATA%s -setting on -threshold 90 -threshold 80", kOn, {}, true, kOn, 80,
                  {"DISK/THRESHOLD_MIN/40", "DISK/THRESHOLD_MAX/100", "DISK/THRESHOLD_MIN/40",
                   "DISK/THRESHOLD_MAX/100"},
                  {}}),
    CaseName<MountCase>);

}  // namespace
