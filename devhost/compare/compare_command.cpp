// `ktl-cli compare logger` (see compare_command.h).
#include "devhost/compare/compare_command.h"

#include <ostream>

#include "devhost/compare/pending_comparison.h"
#include "devhost/files/command_lock.h"
#include "devhost/utilities/terminal_text.h"

namespace devhost {

const char kCompareWord[] = "compare";
const char kComparedCommand[] = "logger";

namespace {

const int kShown = 0;
const int kUnreadable = 1;
const int kWrongWords = 2;

}  // namespace

int RunCompare(const std::vector<std::string>& vecWords, std::ostream& out, std::ostream& err) {
  if (vecWords.size() != 1 || vecWords.front() != kComparedCommand) {
    err << "usage: compare " << kComparedCommand << "   (the pending configuration against the one in effect)\n";
    return kWrongWords;
  }
  std::string strError;
  CCommandLock lock;
  CPendingComparison comparison;
  if (!lock.Acquire(strError) || !ComparePending(comparison, strError)) {
    err << "ktl-cli: " << EscapeControlBytes(strError) << "\n";
    return kUnreadable;
  }
  if (!comparison.bHasEdits) {
    out << "No pending changes.\n";
  } else if (comparison.vecChanges.empty()) {
    out << "No pending changes: the pending configuration is the same as the one in effect.\n";
  } else {
    out << "Pending changes (in effect " << ChangeArrow() << " pending):\n";
    for (const std::string& strLine : comparison.vecChanges) out << "  " << EscapeControlBytes(strLine) << "\n";
  }
  return kShown;
}

}  // namespace devhost
