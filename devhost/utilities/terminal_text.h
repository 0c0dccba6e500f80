// Text from files and command lines on its way to a terminal or a log.
#ifndef KTL_DEVHOST_TERMINAL_TEXT_H
#define KTL_DEVHOST_TERMINAL_TEXT_H

#include <string>

namespace devhost {

// strText with every control byte (below 0x20, and 0x7f) written as \xHH,
// e.g. ESC as "\x1b": a mount point or a command line cannot then move the
// cursor, retitle the window or start a new line in the audit log. Other
// bytes, UTF-8 included, stay as they are.
std::string EscapeControlBytes(const std::string& strText);

}  // namespace devhost

#endif
