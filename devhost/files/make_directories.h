// Creating the development host's own directories.
#ifndef KTL_DEVHOST_MAKE_DIRECTORIES_H
#define KTL_DEVHOST_MAKE_DIRECTORIES_H

#include <string>

namespace devhost {

// Creates strPath and any missing parent, each with mode 0700 (the state
// holds one operator's edits). True when the directory exists afterwards;
// otherwise strError says which directory failed and why.
bool MakeDirectories(const std::string& strPath, std::string& strError);

}  // namespace devhost

#endif
