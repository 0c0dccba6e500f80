// CMessage of the development host: the catalogue's texts, where show
// prints them and what it returns, and the answers Inquiry accepts.
#include <fcntl.h>
#include <unistd.h>

#include "devhost/lib/message_catalogue.h"
#include "host/message.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

using devhost_test::DevhostTest;

enum class Kind { kError, kInformation, kQuestion };

struct CatalogueCase {
  const char* name;
  Kind eKind;
};
void PrintTo(const CatalogueCase& c, std::ostream* os) { *os << c.name; }

class MessageTest : public DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    m_env.Set("KTL_CATALOGUE", KTL_SOURCE_DIR "/devhost/catalogue/messages.ini");
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

class CatalogueTest : public MessageTest, public ::testing::WithParamInterface<CatalogueCase> {};

// Every identifier the logger command uses.
INSTANTIATE_TEST_SUITE_P(Ids, CatalogueTest,
                         ::testing::Values(CatalogueCase{"MSG_CLI_ERROR_COMMAND", Kind::kError},
                                           CatalogueCase{"MSG_CLI_NONE_COMMAND", Kind::kError},
                                           CatalogueCase{"MSG_CLI_CHECK_PRCID", Kind::kError},
                                           CatalogueCase{"MSG_CLI_NOTFOUND_MONITOR_TOOL", Kind::kError},
                                           CatalogueCase{"MSG_CLI_ERROR_APPLICATION", Kind::kError},
                                           CatalogueCase{"MSG_CLI_HOLD_PARAM", Kind::kInformation},
                                           CatalogueCase{"MSG_CLI_ERROR_LOGGER_MP", Kind::kError},
                                           CatalogueCase{"MSG_CLI_DISCARD_PARAM", Kind::kQuestion},
                                           CatalogueCase{"MSG_CLI_COMPLATE_DISCARD", Kind::kInformation},
                                           CatalogueCase{"MSG_CLI_SAVE_PARAM", Kind::kQuestion},
                                           CatalogueCase{"MSG_CLI_ERROR_LOGGER_SAVE", Kind::kError},
                                           CatalogueCase{"MSG_CLI_COMPLATE_SAVE", Kind::kInformation},
                                           CatalogueCase{"MSG_CLI_LOGGER_INSTALL", Kind::kError}),
                         devhost_test::CaseName<CatalogueCase>);

TEST_P(CatalogueTest, HasATextAndShowsItOnTheRightStream) {
  const CatalogueCase& c = GetParam();
  std::string strText, strProblem;
  ASSERT_TRUE(devhost::LookupMessageText(c.name, strText, strProblem)) << strProblem;
  EXPECT_GT(strText.size(), 10u);
  EXPECT_EQ(strText.find("MSG_"), std::string::npos) << "an administrator reads this: " << strText;
  if (c.eKind == Kind::kQuestion) {
    EXPECT_EQ(strText.back(), '?');
    return;
  }
  const int nResult = Show(c.name, 0);
  if (c.eKind == Kind::kInformation) {
    EXPECT_EQ(nResult, 0);
    EXPECT_EQ(m_strOut, strText + "\n");
    EXPECT_EQ(m_strErr, "");
  } else {
    EXPECT_NE(nResult, 0);
    EXPECT_EQ(m_strOut, "");
    EXPECT_EQ(m_strErr, "Error: " + strText + "\n");
  }
}

TEST_F(MessageTest, AnErrorCodeIsShownInHex) {
  EXPECT_NE(Show("MSG_CLI_ERROR_APPLICATION", 0xFF000001UL), 0);
  EXPECT_NE(m_strErr.find(" (code 0xFF000001)\n"), std::string::npos) << m_strErr;
}

TEST_F(MessageTest, AnUnknownIdentifierIsAnErrorNamingIt) {
  EXPECT_NE(Show("MSG_CLI_NO_SUCH_MESSAGE", 0), 0);
  EXPECT_NE(m_strErr.find("MSG_CLI_NO_SUCH_MESSAGE"), std::string::npos) << m_strErr;
}

