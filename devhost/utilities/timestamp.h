// The time stamp of the host's log lines.
#ifndef KTL_DEVHOST_TIMESTAMP_H
#define KTL_DEVHOST_TIMESTAMP_H

#include <string>

namespace devhost {

// The local time now, as "YYYY-MM-DDTHH:MM:SS".
std::string LocalTimestamp();

}  // namespace devhost

#endif
