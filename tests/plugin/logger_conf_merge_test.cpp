// The merge of a pending record with the configuration in effect.
#include <gtest/gtest.h>

#include "tests/plugin/plugin_test_support.h"

namespace {

const std::string kConf = "1|void Velmora_LoggerConf::operator+=(Velmora_LoggerConf&) operator+=(";

std::string Text(const Velmora_LoggerUsageMonitorConf& m) {
  return std::to_string(m.nAvailable) + ":" + std::to_string(m.nInterval) + ":" + std::to_string(m.nCount) + ":" +
         std::to_string(m.nThreshold);
}

// A switch that the pending record has not set (neither 0x01 nor 0x10) takes
// the value in effect. A monitor that the pending record has switched stands
// as it is; one that it has not takes the switch and every value that is set
// in effect. The disk list becomes the list in effect, in its order, each
// mount point taken from the pending list when that has it (paths compared
// exactly).
TEST_F(PluginTest, MergeCompletesWhatThePendingRecordHasNotSet) {
  for (const bool bCpuSwitched : {true, false}) {
    scripted::reset();
    Velmora_LoggerConf pending, current;
    pending.syslogOutput.nInformation = 0x10;
    pending.syslogOutput.nWarning = 0x0E;
    pending.syslogOutput.nError = 0x01;
    current.syslogOutput.nOutput = current.syslogOutput.nInformation = current.syslogOutput.nWarning = 0x21;
    current.syslogOutput.nError = 0x31;
    (bCpuSwitched ? pending.cpu : pending.mem) = Monitor(0x10, -1, 5, 80);
    (bCpuSwitched ? pending.mem : pending.cpu) = Monitor(0, 15, 4, 70);
    current.cpu = current.mem = Monitor(0x11, -1, 6, 90);
    pending.fs.nAvailable = bCpuSwitched ? 0 : 0x10;
    pending.fs.nInterval = 30;
    pending.fs.vecThreshold = {FsEntry(3, 60, 0x11, "/c"), FsEntry(4, 70, 0x10, "/b"), FsEntry(5, 50, 0x11, "/A")};
    current.fs.nAvailable = 0x11;
    current.fs.nInterval = -1;
    current.fs.nCount = 9;
    current.fs.vecThreshold = {FsEntry(1, 80, 0x11, "/a"), FsEntry(2, 90, 0x11, "/b")};
    pending += current;

    const Velmora_LoggerSyslogOutputConf& s = pending.syslogOutput;
    EXPECT_EQ((std::vector<int>{s.nOutput, s.nInformation, s.nWarning, s.nError}), (std::vector<int>{0x21, 0x10, 0x21, 0x01}));
    const std::string strSwitched = "16:-1:5:80", strCompleted = "17:15:6:90";
    EXPECT_EQ(Text(pending.cpu), bCpuSwitched ? strSwitched : strCompleted);
    EXPECT_EQ(Text(pending.mem), bCpuSwitched ? strCompleted : strSwitched);
    EXPECT_EQ(Text(Monitor(pending.fs.nAvailable, pending.fs.nInterval, pending.fs.nCount, 0)), bCpuSwitched ? "17:30:9:0" : "16:30:0:0");
    EXPECT_EQ(Describe(pending.fs.vecThreshold),
              bCpuSwitched ? Lines({"/a:80:17:1", "/b:70:16:4"}) : Lines({"/c:60:17:3", "/b:70:16:4", "/A:50:17:5"}));
    EXPECT_EQ(Describe(current.fs.vecThreshold), Lines({"/a:80:17:1", "/b:90:17:2"})) << "the record in effect is unchanged";
    if (bCpuSwitched) {
      const std::string kUsage = "1|void Velmora_LoggerUsageMonitorConf::operator+=(Velmora_LoggerUsageMonitorConf&) operator+=()";
      EXPECT_EQ(scripted::traces(),
                (Lines{kConf + ")", "1|void Velmora_LoggerSyslogOutputConf::operator+=(Velmora_LoggerSyslogOutputConf&) operator+=()",
                       kConf + "mem)", kUsage, kConf + "fs)",
                       "1|void Velmora_LoggerFsUsageMonitorConf::operator+=(Velmora_LoggerFsUsageMonitorConf&) operator+=()"}));
    }
  }
}

}  // namespace
