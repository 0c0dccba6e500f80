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
  const char kText[] = "[Syslog]\n";
  const struct {
    const char* name;
    const char* pending;  // content of the pending file; nullptr = no file
    const char* owner;  // content of the owner file; nullptr = no file
    PendingOwner expected;
  } cases[] = {
      {"no pending edits, stale owner", nullptr, strParent.c_str(), PendingOwner::kNone},
      // What a power cut can leave of an edit that had not reached the disk.
      {"empty pending file", "", strParent.c_str(), PendingOwner::kNone},
      {"own edits", kText, strSelf.c_str(), PendingOwner::kSession},
      {"edits of the live parent", kText, strParent.c_str(), PendingOwner::kOther},
      {"edits of init", kText, "1", PendingOwner::kOther},
      {"edits of an ended process", kText, strEnded.c_str(), PendingOwner::kAbandoned},
      {"edits without owner", kText, nullptr, PendingOwner::kAbandoned},
      {"owner file with garbage", kText, "12 34\n", PendingOwner::kAbandoned},
      {"owner 0, the process group", kText, "0\n", PendingOwner::kAbandoned},
      {"owner -1, every process", kText, "-1\n", PendingOwner::kAbandoned},
  };
  const std::string strPending = Path("pending.ini");
  const std::string strOwner = Path("pending.owner");
  for (const auto& c : cases) {
    std::filesystem::remove(strPending);
    std::filesystem::remove(strOwner);
    if (c.pending) WriteText(strPending, c.pending);
    if (c.owner) WriteText(strOwner, c.owner);
    EXPECT_EQ(devhost::WhoOwnsPending(strPending, strOwner, nSession), c.expected) << c.name;
  }
}

}  // namespace
