#include "devhost/utilities/terminal_text.h"

namespace devhost {
namespace {

bool isContinuation(unsigned char uc) { return (uc & 0xc0) == 0x80; }

// The length of the valid UTF-8 sequence at strText[nPos] that starts with
// a byte of 0xc2 or above, or 0 when there is none there. Overlong forms,
// surrogates and values beyond U+10FFFF are not valid.
std::size_t Utf8SequenceLength(const std::string& strText, std::size_t nPos) {
  const unsigned char uc = static_cast<unsigned char>(strText[nPos]);
  std::size_t nLength = 0;
  unsigned char ucSecondMin = 0x80, ucSecondMax = 0xbf;
  if (uc >= 0xc2 && uc <= 0xdf) {
    nLength = 2;
  } else if (uc >= 0xe0 && uc <= 0xef) {
    nLength = 3;
    if (uc == 0xe0) ucSecondMin = 0xa0;
    if (uc == 0xed) ucSecondMax = 0x9f;
  } else if (uc >= 0xf0 && uc <= 0xf4) {
    nLength = 4;
    if (uc == 0xf0) ucSecondMin = 0x90;
    if (uc == 0xf4) ucSecondMax = 0x8f;
  } else {
    return 0;
  }
  if (nPos + nLength > strText.size()) return 0;
  const unsigned char ucSecond = static_cast<unsigned char>(strText[nPos + 1]);
  if (ucSecond < ucSecondMin || ucSecond > ucSecondMax) return 0;
  for (std::size_t i = 2; i < nLength; ++i) {
    if (!isContinuation(static_cast<unsigned char>(strText[nPos + i]))) return 0;
  }
  return nLength;
}

void AppendEscaped(std::string& strOut, unsigned char uc) {
  static const char kHexDigits[] = "0123456789abcdef";
  strOut += "\\x";
  strOut += kHexDigits[uc >> 4];
  strOut += kHexDigits[uc & 0xf];
}

}  // namespace

std::string EscapeControlBytes(const std::string& strText) {
  std::string strEscaped;
  strEscaped.reserve(strText.size());
  std::size_t nPos = 0;
  while (nPos < strText.size()) {
    const unsigned char uc = static_cast<unsigned char>(strText[nPos]);
    if (uc < 0x20 || uc == 0x7f || (uc >= 0x80 && uc <= 0x9f)) {
      AppendEscaped(strEscaped, uc);
      ++nPos;
      continue;
    }
    const std::size_t nLength = uc < 0x80 ? 1 : Utf8SequenceLength(strText, nPos);
    if (nLength == 0) {  // not UTF-8, and no control: shown as it is
      strEscaped += strText[nPos++];
    } else if (nLength == 2 && uc == 0xc2 && static_cast<unsigned char>(strText[nPos + 1]) <= 0x9f) {
      // U+0080 to U+009F: a C1 control in UTF-8
      AppendEscaped(strEscaped, uc);
      AppendEscaped(strEscaped, static_cast<unsigned char>(strText[nPos + 1]));
      nPos += 2;
    } else {
      strEscaped.append(strText, nPos, nLength);
      nPos += nLength;
    }
  }
  return strEscaped;
}

}  // namespace devhost
