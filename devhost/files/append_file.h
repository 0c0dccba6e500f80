// Appending whole lines to a log file that several processes may share.
#ifndef KTL_DEVHOST_APPEND_FILE_H
#define KTL_DEVHOST_APPEND_FILE_H

#include <string>

namespace devhost {

// Appends strText to strPath with one write, creating the file with mode
// 0600 if needed, so that lines of concurrent commands never interleave.
// A regular file is opened as devhost::OpenTrusted does: a symbolic link or
// a file that another user owns or may write is refused. A character device
// (/dev/null, a terminal) is taken as it is, since nothing is read back from
// it; a FIFO or a socket is refused. True when all of it was written;
// otherwise strError names the file and the system error.
bool AppendToFile(const std::string& strPath, const std::string& strText, std::string& strError);

}  // namespace devhost

#endif
