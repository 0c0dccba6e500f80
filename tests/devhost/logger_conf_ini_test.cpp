// The logger configuration record as INI, both ways.
#include "devhost/lib/logger_conf_ini.h"

#include "tests/devhost/logger_state_fixture.h"

namespace {

using devhost::IniTree;

class LoggerConfIniTest : public LoggerStateTest {
 protected:
  IniTree Parse(const std::string& strText) {
    WriteText(Path("conf.ini"), strText);
    IniTree tree;
    std::string strError;
    EXPECT_EQ(devhost::ReadIniFile(Path("conf.ini"), tree, strError), devhost::IniRead::kOk) << strError;
    return tree;
  }
};

Velmora_LoggerFsThresholdConf Entry(int nIndex, int nThreshold, int nAvailable, const std::string& strMount) {
  Velmora_LoggerFsThresholdConf entry;
  entry.nIndex = nIndex;
  entry.nThreshold = nThreshold;
  entry.nAvailable = nAvailable;
  entry.strMount = strMount;
  return entry;
}

// Every field, entries included, as one comparable text.
std::string Fields(const Velmora_LoggerConf& conf) {
  std::string strFields;
  for (const std::string& strLine : devhost::DescribeConf(conf)) strFields += strLine + "\n";
  return strFields;
}

// As a reader leaves a record for an empty file: switches 0, integers -1.
Velmora_LoggerConf UnsetRecord() {
  Velmora_LoggerConf conf;
  for (Velmora_LoggerUsageMonitorConf* pMonitor : {&conf.cpu, &conf.mem})
    pMonitor->nInterval = pMonitor->nCount = pMonitor->nThreshold = -1;
  conf.fs.nInterval = conf.fs.nCount = -1;
  return conf;
}

Velmora_LoggerConf FullRecord() {
  Velmora_LoggerConf conf;
  conf.syslogOutput.nOutput = conf.syslogOutput.nWarning = 0x11;
  conf.syslogOutput.nInformation = conf.syslogOutput.nError = 0x10;
  conf.cpu.nAvailable = 0x11;
  conf.cpu.nInterval = 30;
  conf.cpu.nCount = 2;
  conf.cpu.nThreshold = 80;
  conf.mem.nAvailable = 0x10;
  conf.mem.nInterval = 3600;
  conf.mem.nCount = 10;
  conf.mem.nThreshold = 95;
  conf.fs.nAvailable = 0x11;
  conf.fs.nInterval = 300;
  conf.fs.nCount = 1;
  conf.fs.vecThreshold = {Entry(1, 90, 0x11, "/"), Entry(2, 70, 0x10, "/mnt/my data")};
  return conf;
}

TEST_F(LoggerConfIniTest, RecordSurvivesTheFileWithEntriesRenumbered) {
  Velmora_LoggerConf partlySet = UnsetRecord();
  partlySet.syslogOutput.nWarning = 0x11;
  partlySet.mem.nThreshold = 0;
  partlySet.fs.vecThreshold = {Entry(-1, -1, 0, ""), Entry(7, 0, 0x11, "/var"), Entry(3, 5, 0x10, "/c")};
  Velmora_LoggerConf renumbered = partlySet;
  for (int i = 0; i < 3; ++i) renumbered.fs.vecThreshold[i].nIndex = i + 1;
  const struct {
    const char* name;
    Velmora_LoggerConf written;
    Velmora_LoggerConf expected;
    const char* numFileSys;
  } cases[] = {
      {"every field set", FullRecord(), FullRecord(), "2"},
      {"nothing set", UnsetRecord(), UnsetRecord(), "0"},
      {"partly set, entries out of order", partlySet, renumbered, "3"},
  };
  for (const auto& c : cases) {
    std::string strError;
    ASSERT_TRUE(devhost::WriteIniFile(Path("conf.ini"), devhost::ConfToIni(c.written), strError)) << strError;
    const IniTree tree = Parse(devhost_test::ReadFile(Path("conf.ini")));
    Velmora_LoggerConf read;
    ASSERT_TRUE(devhost::ConfFromIni(tree, read, strError)) << c.name << ": " << strError;
    EXPECT_EQ(Fields(read), Fields(c.expected)) << c.name;
    EXPECT_EQ(*devhost::FindIniValue(tree, "FILESYS", "NumFileSys"), c.numFileSys) << c.name;
  }
}

TEST_F(LoggerConfIniTest, FileValuesMapToTheRecord) {
  const IniTree tree = Parse(
      "[Syslog]\nOutput=17\nInformation=0x10\nWarning=0x11\n"  // Error absent
      "[CPU]\nAvailable=0x11\nInterval=60\n"                   // Count, Threshold absent
      "[FILESYS]\nAvailable=16\nCount=3\nNumFileSys=9\n"
      "[FSNAME-10]\nAvailable=0x11\nThreshold=80\nMount=/ten\n"
      "[FSNAME-2]\nMount=/two\n"
      "[Other]\nKey=ignored\n");
  Velmora_LoggerConf read;
  std::string strError;
  ASSERT_TRUE(devhost::ConfFromIni(tree, read, strError)) << strError;
  Velmora_LoggerConf expected = UnsetRecord();
  expected.syslogOutput.nOutput = expected.syslogOutput.nWarning = 0x11;
  expected.syslogOutput.nInformation = 0x10;
  expected.cpu.nAvailable = 0x11;
  expected.cpu.nInterval = 60;
  expected.fs.nAvailable = 0x10;
  expected.fs.nCount = 3;
  expected.fs.vecThreshold = {Entry(2, -1, 0, "/two"), Entry(10, 80, 0x11, "/ten")};
  EXPECT_EQ(Fields(read), Fields(expected));
}

TEST_F(LoggerConfIniTest, ValueThatIsNotANumberIsAnError) {
  const struct {
    const char* text;
    const char* expected;
  } cases[] = {
      {"[CPU]\nInterval=abc\n", "[CPU] Interval=\"abc\" is not a decimal integer"},
      {"[CPU]\nInterval=\n", "[CPU] Interval=\"\" is not a decimal integer"},
      {"[MEMORY]\nCount=12x\n", "[MEMORY] Count=\"12x\" is not a decimal integer"},
      {"[FILESYS]\nInterval=0x10\n", "[FILESYS] Interval=\"0x10\" is not a decimal integer"},
      {"[CPU]\nThreshold=99999999999\n", "[CPU] Threshold=\"99999999999\" is not a decimal integer"},
      {"[Syslog]\nError=on\n", "[Syslog] Error=\"on\" is not a switch"},
      {"[FSNAME-1]\nThreshold=ninety\n", "[FSNAME-1] Threshold=\"ninety\" is not a decimal integer"},
      {"[FSNAME-x]\nMount=/x\n", "[FSNAME-x] is not a mount-point section"},
      {"[FSNAME-01]\nMount=/x\n", "[FSNAME-01] is not a mount-point section"},
  };
  for (const auto& c : cases) {
    Velmora_LoggerConf read = FullRecord();
    std::string strError;
    EXPECT_FALSE(devhost::ConfFromIni(Parse(c.text), read, strError)) << c.text;
    EXPECT_NE(strError.find(c.expected), std::string::npos) << c.text << " gave: " << strError;
    EXPECT_EQ(Fields(read), Fields(FullRecord())) << c.text << ": the record must be left alone";
  }
}

}  // namespace
