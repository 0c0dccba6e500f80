// What each value of the logging tool's configuration may be: one table,
// used by the reader of its files (ConfFromIni) and by the check of every
// edit written (CheckEdit), so that the service never writes what it would
// refuse to read back, nor reads what a save would then refuse to write.
//
//   switches (Output, Information, Warning, Error, Available)
//              0x11 (on) or 0x10 (off), as C integer literals ("17" too)
//   Interval, Count
//              a decimal number from 1 to 2147483647
//   Threshold  a decimal number from 0 to 100, a percentage
//
// Other keys (Mount, NumFileSys, keys of other sections) are not values of
// this table; NumFileSys has its own rule (devhost/service/logger_conf_check.h).
#ifndef KTL_DEVHOST_LOGGER_CONF_VALUES_H
#define KTL_DEVHOST_LOGGER_CONF_VALUES_H

#include <string>

namespace devhost {

// True when the table has a rule for key strKey of section strSection (an
// entry section "FSNAME-<n>" for any n).
bool hasValueRule(const std::string& strSection, const std::string& strKey);

// Reads strValue by the rule of [strSection] strKey. False, with strError
// naming section and key, the value and what it should be, e.g.
//   [CPU] Interval="-7" is not a decimal number from 1 to 2147483647
// True for a key without a rule, nValue then left alone.
bool ReadConfValue(const std::string& strSection, const std::string& strKey, const std::string& strValue, int& nValue,
                   std::string& strError);

// Parses the whole of strText as an int in nBase (0: a C literal): no
// blanks, no trailing text, nothing beyond the range of int.
bool ParseWholeInt(const std::string& strText, int nBase, int& nValue);

}  // namespace devhost

#endif
