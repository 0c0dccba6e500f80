// `ktl-cli help` and `ktl-cli help COMMAND`, from the installed commands and
// their descriptions (command_description.h).
#ifndef KTL_DEVHOST_HELP_HELP_TEXT_H
#define KTL_DEVHOST_HELP_HELP_TEXT_H

#include <ostream>
#include <string>
#include <vector>

#include "devhost/help/command_description.h"
#include "devhost/help/place.h"

namespace devhost {

// With no topic: the installed commands, a line each. With a command name:
// its forms, options, value sets and the limits in force. Returns 0, or 2
// after saying on err that the topic is no installed command or that its
// "usage: logger -alert inf|wrn|err -setting on|off": the synopsis of the
// form the first of vecWords selects, else of every form, one per line.
void ShowUsage(const CCommandDescription& description, const std::vector<std::string>& vecWords, std::ostream& out);

// description cannot be read. Commands are named as they are typed at
// ePlace ("ktl-cli help logger", or "help logger" in the shell).
int ShowHelp(const std::vector<std::string>& vecTopics, Place ePlace, std::ostream& out, std::ostream& err);

// Says on err that strWord is no command and which commands there are at
// ePlace; returns ktl-cli's usage status, 2.
int ShowUnknownCommand(const std::string& strWord, Place ePlace, std::ostream& err);

}  // namespace devhost

#endif
