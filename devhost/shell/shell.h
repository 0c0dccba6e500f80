// The interactive shell of ktl-cli, in its own module libktl_shell.so so that
// only a shell loads the line-editing library: ktl-cli dlopens the module
// when it starts a shell and calls kShellEntryPoint.
//
// The shell prompts "ktl> " ("ktl [pending]> " while its session has pending
// edits), edits lines with libedit, keeps their history in ~/.ktl_history,
// completes with Tab and lists what may come next with "?"
// (devhost/shell/line_keys.h). Each line is split into words as a POSIX
// shell would (quotes, backslashes) and handed to the caller's pfnRunWords,
// exactly the words that would follow "ktl-cli"; a status other than 0 is
// shown after the command's output. A line that starts with "#" is a
// comment. "exit", "quit" or Ctrl-D ends the shell, after asking while
// pending edits are not saved.
#ifndef KTL_DEVHOST_SHELL_SHELL_H
#define KTL_DEVHOST_SHELL_SHELL_H

#include <string>
#include <vector>

typedef int (*KtlRunWords)(const std::vector<std::string>& vecWords);

// The entry point: runs the shell until the operator leaves it; returns
// ktl-cli's exit status (0, or 2 when the terminal cannot be set up).
extern "C" int ktl_shell_run(KtlRunWords pfnRunWords);

const char kShellEntryPoint[] = "ktl_shell_run";

#endif
