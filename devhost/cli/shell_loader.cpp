// Loads and runs the shell module (see shell_loader.h).
#include "devhost/cli/shell_loader.h"

#include <dlfcn.h>

#include <iostream>
#include <string>

#include "devhost/cli/drive_command.h"
#include "devhost/files/paths.h"

namespace devhost {
namespace {

const char kShellModule[] = "libktl_shell.so";

// The directory of libktl_host.so, found from one of its functions.
std::string HostLibraryDir() {
  Dl_info info;
  if (dladdr(reinterpret_cast<void*>(&devhost::PluginDir), &info) == 0 || info.dli_fname == nullptr) return ".";
  const std::string strPath = info.dli_fname;
  const std::string::size_type nSlash = strPath.rfind('/');
  return nSlash == std::string::npos ? "." : strPath.substr(0, nSlash);
}

}  // namespace

int StartShell(KtlRunWords pfnRunWords) {
  const std::string strPath = HostLibraryDir() + "/" + kShellModule;
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
