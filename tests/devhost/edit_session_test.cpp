// Edit sessions: who holds the pending edits, by the liveness of the owner.
#include "devhost/lib/edit_session.h"

#include "tests/devhost/logger_state_fixture.h"

namespace {

using devhost::PendingOwner;

class EditSessionTest : public LoggerStateTest {};

TEST_F(EditSessionTest, WhoOwnsThePendingEdits) {
  const int nSession = static_cast<int>(getpid());
  const std::string strSelf = std::to_string(nSession) + "\n";
  const std::string strParent = std::to_string(getppid()) + "\n";
  const std::string strEnded = std::to_string(EndedProcessId()) + "\n";
  const struct {
    const char* name;
    bool bPending;
    const char* owner;  // content of the owner file; nullptr = no file
    PendingOwner expected;
  } cases[] = {
      {"no pending edits, stale owner", false, strParent.c_str(), PendingOwner::kNone},
      {"own edits", true, strSelf.c_str(), PendingOwner::kSession},
      {"edits of the live parent", true, strParent.c_str(), PendingOwner::kOther},
      {"edits of init", true, "1", PendingOwner::kOther},
      {"edits of an ended process", true, strEnded.c_str(), PendingOwner::kAbandoned},
      {"edits without owner", true, nullptr, PendingOwner::kAbandoned},
      {"owner file with garbage", true, "12 34\n", PendingOwner::kAbandoned},
      {"owner 0, the process group", true, "0\n", PendingOwner::kAbandoned},
      {"owner -1, every process", true, "-1\n", PendingOwner::kAbandoned},
  };
  const std::string strPending = Path("pending.ini");
  const std::string strOwner = Path("pending.owner");
  for (const auto& c : cases) {
    std::filesystem::remove(strPending);
    std::filesystem::remove(strOwner);
    if (c.bPending) WriteText(strPending, "[Syslog]\n");
    if (c.owner) WriteText(strOwner, c.owner);
    EXPECT_EQ(devhost::WhoOwnsPending(strPending, strOwner, nSession), c.expected) << c.name;
  }
}

}  // namespace
