// CTempleteContext and CTemplateEngine of the development host.
#include "host/template_engine.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

using Rows = std::vector<std::map<std::string, std::string> >;

class TemplateTest : public devhost_test::DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    SetEnv("KTL_TEMPLATE_DIR", m_strDir);
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

}  // namespace
