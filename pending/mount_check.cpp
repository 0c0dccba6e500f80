// isMounted and CheckEffectiveFileSystem: whether mount points are mounted,
// decided from the listing of "/bin/mount".
#include <unistd.h>

#include <fstream>
#include <string>

#include "host/ktl_util.h"
#include "plugin/logger_config_cmd.h"
#include "plugin/trace.h"

namespace {

const char kSigIsMounted[] = "bool CLoggerConfigCmd::isMounted(std::string)";
const char kSigCheckEffective[] = "int CLoggerConfigCmd::CheckEffectiveFileSystem(Velmora_LoggerConf&)";

const char kMountCommand[] = "/bin/mount";
// A listing line is read into this many characters, its end included.
const std::streamsize kLineBufferSize = 1024;
const char kOnMarker[] = " on ";
const char kTypeMarker[] = " type";

// The directory of a listing line "<device> on <directory> type <rest>":
// the text between the first " on " and the first " type" after it, or to the
// end of the line without " type". False when the line has no " on ".
bool MountDirectoryOf(const std::string& strLine, std::string& strDirectory) {
  const size_t nOn = strLine.find(kOnMarker);
  if (nOn == std::string::npos) return false;
  const size_t nStart = nOn + sizeof(kOnMarker) - 1;
  const size_t nType = strLine.find(kTypeMarker, nStart);
  strDirectory = strLine.substr(nStart, nType == std::string::npos ? std::string::npos : nType - nStart);
  return true;
}

}  // namespace

bool CLoggerConfigCmd::isMounted(std::string strMountPoint) {
  logger_trace::Enter(kSigIsMounted, strMountPoint);
  const std::string strPath = CKtlUtil::ExecSystemCmd(kMountCommand);

  std::ifstream listing(strPath.c_str());
  if (!listing.is_open()) {
    // Returns at once: no LEAVE line, and the file it could not open stays.
    logger_trace::Note(CTraceUtility::TRACE_DBG_ENV, kSigIsMounted, "Failed to open file (%s).", strPath.c_str());
    return false;
  }

  // getline keeps at most 1023 characters and drops the line end. A read
  // that hits the end of the file ends the loop unexamined: an empty read at
  // the very end, and also a last line that has no line end, which
  // /bin/mount never writes. A longer line sets failbit with its first 1023
  // characters read; those are examined and then the reading ends.
  bool bFound = false;
  char szLine[kLineBufferSize];
  for (;;) {
    listing.getline(szLine, kLineBufferSize);
    if (listing.eof()) break;
    std::string strDirectory;
    if (MountDirectoryOf(szLine, strDirectory)) {
      logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigIsMounted, "mount exp=%s, res=%s", strMountPoint.c_str(),
                         strDirectory.c_str());
      if (strDirectory == strMountPoint) {
        bFound = true;
        break;
      }
    }
    if (listing.fail()) break;
  }
  listing.close();
  ::unlink(strPath.c_str());

  logger_trace::LeaveBool(kSigIsMounted, bFound);
  return bFound;
}

int CLoggerConfigCmd::CheckEffectiveFileSystem(Velmora_LoggerConf& conf) {
  logger_trace::Enter(kSigCheckEffective);
  int nResult = 0;
  if (isSwitchOn(conf.fs.nAvailable)) {
    // Every entry runs the mount check, whatever its switch, so that the
    // trace shows each mount point that was looked at.
    int nUsable = 0;
    for (const Velmora_LoggerFsThresholdConf& entry : conf.fs.vecThreshold) {
      if (isMounted(entry.strMount) && isSwitchOn(entry.nAvailable)) ++nUsable;
    }
    nResult = nUsable == 0 ? 1 : 0;
  }
  logger_trace::Leave(kSigCheckEffective, nResult);
  return nResult;
}
