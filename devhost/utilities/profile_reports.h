// What GetPrivateProfileIntA (host/profile.h) found wrong in a limits file:
// a file that is not an INI file, a value that is not a number or does not
// fit an int, and a X_MIN above its X_MAX. Each is reported on standard
// error, naming the file, the section and the key, once per command (a
// shell line is a command), and kept so that help can mark the range it
// shows.
#ifndef KTL_DEVHOST_PROFILE_REPORTS_H
#define KTL_DEVHOST_PROFILE_REPORTS_H

#include <string>

namespace devhost {

// Forgets what was reported: the next command reports it again.
void StartProfileReports();

// What is wrong with key strKey of section strSection in strFile (named as
// the caller of GetPrivateProfileIntA named it), in a few words, e.g.
// "THRESHOLD_MAX is not a number, read as 0"; "" when nothing is, or the
// key was not read in this command.
std::string ProfileProblem(const std::string& strFile, const std::string& strSection, const std::string& strKey);

}  // namespace devhost

#endif
