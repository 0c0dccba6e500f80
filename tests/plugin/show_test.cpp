// The display: the template data put for each state of a record, the text
// written to standard output, and the failures of the template engine.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/plugin/plugin_test_support.h"

namespace {

const char kEnterShow[] = "4|[ENTER] int CLoggerConfigCmd::Show(Velmora_LoggerConf&)";
const char kLeaveShow[] = "4|[LEAVE] int CLoggerConfigCmd::Show(Velmora_LoggerConf&)";

// One "FsList" row as the scripted host writes it down; the name padded to 22 columns.
std::string Row(const std::string& strName, const std::string& strValue) {
  return "{FsName=" + strName + std::string(strName.size() < 22 ? 22 - strName.size() : 0, ' ') + ";FsValue=" + strValue + ";}";
}

// Syslog on with information on, warning off and error not set; cpu, memory
// and disk monitors with distinct numbers.
Velmora_LoggerConf Record(int nOutput, int nCpu, int nMem, int nFs, std::vector<Velmora_LoggerFsThresholdConf> vecEntries = {}) {
  Velmora_LoggerConf conf;
  conf.syslogOutput.nOutput = nOutput;
  conf.syslogOutput.nInformation = 0x11;
  conf.syslogOutput.nWarning = 0x10;
  conf.cpu = Monitor(nCpu, 60, 3, 80);
  conf.mem = Monitor(nMem, 30, 5, 90);
  conf.fs.nAvailable = nFs;
  conf.fs.nInterval = 120;
  conf.fs.nCount = 2;
  conf.fs.vecThreshold = vecEntries;
  return conf;
}

// The data put, as "key|value;" in the order put.
const std::string kSyslogOn = "SyslogOn|On;LogDisp|true;InfoOn|On;WarnOn|Off;ErrorOn|Off;";
const std::string kCpuOn = "CpuOn|On;CpuDisp|true;CpuInterval|60;CpuCount|3;CpuValue|80;";
const std::string kMemOn = "MemOn|On;MemDisp|true;MemInterval|30;MemCount|5;MemValue|90;";
const std::string kFileOn = "FileOn|On;FileDisp|true;FileInterval|120;FileCount|2;";

// Only the disk monitor is on, with the given entries; memory's switch is not set.
Velmora_LoggerConf DiskOnly(std::vector<Velmora_LoggerFsThresholdConf> vecEntries) {
  return Record(0x11, 0x10, 0, 0x11, vecEntries);
}
std::string DiskOnlyPuts(const std::string& strRows) { return kSyslogOn + "CpuOn|Off;MemOn|Off;" + kFileOn + "FsList|" + strRows + ";"; }

// Mount points around the 34-byte buffer; the last 30 bytes of the last one
// start inside the two-byte "é".
const std::string kMount33 = "/" + std::string(27, 'f') + "/tail";
const std::string kMount34 = "/" + std::string(28, 'g') + "/tail";
const std::string kMountUtf8 = "/" + std::string(9, 'a') + "\xC3\xA9" + std::string(29, 'z');

struct ShowCase {
  const char* name;
  Velmora_LoggerConf conf;
  std::string puts;
};
KTL_CASE_FIXTURE(ShowDataTest, ShowCase);

TEST_P(ShowDataTest, PutsExactlyTheKeysOfTheRecordsStateAndWritesTheText) {
  const ShowCase& c = GetParam();
  const std::string strRendered("Syslog\0output\tOn", 16);  // no newline, an embedded NUL
  scripted::script().strRendered = strRendered;
  scripted::script().strTemplateName = "logger_tpl";
  CLoggerConfigCmd cmd;
  Velmora_LoggerConf conf = c.conf;
  scripted::calls().clear();

  testing::internal::CaptureStdout();
  EXPECT_EQ(cmd.Show(conf), 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), strRendered);
  std::string strPuts;
  for (const auto& call : scripted::callsOf("PutData")) strPuts += call.vecArgs[0] + "|" + call.vecArgs[1] + ";";
  EXPECT_EQ(strPuts, c.puts);
  EXPECT_EQ(scripted::callsOf("Init").at(0).vecArgs, Lines{"logger_tpl"});
  EXPECT_EQ(scripted::traces(), (Lines{kEnterShow, kLeaveShow}));
}

INSTANTIATE_TEST_SUITE_P(
    States, ShowDataTest,
    ::testing::Values(
        ShowCase{"syslog off hides monitors that are on", Record(0x10, 0x11, 0x11, 0x11, {FsEntry(1, 90, 0x11, "/data")}),
                 "SyslogOn|Off;"},
        ShowCase{"everything on, switches by their low four bits",
                 Record(0x01, 0x21, 0x11, 0x11, {FsEntry(1, 90, 0x11, "/data"), FsEntry(2, 70, 0x11, "/")}),
                 kSyslogOn + kCpuOn + kMemOn + kFileOn + "FsList|" + Row("/data", "90") + Row("/", "70") + ";"},
        ShowCase{"disk on with no entries", DiskOnly({}), DiskOnlyPuts("")},
        ShowCase{"only low four bits 0001 listed, in list order",
                 DiskOnly({FsEntry(1, 91, 0x11, "/on"), FsEntry(2, 92, 0x10, "/off"), FsEntry(4, 94, 0x21, "/x21"),
                           FsEntry(6, 96, 0x13, "/x13"), FsEntry(8, 98, 0x11, "/b")}),
                 DiskOnlyPuts(Row("/on", "91") + Row("/x21", "94") + Row("/b", "98"))},
        ShowCase{"up to 33 characters whole, longer as ... and the last 30 bytes",
                 DiskOnly({FsEntry(1, 53, 0x11, kMount33), FsEntry(2, 60, 0x11, kMount34), FsEntry(3, 62, 0x11, kMountUtf8)}),
                 DiskOnlyPuts(Row(kMount33, "53") + Row("..." + kMount34.substr(4), "60") + Row("..." + std::string(29, 'z'), "62"))}),
    CaseName<ShowCase>);

// A failing template engine: the application error's result.
TEST_F(PluginTest, ShowFailsWhenTheTemplateEngineFails) {
  const std::string kSig = "int CLoggerConfigCmd::Show(Velmora_LoggerConf&)";
  for (const bool bInit : {false, true}) {
    scripted::reset();
    scripted::script().bInitResult = bInit;
    scripted::script().bOutputResult = false;
    scripted::script().mapShowResult["MSG_CLI_ERROR_APPLICATION"] = 37;
    CLoggerConfigCmd cmd;
    Velmora_LoggerConf conf = Record(0x10, 0x11, 0x11, 0x11);
    scripted::calls().clear();

    EXPECT_EQ(cmd.Show(conf), 37) << bInit;
    EXPECT_EQ(scripted::shows(), Lines{kAppError}) << bInit;
    EXPECT_EQ(scripted::traces(), bInit ? Lines({kEnterShow, "2|" + kSig + " TempleteEngine Output Error", kLeaveShow})
                                        : Lines({kEnterShow, "2|" + kSig + " TempleteContext Init Error"}));
  }
}

}  // namespace
