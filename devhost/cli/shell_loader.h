// Starts the interactive shell: loads libktl_shell.so, which lives in
// ../lib/ktl-cli from ktl-cli's own directory, only now, so that a one-shot
// command never loads the line-editing library.
#ifndef KTL_DEVHOST_CLI_SHELL_LOADER_H
#define KTL_DEVHOST_CLI_SHELL_LOADER_H

#include "devhost/shell/shell.h"

namespace devhost {

// Runs the shell with pfnRunWords for each line; returns the exit status,
// 3 when the shell module cannot be loaded.
int StartShell(KtlRunWords pfnRunWords);

}  // namespace devhost

#endif
