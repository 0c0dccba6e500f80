// CheckParam: the grammar of the "logger" command line.
//
// The host's base class groups the words into option/value pairs; the first
// option, lower-cased, selects one of seven forms. Each form checks its
// pairs, stores the parsed values in the members and selects the operation
// that Exec runs. Every refusal shows "MSG_CLI_ERROR_COMMAND"; why it was
// refused goes only to the trace.
#include <exception>

#include "host/string_util.h"
#include "plugin/logger_config_cmd.h"
#include "plugin/messages.h"
#include "plugin/trace.h"

namespace {

const char kSigCheckParam[] =
    "virtual int CLoggerConfigCmd::CheckParam(std::vector<std::basic_string<char, std::char_traits<char>, "
    "std::allocator<char> >, std::allocator<std::basic_string<char, std::char_traits<char>, std::allocator<char> > > "
    ">)";

// The result of CheckParam after an exception.
const int kExceptionResult = 241;

typedef std::vector<CCommandParam> Pairs;

enum class Outcome {
  kRefuse,               // show the error and return its result, no exit trace
  kAccept,               // return 0 without the exit trace
  kAcceptWithExitTrace,  // write the exit trace and return 0
};

// The pair count of a form that takes a fixed number of pairs, traced when
// it is exceeded.
bool isCountWithin(const Pairs& pairs, size_t nExpected) {
  if (pairs.size() <= nExpected) return true;
  logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigCheckParam, "Parameter count error (exp=%d, res=%d)",
                     static_cast<int>(nExpected), static_cast<int>(pairs.size()));
  return false;
}

int OnOffCode(const std::string& strValue) { return strValue == "on" ? 0x11 : 0x10; }

// -syslogoutput on|off
Outcome ParseSyslogOutput(CLoggerConfigCmd& cmd, const Pairs& pairs) {
  if (!cmd.CheckOnOffParam(pairs[0].m_strValue, cmd.m_nOnOff)) return Outcome::kRefuse;
  pExecMethod = &CLoggerConfigCmd::CmdSyslog;
  return isCountWithin(pairs, 1) ? Outcome::kAcceptWithExitTrace : Outcome::kRefuse;
}

// -alert inf|wrn|err -setting on|off
Outcome ParseAlert(CLoggerConfigCmd& cmd, const Pairs& pairs) {
  cmd.m_nSettingCmd = 1;
  if (pairs.size() < 2) return Outcome::kRefuse;
  std::string strValue;
  if (!cmd.CheckCommandPair(pairs[0], "-alert", "inf|wrn|err", strValue)) return Outcome::kRefuse;
  cmd.m_nAlertLevel = strValue == "inf" ? 0 : strValue == "wrn" ? 1 : 2;
  if (!cmd.CheckCommandPair(pairs[1], "-setting", "on|off", strValue)) return Outcome::kRefuse;
  if (!isCountWithin(pairs, 2)) return Outcome::kRefuse;
  cmd.m_nOnOff = OnOffCode(strValue);
  pExecMethod = &CLoggerConfigCmd::CmdAlert;
  return Outcome::kAccept;
}

// -device cpu|mem|disk -setting on|off [-interval N] [-count N] [-threshold N]
Outcome ParseDevice(CLoggerConfigCmd& cmd, const Pairs& pairs) {
  cmd.m_nSettingCmd = 1;
  if (pairs.size() < 2) return Outcome::kRefuse;
  std::string strValue;
  if (!cmd.CheckCommandPair(pairs[0], "-device", "cpu|mem|disk", strValue)) return Outcome::kRefuse;
  cmd.m_nDevice = strValue == "cpu" ? 0 : strValue == "mem" ? 1 : 2;
  if (!cmd.CheckCommandPair(pairs[1], "-setting", "on|off", strValue)) return Outcome::kRefuse;
  cmd.m_nOnOff = OnOffCode(strValue);
  if (!cmd.CheckSetThreshold()) return Outcome::kRefuse;
  pExecMethod = &CLoggerConfigCmd::CmdDevice;
  return Outcome::kAccept;
}

// -mp DIR -setting on|off [-threshold N]
Outcome ParseMountPoint(CLoggerConfigCmd& cmd, const Pairs& pairs) {
  if (pairs[0].m_strValue.empty()) return Outcome::kRefuse;
  cmd.m_nSettingCmd = 1;
  if (pairs.size() < 2) return Outcome::kRefuse;
  std::string strValue;
  if (!cmd.CheckCommandPair(pairs[1], "-setting", "on|off", strValue)) return Outcome::kRefuse;
  cmd.m_nOnOff = OnOffCode(strValue);
  if (!cmd.CheckMountParam()) return Outcome::kRefuse;
  pExecMethod = &CLoggerConfigCmd::CmdMount;
  return Outcome::kAccept;
}

