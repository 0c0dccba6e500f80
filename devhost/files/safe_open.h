// Opening the development host's files so that nobody else can steer them.
//
// Every file is opened without following a symbolic link in its last
// component (a link planted in place of audit.log would otherwise make a
// root ktl-cli append to whatever it points at) and without leaking the
// descriptor into the commands the host runs. It is opened without waiting
// (O_NONBLOCK) and then checked to be a regular file, so that a FIFO planted
// in place of a configuration or a log is refused at once instead of
// blocking the command, and its lock, for ever. Files that the host keeps,
// and the directory they live in, must belong to the caller (or to root) and
// must not be writable by group or others, as ssh demands of its keys:
// otherwise another user could change what the host reads or shows.
#ifndef KTL_DEVHOST_SAFE_OPEN_H
#define KTL_DEVHOST_SAFE_OPEN_H

#include <sys/stat.h>
#include <sys/types.h>

#include <string>

namespace devhost {

// What an opened path may be.
enum class FileKind {
  kRegular,            // a file's contents: configurations, logs, templates
  kRegularOrTerminal,  // also a character device, such as /dev/null or a tty
};

// open(2) with O_NOFOLLOW, O_CLOEXEC, O_NONBLOCK and O_NOCTTY (a terminal
// as the trace file must not become ktl-cli's own) added; a file it creates
// gets nMode (less the umask). Anything but eKind (a FIFO, a socket, a
// directory) is refused. The descriptor is blocking again when returned.
// -1 with errno set on failure, and strError naming the file and the error.
// stStatus receives the opened file's status, for checks that follow.
int OpenNoFollow(const std::string& strPath, int nFlags, mode_t nMode, std::string& strError, FileKind eKind,
                 struct stat& stStatus);
int OpenNoFollow(const std::string& strPath, int nFlags, mode_t nMode, std::string& strError,
                 FileKind eKind = FileKind::kRegular);

// True when stStatus (of strPath) is that of a regular file owned by the
// caller or root that group and others cannot write. Otherwise strError
// names strPath and what is wrong with it.
bool isTrustedFile(const struct stat& stStatus, const std::string& strPath, std::string& strError);

// The same rule for a directory, by its status or by its path.
bool isTrustedDirectory(const struct stat& stStatus, const std::string& strPath, std::string& strError);
bool isTrustedDirectory(const std::string& strPath, std::string& strError);

// OpenNoFollow, then isTrustedFile: the descriptor, or -1 with strError set
// (and the file closed again) when either fails.
int OpenTrusted(const std::string& strPath, int nFlags, mode_t nMode, std::string& strError, struct stat& stStatus);
int OpenTrusted(const std::string& strPath, int nFlags, mode_t nMode, std::string& strError);

// The effective user id, the "caller" of the rules above. Asked once per
// process: ktl-cli never changes its user.
uid_t CallerUid();

}  // namespace devhost

#endif
