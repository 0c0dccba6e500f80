// CMessage of the development host: the catalogue's texts, where show
// prints them and what it returns, and the answers Inquiry accepts.
#include <fcntl.h>
#include <unistd.h>

#include "devhost/messages/held_messages.h"
#include "devhost/messages/message_catalogue.h"
#include "host/message.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

class MessageTest : public devhost_test::DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    SetEnv("KTL_CATALOGUE", KTL_SOURCE_DIR "/devhost/catalogue/messages.ini");
  }
  // Shows the message and keeps what went to each stream.
  int Show(const std::string& strId, unsigned long ulCode) {
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const int nResult = CMessage().show(strId, ulCode, "");
    m_strOut = ::testing::internal::GetCapturedStdout();
    m_strErr = ::testing::internal::GetCapturedStderr();
    return nResult;
  }
  std::string m_strOut;
  std::string m_strErr;
};

// Every identifier the logger command uses has a text, shown on the right
// stream: information on standard output with 0, errors on standard error.
TEST_F(MessageTest, EveryIdentifierHasATextShownOnTheRightStream) {
  enum Kind { kError, kInformation, kQuestion };
  const struct {
    const char* id;
    Kind eKind;
  } cases[] = {
      {"MSG_CLI_ERROR_COMMAND", kError},
      {"MSG_CLI_NONE_COMMAND", kError},
      {"MSG_CLI_CHECK_PRCID", kError},
      {"MSG_CLI_NOTFOUND_MONITOR_TOOL", kError},
      {"MSG_CLI_ERROR_APPLICATION", kError},
      {"MSG_CLI_HOLD_PARAM", kInformation},
      {"MSG_CLI_ERROR_LOGGER_MP", kError},
      {"MSG_CLI_DISCARD_PARAM", kQuestion},
      {"MSG_CLI_COMPLATE_DISCARD", kInformation},
      {"MSG_CLI_SAVE_PARAM", kQuestion},
      {"MSG_CLI_ERROR_LOGGER_SAVE", kError},
      {"MSG_CLI_COMPLATE_SAVE", kInformation},
      {"MSG_CLI_LOGGER_INSTALL", kError},
  };
  for (const auto& c : cases) {
    std::string strText, strProblem;
    ASSERT_TRUE(devhost::LookupMessageText(c.id, strText, strProblem)) << c.id << ": " << strProblem;
    EXPECT_EQ(strText.find("MSG_"), std::string::npos) << "an administrator reads this: " << strText;
    if (c.eKind == kQuestion) {
      EXPECT_EQ(strText.back(), '?') << c.id;
      continue;
    }
    EXPECT_EQ(Show(c.id, 0), c.eKind == kInformation ? 0 : 1) << c.id;
    EXPECT_EQ(m_strOut, c.eKind == kInformation ? strText + "\n" : "") << c.id;
    EXPECT_EQ(m_strErr, c.eKind == kInformation ? "" : "Error: " + strText + "\n") << c.id;
  }
}

TEST_F(MessageTest, CodesUnknownIdentifiersAndBrokenCataloguesAreExplained) {
  devhost_test::WriteFile(Path("bad.ini"), "[Messages]\nMSG_CLI_ERROR_COMMAND = Bad.\nno equals sign\n");
  const struct {
    const char* catalogue;  // nullptr = the shipped one
    const char* id;
    unsigned long ulCode;
    int nResult;
    std::string strInOut;  // "" = nothing expected on standard output
    std::string strInErr;
  } cases[] = {
      {nullptr, "MSG_CLI_ERROR_APPLICATION", 0xFF000001UL, 1, "", " (code 0xFF000001)\n"},
      {nullptr, "MSG_CLI_NO_SUCH_MESSAGE", 0, 1, "", "MSG_CLI_NO_SUCH_MESSAGE"},
      {"missing.ini", "MSG_CLI_COMPLATE_SAVE", 0, 0, "MSG_CLI_COMPLATE_SAVE", Path("missing.ini")},
      {"bad.ini", "MSG_CLI_ERROR_COMMAND", 0, 1, "", Path("bad.ini") + ":3: malformed INI file"},
  };
  for (const auto& c : cases) {
    if (c.catalogue) SetEnv("KTL_CATALOGUE", Path(c.catalogue));
    EXPECT_EQ(Show(c.id, c.ulCode), c.nResult) << c.id;
    EXPECT_NE(m_strOut.find(c.strInOut), std::string::npos) << c.id << ": " << m_strOut;
    EXPECT_NE(m_strErr.find(c.strInErr), std::string::npos) << c.id << ": " << m_strErr;
    if (c.catalogue && c.nResult != 0) {
      EXPECT_NE(m_strErr.find(c.id), std::string::npos) << c.id << ": the error names its message";
    }
  }
}

