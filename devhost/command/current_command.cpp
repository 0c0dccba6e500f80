#include "devhost/command/current_command.h"

namespace devhost {
namespace {

std::string& CurrentCommandStorage() {
  static std::string strCommand;
  return strCommand;
}

}  // namespace

void SetCurrentCommand(const std::string& strCommand) { CurrentCommandStorage() = strCommand; }

std::string CurrentCommand() { return CurrentCommandStorage(); }

}  // namespace devhost
