#include "devhost/messages/template_nesting.h"

#include <algorithm>
#include <sstream>

namespace devhost {

std::size_t SectionDepth(const std::string& strText) {
  std::string strOpen = "{{", strClose = "}}";
  std::size_t nDepth = 0, nDeepest = 0;
  std::string::size_type nPos = 0;
  while ((nPos = strText.find(strOpen, nPos)) != std::string::npos) {
    const std::string::size_type nTag = nPos + strOpen.size();
    const std::string::size_type nEnd = strText.find(strClose, nTag);
    if (nEnd == std::string::npos) break;
    const std::string strTag = strText.substr(nTag, nEnd - nTag);
    nPos = nEnd + strClose.size();
    const std::string::size_type nKind = strTag.find_first_not_of(" \t");
    const char cKind = nKind == std::string::npos ? '\0' : strTag[nKind];
    if (cKind == '#' || cKind == '^') {
      nDeepest = std::max(nDeepest, ++nDepth);
      if (nDeepest > kMaxSectionDepth) break;
    } else if (cKind == '/' && nDepth > 0) {
      --nDepth;
    } else if (cKind == '=' && strTag.size() > nKind + 1 && strTag.back() == '=') {
      // {{=OPEN CLOSE=}}: the tags that follow use the new delimiters.
      std::istringstream delimiters(strTag.substr(nKind + 1, strTag.size() - nKind - 2));
      std::string strNewOpen, strNewClose;
      if (delimiters >> strNewOpen >> strNewClose) {
        strOpen = strNewOpen;
        strClose = strNewClose;
      }
    }
  }
  return nDeepest;
}

}  // namespace devhost
