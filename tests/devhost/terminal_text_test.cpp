// The one escape of text on its way to a terminal or a log.
#include <cstdio>

#include "devhost/utilities/terminal_text.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

using devhost::EscapeControlBytes;

std::string Hex(unsigned nByte) {
  char buffer[8];
  std::snprintf(buffer, sizeof buffer, "\\x%02x", nByte);
  return buffer;
}

bool isControlByte(unsigned nByte) { return nByte < 0x20 || nByte == 0x7f || (nByte >= 0x80 && nByte <= 0x9f); }

TEST(TerminalTextTest, EveryByteAloneIsEscapedExactlyWhenItIsAControl) {
  for (unsigned nByte = 0; nByte <= 0xff; ++nByte) {
    const std::string strByte(1, static_cast<char>(nByte));
    EXPECT_EQ(EscapeControlBytes(strByte), isControlByte(nByte) ? Hex(nByte) : strByte) << "byte " << nByte;
  }
}

// c2 80 to c2 9f are the C1 controls in UTF-8; c2 a0 to c2 bf are text.
TEST(TerminalTextTest, EveryByteAfterC2IsJudgedAsPartOfTheSequence) {
  for (unsigned nByte = 0; nByte <= 0xff; ++nByte) {
    const std::string strPair = std::string("\xc2") + static_cast<char>(nByte);
    std::string strExpected;
    if (nByte >= 0x80 && nByte <= 0x9f) {
      strExpected = "\\xc2" + Hex(nByte);
    } else if (nByte >= 0xa0 && nByte <= 0xbf) {
      strExpected = strPair;
    } else {
      strExpected = "\xc2" + EscapeControlBytes(std::string(1, static_cast<char>(nByte)));
    }
    EXPECT_EQ(EscapeControlBytes(strPair), strExpected) << "c2 followed by " << nByte;
  }
}

TEST(TerminalTextTest, TextStaysAndBrokenSequencesLoseTheirControls) {
  const struct {
    const char* name;
    std::string strText;
    std::string strExpected;
  } cases[] = {
      {"ASCII", "/srv/data -setting on", "/srv/data -setting on"},
      {"continuation bytes of valid UTF-8", "\xe2\x82\xac \xc4\x80 \xf0\x9d\x84\x9e",
       "\xe2\x82\xac \xc4\x80 \xf0\x9d\x84\x9e"},
      {"ESC and a line break", "a\x1b[2J\nb", "a\\x1b[2J\\x0ab"},
      {"CSI in UTF-8 inside text",
       "/mnt/\xc2\x9b"
       "2J",
       "/mnt/\\xc2\\x9b2J"},
      {"cut-off sequence", "\xe2\x82", "\xe2\\x82"},
      {"overlong NUL", "\xc0\x80", "\xc0\\x80"},
      {"surrogate", "\xed\xa0\x80", "\xed\xa0\\x80"},
      {"beyond U+10FFFF", "\xf4\x90\x80\x80", "\xf4\\x90\\x80\\x80"},
  };
  for (const auto& c : cases) EXPECT_EQ(EscapeControlBytes(c.strText), c.strExpected) << c.name;
}

// Whatever two bytes come in, what goes out holds no control any more:
// escaping it again changes nothing.
TEST(TerminalTextTest, EveryPairOfBytesComesOutWithoutControls) {
  for (unsigned nFirst = 0; nFirst <= 0xff; ++nFirst) {
    for (unsigned nSecond = 0; nSecond <= 0xff; ++nSecond) {
      const std::string strPair{static_cast<char>(nFirst), static_cast<char>(nSecond)};
      const std::string strOnce = EscapeControlBytes(strPair);
      ASSERT_EQ(EscapeControlBytes(strOnce), strOnce) << "bytes " << nFirst << " " << nSecond;
    }
  }
}

}  // namespace
