#include "devhost/files/paths.h"

#include <stdlib.h>

#include <cstdlib>

namespace devhost {
namespace {

// The one place that reads the environment. A set-user-ID or set-group-ID
// ktl-cli sees none of it (secure_getenv): the variables redirect what the
// host loads, runs and reads, so they must not come from another user.
std::string Env(const char* pszName) {
  const char* pszValue = secure_getenv(pszName);
  return pszValue ? std::string(pszValue) : std::string();
}

std::string EnvOr(const char* pszName, const std::string& strDefault) {
  const std::string strValue = Env(pszName);
  return strValue.empty() ? strDefault : strValue;
}

const std::string kDataDir = KTL_HOST_DEFAULT_DATA_DIR;

}  // namespace

std::string StateDir() {
  const std::string strExplicit = Env("KTL_STATE_DIR");
  if (!strExplicit.empty()) return strExplicit;
  // A relative XDG_STATE_HOME is invalid and ignored, as the XDG Base
  // Directory rules say: it would put the state wherever the command runs.
  const std::string strXdg = Env("XDG_STATE_HOME");
  if (!strXdg.empty() && strXdg[0] == '/') return strXdg + "/ktl-cli";
  const std::string strHome = Env("HOME");
  return strHome.empty() ? std::string() : strHome + "/.local/state/ktl-cli";
}

std::string PluginDir() { return EnvOr("KTL_PLUGIN_DIR", KTL_HOST_DEFAULT_PLUGIN_DIR); }
std::string TemplateDir() { return EnvOr("KTL_TEMPLATE_DIR", kDataDir + "/templates"); }
std::string CatalogueFile() { return EnvOr("KTL_CATALOGUE", kDataDir + "/catalogue/messages.ini"); }
std::string DefaultConfFile() { return EnvOr("KTL_DEFAULT_CONF", kDataDir + "/default/logger.ini"); }

std::string UnderRoot(const std::string& strAbsolutePath) {
  std::string strRoot = Env("KTL_ROOT");
  while (!strRoot.empty() && strRoot.back() == '/') strRoot.pop_back();
  return strRoot + strAbsolutePath;
}

std::string MountCommand() { return EnvOr("KTL_MOUNT_CMD", "/bin/mount"); }
std::string TraceFile() {
  const std::string strStateDir = StateDir();
  return EnvOr("KTL_TRACE_FILE", strStateDir.empty() ? std::string() : strStateDir + "/trace.log");
}

unsigned TraceMask() {
  const std::string strMask = Env("KTL_TRACE_MASK");
  return strMask.empty() ? 0u : static_cast<unsigned>(std::strtoul(strMask.c_str(), nullptr, 0));
}

unsigned LockTimeoutSeconds() {
  const std::string strSeconds = Env("KTL_LOCK_TIMEOUT");
  char* pszEnd = nullptr;
  const unsigned long nSeconds = std::strtoul(strSeconds.c_str(), &pszEnd, 10);
  if (strSeconds.empty() || *pszEnd != '\0' || strSeconds[0] == '-' || nSeconds > 86400) return 30;
  return static_cast<unsigned>(nSeconds);
}

std::string TempDir() { return EnvOr("TMPDIR", "/tmp"); }

unsigned long FaultKillAt() { return std::strtoul(Env("KTL_FAULT_KILL_AT").c_str(), nullptr, 10); }

std::string FaultOpen() { return Env("KTL_FAULT_OPEN"); }

}  // namespace devhost
