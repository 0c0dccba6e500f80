// The display: the template data put for each state of a record, the text
// written to standard output, and the failures of the template engine.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "tests/plugin/plugin_test_support.h"

namespace {

const char kEnterShow[] = "4|[ENTER] int CLoggerConfigCmd::Show(Velmora_LoggerConf&)";
const char kLeaveShow[] = "4|[LEAVE] int CLoggerConfigCmd::Show(Velmora_LoggerConf&)";
const unsigned kApplicationError = 4278190081u;

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

Velmora_LoggerConf UnsetNumbers() {
  Velmora_LoggerConf conf = Record(0x11, 0x11, 0x11, 0x11, {FsEntry(1, -1, 0x11, "/data")});
  conf.cpu = Monitor(0x11, -1, -1, -1);
  conf.fs.nInterval = conf.fs.nCount = -1;
  return conf;
}

const Lines kSyslogOn = {"SyslogOn|On", "LogDisp|true", "InfoOn|On", "WarnOn|Off", "ErrorOn|Off"};
const Lines kCpuOn = {"CpuOn|On", "CpuDisp|true", "CpuInterval|60", "CpuCount|3", "CpuValue|80"};
const Lines kMemOn = {"MemOn|On", "MemDisp|true", "MemInterval|30", "MemCount|5", "MemValue|90"};
const Lines kFileOn = {"FileOn|On", "FileDisp|true", "FileInterval|120", "FileCount|2"};
const Lines kCpuMemOff = {"CpuOn|Off", "MemOn|Off"};

// Mount points around the 22-column padding and the 34-byte buffer.
const std::string kMount22 = "/" + std::string(16, 'd') + "/tail";
const std::string kMount30 = "/" + std::string(24, 'e') + "/tail";
const std::string kMount33 = "/" + std::string(27, 'f') + "/tail";
const std::string kMount34 = "/" + std::string(28, 'g') + "/tail";
const std::string kMount100 = "/" + std::string(94, 'h') + "/tail";
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
KTL_PRINT_CASE_BY_NAME(ShowCase)

// The context handed to Output, as "key|value" lines sorted by key.
Lines RenderedData() {
  Lines vecData;
  for (const auto& item : scripted::lastRenderedContext().m_mapData) {
    if (item.second.type() == typeid(std::string)) {
      vecData.push_back(item.first + "|" + boost::any_cast<std::string>(item.second));
      continue;
    }
    std::string strRows;
    for (const auto& row : boost::any_cast<std::vector<std::map<std::string, std::string> > >(item.second)) {
      EXPECT_EQ(row.size(), 2u) << item.first;
      strRows += Row(row.at("FsName"), row.at("FsValue"));
    }
    vecData.push_back(item.first + "|" + strRows);
  }
  return vecData;
}

class ShowDataTest : public PluginTest, public ::testing::WithParamInterface<ShowCase> {};

TEST_P(ShowDataTest, PutsExactlyTheKeysOfTheRecordsStateAndWritesTheText) {
  const ShowCase& c = GetParam();
  const std::string strRendered("Syslog\0output\tOn", 16);  // no newline, an embedded NUL
  scripted::script().strRendered = strRendered;
  scripted::script().strTemplateName = "logger_tpl";
  CLoggerConfigCmd cmd;
  Velmora_LoggerConf conf = c.conf;
  scripted::calls().clear();

  testing::internal::CaptureStdout();
  const int nResult = cmd.Show(conf);
  const std::string strWritten = testing::internal::GetCapturedStdout();

  EXPECT_EQ(nResult, 0);
  EXPECT_EQ(strWritten, strRendered);
  Lines vecPuts;
  for (const auto& call : scripted::callsOf("PutData")) vecPuts.push_back(call.vecArgs[0] + "|" + call.vecArgs[1]);
  EXPECT_EQ(vecPuts, c.puts);
  Lines vecSorted = c.puts;
  std::sort(vecSorted.begin(), vecSorted.end());
  EXPECT_EQ(RenderedData(), vecSorted) << "the copy handed to Output";

  Lines vecOthers;
  for (const std::string& strName : scripted::callNames())
    if (strName != "PutData") vecOthers.push_back(strName);
  EXPECT_EQ(vecOthers, (Lines{"Init", "ShowConf", "Output"}));
  EXPECT_EQ(scripted::callsOf("Init")[0].vecArgs, Lines{"logger_tpl"});
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
        ShowCase{"unset numbers show as -1", UnsetNumbers(),
                 Join({kSyslogOn, {"CpuOn|On", "CpuDisp|true", "CpuInterval|-1", "CpuCount|-1", "CpuValue|-1"}, kMemOn,
                       {"FileOn|On", "FileDisp|true", "FileInterval|-1", "FileCount|-1", "FsList|" + Row(Padded("/data"), "-1")}})},
        ShowCase{"disk on with no entries", DiskOnly({}), DiskOnlyKeys("")},
        ShowCase{"disk on with every entry off", DiskOnly({FsEntry(1, 90, 0x10, "/a"), FsEntry(2, 80, 0, "/b")}), DiskOnlyKeys("")},
        ShowCase{"only low nibble 1 is listed, in list order",
                 DiskOnly({FsEntry(1, 91, 0x11, "/on"), FsEntry(2, 92, 0x10, "/off"), FsEntry(3, 93, 0x01, "/one"),
                           FsEntry(4, 94, 0x21, "/x21"), FsEntry(5, 95, -1, "/minus"), FsEntry(6, 96, 0x13, "/x13"),
                           FsEntry(7, 97, 0, "/unset"), FsEntry(8, 98, 0x11, "/b/last")}),
                 DiskOnlyKeys(Row(Padded("/on"), "91") + Row(Padded("/one"), "93") + Row(Padded("/x21"), "94") +
                              Row(Padded("/b/last"), "98"))},
        ShowCase{"mount points up to 33 characters stay whole",
                 DiskOnly({FsEntry(1, 50, 0x11, "/data1"), FsEntry(2, 51, 0x11, kMount22),
                           FsEntry(3, 52, 0x11, kMount30), FsEntry(4, 53, 0x11, kMount33)}),
                 DiskOnlyKeys(Row("/data1                ", "50") + Row(kMount22, "51") + Row(kMount30, "52") +
                              Row(kMount33, "53"))},
        ShowCase{"longer mount points keep an ellipsis and their last 30 bytes",
                 DiskOnly({FsEntry(1, 60, 0x11, kMount34), FsEntry(2, 61, 0x11, kMount100),
                           FsEntry(3, 62, 0x11, kMountUtf8)}),
                 DiskOnlyKeys(Row("..." + kMount34.substr(4), "60") + Row("..." + kMount100.substr(70), "61") +
                              Row("..." + std::string(29, 'z'), "62"))}),
    CaseName<ShowCase>);

