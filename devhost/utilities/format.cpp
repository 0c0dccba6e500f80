#include "devhost/utilities/format.h"

#include <cstdio>
#include <vector>

namespace devhost {

std::string FormatV(const char* pszFormat, va_list args) {
  va_list measure;
  va_copy(measure, args);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  const int nLength = std::vsnprintf(nullptr, 0, pszFormat, measure);
  va_end(measure);
  if (nLength <= 0) return std::string();
  std::vector<char> buffer(static_cast<size_t>(nLength) + 1);
  va_list fill;
  va_copy(fill, args);
  // NOLINTNEXTLINE(cert-err33-c): the buffer has the length the first call measured.
  std::vsnprintf(buffer.data(), buffer.size(), pszFormat, fill);
  va_end(fill);
#pragma GCC diagnostic pop
  return std::string(buffer.data(), static_cast<size_t>(nLength));
}

}  // namespace devhost
