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
#include "tests/support/records.h"

extern "C" CCommand* GetCommandFactorylogger();

namespace {

using ktl_test::FsEntry;
using ktl_test::Monitor;

void ScriptHost() {
  scripted::reset();
  scripted::Script& s = scripted::script();
  s.strRendered.clear();  // the report would only fill the log
  s.strMountListing =
      "/dev/sda1 on / type ext4 (rw)\n"
      "/dev/sdb1 on /data type ext3 (rw)\n"
      "/dev/sdc1 on /srv/log type xfs (rw)\n"
      "tmpfs on /run type tmpfs (rw,nosuid)\n";
  for (const char* pszDevice : {"CPU", "MEM", "DISK"}) {
    const std::string strDevice = pszDevice;
    s.mapProfile[strDevice + "/THRESHOLD_MIN"] = 10;
    s.mapProfile[strDevice + "/THRESHOLD_MAX"] = 100;
    s.mapProfile[strDevice + "/INTERVAL_MIN"] = 1;
    s.mapProfile[strDevice + "/INTERVAL_MAX"] = 86400;
    s.mapProfile[strDevice + "/COUNT_MIN"] = 1;
    s.mapProfile[strDevice + "/COUNT_MAX"] = 1000;
  }
  s.effective.syslogOutput.nOutput = 0x11;
  s.effective.syslogOutput.nWarning = 0x11;
  s.effective.cpu = Monitor(0x11, 60, 3, 80);
  s.effective.mem = Monitor(0x10, -1, -1, -1);
  s.effective.fs.nAvailable = 0x11;
  s.effective.fs.nInterval = 300;
  s.effective.fs.nCount = 2;
  s.effective.fs.vecThreshold = {FsEntry(1, 80, 0x11, "/"), FsEntry(2, 90, 0x11, "/data")};

  s.bReadConfFileResult = true;
  s.pending.syslogOutput.nError = 0x10;
  s.pending.cpu = Monitor(0x11, 10, 2, 70);
  s.pending.mem = Monitor(0x11, 30, -1, 60);
  s.pending.fs.nAvailable = 0x11;
  s.pending.fs.vecThreshold = {FsEntry(3, 70, 0x11, "/srv/log"), FsEntry(4, 50, 0x10, "/gone")};
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
