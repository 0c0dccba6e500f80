// Text from command lines, files and the environment on its way to a
// terminal or a log.
#ifndef KTL_DEVHOST_TERMINAL_TEXT_H
#define KTL_DEVHOST_TERMINAL_TEXT_H

#include <string>

namespace devhost {

// strText with every control character written as \xHH, byte by byte, so
// that a mount point or a command line cannot move the cursor, retitle the
// window or start a new line in the audit log:
// - C0 controls (bytes below 0x20) and DEL (0x7f), e.g. ESC as "\x1b";
// - C1 controls U+0080 to U+009F in UTF-8, e.g. CSI as "\xc2\x9b";
// - the bytes 0x80 to 0x9f outside a valid UTF-8 sequence, which a terminal
//   set to an 8-bit character set takes for C1 controls.
// Other bytes stay as they are: valid UTF-8 text, and bytes that are
// neither controls nor UTF-8, which a terminal shows as a replacement.
std::string EscapeControlBytes(const std::string& strText);

}  // namespace devhost

#endif
