// How ktl-cli explains the refusals of a command: read from
// COMMAND.reasons.ini beside the command's description, an INI file:
//
//   [reasons]
//   usage_after = MSG_ID      after this error the usage follows: the synopsis
//                             of the form the first option selects, else all
//
//   [grammar]                 when the words themselves show what is wrong
//   KIND = template           (command_grammar.h lists the kinds and fields)
//
//   [traced FORMAT]           one per diagnostic the plug-in traces; FORMAT
//                             is its message as written, e.g.
//                             "Parameter Error: %s %s" (%s, %d, %x)
//   fields    = a b           names of its values, in order
//   says      = template      the reason; empty: not a reason, not shown
//   explain   = grammar       or: explained by the grammar check of the words
//   option_at = 3             the option of the 3rd word pair is {{option}}
//   fold      = a             lines with the same "a" make one reason; the
//                             other fields become lists ("x, y, z", sorted)
//                             and {{found}} says whether "a" was among them
//   leave_out = /p /q         ... without these values and those under them
//   form      = NAME          applies only when the words select this form;
//                             otherwise a diagnostic is shown as traced and
//                             a fact is not shown
//
//   [noted FACT]              a fact the host noticed (refusal_reasons.h),
//   says / form               the same keys
//
// Templates are Mustache, rendered without HTML escaping. Besides the
// fields: {{first}} the first word pair as typed; {{option}} the option
// whose value is the field "value" when no field names it; {{no_value}} and
// {{not_number}} about the field "value"; {{expected}} the field "set"
// ("a|b") as "a or b"; and, when the two limits read last are STEM_MIN and
// STEM_MAX of that option, {{min}} {{max}} {{section}} {{min_key}}
// {{max_key}} {{file}}, and {{for}} the value of the first option that
// chose the section.
#ifndef KTL_DEVHOST_HELP_REASON_RULES_H
#define KTL_DEVHOST_HELP_REASON_RULES_H

#include <map>
#include <string>
#include <vector>

namespace devhost {

struct CReasonRule {
  std::string strTrigger;  // the FORMAT or FACT of the section name
  std::vector<std::string> vecFields;
  std::string strSays;
  bool bByGrammar = false;
  size_t nOptionAt = 0;  // 1-based; 0: none
  std::string strFold;
  std::vector<std::string> vecLeaveOut;
  std::string strForm;
};

struct CReasonRules {
  std::string strUsageAfter;
  std::map<std::string, std::string> mapGrammar;  // kind -> template
  std::vector<CReasonRule> vecTraced;
  std::vector<CReasonRule> vecNoted;

  const CReasonRule* TracedRule(const std::string& strFormat) const;
  const CReasonRule* NotedRule(const std::string& strFact) const;
};

std::string ReasonRulesFile(const std::string& strCommand);

// False, with strError naming the file and the line or section, when the
// file cannot be read or a section is not understood.
bool ReadReasonRules(const std::string& strCommand, CReasonRules& rules, std::string& strError);

}  // namespace devhost

#endif
