// Where ktl-cli's words are typed: after "ktl-cli" on a command line, or at
// the prompt of its shell. Help, completion and the unknown-command message
// name the commands as they are typed there.
#ifndef KTL_DEVHOST_HELP_PLACE_H
#define KTL_DEVHOST_HELP_PLACE_H

namespace devhost {

enum class Place { kCommandLine, kShell };

}  // namespace devhost

#endif
