// Feeds arbitrary command lines through the logger command's whole protocol
// against the scripted host: factory, CheckParam, CheckExec, Exec, delete.
//
// The input's bytes are split into words at NUL or newline, the way the host
// hands the words of a command line to the command. The host answers from a
// fixed script that reaches the deep paths: a mount listing with several
// mount points, limits for every device, and a pending configuration that
// differs from the effective one.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/command.h"
#include "plugin/logger_config_cmd.h"
#include "tests/support/scripted_host.h"

extern "C" CCommand* GetCommandFactorylogger();

namespace {

void ScriptHost() {
  scripted::reset();
  scripted::answer("rendered", "");  // the report would only fill the log
  for (const char* pszLine : {"/dev/sda1 on / type ext4 (rw)", "/dev/sdb1 on /data type ext3 (rw)",
                              "/dev/sdc1 on /srv/log type xfs (rw)", "tmpfs on /run type tmpfs (rw,nosuid)"})
    scripted::answer("mount", pszLine);
  for (const char* pszDevice : {"CPU", "MEM", "DISK"}) {
    const std::string strLimit = std::string("limit.") + pszDevice + "/";
    for (const char* pszKey : {"THRESHOLD_MIN", "INTERVAL_MIN", "COUNT_MIN"})
      scripted::answer(strLimit + pszKey, pszKey[0] == 'T' ? "10" : "1");
    scripted::answer(strLimit + "THRESHOLD_MAX", "100");
    scripted::answer(strLimit + "INTERVAL_MAX", "86400");
    scripted::answer(strLimit + "COUNT_MAX", "1000");
  }
  const char* const kAnswers[][2] = {
      {"effective.syslog", "on - on -"}, {"effective.cpu", "on 60 3 80"}, {"effective.mem", "off -1 -1 -1"},
      {"effective.fs", "on 300 2"},      {"effective.fs.1", "/ 80 on"},   {"effective.fs.2", "/data 90 on"},
      {"ReadConfFile", "yes"},           {"pending.syslog", "- - - off"}, {"pending.cpu", "on 10 2 70"},
      {"pending.mem", "on 30 -1 60"},    {"pending.fs", "on 0 0"},        {"pending.fs.3", "/srv/log 70 on"},
      {"pending.fs.4", "/gone 50 off"}};
  for (const auto& answer : kAnswers) scripted::answer(answer[0], answer[1]);
}

// Words separated by NUL or newline; a final separator ends the last word
// rather than starting an empty one.
std::vector<std::string> SplitWords(const uint8_t* pData, size_t nSize) {
  std::vector<std::string> vecWords;
  std::string strWord;
  bool bOpen = false;
  for (size_t n = 0; n < nSize; ++n) {
    const char c = static_cast<char>(pData[n]);
    if (c == '\0' || c == '\n') {
      vecWords.push_back(strWord);
      strWord.clear();
      bOpen = false;
    } else {
      strWord += c;
      bOpen = true;
    }
  }
  if (bOpen) vecWords.push_back(strWord);
  return vecWords;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
  ScriptHost();
  // The operation selector lives for the process; each input starts afresh,
  // as each command does in the host.
  pExecMethod = nullptr;
  const std::vector<std::string> vecWords = SplitWords(pData, nSize);
  std::string strCommand = "logger";
  for (const std::string& strWord : vecWords) strCommand += " " + strWord;

  std::unique_ptr<CCommand> pCmd(GetCommandFactorylogger());
  if (pCmd->CheckParam(vecWords) == 0 && pCmd->CheckExec() == 0) pCmd->Exec(strCommand);
  pCmd.reset();
  scripted::reset();
  return 0;
}
