// The command that the host is running, e.g. "logger". ktl-cli sets it
// before it calls the plug-in's factory, so that the CCommand base of the new
// object knows its template name. Not thread-safe: one command per process.
#ifndef KTL_DEVHOST_CURRENT_COMMAND_H
#define KTL_DEVHOST_CURRENT_COMMAND_H

#include <string>

namespace devhost {

void SetCurrentCommand(const std::string& strCommand);
// Empty until SetCurrentCommand was called.
std::string CurrentCommand();

}  // namespace devhost

#endif
