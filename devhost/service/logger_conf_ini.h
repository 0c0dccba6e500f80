// The logger configuration record as an INI tree, both ways.
//
// Sections and keys:
//   [Syslog]      Output, Information, Warning, Error          (switches)
//   [CPU]         Available (switch), Interval, Count, Threshold
//   [MEMORY]      as CPU
//   [FILESYS]     Available (switch), Interval, Count, NumFileSys
//   [FSNAME-<n>]  Available (switch), Threshold, Mount; one per mount point
//
// Switches are written "0x11" (on) and "0x10" (off) and read as C integer
// literals, so "0x11" and "17" mean the same. Integers are decimal.
#ifndef KTL_DEVHOST_LOGGER_CONF_INI_H
#define KTL_DEVHOST_LOGGER_CONF_INI_H

#include <string>
#include <vector>

#include "config/logger_conf.h"
#include "devhost/files/ini_store.h"

namespace devhost {

// Fills conf from tree (conf is replaced only on success). A switch the tree
// lacks reads 0, an integer it lacks reads -1, an entry without "Mount" has
// an empty mount point. Each "FSNAME-<n>" section becomes one entry with
// nIndex n, the entries in ascending n. False, with strError naming the
// section and key, when a value is not a number of the right kind or a
// section named "FSNAME-" carries no entry number.
bool ConfFromIni(const IniTree& tree, Velmora_LoggerConf& conf, std::string& strError);

// The whole record as a tree. Switches that are 0 and integers that are -1
// are left out, so that they read back the same. Entries are numbered 1..N
// in list order whatever their nIndex, and "NumFileSys" is N.
IniTree ConfToIni(const Velmora_LoggerConf& conf);

// The record as it is, one line per section in the same names, every field
// included (unset ones too) and entries under their own nIndex, e.g.
// "[CPU] Available=0x11 Interval=60 Count=3 Threshold=90". For dumps.
std::vector<std::string> DescribeConf(const Velmora_LoggerConf& conf);

// A switch as the files hold it: "0x11", "0x10", any other value in decimal.
std::string FormatSwitch(int nValue);

}  // namespace devhost

#endif
