// CTempleteContext and CTemplateEngine of the development host.
#include "host/template_engine.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

using Rows = std::vector<std::map<std::string, std::string> >;

class TemplateTest : public devhost_test::DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    m_env.Set("KTL_TEMPLATE_DIR", m_strDir);
  }
  void WriteTemplate(const std::string& strName, const std::string& strText) {
    devhost_test::WriteFile(Path(strName + ".mustache"), strText);
  }
  // Renders; the text, or "<failed>".
  static std::string Render(const CTempleteContext& context) {
    std::string strOut;
    return CTemplateEngine().Output(context, strOut) ? strOut : "<failed>";
  }
};

TEST_F(TemplateTest, InitFailsNamingTheFileOfAMissingOrUnparsableTemplate) {
  WriteTemplate("broken", "{{#Open}}never closed\n");
  for (const std::string strName : {"missing", "broken"}) {
    CTempleteContext context;
    ::testing::internal::CaptureStderr();
    EXPECT_FALSE(context.Init(strName));
    const std::string strError = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(strError.find(Path(strName + ".mustache")), std::string::npos) << strError;
    EXPECT_EQ(Render(context), "<failed>") << strName;
  }
}

// Output renders the template as Init loaded it, even once the file changed
// or went away.
TEST_F(TemplateTest, RendersStringsAndRowsUnescapedFromTheTemplateLoadedByInit) {
  WriteTemplate("report", "{{Title}}:{{#Rows}} [{{FsName}}={{FsValue}}]{{/Rows}}{{#Missing}}never{{/Missing}}\n");
  CTempleteContext context;
  ASSERT_TRUE(context.Init("report"));
  context.PutData("Title", "<disk & \"fs\">");
  context.PutData("Rows", Rows{{{"FsName", "/data   "}, {"FsValue", "90"}}, {{"FsName", "/a&b"}, {"FsValue", "40"}}});
  WriteTemplate("report", "second {{Title}}");
  EXPECT_EQ(Render(context), "<disk & \"fs\">: [/data   =90] [/a&b=40]\n");
  std::filesystem::remove(Path("report.mustache"));
  EXPECT_EQ(Render(context), "<disk & \"fs\">: [/data   =90] [/a&b=40]\n");
}

TEST_F(TemplateTest, AnItemOfAnotherTypeIsARenderError) {
  WriteTemplate("report", "{{Value}}");
  CTempleteContext context;
  ASSERT_TRUE(context.Init("report"));
  context.m_mapData["Value"] = 42;
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(Render(context), "<failed>");
  EXPECT_NE(::testing::internal::GetCapturedStderr().find("Value"), std::string::npos);
}

// The shipped template of the logger command shows the memory monitor's
// values, which the report's golden file leaves switched off.
TEST_F(TemplateTest, TheLoggerTemplateShowsTheMemoryMonitor) {
  m_env.Set("KTL_TEMPLATE_DIR", KTL_SOURCE_DIR "/devhost/templates");
  CTempleteContext context;
  ASSERT_TRUE(context.Init("logger"));
  const std::vector<std::string> vecKeys = {"MemOn", "MemInterval", "MemCount", "MemValue"};
  for (const std::string& strKey : vecKeys) context.PutData(strKey, "<" + strKey + ">");
  for (const char* pszKey : {"LogDisp", "MemDisp"}) context.PutData(pszKey, "true");
  const std::string strOut = Render(context);
  for (const std::string& strKey : vecKeys) EXPECT_NE(strOut.find("<" + strKey + ">"), std::string::npos) << strOut;
}

}  // namespace
