// Catalogue message identifiers shown by the "logger" command, and the code
// that goes with "MSG_CLI_ERROR_APPLICATION". Every other message is shown
// with code 0; the extra text is always empty.
#ifndef KTL_PLUGIN_MESSAGES_H
#define KTL_PLUGIN_MESSAGES_H

namespace logger_msg {

constexpr char kErrorCommand[] = "MSG_CLI_ERROR_COMMAND";
constexpr char kNoneCommand[] = "MSG_CLI_NONE_COMMAND";
constexpr char kCheckProcessId[] = "MSG_CLI_CHECK_PRCID";
constexpr char kMonitorToolNotFound[] = "MSG_CLI_NOTFOUND_MONITOR_TOOL";
constexpr char kErrorApplication[] = "MSG_CLI_ERROR_APPLICATION";
constexpr char kHoldParam[] = "MSG_CLI_HOLD_PARAM";
constexpr char kNotMounted[] = "MSG_CLI_ERROR_LOGGER_MP";
constexpr char kAskDiscard[] = "MSG_CLI_DISCARD_PARAM";
constexpr char kDiscarded[] = "MSG_CLI_COMPLATE_DISCARD";
constexpr char kAskSave[] = "MSG_CLI_SAVE_PARAM";
constexpr char kSaveRefused[] = "MSG_CLI_ERROR_LOGGER_SAVE";
constexpr char kSaved[] = "MSG_CLI_COMPLATE_SAVE";
constexpr char kNotInstalled[] = "MSG_CLI_LOGGER_INSTALL";

constexpr unsigned long kApplicationErrorCode = 0xFF000001UL;

// The accessor's status for "the logging tool is not installed".
constexpr int kStatusNotInstalled = 176;

}  // namespace logger_msg

#endif
