// The floor under every ktl-cli command that runs a plug-in: ktl-cli's own
// executable image (the host built in, the same exports) started, the
// plug-in loaded as ktl-cli loads it, its factory looked up, and nothing
// else. bench/whole_command.sh times it beside the commands.
//   load_floor PLUGIN_PATH
#include <dlfcn.h>

#include <iostream>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: load_floor PLUGIN_PATH" << std::endl;
    return 2;
  }
  void* pHandle = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (pHandle == nullptr || dlsym(pHandle, "GetCommandFactorylogger") == nullptr) {
    std::cerr << "load_floor: " << dlerror() << std::endl;
    return 1;
  }
  std::cout << "loaded" << std::endl;
  dlclose(pHandle);
  return 0;
}
