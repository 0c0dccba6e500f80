#include "devhost/utilities/terminal_text.h"

namespace devhost {

std::string EscapeControlBytes(const std::string& strText) {
  static const char kHexDigits[] = "0123456789abcdef";
  std::string strEscaped;
  strEscaped.reserve(strText.size());
  for (const char c : strText) {
    const unsigned char uc = static_cast<unsigned char>(c);
    if (uc < 0x20 || uc == 0x7f) {
      strEscaped += "\\x";
      strEscaped += kHexDigits[uc >> 4];
      strEscaped += kHexDigits[uc & 0xf];
    } else {
      strEscaped += c;
    }
  }
  return strEscaped;
}

}  // namespace devhost