TEST_F(MessageTest, WithoutACatalogueASuccessStaysASuccess) {
  m_env.Set("KTL_CATALOGUE", Path("missing.ini"));
  EXPECT_EQ(Show("MSG_CLI_COMPLATE_SAVE", 0), 0);
  EXPECT_NE(m_strOut.find("MSG_CLI_COMPLATE_SAVE"), std::string::npos) << m_strOut;
  EXPECT_NE(m_strErr.find(Path("missing.ini")), std::string::npos) << m_strErr;
}

TEST_F(MessageTest, AMalformedCatalogueIsReportedWithItsLine) {
  devhost_test::WriteFile(Path("bad.ini"), "[Messages]\nMSG_CLI_ERROR_COMMAND = Bad.\nno equals sign\n");
  m_env.Set("KTL_CATALOGUE", Path("bad.ini"));
  EXPECT_NE(Show("MSG_CLI_ERROR_COMMAND", 0), 0);
  EXPECT_NE(m_strErr.find(Path("bad.ini") + " is malformed at line 3"), std::string::npos) << m_strErr;
  EXPECT_NE(m_strErr.find("MSG_CLI_ERROR_COMMAND"), std::string::npos) << m_strErr;
}

struct InquiryCase {
  const char* name;
  const char* pszInput;
  bool bAccepted;
  int nQuestionsAsked;
};
void PrintTo(const InquiryCase& c, std::ostream* os) { *os << c.name; }

class InquiryTest : public MessageTest, public ::testing::WithParamInterface<InquiryCase> {
 protected:
  // Standard input reads the given text, as from a pipe.
  void SetStandardInput(const std::string& strInput) {
    devhost_test::WriteFile(Path("answers"), strInput);
    m_fdSavedInput = dup(STDIN_FILENO);
    const int fd = open(Path("answers").c_str(), O_RDONLY);
    ASSERT_GE(fd, 0);
    dup2(fd, STDIN_FILENO);
    close(fd);
  }
  void TearDown() override {
    if (m_fdSavedInput >= 0) {
      dup2(m_fdSavedInput, STDIN_FILENO);
      close(m_fdSavedInput);
    }
    MessageTest::TearDown();
  }
  int m_fdSavedInput = -1;
};

TEST_P(InquiryTest, AcceptsOnlyYesAndStopsAtTheEndOfInput) {
  const InquiryCase& c = GetParam();
  SetStandardInput(c.pszInput);
  ::testing::internal::CaptureStdout();
  const bool bAccepted = CMessage().Inquiry("MSG_CLI_SAVE_PARAM", 0);
  const std::string strOut = ::testing::internal::GetCapturedStdout();
  EXPECT_EQ(bAccepted, c.bAccepted);

  std::string strQuestion, strProblem;
  ASSERT_TRUE(devhost::LookupMessageText("MSG_CLI_SAVE_PARAM", strQuestion, strProblem));
  int nAsked = 0;
  for (auto nAt = strOut.find(strQuestion); nAt != std::string::npos; nAt = strOut.find(strQuestion, nAt + 1)) {
    ++nAsked;
  }
  EXPECT_EQ(nAsked, c.nQuestionsAsked) << strOut;
}

INSTANTIATE_TEST_SUITE_P(Answers, InquiryTest,
                         ::testing::Values(InquiryCase{"y", "y\n", true, 1}, InquiryCase{"YES", "YES\n", true, 1},
                                           InquiryCase{"n", "n\n", false, 1}, InquiryCase{"No", "No\n", false, 1},
                                           InquiryCase{"blanks and CR", "  y \r\n", true, 1},
                                           InquiryCase{"last line without newline", "yes", true, 1},
                                           InquiryCase{"garbage then y", "sure\ny\n", true, 2},
                                           InquiryCase{"only garbage", "a\nb\nc\ny\n", false, 3},
                                           InquiryCase{"end of input", "", false, 1},
                                           InquiryCase{"garbage then end of input", "ok\n", false, 2}),
                         devhost_test::CaseName<InquiryCase>);

}  // namespace
