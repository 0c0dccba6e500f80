// The section and key names of the logging tool's configuration files, as
// the plug-in writes them and the service reads and checks them.
#ifndef KTL_DEVHOST_LOGGER_CONF_KEYS_H
#define KTL_DEVHOST_LOGGER_CONF_KEYS_H

namespace devhost {
namespace conf_keys {

inline constexpr char kSectionSyslog[] = "Syslog";
inline constexpr char kSectionCpu[] = "CPU";
inline constexpr char kSectionMemory[] = "MEMORY";
inline constexpr char kSectionFileSystem[] = "FILESYS";
// A mount point's section is this prefix and its entry number, 1 to 9999.
inline constexpr char kEntrySectionPrefix[] = "FSNAME-";

inline constexpr char kKeyOutput[] = "Output";
inline constexpr char kKeyInformation[] = "Information";
inline constexpr char kKeyWarning[] = "Warning";
inline constexpr char kKeyError[] = "Error";
inline constexpr char kKeyAvailable[] = "Available";
inline constexpr char kKeyInterval[] = "Interval";
inline constexpr char kKeyCount[] = "Count";
inline constexpr char kKeyThreshold[] = "Threshold";
inline constexpr char kKeyNumFileSys[] = "NumFileSys";
inline constexpr char kKeyMount[] = "Mount";

}  // namespace conf_keys
}  // namespace devhost

#endif
