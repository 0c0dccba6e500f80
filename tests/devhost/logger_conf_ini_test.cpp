// The logger configuration record as INI, both ways.
#include "devhost/service/logger_conf_ini.h"

#include "tests/devhost/devhost_test_support.h"

namespace {

class LoggerConfIniTest : public devhost_test::DevhostTest {
 protected:
  // Parses the text of a configuration file into the record.
  bool Read(const std::string& strText, Velmora_LoggerConf& conf, std::string& strError) {
    devhost::IniTree tree;
    EXPECT_TRUE(devhost::ParseIniText(strText, "conf.ini", tree, strError)) << strError;
    return devhost::ConfFromIni(tree, conf, strError);
  }
  // The file the record is written as.
  std::string Written(const Velmora_LoggerConf& conf) {
    std::string strError;
    EXPECT_TRUE(devhost::WriteIniFile(Path("out.ini"), devhost::ConfToIni(conf), strError)) << strError;
    return devhost_test::ReadFile(Path("out.ini"));
  }
};

const char kFullText[] =
    "[Syslog]\nOutput=0x11\nInformation=0x10\nWarning=0x11\nError=0x10\n"
    "[CPU]\nAvailable=0x11\nInterval=30\nCount=2\nThreshold=80\n"
    "[MEMORY]\nAvailable=0x10\nInterval=3600\nCount=10\nThreshold=95\n"
    "[FILESYS]\nAvailable=0x11\nInterval=300\nCount=1\nNumFileSys=2\n"
    "[FSNAME-1]\nAvailable=0x11\nThreshold=90\nMount=/\n"
    "[FSNAME-2]\nAvailable=0x10\nThreshold=70\nMount=/mnt/my data\n";

// What a file leaves out is not written back; entries are read in number
// order and written as 1..N.
TEST_F(LoggerConfIniTest, FileValuesMapToTheRecordAndBack) {
  const struct {
    const char* name;
    const char* text;
    const char* written;  // the file the record is written as; nullptr = text
  } cases[] = {
      {"every field set", kFullText, nullptr},
      {"partly set, entries out of order",
       "[Syslog]\nOutput=17\nInformation=0x10\n[CPU]\nInterval=60\nThreshold=0\n"
       "[FILESYS]\nAvailable=16\nNumFileSys=9\n[FSNAME-10]\nAvailable=0x11\nThreshold=80\nMount=/ten\n"
       "[FSNAME-2]\nMount=/two\n[Other]\nKey=ignored\n",
       "[Syslog]\nOutput=0x11\nInformation=0x10\n[CPU]\nInterval=60\nThreshold=0\n"
       "[FILESYS]\nAvailable=0x10\nNumFileSys=2\n[FSNAME-1]\nMount=/two\n"
       "[FSNAME-2]\nAvailable=0x11\nThreshold=80\nMount=/ten\n"},
  };
  for (const auto& c : cases) {
    Velmora_LoggerConf read, again;
    std::string strError;
    ASSERT_TRUE(Read(c.text, read, strError)) << c.name << ": " << strError;
    const std::string strWritten = Written(read);
    EXPECT_EQ(strWritten, c.written ? c.written : c.text) << c.name;
    ASSERT_TRUE(Read(strWritten, again, strError)) << c.name << ": " << strError;
    EXPECT_EQ(Written(again), strWritten) << c.name << ": the written file reads back as the same record";
  }
}

TEST_F(LoggerConfIniTest, ValueThatIsNotANumberIsAnErrorAndLeavesTheRecordAlone) {
  const struct {
    const char* text;
    const char* expected;
  } cases[] = {
      {"[CPU]\nInterval=\n", "[CPU] Interval=\"\" is not a decimal integer"},
      {"[MEMORY]\nCount=12x\n", "[MEMORY] Count=\"12x\" is not a decimal integer"},
      {"[FILESYS]\nInterval=0x10\n", "[FILESYS] Interval=\"0x10\" is not a decimal integer"},
      {"[CPU]\nThreshold=99999999999\n", "[CPU] Threshold=\"99999999999\" is not a decimal integer"},
      {"[Syslog]\nError=on\n", "[Syslog] Error=\"on\" is not a switch"},
      {"[FSNAME-1]\nThreshold=ninety\n", "[FSNAME-1] Threshold=\"ninety\" is not a decimal integer"},
      {"[FSNAME-01]\nMount=/x\n", "[FSNAME-01] is not a mount-point section"},
  };
  for (const auto& c : cases) {
    Velmora_LoggerConf read;
    read.cpu.nInterval = 77;
    std::string strError;
    EXPECT_FALSE(Read(c.text, read, strError)) << c.text;
    EXPECT_NE(strError.find(c.expected), std::string::npos) << c.text << " gave: " << strError;
    EXPECT_EQ(read.cpu.nInterval, 77) << c.text << ": the record must be left alone";
  }
}

}  // namespace
