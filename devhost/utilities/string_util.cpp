// CStringUtil: byte-wise string helpers. Letters are ASCII: the command line
// of the appliance's CLI is ASCII.
#include "host/string_util.h"

#include <algorithm>
#include <cctype>

std::string CStringUtil::StringToLowerCase(std::string strText) {
  std::transform(strText.begin(), strText.end(), strText.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return strText;
}

// Every separator ends a piece, so "a||b" split at "|" gives "a", "", "b" and
// an empty text one empty piece. An empty separator splits nothing: the
// whole text is the one piece.
std::list<std::string> CStringUtil::Split(std::string& strText, const std::string& strSeparator) {
  std::list<std::string> lstPieces;
  if (strSeparator.empty()) {
    lstPieces.push_back(strText);
    return lstPieces;
  }
  std::string::size_type nStart = 0;
  for (std::string::size_type nAt = strText.find(strSeparator); nAt != std::string::npos;
       nAt = strText.find(strSeparator, nStart)) {
    lstPieces.push_back(strText.substr(nStart, nAt - nStart));
    nStart = nAt + strSeparator.size();
  }
  lstPieces.push_back(strText.substr(nStart));
  return lstPieces;
}
