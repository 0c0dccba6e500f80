// Loads and runs the shell module (see shell_loader.h).
#include "devhost/cli/shell_loader.h"

#include <dlfcn.h>
#include <limits.h>
#include <unistd.h>

#include <iostream>
#include <string>

#include "devhost/cli/drive_command.h"

namespace devhost {
namespace {

const char kShellModule[] = "libktl_shell.so";

// The shell module's directory: KTL_SHELL_MODULE_DIR_FROM_BIN from the
// directory of the running ktl-cli, which the kernel names whatever path or
// link ktl-cli was started by.
std::string ShellModuleDir() {
  char szExecutable[PATH_MAX];
  const ssize_t nLength = readlink("/proc/self/exe", szExecutable, sizeof(szExecutable) - 1);
  if (nLength <= 0) return KTL_SHELL_MODULE_DIR_FROM_BIN;
  const std::string strPath(szExecutable, static_cast<size_t>(nLength));
  const std::string::size_type nSlash = strPath.rfind('/');
  return strPath.substr(0, nSlash == std::string::npos ? 0 : nSlash) + "/" + KTL_SHELL_MODULE_DIR_FROM_BIN;
}

}  // namespace

int StartShell(KtlRunWords pfnRunWords) {
  const std::string strPath = ShellModuleDir() + "/" + kShellModule;
  // Never closed: the shell runs until the process ends.
  void* pHandle = dlopen(strPath.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (pHandle == nullptr) {
    const char* pszError = dlerror();
    std::cerr << "ktl-cli: cannot load the shell (" << strPath << "): " << (pszError ? pszError : "no reason given")
              << std::endl;
    return kExitPluginUnavailable;
  }
  typedef int (*ShellEntry)(KtlRunWords);
  const ShellEntry run = reinterpret_cast<ShellEntry>(dlsym(pHandle, kShellEntryPoint));
  if (run == nullptr) {
    std::cerr << "ktl-cli: the shell module " << strPath << " has no " << kShellEntryPoint << std::endl;
    return kExitPluginUnavailable;
  }
  return run(pfnRunWords);
}

}  // namespace devhost
