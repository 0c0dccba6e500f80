// A failure of the logging-tool service's files: a lock or configuration
// that cannot be opened, read, parsed or written.
//
// The service throws it rather than answer "false" or a status, and ktl-cli
// stops the command with its message, which names the file and the system
// error. Left to an answer, the plug-in would show its own guess at the
// cause, such as "the logging tool was not found" for an unreadable lock or
// "syslog output is off" for a malformed configuration. The plug-in lets the
// host's exceptions pass.
//
// Its type information stays out of libktl_host's exported symbols, which
// are the host's binary interface: a catch elsewhere matches it by name.
#ifndef KTL_DEVHOST_SERVICE_FAILURE_H
#define KTL_DEVHOST_SERVICE_FAILURE_H

#include <stdexcept>
#include <string>

namespace devhost {

class __attribute__((visibility("hidden"))) CServiceFailure : public std::runtime_error {
 public:
  explicit CServiceFailure(const std::string& strMessage) : std::runtime_error(strMessage) {}
};

}  // namespace devhost

#endif
