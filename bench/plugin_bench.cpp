// The plug-in's own work, measured against the scripted in-memory host with
// its recording turned off: each command form from the factory to the
// delete, the merge of a pending record, and the display, the last two with
// 1, 10 and 100 mount points.
#include <benchmark/benchmark.h>

#include <iostream>
#include <memory>
#include <streambuf>
#include <string>
#include <vector>

#include "plugin/logger_config_cmd.h"
#include "tests/support/scripted_host.h"

extern "C" CCommand* GetCommandFactorylogger();

namespace {

const int kOn = 0x11;

// Swallows what Show writes, so that the terminal is not measured.
class NullBuffer : public std::streambuf {
 protected:
  int overflow(int c) override { return c; }
  std::streamsize xsputn(const char*, std::streamsize n) override { return n; }
};

// Standard output goes to a NullBuffer while an object of this lives.
class SilencedOutput {
 public:
  SilencedOutput() : m_pSaved(std::cout.rdbuf(&m_null)) {}
  ~SilencedOutput() { std::cout.rdbuf(m_pSaved); }

 private:
  NullBuffer m_null;
  std::streambuf* m_pSaved;
};

Velmora_LoggerFsThresholdConf Entry(int nIndex, const std::string& strMount) {
  Velmora_LoggerFsThresholdConf entry;
  entry.nIndex = nIndex;
  entry.nThreshold = 80;
  entry.nAvailable = kOn;
  entry.strMount = strMount;
  return entry;
}

// A configuration with syslog output and every monitor on, and nMounts mount
// points "/mnt/0".."/mnt/<n-1>".
Velmora_LoggerConf FullConf(int nMounts) {
  Velmora_LoggerConf conf;
  conf.syslogOutput.nOutput = conf.syslogOutput.nInformation = kOn;
  conf.syslogOutput.nWarning = conf.syslogOutput.nError = kOn;
  for (Velmora_LoggerUsageMonitorConf* pMonitor : {&conf.cpu, &conf.mem}) {
    pMonitor->nAvailable = kOn;
    pMonitor->nInterval = 60;
    pMonitor->nCount = 3;
    pMonitor->nThreshold = 90;
  }
  conf.fs.nAvailable = kOn;
  conf.fs.nInterval = 300;
  conf.fs.nCount = 5;
  for (int n = 0; n < nMounts; ++n) conf.fs.vecThreshold.push_back(Entry(n + 1, "/mnt/" + std::to_string(n)));
  return conf;
}

// A host where every call succeeds, nothing is recorded, a pending
// configuration exists and /data is mounted. The disk monitor is off in both
// records, so "-save" runs no mount check.
void ScriptQuietHost() {
  scripted::reset();
  pExecMethod = nullptr;
  scripted::setRecording(false);
  Velmora_LoggerConf conf = FullConf(1);
  conf.fs.nAvailable = 0x10;
  scripted::answerRecord("effective", conf);
  scripted::answerRecord("pending", conf);
  scripted::answer("ReadConfFile", "yes");
  scripted::answer("mount", "/dev/sda1 on / type ext4 (rw,relatime)");
  scripted::answer("mount", "/dev/sdb1 on /data type ext4 (rw,relatime)");
  scripted::answer("GetString.FILESYS/NumFileSys", "1");
}

// One whole command: factory, CheckParam, CheckExec, Exec, delete.
int RunCommand(const std::vector<std::string>& vecWords) {
  std::unique_ptr<CCommand> cmd(GetCommandFactorylogger());
  int nResult = cmd->CheckParam(vecWords);
  if (nResult == 0) nResult = cmd->CheckExec();
  if (nResult == 0) nResult = cmd->Exec("logger");
  return nResult;
}

void BM_CommandForm(benchmark::State& state, std::vector<std::string> vecWords) {
  ScriptQuietHost();
  SilencedOutput silenced;
  if (RunCommand(vecWords) != 0) {
    state.SkipWithError("the command form does not succeed on the scripted host");
    return;
  }
  for (auto _ : state) benchmark::DoNotOptimize(RunCommand(vecWords));
  scripted::reset();
}

BENCHMARK_CAPTURE(BM_CommandForm, syslogoutput, std::vector<std::string>{"-syslogoutput", "on"});
BENCHMARK_CAPTURE(BM_CommandForm, alert, std::vector<std::string>{"-alert", "wrn", "-setting", "off"});
BENCHMARK_CAPTURE(BM_CommandForm, device,
                  std::vector<std::string>{"-device", "cpu", "-setting", "on", "-interval", "60", "-count", "3",
                                           "-threshold", "80"});
// Includes the scripted ExecSystemCmd: a temporary file created, written,
// read back and removed (see BM_MountListingFile for that cost alone).
BENCHMARK_CAPTURE(BM_CommandForm, mp, std::vector<std::string>{"-mp", "/data", "-setting", "on", "-threshold", "90"});
BENCHMARK_CAPTURE(BM_CommandForm, confirm_edit, std::vector<std::string>{"-confirm", "edit"});
BENCHMARK_CAPTURE(BM_CommandForm, discard_nochk, std::vector<std::string>{"-discard", "-nochk"});
BENCHMARK_CAPTURE(BM_CommandForm, save_nochk, std::vector<std::string>{"-save", "-nochk"});

// The mount check alone: the scripted ExecSystemCmd's temporary file plus the
// plug-in's reading of the listing. Subtracted from the "-mp" form, it leaves
// the plug-in's own work.
void BM_MountListingFile(benchmark::State& state) {
  ScriptQuietHost();
  CLoggerConfigCmd cmd;
  for (auto _ : state) benchmark::DoNotOptimize(cmd.isMounted("/data"));
  scripted::reset();
}
BENCHMARK(BM_MountListingFile);

// The merge of a pending record with the configuration in effect. The
// pending record is copied each time, as the merge completes it in place;
// BM_CopyRecord measures that copy alone.
void BM_Merge(benchmark::State& state) {
  ScriptQuietHost();
  Velmora_LoggerConf effective = FullConf(static_cast<int>(state.range(0)));
  Velmora_LoggerConf pending = effective;
  pending.cpu = Velmora_LoggerUsageMonitorConf();
  for (Velmora_LoggerFsThresholdConf& entry : pending.fs.vecThreshold) entry.nThreshold = 95;
  for (auto _ : state) {
    Velmora_LoggerConf conf = pending;
    conf += effective;
    benchmark::DoNotOptimize(conf);
  }
  scripted::reset();
}
BENCHMARK(BM_Merge)->Arg(1)->Arg(10)->Arg(100);

void BM_CopyRecord(benchmark::State& state) {
  const Velmora_LoggerConf pending = FullConf(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    Velmora_LoggerConf conf = pending;
    benchmark::DoNotOptimize(conf);
  }
}
BENCHMARK(BM_CopyRecord)->Arg(1)->Arg(10)->Arg(100);

// The display of a full record: the context filled and handed to the
// scripted engine, which answers a fixed text.
void BM_Show(benchmark::State& state) {
  ScriptQuietHost();
  SilencedOutput silenced;
  Velmora_LoggerConf conf = FullConf(static_cast<int>(state.range(0)));
  CLoggerConfigCmd cmd;
  for (auto _ : state) benchmark::DoNotOptimize(cmd.Show(conf));
  scripted::reset();
}
BENCHMARK(BM_Show)->Arg(1)->Arg(10)->Arg(100);

}  // namespace

BENCHMARK_MAIN();
