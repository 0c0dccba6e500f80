// What compare and the save question list: the pending record completed as
// the plug-in's own merge completes it, and the changes in report labels.
#include "devhost/compare/config_changes.h"

#include "devhost/service/logger_conf_ini.h"

#include "tests/devhost/devhost_test_support.h"

namespace {

Velmora_LoggerConf Conf(const std::string& strText) {
  devhost::IniTree tree;
  std::string strError;
  Velmora_LoggerConf conf;
  EXPECT_TRUE(devhost::ParseIniText(strText, "conf.ini", tree, strError)) << strError;
  EXPECT_TRUE(devhost::ConfFromIni(tree, conf, strError)) << strError;
  return conf;
}

const char kEffective[] =
    "[Syslog]\nOutput=0x11\nInformation=0x11\nWarning=0x10\nError=0x11\n"
    "[CPU]\nAvailable=0x11\nInterval=60\nCount=3\nThreshold=90\n"
    "[MEMORY]\nAvailable=0x10\nInterval=120\nCount=4\nThreshold=80\n"
    "[FILESYS]\nAvailable=0x11\nInterval=300\nCount=3\nNumFileSys=2\n"
    "[FSNAME-1]\nAvailable=0x11\nThreshold=90\nMount=/data\n"
    "[FSNAME-2]\nAvailable=0x10\nThreshold=70\nMount=/var/log\n";

// The host cannot call the plug-in's merge, so it has its own: the two must
// agree on every kind of pending record, or compare would list changes that
// a save does not make.
TEST(ConfigChangesTest, CompletesThePendingRecordAsThePluginsMergeDoes) {
  const struct {
    const char* name;
    const char* pending;
  } cases[] = {
      {"nothing set", "[Syslog]\n"},
      {"some switches set", "[Syslog]\nWarning=0x11\n[CPU]\nInterval=30\n"},
      {"a switched monitor stands whole", "[CPU]\nAvailable=0x10\n[MEMORY]\nAvailable=0x11\nThreshold=50\n"},
      {"an unswitched disk monitor takes the mount points in effect",
       "[FILESYS]\nNumFileSys=3\n[FSNAME-2]\nAvailable=0x11\nThreshold=60\nMount=/var/log\n"
       "[FSNAME-3]\nAvailable=0x11\nThreshold=50\nMount=/srv\n"},
      {"a switched disk monitor keeps its own",
       "[FILESYS]\nAvailable=0x10\nNumFileSys=3\n[FSNAME-3]\nAvailable=0x11\nThreshold=50\nMount=/srv\n"},
  };
  const Velmora_LoggerConf effective = Conf(kEffective);
  for (const auto& c : cases) {
    const Velmora_LoggerConf pending = Conf(c.pending);
    Velmora_LoggerConf merged = pending;
    Velmora_LoggerConf other = effective;
    merged += other;
    EXPECT_EQ(devhost::DescribeConf(devhost::CompletedPending(pending, effective)), devhost::DescribeConf(merged))
        << c.name;
  }
}

TEST(ConfigChangesTest, ListsEachChangedItemInTheReportsLabels) {
  const Velmora_LoggerConf effective = Conf(kEffective);
  EXPECT_TRUE(devhost::DescribeChanges(effective, effective, "->").empty());

  const Velmora_LoggerConf pending = Conf(
      "[Syslog]\nOutput=0x11\nInformation=0x11\nWarning=0x11\nError=0x11\n"
      "[CPU]\nAvailable=0x11\nInterval=60\nCount=3\nThreshold=75\n"
      "[MEMORY]\nAvailable=0x10\nInterval=120\nCount=4\nThreshold=80\n"
      "[FILESYS]\nAvailable=0x11\nInterval=300\nCount=3\nNumFileSys=4\n"
      "[FSNAME-1]\nAvailable=0x10\nThreshold=85\nMount=/data\n"
      "[FSNAME-3]\nAvailable=0x11\nThreshold=50\nMount=/srv\n"
      "[FSNAME-4]\nAvailable=0x11\nThreshold=40\nMount=/data\n");
  const std::vector<std::string> vecExpected = {
      "Warning alerts: Off -> On",
      "CPU usage monitor, Threshold (%): 90 -> 75",
      "Mount point /data (entry 1): On -> Off",
      "Mount point /data (entry 1), Threshold (%): 90 -> 85",
      "Mount point /var/log: removed",
      "Mount point /srv: added (On, Threshold (%) 50)",
      "Mount point /data (entry 4): added (On, Threshold (%) 40)",
  };
  EXPECT_EQ(devhost::DescribeChanges(effective, pending, "->"), vecExpected);
}

}  // namespace
