// The shipped reason rules of the "logger" command against the plug-in's
// sources: every diagnostic the plug-in can trace at the levels that explain
// a refusal (1 notes, 2 environment, 16 rejected parameters) has a rule, so
// that a new diagnostic reaches the operator in plain words or fails here;
// every rule is for a diagnostic that exists and its template is valid; and
// every finding of the grammar check has words.
#include <kainjow/mustache.hpp>
#include <regex>
#include <set>

#include "devhost/help/command_grammar.h"
#include "devhost/help/reason_rules.h"
#include "tests/devhost/devhost_test_support.h"

namespace devhost_test {
namespace {

// The plug-in's source directories: every file in them is searched, so a
// new file's diagnostics are checked too.
const char* const kPluginDirs[] = {"parse", "plugin", "config", "pending", "display"};

// The messages of logger_trace::Note calls at levels 1, 2 and 16 in one
// source: a string literal, or a constant defined in the same file.
std::set<std::string> TracedMessages(const std::string& strSource) {
  static const std::regex note(
      R"re(logger_trace::Note\(\s*CTraceUtility::TRACE_DBG_(NOTE|ENV|PARAM)\s*,\s*\w+\s*,\s*(?:"((?:[^"\\]|\\.)*)"|(\w+)))re");
  std::set<std::string> setMessages;
  for (std::sregex_iterator it(strSource.begin(), strSource.end(), note), end; it != end; ++it) {
    if ((*it)[2].matched) {
      setMessages.insert((*it)[2].str());
      continue;
    }
    const std::regex constant("const char " + (*it)[3].str() + R"re(\[\] = "((?:[^"\\]|\\.)*)";)re");
    std::smatch definition;
    EXPECT_TRUE(std::regex_search(strSource, definition, constant)) << "no definition of " << (*it)[3];
    setMessages.insert(definition[1].str());
  }
  return setMessages;
}

class ReasonRulesTest : public DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    SetEnv("KTL_PLUGIN_DIR", KTL_PLUGIN_DIR_FOR_TESTS);
    std::string strError;
    ASSERT_TRUE(devhost::ReadReasonRules("logger", m_rules, strError)) << strError;
    ASSERT_TRUE(devhost::ReadCommandDescription("logger", m_description, strError)) << strError;
    for (const char* pszDir : kPluginDirs) {
      const std::string strDir = std::string(KTL_SOURCE_DIR "/") + pszDir;
      for (const std::string& strName : Names(strDir)) {
        for (const std::string& strMessage : TracedMessages(ReadFile(strDir + "/" + strName))) {
          m_setTraced.insert(strMessage);
        }
      }
    }
  }

  devhost::CReasonRules m_rules;
  devhost::CCommandDescription m_description;
  std::set<std::string> m_setTraced;
};

TEST_F(ReasonRulesTest, EveryDiagnosticThePluginTracesHasARule) {
  // The grep itself must see the plug-in's diagnostics, or this test proves
  // nothing: one of each level.
  EXPECT_EQ(m_setTraced.count("Parameter Error: %s %s"), 1u);
  EXPECT_EQ(m_setTraced.count("Failed to open file (%s)."), 1u);
  EXPECT_EQ(m_setTraced.count("SyslogOutput is ON"), 1u);
  EXPECT_EQ(m_setTraced.count("TempleteContext Init Error"), 1u);
  for (const std::string& strMessage : m_setTraced) {
    EXPECT_NE(m_rules.TracedRule(strMessage), nullptr) << "no rule in logger.reasons.ini for: " << strMessage;
  }
}

TEST_F(ReasonRulesTest, EveryRuleIsForATracedDiagnosticAndItsWordsAreValid) {
  for (const devhost::CReasonRule& rule : m_rules.vecTraced) {
    EXPECT_EQ(m_setTraced.count(rule.strTrigger), 1u) << "the plug-in never traces: " << rule.strTrigger;
    const size_t nValues = std::count(rule.strTrigger.begin(), rule.strTrigger.end(), '%');
    EXPECT_EQ(rule.vecFields.size(), nValues) << "fields of: " << rule.strTrigger;
    EXPECT_TRUE(kainjow::mustache::mustache(rule.strSays).is_valid()) << rule.strSays;
  }
  EXPECT_NE(m_rules.NotedRule("nothing pending"), nullptr);
  EXPECT_FALSE(m_rules.strUsageAfter.empty());
}

TEST_F(ReasonRulesTest, EveryFindingOfTheGrammarCheckHasWords) {
  const std::vector<std::vector<std::string>> vecLines = {
      {},
      {"stray"},
      {"-nonsense"},
      {"-setting", "on"},
      {"-alert", "inf"},
      {"-alert", "inf", "-nonsense", "on"},
      {"-alert", "inf", "-count", "on"},
      {"-syslogoutput", "on", "-alert", "inf"},
      {"-mp", "-setting", "on"},
  };
  std::set<std::string> setKinds;
  for (const std::vector<std::string>& vecWords : vecLines) {
    const devhost::CGrammarFinding finding = devhost::CheckGrammar(m_description, vecWords);
    setKinds.insert(finding.strKind);
    EXPECT_EQ(m_rules.mapGrammar.count(finding.strKind), 1u) << "no words for the finding " << finding.strKind;
  }
  // Each line above shows another kind of finding.
  EXPECT_EQ(setKinds.size(), vecLines.size());
  // Lines the description allows show nothing.
  EXPECT_EQ(devhost::CheckGrammar(m_description, {"-device", "cpu", "-setting", "on", "-count", "3", "-interval", "5"})
                .strKind,
            "");
}

}  // namespace
}  // namespace devhost_test
