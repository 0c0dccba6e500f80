// Explains a refused command to the operator: what the command traced and
// showed (devhost/utilities/refusal_reasons.h), put in the words of the
// command's reason rules (reason_rules.h), then its usage.
#ifndef KTL_DEVHOST_HELP_REFUSAL_EXPLANATION_H
#define KTL_DEVHOST_HELP_REFUSAL_EXPLANATION_H

#include <ostream>
#include <string>
#include <vector>

namespace devhost {

// Writes one "reason: ..." line per reason, each at most once and with its
// control bytes escaped: the diagnostics in the order traced, translated
// where a rule says how, as traced where none does, left out where the rule
// says they are no reason; then the facts the host noticed. When nothing
// was said and the usage error was shown, the grammar check of vecWords
// names the wrong word. After the usage error comes the usage.
void ExplainRefusal(const std::string& strCommand, const std::vector<std::string>& vecWords, std::ostream& err);

}  // namespace devhost

#endif
