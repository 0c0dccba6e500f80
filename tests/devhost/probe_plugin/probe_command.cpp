// A command plug-in for ktl-cli's own tests. Each protocol step prints one
// line on standard output, so that a test sees which steps ran, in which
// order and with which arguments; KTL_PROBE_FAIL names the step that fails
// ("CheckParam", "CheckExec", "Exec") or "throw" for an exception in Exec.
// Built twice: as libktl_cli-probe.so with its factory, and as
// libktl_cli-nofactory.so without one.
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/command.h"

namespace {

bool isFailing(const char* pszStep) {
  const char* pszFail = std::getenv("KTL_PROBE_FAIL");
  return pszFail != nullptr && std::string(pszFail) == pszStep;
}

class CProbeCommand : public CCommand {
 public:
  ~CProbeCommand() override { std::cout << "deleted" << std::endl; }

  int CheckParam(std::vector<std::string> vecParam) override {
    const int nGrouped = CCommand::CheckParam(vecParam);
    std::cout << "CheckParam template=" << m_strTemplateName << " grouped=" << nGrouped
              << " pairs=" << m_vecCommandParam.size() << std::endl;
    return isFailing("CheckParam") ? 7 : nGrouped;
  }
  int CheckExec() override {
    std::cout << "CheckExec" << std::endl;
    return isFailing("CheckExec") ? 7 : 0;
  }
  int Exec(std::string strCommand) override {
    std::cout << "Exec " << strCommand << std::endl;
    if (isFailing("throw")) throw std::runtime_error("probe failure");
    const int nResult = CCommand::Exec(strCommand);
    return isFailing("Exec") ? 7 : nResult;
  }
};

}  // namespace

#ifdef KTL_PROBE_WITH_FACTORY
extern "C" __attribute__((visibility("default"))) CCommand* GetCommandFactoryprobe() { return new CProbeCommand(); }
#else
// Without a factory the plug-in still needs the host's symbols, so that
// loading it succeeds and only the factory look-up fails.
extern "C" __attribute__((visibility("default"))) CCommand* NotTheFactory() { return new CProbeCommand(); }
#endif
