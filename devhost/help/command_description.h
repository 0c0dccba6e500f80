// The description of a command: what `ktl-cli help COMMAND` shows and what
// the shell and bash complete. It is read from COMMAND.command.ini beside the
// command's plug-in (devhost::PluginDir()), an INI file:
//
//   [command]
//   summary     = one line for `ktl-cli help`
//   forms       = the forms' names, blank-separated, in the order shown
//   limits_file = the limits file the plug-in reads (optional)
//
//   [form NAME]                  one per form
//   options = the form's options in command-line order; [-x] is optional
//   summary = what the form does
//   read_only = yes              the form only looks: it may run without an
//                                audit record when the audit log cannot be
//                                written (devhost/command/audit_log.h)
//
//   [NAME -option]               one per option of a form
//   values   = a|b|c             a value from this set, in any case
//   value_meanings = A|B|C       (optional) what each value of the set means
//   value    = PLACEHOLDER       free text, e.g. DIR ...
//   sample   = /data             ... with a value the plug-in accepts
//   complete_from = mounts       ... completed with the mounted file systems
//   number   = STEM              a number within STEM_MIN to STEM_MAX
//   section  = SECTION           ... read from this section of the limits
//                                file, else from the one that the form's
//                                selector value names:
//   sections = S1 S2 S3          (on the selector) one section per value
//   not_for  = value             (on a number) refused with this selector value
//   optional_value = yes         the value may be left out
//   ends_form = value            with this value no further option may follow
//   meaning  = text              shown in help
//   (no value key, or no section: the option takes no value)
//
//   [limits SECTION]             built-in limits, used when the limits file
//   STEM_MIN = 1                 does not set them
//   STEM_MAX = 100
//
// Names are matched exactly. A test drives every form and option of the
// shipped description through the plug-in, so the two cannot drift apart.
#ifndef KTL_DEVHOST_HELP_COMMAND_DESCRIPTION_H
#define KTL_DEVHOST_HELP_COMMAND_DESCRIPTION_H

#include <map>
#include <string>
#include <vector>

namespace devhost {

struct COptionDescription {
  std::string strName;                        // "-threshold"
  bool bOptional = false;                     // [-x] in the form
  std::vector<std::string> vecValues;         // a fixed set; empty otherwise
  std::vector<std::string> vecValueMeanings;  // one per value, or empty
  std::string strPlaceholder;                 // free text or number: "DIR", "N"
  std::string strSample;                      // a free-text value the plug-in accepts
  std::string strCompleteFrom;                // "mounts": completed with the mounted file systems
  std::string strNumberStem;                  // "THRESHOLD": a number; empty otherwise
  std::string strSection;                     // fixed limits section of a number
  std::vector<std::string> vecSections;       // selector: one limits section per value
  std::string strNotFor;                      // selector value with which a number is refused
  bool bOptionalValue = false;
  std::string strEndsForm;  // the value after which the form takes no further option
  std::string strMeaning;

  bool takesValue() const { return !vecValues.empty() || !strPlaceholder.empty(); }
  bool isNumber() const { return !strNumberStem.empty(); }
};

struct CFormDescription {
  std::string strName;
  std::string strSummary;
  bool bReadOnly = false;
  std::vector<COptionDescription> vecOptions;  // command-line order; [0] selects the form
};

struct CCommandDescription {
  std::string strCommand;
  std::string strSummary;
  std::string strLimitsFile;
  std::vector<CFormDescription> vecForms;
  // Built-in limits: section -> key -> value.
  std::map<std::string, std::map<std::string, int>> mapBuiltinLimits;
};

// The inclusive range of a number in force.
struct CLimitRange {
  int nMin;
  int nMax;
};

// Where the description of strCommand is read from.
std::string CommandDescriptionFile(const std::string& strCommand);

// Reads the description of strCommand. On failure returns false and says why
// in strError (the file, and the line or the name that is wrong).
bool ReadCommandDescription(const std::string& strCommand, CCommandDescription& description, std::string& strError);

// True when the form of strCommand that strFirstOption selects is marked
// read-only. False for an unknown form and when the description cannot be
// read: a command is taken to change something unless it is known not to.
bool isReadOnlyForm(const std::string& strCommand, const std::string& strFirstOption);

// The commands installed in the plug-in directory, sorted by name.
std::vector<std::string> InstalledCommands();

// True when the plug-in directory holds a plug-in file for strCommand (which
// may still fail to load).
bool isInstalledCommand(const std::string& strCommand);

// The limits section of a number option of a form, for the selector value
// strSelector (the value of the form's first option); empty when the number
// has no limits or is not allowed with that value.
std::string LimitsSection(const CFormDescription& form, const COptionDescription& option,
                          const std::string& strSelector);

// The range of STEM in a section as the plug-in reads it: the limits file
// where it sets the key (through GetPrivateProfileIntA), else built-in.
CLimitRange LimitsInForce(const CCommandDescription& description, const std::string& strSection,
                          const std::string& strStem);

}  // namespace devhost

#endif
