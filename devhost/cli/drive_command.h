// Drives one command the way the appliance's CLI does: the one sequence that
// both a one-shot `ktl-cli COMMAND WORD...` and each line of the interactive
// shell go through, so that the two cannot differ.
#ifndef KTL_DEVHOST_CLI_DRIVE_COMMAND_H
#define KTL_DEVHOST_CLI_DRIVE_COMMAND_H

#include <string>
#include <vector>

namespace devhost {

// Exit statuses of ktl-cli (listed in its --help).
const int kExitSuccess = 0;
const int kExitCommandFailed = 1;
const int kExitUsage = 2;
const int kExitPluginUnavailable = 3;
const int kExitException = 4;
const int kExitDeclined = 5;

// A command name becomes part of a file name and of a symbol name.
bool isValidCommandName(const std::string& strName);

// Loads libktl_cli-<strCommand>.so from devhost::PluginDir(), creates the
// command object with GetCommandFactory<strCommand> and calls CheckParam,
// CheckExec and Exec, each only after the previous one returned 0, under the
// command lock of the state directory; then deletes the object. When the
// command was refused or failed, its reasons (and, after a refusal of its
// words, its usage) follow its message on standard error
// (devhost/help/refusal_explanation.h). Returns the exit status.
int DriveCommand(const std::string& strCommand, const std::vector<std::string>& vecWords);

}  // namespace devhost

#endif
