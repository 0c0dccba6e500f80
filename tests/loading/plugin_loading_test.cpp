// Loads the built module the way a host does: dlopen with RTLD_NOW, the
// factory looked up by name, the object driven through its virtual
// operations and deleted through CCommand. The host symbols are resolved
// from the scripted host that this executable links.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/command.h"
#include "tests/support/scripted_host.h"

namespace {

typedef CCommand* (*CommandFactory)();

class PluginLoadingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    scripted::reset();
    // RTLD_NODELETE keeps the code mapped so that leak reports can name it.
    m_pHandle = dlopen(KTL_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    ASSERT_NE(m_pHandle, nullptr) << dlerror();
  }
  void TearDown() override {
    if (m_pHandle) dlclose(m_pHandle);
  }
  void* m_pHandle = nullptr;
};

TEST_F(PluginLoadingTest, FactoryResolvesByItsPlainName) {
  auto factory = reinterpret_cast<CommandFactory>(dlsym(m_pHandle, "GetCommandFactorylogger"));
  ASSERT_NE(factory, nullptr) << dlerror();
  CCommand* pCmd = factory();
  ASSERT_NE(pCmd, nullptr);
  delete pCmd;
  EXPECT_EQ(scripted::transcript(),
            (std::vector<std::string>{"CMessage::CMessage", "CToolServiceLoggerAcc::CToolServiceLoggerAcc", "GetPPID",
                                      "initWrite(4242)", "CToolServiceLoggerAcc::~CToolServiceLoggerAcc",
                                      "CMessage::~CMessage"}));
}

TEST_F(PluginLoadingTest, NothingButTheFactoryIsVisible) {
  for (const char* pszName :
       {"pExecMethod", "_ZN16CLoggerConfigCmdC1Ev", "_ZN16CLoggerConfigCmd4SaveEv", "_ZN18Velmora_LoggerConfpLERS_"}) {
    EXPECT_EQ(dlsym(m_pHandle, pszName), nullptr) << pszName;
  }
}

TEST_F(PluginLoadingTest, ARefusedCommandLineReturnsTheMessageResult) {
  auto factory = reinterpret_cast<CommandFactory>(dlsym(m_pHandle, "GetCommandFactorylogger"));
  ASSERT_NE(factory, nullptr);
  scripted::answer("show.MSG_CLI_ERROR_COMMAND", "5");
  CCommand* pCmd = factory();
  EXPECT_EQ(pCmd->CheckParam({"-bogus"}), 5);
  EXPECT_EQ(pCmd->CheckParam({"-confirm", "cur"}), 0);
  delete pCmd;
}

}  // namespace
