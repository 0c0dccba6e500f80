// What a save of the pending logger configuration would change, in the
// words of the "logger -confirm" report.
//
// The pending record is first completed from the configuration in effect the
// way the logger command completes it before it shows or saves it: a switch
// the pending record leaves unset, and every value of a monitor that it
// does not switch, come from the configuration in effect. Then each item
// that differs gives one line, in report order, e.g.
//   "CPU usage monitor, Threshold (%): 90 -> 80"
//   "Mount point /data: added (On, Threshold (%) 70)"
//   "Mount point /srv: removed"
// Mount points are compared whatever the disk monitor's switch, since a
// save keeps them, although the report lists them only while it is on.
#ifndef KTL_DEVHOST_CONFIG_CHANGES_H
#define KTL_DEVHOST_CONFIG_CHANGES_H

#include <string>
#include <vector>

#include "config/logger_conf.h"

namespace devhost {

// pending completed from effective, as shown by "-confirm edit" and saved.
Velmora_LoggerConf CompletedPending(const Velmora_LoggerConf& pending, const Velmora_LoggerConf& effective);

// One line per item that differs between effective and completed (see
// above); empty when they agree. strArrow separates the old and new value.
std::vector<std::string> DescribeChanges(const Velmora_LoggerConf& effective, const Velmora_LoggerConf& completed,
                                         const std::string& strArrow);

}  // namespace devhost

#endif
