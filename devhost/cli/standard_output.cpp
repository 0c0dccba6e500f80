#include "devhost/cli/standard_output.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <string>

#include "devhost/cli/drive_command.h"

namespace devhost {

CStandardOutputBuffer::CStandardOutputBuffer() { setp(m_buffer, m_buffer + sizeof m_buffer); }

CStandardOutputBuffer::~CStandardOutputBuffer() {
  Flush();
  if (std::cout.rdbuf() == this) std::cout.rdbuf(m_pOriginal);
}

void CStandardOutputBuffer::Install() { m_pOriginal = std::cout.rdbuf(this); }

CStandardOutputBuffer::int_type CStandardOutputBuffer::overflow(int_type c) {
  if (!Flush()) return traits_type::eof();
  if (!traits_type::eq_int_type(c, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(c);
    pbump(1);
  }
  return traits_type::not_eof(c);
}

int CStandardOutputBuffer::sync() { return Flush() ? 0 : -1; }

// Writes the buffer out; once a write failed, later output is dropped, as
// the output is broken anyway.
bool CStandardOutputBuffer::Flush() {
  const char* pCursor = pbase();
  while (m_nErrno == 0 && pCursor < pptr()) {
    const ssize_t nWritten = write(STDOUT_FILENO, pCursor, static_cast<size_t>(pptr() - pCursor));
    if (nWritten < 0 && errno == EINTR) continue;
    if (nWritten <= 0) {
      m_nErrno = nWritten < 0 ? errno : EIO;
      break;
    }
    pCursor += nWritten;
  }
  setp(m_buffer, m_buffer + sizeof m_buffer);
  return m_nErrno == 0;
}

CStandardOutputBuffer& StandardOutput() {
  static CStandardOutputBuffer buffer;
  return buffer;
}

int CheckStandardOutput(int nStatus) {
  std::cout.flush();
  const int nErrno = StandardOutput().ErrorNumber();
  if (std::cout.good() && nErrno == 0) return nStatus;
  // Said once, though both the command's end and ktl-cli's exit check.
  static bool bReported = false;
  if (!bReported) {
    std::cerr << "ktl-cli: cannot write the command's output to standard output"
              << (nErrno != 0 ? std::string(": ") + std::strerror(nErrno) : std::string()) << std::endl;
    bReported = true;
  }
  return nStatus == kExitSuccess ? kExitCommandFailed : nStatus;
}

}  // namespace devhost
