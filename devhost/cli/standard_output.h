// ktl-cli's standard output, with the system error of a failed write kept.
//
// std::cout through the C library loses errno between the failed write and
// the end of the command, when ktl-cli reports it. This buffer writes to
// file descriptor 1 itself and keeps the first error.
#ifndef KTL_DEVHOST_STANDARD_OUTPUT_H
#define KTL_DEVHOST_STANDARD_OUTPUT_H

#include <streambuf>

namespace devhost {

class CStandardOutputBuffer : public std::streambuf {
 public:
  CStandardOutputBuffer();
  // Flushes what is left and gives std::cout its own buffer back, which
  // the C++ runtime flushes once more after every global object is gone.
  ~CStandardOutputBuffer() override;

  // Makes this the buffer of std::cout.
  void Install();

  // errno of the first failed write; 0 while every write succeeded.
  int ErrorNumber() const { return m_nErrno; }

 protected:
  int_type overflow(int_type c) override;
  int sync() override;

 private:
  bool Flush();

  std::streambuf* m_pOriginal = nullptr;
  char m_buffer[4096];
  int m_nErrno = 0;
};

// The buffer of ktl-cli's standard output, installed on std::cout at start.
CStandardOutputBuffer& StandardOutput();

// nStatus, or kExitCommandFailed (devhost/cli/drive_command.h) when standard
// output could not be written, which is then explained on standard error:
// a script reading the output would otherwise take a cut-off report for a
// whole one.
int CheckStandardOutput(int nStatus);

}  // namespace devhost

#endif
