#include "devhost/utilities/timestamp.h"

#include <ctime>

namespace devhost {

std::string LocalTimestamp() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  char szText[32];
  // strftime leaves the buffer's contents undefined when it returns 0.
  if (localtime_r(&now, &local) == nullptr || std::strftime(szText, sizeof szText, "%Y-%m-%dT%H:%M:%S", &local) == 0) {
    return "0000-00-00T00:00:00";
  }
  return szText;
}

}  // namespace devhost
