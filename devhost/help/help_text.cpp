// Renders the help texts (see help_text.h).
#include "devhost/help/help_text.h"

#include <algorithm>
#include <sstream>

#include "devhost/help/command_description.h"
#include "devhost/help/command_grammar.h"
#include "devhost/help/completion.h"
#include "devhost/utilities/profile_reports.h"
#include "devhost/utilities/terminal_text.h"

namespace devhost {
namespace {

const size_t kWidth = 79;
const int kExitUsage = 2;

// strText wrapped at kWidth, each line after strIndent.
std::string Wrapped(const std::string& strText, const std::string& strIndent) {
  std::istringstream words(strText);
  std::string strOut;
  std::string strLine;
  for (std::string strWord; words >> strWord;) {
    if (!strLine.empty() && strIndent.size() + strLine.size() + 1 + strWord.size() > kWidth) {
      strOut += strIndent + strLine + "\n";
      strLine.clear();
    }
    strLine += (strLine.empty() ? "" : " ") + strWord;
  }
  if (!strLine.empty()) strOut += strIndent + strLine + "\n";
  return strOut;
}

std::string Joined(const std::vector<std::string>& vecParts, const std::string& strSeparator) {
  std::string strOut;
  for (const std::string& strPart : vecParts) strOut += (strOut.empty() ? "" : strSeparator) + strPart;
  return strOut;
}

// One form as typed: "logger -alert inf|wrn|err -setting on|off".
std::string FormSynopsis(const std::string& strCommand, const CFormDescription& form) {
  std::string strText = strCommand;
  for (const COptionDescription& option : form.vecOptions) strText += " " + OptionSynopsis(option);
  return strText;
}

// "cpu 1 to 86400, mem 1 to 86400" or "40 to 100".
std::string RangesOf(const CCommandDescription& description, const CFormDescription& form,
                     const COptionDescription& option) {
  const auto Range = [&](const std::string& strSection) {
    const CLimitRange range = LimitsInForce(description, strSection, option.strNumberStem);
    std::string strRange = std::to_string(range.nMin) + " to " + std::to_string(range.nMax);
    // A limit that the limits file gets wrong is marked where it is shown.
    for (const char* pszSuffix : {"_MIN", "_MAX"}) {
      const std::string strProblem =
          ProfileProblem(description.strLimitsFile, strSection, option.strNumberStem + pszSuffix);
      if (!strProblem.empty() && strRange.find(strProblem) == std::string::npos) strRange += " (" + strProblem + ")";
    }
    return strRange;
  };
  if (!option.strSection.empty()) return Range(option.strSection);
  std::vector<std::string> vecRanges;
  for (const std::string& strValue : form.vecOptions.front().vecValues) {
    const std::string strSection = LimitsSection(form, option, strValue);
    if (!strSection.empty()) vecRanges.push_back(strValue + " " + Range(strSection));
  }
  return Joined(vecRanges, ", ");
}

// How ktl-cli's words are typed at ePlace: "ktl-cli help" or "help".
std::string Typed(Place ePlace, const std::string& strWords) {
  return ePlace == Place::kShell ? strWords : "ktl-cli " + strWords;
}

void ShowCommandList(Place ePlace, std::ostream& out) {
  const std::vector<std::string> vecCommands = InstalledCommands();
  out << "Commands:\n";
  size_t nColumn = 0;
  for (const std::string& strCommand : vecCommands) nColumn = std::max(nColumn, strCommand.size());
  for (const std::string& strCommand : vecCommands) {
    CCommandDescription description;
    std::string strError;
    const std::string strSummary = ReadCommandDescription(strCommand, description, strError)
                                       ? description.strSummary
                                       : "(no description; " + Typed(ePlace, "help " + strCommand) + " says why)";
    out << "  " << strCommand << std::string(nColumn - strCommand.size() + 3, ' ') << strSummary << "\n";
  }
  if (vecCommands.empty()) out << "  (none installed)\n";
  if (ePlace == Place::kShell) {
    out << "\n"
        << Wrapped(
               "\"help COMMAND\" shows the forms and options of a command; \"--help\" shows ktl-cli's "
               "environment and exit statuses; \"compare logger\" lists the pending changes. \"?\" lists the words "
               "that may come next and Tab completes them; "
               "a line that starts with \"#\" is a comment; \"exit\" or \"quit\" leaves the shell.",
               "");
    return;
  }
  out << "\n"
      << Wrapped(
             "\"ktl-cli help COMMAND\" shows the forms and options of a command; \"ktl-cli --help\" shows "
             "ktl-cli's environment and exit statuses. Started on a terminal with no command, ktl-cli is a "
             "shell: type commands without \"ktl-cli\", \"help\" for this list, \"exit\" to leave.",
             "");
}

void ShowCommand(const CCommandDescription& description, std::ostream& out) {
  out << description.strCommand << ": " << description.strSummary << "\n";
  bool bHasLimits = false;
  for (const CFormDescription& form : description.vecForms) {
    out << "\n  " << FormSynopsis(description.strCommand, form) << "\n" << Wrapped(form.strSummary, "      ");
    size_t nColumn = 0;
    for (const COptionDescription& option : form.vecOptions) {
      if (option.strMeaning.empty() && !option.isNumber()) continue;
      nColumn = std::max(
          nColumn, option.strName.size() + (option.strPlaceholder.empty() ? 0 : option.strPlaceholder.size() + 1));
    }
    for (const COptionDescription& option : form.vecOptions) {
      std::string strMeaning = option.strMeaning;
      if (option.isNumber()) {
        strMeaning += (strMeaning.empty() ? "Allowed: " : ". Allowed: ") + RangesOf(description, form, option) + ".";
        bHasLimits = true;
      }
      if (strMeaning.empty()) continue;
      // The value sets are in the synopsis; here the option and its placeholder.
      const std::string strLabel = option.strName + (option.strPlaceholder.empty() ? "" : " " + option.strPlaceholder);
      const std::string strIndent(8 + nColumn + 2, ' ');
      const std::string strText = Wrapped(strMeaning, strIndent);
      out << "        " << strLabel << std::string(nColumn + 2 - strLabel.size(), ' ')
          << strText.substr(strIndent.size());
    }
  }
  out << "\n"
      << Wrapped(
             "The options come in the order shown: the first one chooses the form, those in brackets may be "
             "left out. Values from a set may be typed in any case.",
             "");
  if (bHasLimits && !description.strLimitsFile.empty()) {
    out << Wrapped(
        "The ranges are those in force: from " + description.strLimitsFile + " where it sets them, else built-in.", "");
  }
}

}  // namespace

void ShowUsage(const CCommandDescription& description, const std::vector<std::string>& vecWords, std::ostream& out) {
  std::vector<CWordPair> vecPairs;
  std::string strStray;
  GroupWords(vecWords, vecPairs, strStray);
  const CFormDescription* pForm = SelectedForm(description, vecPairs);
  const char* pszLead = "usage: ";
  for (const CFormDescription& form : description.vecForms) {
    if (pForm != nullptr && pForm != &form) continue;
    out << pszLead << FormSynopsis(description.strCommand, form) << "\n";
    pszLead = "       ";
  }
}

int ShowHelp(const std::vector<std::string>& vecTopics, Place ePlace, std::ostream& out, std::ostream& err) {
  if (vecTopics.empty()) {
    ShowCommandList(ePlace, out);
    return 0;
  }
  if (vecTopics.size() > 1) {
    err << "ktl-cli: help takes one command name (see " << Typed(ePlace, "help") << ")" << std::endl;
    return kExitUsage;
  }
  const std::string& strCommand = vecTopics.front();
  const std::vector<std::string> vecCommands = InstalledCommands();
  if (std::find(vecCommands.begin(), vecCommands.end(), strCommand) == vecCommands.end()) {
    return ShowUnknownCommand(strCommand, ePlace, err);
  }
  CCommandDescription description;
  std::string strError;
  if (!ReadCommandDescription(strCommand, description, strError)) {
    err << "ktl-cli: no help for command \"" << EscapeControlBytes(strCommand) << "\": " << EscapeControlBytes(strError)
        << std::endl;
    return kExitUsage;
  }
  ShowCommand(description, out);
  return 0;
}

int ShowUnknownCommand(const std::string& strWord, Place ePlace, std::ostream& err) {
  std::vector<std::string> vecCommands;
  for (const CNextWord& command : NextWords({}, "", ePlace)) {
    if (command.strWord.front() != '-') vecCommands.push_back(command.strWord);
  }
  err << "ktl-cli: Unknown command \"" << EscapeControlBytes(strWord) << "\". Commands: " << Joined(vecCommands, ", ")
      << (ePlace == Place::kShell ? "; \"?\" lists them with what they do." : "; \"ktl-cli help\" describes them.")
      << std::endl;
  return kExitUsage;
}

}  // namespace devhost
