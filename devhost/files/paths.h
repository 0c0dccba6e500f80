// Where the development host finds and keeps its files. Every path can be
// redirected from the environment, so that tests run without root and touch
// nothing of the machine:
//
//   KTL_STATE_DIR      the logging tool's state (configurations, session,
//                      audit log); default $XDG_STATE_HOME/ktl-cli (when it
//                      is an absolute path), else $HOME/.local/state/ktl-cli
//   KTL_PLUGIN_DIR     where ktl-cli loads libktl_cli-<command>.so from
//   KTL_TEMPLATE_DIR   the Mustache templates (<name>.mustache)
//   KTL_CATALOGUE      the message catalogue file
//   KTL_DEFAULT_CONF   the shipped default configuration of the logging tool
//   KTL_ROOT           the root under which absolute paths that the plug-in
//                      names (such as its limits file) are looked up; default /
//   KTL_MOUNT_CMD      the command run in place of "/bin/mount"
//   KTL_TRACE_FILE     the debug trace file; default <state>/trace.log
//   KTL_TRACE_MASK     the enabled trace levels as a bit mask (1|2|4|8|16);
//                      default 0, tracing off
//   KTL_LOCK_TIMEOUT   seconds a command waits for another one's lock;
//                      default 30
//   TMPDIR             where command output files are created; default /tmp
//   KTL_FAULT_KILL_AT  for tests only: kill the process before its N-th file
//                      change (devhost/files/fault_injection.h); default 0, off
//   KTL_FAULT_OPEN     for tests only: PATTERN:ERROR makes opening a file that
//                      PATTERN matches fail with ERROR
//                      (devhost/files/fault_injection.h)
//
// The KTL_* variables are development and test switches. A set-user-ID or
// set-group-ID process ignores the whole environment here.
#ifndef KTL_DEVHOST_PATHS_H
#define KTL_DEVHOST_PATHS_H

#include <string>

namespace devhost {

// Empty when neither KTL_STATE_DIR, XDG_STATE_HOME nor HOME is set.
std::string StateDir();
std::string PluginDir();
std::string TemplateDir();
std::string CatalogueFile();
std::string DefaultConfFile();
// An absolute path as the host sees it: KTL_ROOT + path.
std::string UnderRoot(const std::string& strAbsolutePath);
std::string MountCommand();
std::string TraceFile();
unsigned TraceMask();
unsigned LockTimeoutSeconds();
std::string TempDir();
unsigned long FaultKillAt();
std::string FaultOpen();

}  // namespace devhost

#endif
