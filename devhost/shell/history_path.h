// Where the interactive shell keeps its history.
#ifndef KTL_DEVHOST_SHELL_HISTORY_PATH_H
#define KTL_DEVHOST_SHELL_HISTORY_PATH_H

#include <string>

namespace devhost {

// $HOME/.ktl_history, or empty for no history file:
// - in a set-user-ID or set-group-ID process, since libedit reads and
//   writes the file by name with the process's rights, and the real user
//   could point it (or a link in its place) anywhere;
// - when HOME is unset or not an absolute path;
// - when something other than a regular file is there (a FIFO would hang
//   the shell at its start), which is then said on standard error.
std::string HistoryPath();

}  // namespace devhost

#endif
