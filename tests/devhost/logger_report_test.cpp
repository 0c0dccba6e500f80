// The "logger" report as an administrator reads it: the shipped template
// rendered through the development host's template engine with the data the
// plug-in puts, compared byte for byte.
#include <cstdio>

#include "host/template_engine.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

using Rows = std::vector<std::map<std::string, std::string> >;

const char kGoldenReport[] = KTL_SOURCE_DIR "/tests/devhost/golden/logger_report.txt";

// A row as the plug-in builds it: the mount point left-justified in 22 columns.
std::map<std::string, std::string> FsRow(const std::string& strMount, const std::string& strThreshold) {
  char szName[34];
  std::snprintf(szName, sizeof(szName), "%-22s", strMount.c_str());
  return {{"FsName", szName}, {"FsValue", strThreshold}};
}

class LoggerReportTest : public devhost_test::DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    SetEnv("KTL_TEMPLATE_DIR", KTL_SOURCE_DIR "/devhost/templates");
  }
  static std::string Render(const std::map<std::string, std::string>& mapText, const Rows* pRows) {
    CTempleteContext context;
    if (!context.Init("logger")) return "<init failed>";
    for (const auto& item : mapText) context.PutData(item.first, item.second);
    if (pRows) context.PutData("FsList", *pRows);
    std::string strOut;
    return CTemplateEngine().Output(context, strOut) ? strOut : "<output failed>";
  }
};

// Syslog on, one monitor off, and mount points short, exactly 22 and longer
// than 22 characters; "&" and "<" must come out unescaped.
TEST_F(LoggerReportTest, FullReportMatchesTheGoldenFile) {
  const std::map<std::string, std::string> mapText = {
      {"SyslogOn", "On"},       {"LogDisp", "true"},    {"InfoOn", "On"},       {"WarnOn", "Off"},
      {"ErrorOn", "On"},        {"CpuOn", "On"},        {"CpuDisp", "true"},    {"CpuInterval", "60"},
      {"CpuCount", "3"},        {"CpuValue", "90"},     {"MemOn", "Off"},       {"FileOn", "On"},
      {"FileDisp", "true"},     {"FileInterval", "300"}, {"FileCount", "5"}};
  const Rows vecRows = {FsRow("/", "80"), FsRow("/var/log", "85"), FsRow("/srv/exports/projects", "90"),
                        FsRow("/mnt/backup&<archive>/daily", "95")};
  EXPECT_EQ(Render(mapText, &vecRows), devhost_test::ReadFile(kGoldenReport));
}

// Reports whose sections are left out: no blank line may stay behind. The
// memory monitor, off in the golden file, is shown here.
TEST_F(LoggerReportTest, LeftOutSectionsLeaveNothingBehind) {
  const Rows vecNoRows;
  EXPECT_EQ(Render({{"SyslogOn", "Off"}}, nullptr),
            "Logger configuration\n"
            "\n"
            "  Syslog output           : Off\n");
  EXPECT_EQ(Render({{"SyslogOn", "On"}, {"LogDisp", "true"}, {"InfoOn", "Off"}, {"WarnOn", "Off"}, {"ErrorOn", "Off"},
                    {"CpuOn", "Off"}, {"MemOn", "On"}, {"MemDisp", "true"}, {"MemInterval", "30"},
                    {"MemCount", "4"}, {"MemValue", "75"}, {"FileOn", "On"}, {"FileDisp", "true"},
                    {"FileInterval", "-1"}, {"FileCount", "2"}},
                   &vecNoRows),
            "Logger configuration\n"
            "\n"
            "  Syslog output           : On\n"
            "    Information alerts    : Off\n"
            "    Warning alerts        : Off\n"
            "    Error alerts          : Off\n"
            "  CPU usage monitor       : Off\n"
            "  Memory usage monitor    : On\n"
            "    Interval (seconds)    : 30\n"
            "    Count                 : 4\n"
            "    Threshold (%)         : 75\n"
            "  Disk usage monitor      : On\n"
            "    Interval (seconds)    : -1\n"
            "    Count                 : 2\n"
            "    Mount point               Threshold (%)\n"
            "    (no mount point switched on)\n");
}

}  // namespace
