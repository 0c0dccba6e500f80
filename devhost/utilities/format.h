// printf-style formatting into a std::string, for the host's variadic
// operations.
#ifndef KTL_DEVHOST_FORMAT_H
#define KTL_DEVHOST_FORMAT_H

#include <cstdarg>
#include <string>

namespace devhost {

// The text that vsnprintf makes of pszFormat and args, however long. Does not
// consume args (it works on copies). An encoding error gives an empty text.
// Throws std::bad_alloc when the text does not fit in memory.
std::string FormatV(const char* pszFormat, va_list args);

}  // namespace devhost

#endif
