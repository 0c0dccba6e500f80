// CheckParam: the grammar of the "logger" command line.
//
// The grammar is not built yet: every command line is refused with
// "MSG_CLI_ERROR_COMMAND", so no operation is ever selected.
#include "plugin/logger_config_cmd.h"
#include "plugin/messages.h"
#include "plugin/trace.h"

namespace {
const char kSigCheckParam[] =
    "virtual int CLoggerConfigCmd::CheckParam(std::vector<std::basic_string<char, std::char_traits<char>, "
    "std::allocator<char> >, std::allocator<std::basic_string<char, std::char_traits<char>, std::allocator<char> > > "
    ">)";
}  // namespace

int CLoggerConfigCmd::CheckParam(std::vector<std::string> /*vecParam*/) {
  logger_trace::Enter(kSigCheckParam);
  return ShowMessage(logger_msg::kErrorCommand);
}
