// What the logging tool's service accepts as a configuration, and as an
// edit of one, beyond well-formed values (devhost/service/logger_conf_ini.h).
//
// Entries: mount-point sections are "FSNAME-1" to "FSNAME-9999", each with a
// "Mount"; "NumFileSys" in [FILESYS], the number of the last entry added, is
// a decimal number from 0 to 9999 and no lower than the highest entry
// number. A new entry takes NumFileSys + 1, so a smaller NumFileSys would
// make the next addition overwrite an entry.
//
// Completeness: a configuration that is put into effect holds every section
// and key of the shipped default, so that a file cut short or left empty is
// never read as a configuration with everything switched off.
//
// Messages name the section and the key, e.g.
//   [FILESYS] NumFileSys: "-4" is not a number from 0 to 9999
#ifndef KTL_DEVHOST_LOGGER_CONF_CHECK_H
#define KTL_DEVHOST_LOGGER_CONF_CHECK_H

#include <string>

#include "devhost/files/ini_store.h"

namespace devhost {

// The entry rules above. False, with strError set, when one is broken.
bool CheckEntries(const IniTree& tree, std::string& strError);

// True when the tree holds every section and key of the shipped default.
bool CheckComplete(const IniTree& tree, std::string& strError);

// True when setting [strSection] strKey to strValue may be accepted as an
// edit: an entry section within FSNAME-1 to FSNAME-9999, a NumFileSys from 0
// to 9999, a value valid by the table of devhost/service/logger_conf_values.h.
bool CheckEdit(const std::string& strSection, const std::string& strKey, const std::string& strValue,
               std::string& strError);

}  // namespace devhost

#endif
