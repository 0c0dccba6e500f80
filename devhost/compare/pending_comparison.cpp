// Loads the two configurations to compare (see pending_comparison.h).
#include "devhost/compare/pending_comparison.h"

#include <cstdlib>

#include "devhost/compare/config_changes.h"
#include "devhost/files/ini_store.h"
#include "devhost/service/logger_conf_check.h"
#include "devhost/service/logger_conf_ini.h"
#include "devhost/service/pending_edits.h"
#include "devhost/service/state_view.h"

namespace devhost {
namespace {

bool ConfOfTree(const std::string& strPath, const IniTree& tree, bool bComplete, Velmora_LoggerConf& conf,
                std::string& strError) {
  if ((bComplete && !CheckComplete(tree, strError)) || !CheckEntries(tree, strError) ||
      !ConfFromIni(tree, conf, strError)) {
    strError = strPath + ": " + strError;
    return false;
  }
  return true;
}

// The configuration in effect; before the first save, the shipped default
// that the first command copies into place.
bool ReadEffective(Velmora_LoggerConf& conf, std::string& strError) {
  const CStateFiles files = StateFilesNow();
  const std::string& strPath = isPresent(files.strEffective) ? files.strEffective : files.strDefault;
  IniTree tree;
  switch (ReadIniFile(strPath, tree, strError)) {
    case IniRead::kOk:
      return ConfOfTree(strPath, tree, true, conf, strError);
    case IniRead::kMissing:
      strError = "the logging tool is not installed: " + strPath + " does not exist";
      return false;
    case IniRead::kError:
      break;
  }
  return false;
}

bool isUtf8Locale() {
  for (const char* pszName : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* pszValue = std::getenv(pszName);
    if (pszValue == nullptr || pszValue[0] == '\0') continue;
    const std::string strValue = pszValue;
    return strValue.find("UTF-8") != std::string::npos || strValue.find("utf8") != std::string::npos;
  }
  return false;
}

}  // namespace

bool ComparePending(CPendingComparison& comparison, std::string& strError) {
  comparison = CPendingComparison();
  Velmora_LoggerConf effective;
  if (!ReadEffective(effective, strError)) return false;

  const std::string strPendingPath = StateFilesNow().strPending;
  CPendingEdits& pending = CPendingEdits::OfThisCommand();
  if (!pending.Refresh(strPendingPath, strError)) return false;
  if (!pending.hasEdits()) return true;
  IniTree tree;
  Velmora_LoggerConf pendingConf;
  if (!pending.Tree(tree, strError) || !ConfOfTree(strPendingPath, tree, false, pendingConf, strError)) return false;
  comparison.bHasEdits = true;
  comparison.vecChanges = DescribeChanges(effective, CompletedPending(pendingConf, effective), ChangeArrow());
  return true;
}

std::string ChangeArrow() { return isUtf8Locale() ? "\u2192" : "->"; }

}  // namespace devhost
