// The cross-checks against the limits file: CheckSetThreshold (device form)
// and CheckMountParam (mount-point form).
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/plugin/plugin_test_support.h"

namespace {

const std::string kLimitsFile = "/opt/velmora/ktl/cli/LoggerParams.ini";
const std::string kDeviceSig = "bool CLoggerConfigCmd::CheckSetThreshold()";
const std::string kMountSig = "bool CLoggerConfigCmd::CheckMountParam()";
const int kOn = 0x11;
const int kOff = 0x10;

// The limits read, in order, as "SECTION/KEY/default".
Lines LimitReads() {
  Lines vecReads;
  for (const auto& call : scripted::callsOf("GetPrivateProfileIntA")) {
    EXPECT_EQ(call.vecArgs[3], kLimitsFile);
    vecReads.push_back(call.vecArgs[0] + "/" + call.vecArgs[1] + "/" + call.vecArgs[2]);
  }
  return vecReads;
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
  int device, onOff;
  std::map<std::string, int> profile;
  int interval, count, threshold;
  std::string reads;    // Words() of the limits read
  std::string failure;  // the trace of a refusal; empty on success
};
KTL_CASE_FIXTURE(DeviceLimitsTest, DeviceCase);

TEST_P(DeviceLimitsTest, ChecksEachOptionAgainstTheDeviceSection) {
  const DeviceCase& c = GetParam();
  scripted::script().mapProfile = c.profile;
  CLoggerConfigCmd cmd;
  Prepare(cmd, c.line, c.device, c.onOff);
  cmd.m_nInterval = cmd.m_nCount = cmd.m_nThreshold = 7;  // reset on entry

  EXPECT_EQ(cmd.CheckSetThreshold(), c.failure.empty());
  EXPECT_EQ(cmd.m_nInterval, c.interval);
  EXPECT_EQ(cmd.m_nCount, c.count);
  EXPECT_EQ(cmd.m_nThreshold, c.threshold);
  EXPECT_EQ(LimitReads(), Words(c.reads));
  const std::string strLast = c.failure.empty() ? "4|[LEAVE] " + kDeviceSig : "16|" + kDeviceSig + " " + c.failure;
  EXPECT_EQ(scripted::traces(), (Lines{"4|[ENTER] " + kDeviceSig, strLast}));
}

const char kCpuThr[] = "CPU/THRESHOLD_MIN/10 CPU/THRESHOLD_MAX/100";
const char kCpuInt[] = "CPU/INTERVAL_MIN/1 CPU/INTERVAL_MAX/86400";
const char kCpuCnt[] = "CPU/COUNT_MIN/1 CPU/COUNT_MAX/1000";
const char kDiskIntCnt[] = "DISK/INTERVAL_MIN/1 DISK/INTERVAL_MAX/86400 DISK/COUNT_MIN/1 DISK/COUNT_MAX/1000";
const std::string kCpuIntCnt = std::string(kCpuInt) + " " + kCpuCnt;

INSTANTIATE_TEST_SUITE_P(
    Lines, DeviceLimitsTest,
    ::testing::Values(
        DeviceCase{"threshold below", "-device cpu -setting on -threshold 9", 0, kOn, {}, -1, -1, -1, kCpuThr, "Parameter Error: -threshold 9"},
        DeviceCase{"threshold minimum", "-device cpu -setting on -threshold 10", 0, kOn, {}, -1, -1, 10, kCpuThr, ""},
        DeviceCase{"threshold maximum", "-device cpu -setting on -threshold 100", 0, kOn, {}, -1, -1, 100, kCpuThr, ""},
        DeviceCase{"mem section defaults", "-device mem -setting on -threshold 39", 1, kOn, {}, -1, -1, -1,
                   "MEMORY/THRESHOLD_MIN/40 MEMORY/THRESHOLD_MAX/100", "Parameter Error: -threshold 39"},
        DeviceCase{"interval maximum", "-device mem -setting on -interval 86400", 1, kOn, {}, 86400, -1, -1,
                   "MEMORY/INTERVAL_MIN/1 MEMORY/INTERVAL_MAX/86400", ""},
        DeviceCase{"interval above", "-device cpu -setting on -interval 86401", 0, kOn, {}, -1, -1, -1, kCpuInt, "Parameter Error: -interval 86401"},
        DeviceCase{"count above, interval kept", "-device cpu -setting on -interval 60 -count 1001", 0, kOn, {}, 60, -1, -1,
                   kCpuIntCnt, "Parameter Error: -count 1001"},
        DeviceCase{"disk interval and count", "-device disk -setting on -interval 60 -count 5", 2, kOn, {}, 60, 5, -1, kDiskIntCnt, ""},
        DeviceCase{"disk threshold refused", "-device disk -setting on -interval 60 -count 5 -threshold 80", 2, kOn, {}, 60, 5, -1,
                   kDiskIntCnt, "disk can not appoint threshold option."},
        DeviceCase{"off alone", "-device cpu -setting off", 0, kOff, {}, -1, -1, -1, "", ""},
        DeviceCase{"off with a value", "-device cpu -setting off -interval 60", 0, kOff, {}, -1, -1, -1, "",
                   "Monitoring mode OFF, threshold value was set (3)"},
        DeviceCase{"file minimum refuses", "-device cpu -setting on -threshold 45", 0, kOn, {{"CPU/THRESHOLD_MIN", 50}}, -1, -1, -1,
                   kCpuThr, "Parameter Error: -threshold 45"},
        DeviceCase{"other section's file maximum ignored", "-device cpu -setting on -threshold 100", 0, kOn,
                   {{"CPU/THRESHOLD_MIN", 50}, {"MEMORY/THRESHOLD_MAX", 60}}, -1, -1, 100, kCpuThr, ""},
        DeviceCase{"six digits over a large maximum", "-device cpu -setting on -count 100000", 0, kOn, {{"CPU/COUNT_MAX", 500000}},
                   -1, -1, -1, kCpuCnt, "Parameter Error: -count 100000"},
        DeviceCase{"five digits under a large maximum", "-device cpu -setting on -count 99999", 0, kOn, {{"CPU/COUNT_MAX", 500000}},
                   -1, 99999, -1, kCpuCnt, ""},
        DeviceCase{"file minimum above maximum", "-device cpu -setting on -interval 45", 0, kOn,
                   {{"CPU/INTERVAL_MIN", 50}, {"CPU/INTERVAL_MAX", 40}}, -1, -1, -1, kCpuInt, "Parameter Error: -interval 45"},
        DeviceCase{"setting after its place", "-device cpu -setting on -setting off", 0, kOn, {}, -1, -1, -1, "",
                   "Unknown Parameter Error: -setting"},
        DeviceCase{"unknown option", "-device cpu -setting on -interval 5 -bogus 1", 0, kOn, {}, 5, -1, -1, kCpuInt,
                   "Unknown Parameter Error: -bogus"},
        DeviceCase{"options in any case, refusal traced as typed", "-device cpu -setting on -INTERVAL 60 -Count 0", 0, kOn, {},
                   60, -1, -1, kCpuIntCnt, "Parameter Error: -Count 0"},
        DeviceCase{"option without value", "-device cpu -setting on -threshold", 0, kOn, {}, -1, -1, -1, kCpuThr,
                   "Parameter Error: -threshold "}),
    CaseName<DeviceCase>);

struct MountCase {
  const char* name;
  std::string line;
  int onOff;  // as the grammar set it from position 1
  int onOffAfter, threshold;
  std::string reads;
  Lines failure;  // the trace lines of a refusal; empty on success
};
KTL_CASE_FIXTURE(MountLimitsTest, MountCase);

TEST_P(MountLimitsTest, ChecksSettingAndThresholdAgainstTheDiskSection) {
  const MountCase& c = GetParam();
  scripted::script().mapProfile = {{"CPU/THRESHOLD_MIN", 50}, {"DISK/THRESHOLD_MAX", 95}};
  CLoggerConfigCmd cmd;
  Prepare(cmd, c.line, -1, c.onOff);

  EXPECT_EQ(cmd.CheckMountParam(), c.failure.empty());
  EXPECT_EQ(cmd.m_strMountPoint, Words(c.line)[1]);
  EXPECT_EQ(cmd.m_nOnOff, c.onOffAfter);
  EXPECT_EQ(cmd.m_nThreshold, c.threshold);
  EXPECT_EQ(cmd.m_nInterval, -1);
  EXPECT_EQ(cmd.m_nCount, -1);
  EXPECT_EQ(LimitReads(), Words(c.reads));
  Lines vecTraces{"4|[ENTER] " + kMountSig};
  vecTraces.insert(vecTraces.end(), c.failure.begin(), c.failure.end());
  if (c.failure.empty()) vecTraces.push_back("4|[LEAVE] " + kMountSig);
  EXPECT_EQ(scripted::traces(), vecTraces);
}

std::string MountFailure(const std::string& strMessage) { return "16|" + kMountSig + " " + strMessage; }

const char kDiskThr[] = "DISK/THRESHOLD_MIN/40 DISK/THRESHOLD_MAX/100";
const std::string kDiskThr2 = std::string(kDiskThr) + " " + kDiskThr;

INSTANTIATE_TEST_SUITE_P(
    Lines, MountLimitsTest,
    ::testing::Values(
        MountCase{"disk minimum, not cpu's", "-mp /data -setting on -threshold 40", kOn, kOn, 40, kDiskThr, {}},
        MountCase{"disk file maximum", "-mp /data -setting on -threshold 95", kOn, kOn, 95, kDiskThr, {}},
        MountCase{"no threshold", "-mp /srv -setting ON", kOn, kOn, -1, "", {}},
        MountCase{"threshold below", "-mp /data -setting on -threshold 39", kOn, kOn, -1, kDiskThr, {MountFailure("Parameter Error: -threshold 39")}},
        MountCase{"threshold above", "-mp /data -setting on -threshold 96", kOn, kOn, -1, kDiskThr, {MountFailure("Parameter Error: -threshold 96")}},
        MountCase{"interval refused", "-mp /data -setting on -interval 60", kOn, kOn, -1, "", {MountFailure("Unknown Parameter Error: -interval")}},
        MountCase{"count refused, threshold kept", "-mp /data -setting on -threshold 50 -count 5", kOn, kOn, 50, kDiskThr,
                  {MountFailure("Unknown Parameter Error: -count")}},
        MountCase{"off with a threshold", "-mp /data -setting off -threshold 90", kOff, kOff, -1, "",
                  {MountFailure("Monitoring mode OFF, threshold value was set (3)")}},
        MountCase{"off alone", "-mp /data -setting off", kOff, kOff, -1, "", {}},
        MountCase{"later setting overrides", "-mp /data -setting on -setting off", kOn, kOff, -1, "", {}},
        MountCase{"later off after a threshold", "-mp /data -setting on -threshold 90 -setting off", kOn, kOff, 90, kDiskThr,
                  {MountFailure("Monitoring mode OFF, threshold value was set")}},
        MountCase{"later setting refused", "-mp /data -setting on -setting maybe", kOn, kOn, -1, "",
                  {"16|bool CLoggerConfigCmd::CheckStrParam(std::string, std::string, std::string&) Parameter(maybe) not found in on|off",
                   MountFailure("Parameter Error: -setting maybe")}},
        MountCase{"options in any case, repeated threshold", "-mp /DATA%s -setting on -THRESHOLD 90 -threshold 80", kOn, kOn, 80,
                  kDiskThr2, {}}),
    CaseName<MountCase>);

}  // namespace