TEST_F(MessageTest, InquiryAcceptsOnlyYesAsksAtMostThreeTimesAndStopsAtTheEndOfInput) {
  const struct {
    const char* name;
    const char* pszInput;
    bool bAccepted;
    int nQuestionsAsked;
  } cases[] = {
      {"y", "y\n", true, 1},
      {"No, in capitals", "NO\n", false, 1},
      {"blanks and CR", "  y \r\n", true, 1},
      {"last line without newline", "yes", true, 1},
      {"garbage then y", "sure\ny\n", true, 2},
      {"only garbage", "a\nb\nc\ny\n", false, 3},
      {"end of input", "", false, 1},
  };
  std::string strQuestion, strProblem;
  ASSERT_TRUE(devhost::LookupMessageText("MSG_CLI_SAVE_PARAM", strQuestion, strProblem));
  const int fdSavedInput = dup(STDIN_FILENO);
  for (const auto& c : cases) {
    // Standard input reads the answers as from a pipe.
    devhost_test::WriteFile(Path("answers"), c.pszInput);
    const int fd = open(Path("answers").c_str(), O_RDONLY);
    ASSERT_GE(fd, 0);
    dup2(fd, STDIN_FILENO);
    close(fd);
    ::testing::internal::CaptureStdout();
    EXPECT_EQ(CMessage().Inquiry("MSG_CLI_SAVE_PARAM", 0), c.bAccepted) << c.name;
    const std::string strOut = ::testing::internal::GetCapturedStdout();
    int nAsked = 0;
    for (auto nAt = strOut.find(strQuestion); nAt != std::string::npos; nAt = strOut.find(strQuestion, nAt + 1))
      ++nAsked;
    EXPECT_EQ(nAsked, c.nQuestionsAsked) << c.name << ": " << strOut;
  }
  dup2(fdSavedInput, STDIN_FILENO);
  close(fdSavedInput);
}

// While a command runs, a success is shown only once its change is
// committed (and not at all when the command fails), but before a question.
TEST_F(MessageTest, SuccessesWaitForTheCommitOrAQuestion) {
  std::string strHeld, strProblem;
  ASSERT_TRUE(devhost::LookupMessageText("MSG_CLI_HOLD_PARAM", strHeld, strProblem));
  for (const bool bCommitted : {true, false}) {
    devhost::StartHoldingMessages();
    EXPECT_EQ(Show("MSG_CLI_HOLD_PARAM", 0), 0);
    EXPECT_EQ(m_strOut, "") << "shown before the commit";
    ::testing::internal::CaptureStdout();
    EXPECT_EQ(devhost::EndHoldingMessages(bCommitted), bCommitted ? strHeld + "\n" : "");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), bCommitted ? strHeld + "\n" : "");
  }

  devhost::StartHoldingMessages();
  Show("MSG_CLI_HOLD_PARAM", 0);
  devhost_test::WriteFile(Path("no-answer"), "");
  const int fdSavedInput = dup(STDIN_FILENO);
  const int fd = open(Path("no-answer").c_str(), O_RDONLY);
  dup2(fd, STDIN_FILENO);
  close(fd);
  ::testing::internal::CaptureStdout();
  CMessage().Inquiry("MSG_CLI_SAVE_PARAM", 0);
  const std::string strOut = ::testing::internal::GetCapturedStdout();
  dup2(fdSavedInput, STDIN_FILENO);
  close(fdSavedInput);
  EXPECT_EQ(strOut.find(strHeld), 0u) << strOut;
  EXPECT_EQ(devhost::EndHoldingMessages(false), strHeld + "\n") << "printed before the question";
}

}  // namespace
