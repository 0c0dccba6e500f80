// CTempleteContext and CTemplateEngine of the development host: the parsed
// template is rendered in place, so a failed rendering must not spoil the
// renderings after it.
#include <gmock/gmock.h>

#include "host/template_engine.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

class TemplateEngineTest : public devhost_test::DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    SetEnv("KTL_TEMPLATE_DIR", Path("templates"));
    // "part" is a partial: a data item of that name is rendered as a template.
    devhost_test::WriteFile(Path("templates/report.mustache"), "<{{name}}>{{#rows}} {{key}}{{/rows}}{{>part}}\n");
  }
  // Init, the items, then Output; the rendered text, or "failed".
  static std::string Render(const std::string& strName, const std::string& strPart) {
    CTempleteContext context;
    if (!context.Init("report")) return "not loaded";
    context.PutData("name", strName);
    context.PutData("rows", {{{"key", "a"}}, {{"key", "b&c"}}});
    context.PutData("part", strPart);
    std::string strOutput;
    return CTemplateEngine().Output(context, strOutput) ? strOutput : "failed";
  }
};

TEST_F(TemplateEngineTest, AFailedRenderingLeavesTheNextOneIntact) {
  EXPECT_EQ(Render("<x>", "."), "<<x>> a b&c.\n");  // values are not HTML-escaped
  testing::internal::CaptureStderr();
  EXPECT_EQ(Render("y", "{{#unclosed}}"), "failed");
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("cannot render the template report"));
  EXPECT_EQ(Render("z", "!"), "<z> a b&c!\n");
  EXPECT_EQ(Render("z", "!"), "<z> a b&c!\n");
}

}  // namespace
