// The "logger" report as an administrator reads it: the shipped template
// rendered through the development host's template engine with the data the
// plug-in puts, compared byte for byte; and a template that cannot be loaded.
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

// Every monitor on, and mount points short, exactly 22 and longer than 22
// characters; "&" and "<" must come out unescaped.
TEST_F(LoggerReportTest, FullReportMatchesTheGoldenFile) {
  const std::map<std::string, std::string> mapText = {
      {"SyslogOn", "On"},    {"LogDisp", "true"},     {"InfoOn", "On"},       {"WarnOn", "Off"},
      {"ErrorOn", "On"},     {"CpuOn", "On"},         {"CpuDisp", "true"},    {"CpuInterval", "60"},
      {"CpuCount", "3"},     {"CpuValue", "90"},      {"MemOn", "On"},        {"MemDisp", "true"},
      {"MemInterval", "120"}, {"MemCount", "4"},      {"MemValue", "80"},     {"FileOn", "On"},
      {"FileDisp", "true"},  {"FileInterval", "300"}, {"FileCount", "5"}};
  const Rows vecRows = {FsRow("/", "80"), FsRow("/var/log", "85"), FsRow("/srv/exports/projects", "90"),
                        FsRow("/mnt/backup&<archive>/daily", "95")};
  EXPECT_EQ(Render(mapText, &vecRows), devhost_test::ReadFile(kGoldenReport));
}

// Left-out sections leave no blank line behind: with syslog output off the
// report ends after it; the values of monitors that are off are skipped;
// without mount points the list says so.
TEST_F(LoggerReportTest, LeftOutSectionsLeaveNothingBehind) {
  EXPECT_EQ(Render({{"SyslogOn", "Off"}}, nullptr), "Logger configuration\n\n  Syslog output           : Off\n");
  const Rows vecNoRows;
  const std::string strOut = Render({{"LogDisp", "true"}, {"FileDisp", "true"}}, &vecNoRows);
  EXPECT_EQ(strOut.find("\n\n", strOut.find("\n") + 1), std::string::npos) << strOut;
  EXPECT_EQ(strOut.substr(strOut.find("    Mount point")),
            "    Mount point               Threshold (%)\n    (no mount point switched on)\n");
}

// A template that is missing or cannot be parsed is named in the error.
TEST_F(LoggerReportTest, ATemplateThatCannotBeLoadedIsNamed) {
  devhost_test::WriteFile(Path("logger.mustache"), "{{#Open}}never closed\n");
  for (const std::string& strDir : {Path("none"), m_strDir}) {
    SetEnv("KTL_TEMPLATE_DIR", strDir);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(Render({}, nullptr), "<init failed>");
    const std::string strError = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(strError.find(strDir + "/logger.mustache"), std::string::npos) << strError;
  }
}

}  // namespace
