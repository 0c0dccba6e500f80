// The logger configuration record as INI, both ways.
#include "devhost/service/logger_conf_ini.h"

#include "devhost/service/logger_conf_check.h"

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

// One table says what each value may be: the reader refuses what an edit
// may not write, naming section, key, value and what it should be, and
// leaves the record alone.
TEST_F(LoggerConfIniTest, ReaderAndWriterRefuseTheSameValues) {
  const struct {
    const char* section;
    const char* key;
    const char* value;
    const char* expected;  // nullptr = valid
  } cases[] = {
      {"CPU", "Interval", "", "[CPU] Interval=\"\" is not a decimal number from 1 to 2147483647"},
      {"MEMORY", "Count", "12x", "[MEMORY] Count=\"12x\" is not a decimal number from 1"},
      {"FILESYS", "Interval", "0x10", "[FILESYS] Interval=\"0x10\" is not a decimal number"},
      {"CPU", "Interval", "-1", "[CPU] Interval=\"-1\" is not a decimal number from 1"},
      {"CPU", "Interval", "-7", "[CPU] Interval=\"-7\" is not a decimal number from 1"},
      {"MEMORY", "Count", "0", "[MEMORY] Count=\"0\" is not a decimal number from 1"},
      {"CPU", "Interval", "2147483647", nullptr},
      {"CPU", "Threshold", "99999999999", "[CPU] Threshold=\"99999999999\" is not a decimal number from 0 to 100"},
      {"CPU", "Threshold", "101", "[CPU] Threshold=\"101\" is not a decimal number from 0 to 100"},
      {"CPU", "Threshold", "0", nullptr},
      {"Syslog", "Error", "on", "[Syslog] Error=\"on\" is not a switch (0x11 or 0x10)"},
      {"CPU", "Available", "0", "[CPU] Available=\"0\" is not a switch"},
      {"CPU", "Available", "0x7", "[CPU] Available=\"0x7\" is not a switch"},
      {"CPU", "Available", "17", nullptr},
      {"FSNAME-1", "Threshold", "ninety", "[FSNAME-1] Threshold=\"ninety\" is not a decimal number from 0 to 100"},
      {"FSNAME-1", "Available", "0x12", "[FSNAME-1] Available=\"0x12\" is not a switch"},
      {"FSNAME-1", "Mount", "-1", nullptr},
  };
  for (const auto& c : cases) {
    const std::string strText = std::string("[") + c.section + "]\n" + c.key + "=" + c.value + "\n";
    Velmora_LoggerConf read;
    read.cpu.nInterval = 77;
    std::string strError;
    EXPECT_EQ(Read(strText, read, strError), c.expected == nullptr) << strText << strError;
    if (c.expected) {
      EXPECT_NE(strError.find(c.expected), std::string::npos) << strText << " gave: " << strError;
      EXPECT_EQ(read.cpu.nInterval, 77) << strText << ": the record must be left alone";
    }
    std::string strEditError;
    EXPECT_EQ(devhost::CheckEdit(c.section, c.key, c.value, strEditError), c.expected == nullptr) << strText;
    if (c.expected) {
      EXPECT_NE(strEditError.find(c.expected), std::string::npos) << strText << strEditError;
    }
  }
  std::string strError;
  Velmora_LoggerConf read;
  EXPECT_FALSE(Read("[FSNAME-01]\nMount=/x\n", read, strError));
  EXPECT_NE(strError.find("[FSNAME-01] is not a mount-point section"), std::string::npos) << strError;
}

}  // namespace