// -confirm [cur|edit]
Outcome ParseConfirm(CLoggerConfigCmd& cmd, const Pairs& pairs) {
  cmd.m_strConfirmType = "edit";
  if (!pairs[0].m_strValue.empty() && !cmd.CheckStrParam(pairs[0].m_strValue, "cur|edit", cmd.m_strConfirmType))
    return Outcome::kRefuse;
  if (!isCountWithin(pairs, 1)) return Outcome::kRefuse;
  cmd.m_bSkipProcessCheck = true;
  pExecMethod = &CLoggerConfigCmd::Confirm;
  return Outcome::kAcceptWithExitTrace;
}

// "-nochk" as the second option of -save and -discard; with one pair, or
// with three and more, the pairs after the first are not examined.
bool ParseNoCheck(CLoggerConfigCmd& cmd, const Pairs& pairs) {
  cmd.m_nNoCheck = 0;
  if (pairs.size() != 2) return true;
  if (pairs[1].m_strOption != "-nochk") return false;
  cmd.m_nNoCheck = 1;
  return true;
}

// -discard [-nochk]
Outcome ParseDiscard(CLoggerConfigCmd& cmd, const Pairs& pairs) {
  cmd.m_bSkipProcessCheck = true;
  if (!ParseNoCheck(cmd, pairs)) return Outcome::kRefuse;
  pExecMethod = &CLoggerConfigCmd::Discard;
  return Outcome::kAcceptWithExitTrace;
}

// -save [-nochk]
Outcome ParseSave(CLoggerConfigCmd& cmd, const Pairs& pairs) {
  if (!ParseNoCheck(cmd, pairs)) return Outcome::kRefuse;
  pExecMethod = &CLoggerConfigCmd::Save;
  return Outcome::kAcceptWithExitTrace;
}

struct Form {
  const char* pszOption;  // the first option, lower case
  Outcome (*parse)(CLoggerConfigCmd&, const Pairs&);
};

// Compared in this order; the first equal option selects the form.
const Form kForms[] = {
    {"-syslogoutput", ParseSyslogOutput},
    {"-alert", ParseAlert},
    {"-device", ParseDevice},
    {"-mp", ParseMountPoint},
    {"-confirm", ParseConfirm},
    {"-discard", ParseDiscard},
    {"-save", ParseSave},
};

}  // namespace

int CLoggerConfigCmd::CheckParam(std::vector<std::string> vecParam) {
  logger_trace::Enter(kSigCheckParam);
  Outcome outcome = Outcome::kRefuse;
  try {
    if (CCommand::CheckParam(vecParam) != 0) {
      logger_trace::Note(CTraceUtility::TRACE_DBG_PARAM, kSigCheckParam, "Parameter Analyze Error");
    } else if (!m_vecCommandParam.empty()) {
      const std::string strFirst = CStringUtil::StringToLowerCase(m_vecCommandParam[0].m_strOption);
      const Form* pForm = nullptr;
      for (const Form& form : kForms) {
        if (strFirst == form.pszOption) {
          pForm = &form;
          break;
        }
      }
      if (pForm == nullptr) {
        logger_trace::Note(CTraceUtility::TRACE_DBG_PARAM, kSigCheckParam, "Unknown Parameter Error: %s",
                           m_vecCommandParam[0].m_strOption.c_str());
      } else {
        outcome = pForm->parse(*this, m_vecCommandParam);
      }
    }
    if (outcome == Outcome::kRefuse) return ShowMessage(logger_msg::kErrorCommand);
    // The exit trace of an accepted form is one of its steps, so an
    // exception while writing it is handled like any other.
    if (outcome == Outcome::kAcceptWithExitTrace) logger_trace::Leave(kSigCheckParam);
    return 0;
  } catch (const std::exception& e) {
    logger_trace::Note(CTraceUtility::TRACE_DBG_EXCEPTION, kSigCheckParam, "Exception Information:%s", e.what());
  } catch (...) {
    logger_trace::Note(CTraceUtility::TRACE_DBG_EXCEPTION, kSigCheckParam,
                       "exception: Exception Information:unknown exception]");
  }
  logger_trace::Leave(kSigCheckParam);
  return kExceptionResult;
}
