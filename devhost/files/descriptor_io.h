// Whole reads and writes on an open descriptor, past short counts and
// interrupted calls.
#ifndef KTL_DEVHOST_DESCRIPTOR_IO_H
#define KTL_DEVHOST_DESCRIPTOR_IO_H

#include <string>

namespace devhost {

// Appends what is left of the file, from the descriptor's offset on, to
// strContent; false with errno set on failure.
bool ReadAll(int nFd, std::string& strContent);

// Writes all of strContent; false with errno set on failure.
// pfnBeforeEachWrite, when given, runs before every write(2) call.
bool WriteAll(int nFd, const std::string& strContent, void (*pfnBeforeEachWrite)() = nullptr);

}  // namespace devhost

#endif
