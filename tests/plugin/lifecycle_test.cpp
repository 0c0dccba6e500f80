// The command object's construction, destruction and initial state, and the
// refusal of every command line while the grammar is not built.
#include <gtest/gtest.h>

#include <memory>

#include "tests/plugin/plugin_test_support.h"

extern "C" CCommand* GetCommandFactorylogger();

namespace {

class LifecycleTest : public PluginTest {};

TEST_F(LifecycleTest, ConstructionBuildsTheServicesAndClaimsTheSession) {
  scripted::script().nPpid = 31;
  std::unique_ptr<CCommand> cmd(GetCommandFactorylogger());
  EXPECT_EQ(scripted::callNames(), (Lines{"CMessage::CMessage",
                                                             "CToolServiceLoggerAcc::CToolServiceLoggerAcc",
                                                             "GetPPID", "initWrite"}));
  EXPECT_EQ(scripted::callsOf("initWrite")[0].vecArgs[0], "31");
  EXPECT_TRUE(scripted::traces().empty());
}

TEST_F(LifecycleTest, MembersStartWithTheirInitialValues) {
  CLoggerConfigCmd cmd;
  EXPECT_EQ(MembersText(cmd), kInitialMembers);
  EXPECT_NE(cmd.m_pMessage, nullptr);
  EXPECT_NE(cmd.m_pLoggerAcc, nullptr);
  EXPECT_EQ(cmd.m_LoggerConf.fs.nAvailable, 0);
}

TEST_F(LifecycleTest, DestructionReleasesTheAccessorThenTheMessageService) {
  CCommand* pCmd = GetCommandFactorylogger();
  scripted::calls().clear();
  delete pCmd;
  EXPECT_EQ(scripted::callNames(), (Lines{"CToolServiceLoggerAcc::~CToolServiceLoggerAcc",
                                                             "CMessage::~CMessage"}));
}

// A host constructor or initWrite that throws: the exception reaches the
// caller and nothing leaks (the sanitizer build checks the "nothing").
TEST_F(LifecycleTest, AThrowingHostCallDuringConstructionReleasesWhatWasBuilt) {
  for (const char* pszCall : {"CMessage::CMessage", "CToolServiceLoggerAcc::CToolServiceLoggerAcc", "initWrite"}) {
    scripted::reset();
    scripted::script().strThrowIn = pszCall;
    EXPECT_THROW(GetCommandFactorylogger(), std::runtime_error) << pszCall;
    const auto vecNames = scripted::callNames();
    const bool bMessageBuilt = std::string(pszCall) != "CMessage::CMessage";
    const bool bAccBuilt = std::string(pszCall) == "initWrite";
    EXPECT_EQ(std::count(vecNames.begin(), vecNames.end(), "CMessage::~CMessage"), bMessageBuilt ? 1 : 0) << pszCall;
    EXPECT_EQ(std::count(vecNames.begin(), vecNames.end(), "CToolServiceLoggerAcc::~CToolServiceLoggerAcc"),
              bAccBuilt ? 1 : 0)
        << pszCall;
  }
}

}  // namespace