struct ShowFailureCase {
  const char* name;
  bool bInit, bOutput;
  Lines calls, traces;
};
KTL_CASE_FIXTURE(ShowFailureTest, ShowFailureCase);

TEST_P(ShowFailureTest, WritesNothingAndReturnsTheMessageResult) {
  const ShowFailureCase& c = GetParam();
  scripted::script().bInitResult = c.bInit;
  scripted::script().bOutputResult = c.bOutput;
  scripted::script().mapShowResult["MSG_CLI_ERROR_APPLICATION"] = 37;
  CLoggerConfigCmd cmd;
  Velmora_LoggerConf conf = Record(0x10, 0x11, 0x11, 0x11);
  scripted::calls().clear();

  testing::internal::CaptureStdout();
  const int nResult = cmd.Show(conf);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");

  EXPECT_EQ(nResult, 37);
  EXPECT_EQ(scripted::callNames(), c.calls);
  EXPECT_EQ(scripted::traces(), c.traces);
  EXPECT_EQ(scripted::shows(), Lines{"MSG_CLI_ERROR_APPLICATION|" + std::to_string(kApplicationError) + "|"});
}

INSTANTIATE_TEST_SUITE_P(
    Engine, ShowFailureTest,
    ::testing::Values(
        ShowFailureCase{"init fails", false, true, {"Init", "show"},
                        {kEnterShow, "2|int CLoggerConfigCmd::Show(Velmora_LoggerConf&) TempleteContext Init Error"}},
        ShowFailureCase{"output fails", true, false, {"Init", "ShowConf", "PutData", "Output", "show"},
                        {kEnterShow, "2|int CLoggerConfigCmd::Show(Velmora_LoggerConf&) TempleteEngine Output Error",
                         kLeaveShow}}),
    CaseName<ShowFailureCase>);

}  // namespace
