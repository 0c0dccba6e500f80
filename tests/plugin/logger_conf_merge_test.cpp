// The merge of a pending record with the configuration in effect.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/plugin/plugin_test_support.h"

namespace {

const std::string kConf = "1|void Velmora_LoggerConf::operator+=(Velmora_LoggerConf&) operator+=(";

// The set predicate, applied to each syslog switch by itself: the other three
// are set in the pending record and must survive.
TEST_F(PluginTest, MergeCompletesEachSyslogSwitchByItself) {
  typedef Velmora_LoggerSyslogOutputConf S;
  int S::*const kFields[] = {&S::nOutput, &S::nInformation, &S::nWarning, &S::nError};
  const struct { int nPending, nCurrent, nExpected; } kCases[] = {
      {0x11, 0x10, 0x11}, {0x10, 0x11, 0x10}, {0, 0x11, 0x11}, {-1, 0x11, -1},
      {0x01, 0x11, 0x01}, {0x100, 0x11, 0x11}, {0x0E, 0x10, 0x10}};
  for (const auto& c : kCases) {
    for (int nField = 0; nField < 4; ++nField) {
      Velmora_LoggerConf pending, current;
      for (int i = 0; i < 4; ++i) pending.syslogOutput.*kFields[i] = 0x11, current.syslogOutput.*kFields[i] = 0x10;
      pending.syslogOutput.*kFields[nField] = c.nPending;
      current.syslogOutput.*kFields[nField] = c.nCurrent;
      pending += current;
      for (int i = 0; i < 4; ++i)
        EXPECT_EQ(pending.syslogOutput.*kFields[i], i == nField ? c.nExpected : 0x11) << c.nPending << ", field " << nField;
    }
  }
}

std::string Text(const Velmora_LoggerUsageMonitorConf& m) {
  return std::to_string(m.nAvailable) + ":" + std::to_string(m.nInterval) + ":" + std::to_string(m.nCount) + ":" +
         std::to_string(m.nThreshold);
}

// A usage monitor is taken over as a unit, by cpu and by mem alike.
TEST_F(PluginTest, MergeTakesAUsageMonitorOverAsAUnit) {
  const struct {
    const char* name;
    Velmora_LoggerUsageMonitorConf pending, current, expected;
    bool bMerged;  // whether the "(cpu)"/"(mem)" line is traced
  } kCases[] = {
      {"switched off keeps its -1", Monitor(0x10, -1, 5, 80), Monitor(0x11, 60, 6, 90), Monitor(0x10, -1, 5, 80), false},
      {"switched on keeps everything", Monitor(0x11, 30, -1, 70), Monitor(0x10, 60, 6, 90), Monitor(0x11, 30, -1, 70), false},
      {"unset takes current values", Monitor(0, 0, 0, 80), Monitor(0x11, 60, 6, 90), Monitor(0x11, 60, 6, 90), true},
      {"current -1 keeps the pending value", Monitor(0, 15, 0, 80), Monitor(0x10, -1, 6, -1), Monitor(0x10, 15, 6, 80), true},
      {"unset switch with current unset", Monitor(0, 1, 2, 3), Monitor(0, -1, -1, -1), Monitor(0, 1, 2, 3), true}};
  for (const auto& c : kCases) {
    for (const std::string strWhich : {"cpu", "mem"}) {
      scripted::reset();
      const bool bCpu = strWhich == "cpu";
      Velmora_LoggerConf pending, current;
      (bCpu ? pending.cpu : pending.mem) = c.pending;
      (bCpu ? current.cpu : current.mem) = c.current;
      // The other monitor is switched in the pending record and left alone.
      (bCpu ? pending.mem : pending.cpu) = Monitor(0x10, 7, 8, 9);
      (bCpu ? current.mem : current.cpu) = Monitor(0x11, 1, 2, 3);
      pending += current;
      EXPECT_EQ(Text(bCpu ? pending.cpu : pending.mem), Text(c.expected)) << c.name << ", " << strWhich;
      EXPECT_EQ(Text(bCpu ? pending.mem : pending.cpu), "16:7:8:9") << c.name << ", " << strWhich;
      const auto vecTraces = scripted::traces();
      EXPECT_EQ(std::count(vecTraces.begin(), vecTraces.end(), kConf + strWhich + ")"), c.bMerged ? 1 : 0) << c.name;
    }
  }
}

// The disk monitor: its scalars follow the usage monitor's rules; its list is
// rebuilt in the current order, and taken as a unit when switched.
TEST_F(PluginTest, MergeRebuildsTheDiskMonitorInTheCurrentOrder) {
  typedef std::vector<Velmora_LoggerFsThresholdConf> List;
  const struct {
    const char* name;
    int nPendingAvailable;
    List pending, current;
    Lines expected;  // Describe() of the result
  } kCases[] = {
      {"pending entry wins, current order", 0, {FsEntry(4, 70, 0x10, "/b")}, {FsEntry(1, 80, 0x11, "/a"), FsEntry(2, 90, 0x11, "/b")},
       {"/a:80:17:1", "/b:70:16:4"}},
      {"pending-only entry is dropped", 0, {FsEntry(3, 60, 0x11, "/c"), FsEntry(1, 50, 0x11, "/a")}, {FsEntry(1, 80, 0x11, "/a")},
       {"/a:50:17:1"}},
      {"empty current list empties the list", 0, {FsEntry(1, 50, 0x11, "/a")}, {}, {}},
      {"paths compare exactly", 0, {FsEntry(5, 50, 0x11, "/data/"), FsEntry(6, 55, 0x11, "/DATA")}, {FsEntry(1, 80, 0x11, "/data")},
       {"/data:80:17:1"}},
      {"duplicate current mount takes the first pending match twice", 0, {FsEntry(7, 41, 0x11, "/x"), FsEntry(8, 42, 0x11, "/x")},
       {FsEntry(1, 80, 0x11, "/x"), FsEntry(2, 85, 0x11, "/y"), FsEntry(3, 90, 0x11, "/x")}, {"/x:41:17:7", "/y:85:17:2", "/x:41:17:7"}},
      {"switched disk monitor keeps its own list", 0x11, {FsEntry(3, 60, 0x11, "/c")}, {FsEntry(1, 80, 0x11, "/a")}, {"/c:60:17:3"}}};
  for (const auto& c : kCases) {
    Velmora_LoggerConf pending, current;
    pending.fs.nAvailable = c.nPendingAvailable;
    pending.fs.vecThreshold = c.pending;
    current.fs.nAvailable = 0x11;
    current.fs.vecThreshold = c.current;
    pending += current;
    EXPECT_EQ(Describe(pending.fs.vecThreshold), c.expected) << c.name;
    EXPECT_EQ(Describe(current.fs.vecThreshold), Describe(c.current)) << c.name << ": other is unchanged";
  }
  Velmora_LoggerConf pending, current;
  pending.fs.nInterval = 30;
  pending.fs.nCount = 4;
  current.fs.nAvailable = 0x11;
  current.fs.nInterval = -1;
  current.fs.nCount = 9;
  pending += current;
  EXPECT_EQ(Text(Monitor(pending.fs.nAvailable, pending.fs.nInterval, pending.fs.nCount, 0)), "17:30:9:0");
}

TEST_F(PluginTest, MergeTracesOneLinePairPerUnswitchedMonitor) {
  Velmora_LoggerConf pending, current;
  pending += current;
  const std::string kUsage = "1|void Velmora_LoggerUsageMonitorConf::operator+=(Velmora_LoggerUsageMonitorConf&) operator+=()";
  EXPECT_EQ(scripted::traces(),
            (Lines{kConf + ")", "1|void Velmora_LoggerSyslogOutputConf::operator+=(Velmora_LoggerSyslogOutputConf&) operator+=()",
                   kConf + "cpu)", kUsage, kConf + "mem)", kUsage, kConf + "fs)",
                   "1|void Velmora_LoggerFsUsageMonitorConf::operator+=(Velmora_LoggerFsUsageMonitorConf&) operator+=()"}));
  scripted::reset();
  pending.cpu.nAvailable = 0x10;
  pending.mem.nAvailable = 0x11;
  pending.fs.nAvailable = 0x10;
  pending += current;
  EXPECT_EQ(scripted::traces().size(), 2u) << "every monitor switched: the record and the switches only";
}

}  // namespace
