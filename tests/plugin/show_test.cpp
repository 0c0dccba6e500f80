// The display: the template data put for each state of a record, the text
// written to standard output, and the failures of the template engine.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/plugin/plugin_test_support.h"

namespace {

const char kEnterShow[] = "4|[ENTER] int CLoggerConfigCmd::Show(Velmora_LoggerConf&)";
const char kLeaveShow[] = "4|[LEAVE] int CLoggerConfigCmd::Show(Velmora_LoggerConf&)";

Lines Join(std::initializer_list<Lines> parts) {
  Lines vecAll;
  for (const Lines& part : parts) vecAll.insert(vecAll.end(), part.begin(), part.end());
  return vecAll;
}

// One "FsList" row as the scripted host writes it down.
std::string Row(const std::string& strName, const std::string& strValue) {
  return "{FsName=" + strName + ";FsValue=" + strValue + ";}";
}

std::string Padded(const std::string& strMount) {
  return strMount + std::string(strMount.size() < 22 ? 22 - strMount.size() : 0, ' ');
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

const Lines kSyslogOn = {"SyslogOn|On", "LogDisp|true", "InfoOn|On", "WarnOn|Off", "ErrorOn|Off"};
const Lines kCpuOn = {"CpuOn|On", "CpuDisp|true", "CpuInterval|60", "CpuCount|3", "CpuValue|80"};
const Lines kMemOn = {"MemOn|On", "MemDisp|true", "MemInterval|30", "MemCount|5", "MemValue|90"};
const Lines kFileOn = {"FileOn|On", "FileDisp|true", "FileInterval|120", "FileCount|2"};
const Lines kCpuMemOff = {"CpuOn|Off", "MemOn|Off"};

// Mount points around the 22-column padding and the 34-byte buffer.
const std::string kMount22 = "/" + std::string(16, 'd') + "/tail";
const std::string kMount33 = "/" + std::string(27, 'f') + "/tail";
const std::string kMount34 = "/" + std::string(28, 'g') + "/tail";
// The last 30 bytes start inside the two-byte "é".
const std::string kMountUtf8 = "/" + std::string(9, 'a') + "\xC3\xA9" + std::string(29, 'z');

// Only the disk monitor is on, with the given entries.
Velmora_LoggerConf DiskOnly(std::vector<Velmora_LoggerFsThresholdConf> vecEntries) {
  return Record(0x11, 0x10, 0x10, 0x11, vecEntries);
}
Lines DiskOnlyKeys(const std::string& strRows) {
  return Join({kSyslogOn, kCpuMemOff, kFileOn, {"FsList|" + strRows}});
}

struct ShowCase {
  const char* name;
  Velmora_LoggerConf conf;
  Lines puts;  // "key|value" in the order put
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
  Lines vecPuts, vecCalls{"Init", "ShowConf"};
  for (const auto& call : scripted::callsOf("PutData")) vecPuts.push_back(call.vecArgs[0] + "|" + call.vecArgs[1]);
  EXPECT_EQ(vecPuts, c.puts);
  vecCalls.insert(vecCalls.end(), c.puts.size(), "PutData");
  vecCalls.push_back("Output");
  EXPECT_EQ(scripted::callNames(), vecCalls);
  // The filled context is the one rendered, with the template asked for.
  EXPECT_EQ(scripted::callsOf("Init")[0].vecArgs, Lines{"logger_tpl"});
  EXPECT_EQ(scripted::callsOf("Output")[0].vecArgs, Lines{"logger_tpl"});
  EXPECT_EQ(scripted::traces(), (Lines{kEnterShow, kLeaveShow}));
  ASSERT_EQ(scripted::shownRecords().size(), 1u);
  EXPECT_EQ(Describe(scripted::shownRecords()[0].fs.vecThreshold), Describe(c.conf.fs.vecThreshold));
}

INSTANTIATE_TEST_SUITE_P(
    States, ShowDataTest,
    ::testing::Values(
        ShowCase{"syslog off with everything on", Record(0x10, 0x11, 0x11, 0x11, {FsEntry(1, 90, 0x11, "/data")}), {"SyslogOn|Off"}},
        ShowCase{"syslog 0x20 reads off", Record(0x20, 0x11, 0x11, 0x11), {"SyslogOn|Off"}},
        ShowCase{"monitors off or unset", Record(0x11, 0x10, 0, 0x10, {FsEntry(1, 90, 0x11, "/data")}),
                 Join({kSyslogOn, {"CpuOn|Off", "MemOn|Off", "FileOn|Off"}})},
        ShowCase{"everything on",
                 Record(0x11, 0x11, 0x11, 0x11, {FsEntry(1, 90, 0x11, "/data"), FsEntry(2, 70, 0x11, "/")}),
                 Join({kSyslogOn, kCpuOn, kMemOn, kFileOn,
                       {"FsList|" + Row(Padded("/data"), "90") + Row(Padded("/"), "70")}})},
        ShowCase{"switch 0x01 reads on", Record(0x01, 0x01, 0x10, 0x10),
                 Join({kSyslogOn, kCpuOn, {"MemOn|Off", "FileOn|Off"}})},
        ShowCase{"disk on with no entries", DiskOnly({}), DiskOnlyKeys("")},
        ShowCase{"only low nibble 1 is listed, in list order",
                 DiskOnly({FsEntry(1, 91, 0x11, "/on"), FsEntry(2, 92, 0x10, "/off"), FsEntry(3, 93, 0x01, "/one"),
                           FsEntry(4, 94, 0x21, "/x21"), FsEntry(5, 95, -1, "/minus"), FsEntry(6, 96, 0x13, "/x13"),
                           FsEntry(8, 98, 0x11, "/b/last")}),
                 DiskOnlyKeys(Row(Padded("/on"), "91") + Row(Padded("/one"), "93") + Row(Padded("/x21"), "94") +
                              Row(Padded("/b/last"), "98"))},
        ShowCase{"mount points up to 33 characters stay whole",
                 DiskOnly({FsEntry(1, 50, 0x11, "/data1"), FsEntry(2, 51, 0x11, kMount22), FsEntry(4, 53, 0x11, kMount33)}),
                 DiskOnlyKeys(Row("/data1                ", "50") + Row(kMount22, "51") + Row(kMount33, "53"))},
        ShowCase{"longer mount points keep an ellipsis and their last 30 bytes",
                 DiskOnly({FsEntry(1, 60, 0x11, kMount34), FsEntry(3, 62, 0x11, kMountUtf8)}),
                 DiskOnlyKeys(Row("..." + kMount34.substr(4), "60") + Row("..." + std::string(29, 'z'), "62"))}),
    CaseName<ShowCase>);

// A failing template engine: nothing written, the application error's result.
TEST_F(PluginTest, ShowFailsWhenTheTemplateEngineFails) {
  const std::string kSig = "int CLoggerConfigCmd::Show(Velmora_LoggerConf&)";
  const struct {
    const char* name;
    bool bInit, bOutput;
    Lines calls, traces;
  } kCases[] = {{"init fails", false, true, {"Init", "show"}, {kEnterShow, "2|" + kSig + " TempleteContext Init Error"}},
                {"output fails", true, false, {"Init", "ShowConf", "PutData", "Output", "show"},
                 {kEnterShow, "2|" + kSig + " TempleteEngine Output Error", kLeaveShow}}};
  for (const auto& c : kCases) {
    scripted::reset();
    scripted::script().bInitResult = c.bInit;
    scripted::script().bOutputResult = c.bOutput;
    scripted::script().mapShowResult["MSG_CLI_ERROR_APPLICATION"] = 37;
    CLoggerConfigCmd cmd;
    Velmora_LoggerConf conf = Record(0x10, 0x11, 0x11, 0x11);
    scripted::calls().clear();

    testing::internal::CaptureStdout();
    EXPECT_EQ(cmd.Show(conf), 37) << c.name;
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << c.name;
    EXPECT_EQ(scripted::callNames(), c.calls) << c.name;
    EXPECT_EQ(scripted::traces(), c.traces) << c.name;
    EXPECT_EQ(scripted::shows(), Lines{kAppError}) << c.name;
  }
}

}  // namespace
