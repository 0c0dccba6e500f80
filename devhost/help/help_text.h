// `ktl-cli help` and `ktl-cli help COMMAND`, from the installed commands and
// their descriptions (command_description.h).
#ifndef KTL_DEVHOST_HELP_HELP_TEXT_H
#define KTL_DEVHOST_HELP_HELP_TEXT_H

#include <ostream>
#include <string>
#include <vector>

namespace devhost {

// With no topic: the installed commands, a line each. With a command name:
// its forms, options, value sets and the limits in force. Returns 0, or 2
// after saying on err that the topic is no installed command or that its
// description cannot be read.
int ShowHelp(const std::vector<std::string>& vecTopics, std::ostream& out, std::ostream& err);

}  // namespace devhost

#endif
