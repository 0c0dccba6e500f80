// Discard: drops the pending configuration.
#include <gtest/gtest.h>

#include "tests/plugin/plugin_test_support.h"

namespace {

const char kEnter[] = "4|[ENTER] int CLoggerConfigCmd::Discard()";
const char kNote[] = "1|int CLoggerConfigCmd::Discard() Discard Completed";
const char kLeave[] = "4|[LEAVE] int CLoggerConfigCmd::Discard(), rc=";

struct DiscardCase {
  const char* name;
  int nNoCheck;
  bool bAnswer, bDropped;  // Inquiry, the accessor's Discard
  int nExpected;
  std::string calls;
  Lines shows;
};
KTL_CASE_FIXTURE(DiscardTest, DiscardCase);

TEST_P(DiscardTest, AsksThenDrops) {
  const DiscardCase& c = GetParam();
  scripted::script().bInquiryAnswer = c.bAnswer;
  scripted::script().bDiscardResult = c.bDropped;
  scripted::script().mapShowResult = {{"MSG_CLI_COMPLATE_DISCARD", 3}, {"MSG_CLI_ERROR_APPLICATION", 8}};
  CLoggerConfigCmd cmd;
  cmd.m_nNoCheck = c.nNoCheck;
  scripted::calls().clear();

  EXPECT_EQ(cmd.Discard(), c.nExpected);
  EXPECT_EQ(scripted::callNames(), Words(c.calls));
  EXPECT_EQ(scripted::shows(), c.shows);
  for (const scripted::HostCall& call : scripted::callsOf("Inquiry"))
    EXPECT_EQ(call.vecArgs, (Lines{"MSG_CLI_DISCARD_PARAM", "0"}));

  Lines vecTraces{kEnter};
  if (c.nExpected == 3) vecTraces.push_back(kNote);  // dropped: the note comes before the message
  vecTraces.push_back(kLeave + std::to_string(c.nExpected));
  EXPECT_EQ(scripted::traces(), vecTraces);
}

const char kDone[] = "MSG_CLI_COMPLATE_DISCARD|0|";
const char kFailed[] = "MSG_CLI_ERROR_APPLICATION|4278190081|";

INSTANTIATE_TEST_SUITE_P(
    Paths, DiscardTest,
    ::testing::Values(DiscardCase{"confirmed", 0, true, true, 3, "Inquiry Discard show", {kDone}},
                      DiscardCase{"declined", 0, false, true, 0, "Inquiry", {}},
                      DiscardCase{"nochk asks nothing", 1, false, true, 3, "Discard show", {kDone}},
                      DiscardCase{"accessor fails", 0, true, false, 8, "Inquiry Discard show", {kFailed}},
                      DiscardCase{"accessor fails, nochk", 1, true, false, 8, "Discard show", {kFailed}}),
    CaseName<DiscardCase>);

}  // namespace
