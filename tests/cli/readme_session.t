The example session of the README, word for word (check-readme.sh keeps the
two the same). /dev/shm is in the mount listing, /srv/data is not.

  $ ktl-cli logger -device disk -setting on -interval 300 -count 5
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ ktl-cli logger -mp /dev/shm -setting on -threshold 90
  The change is pending: "logger -save" applies it, "logger -discard" drops it.
  $ ktl-cli logger -mp /srv/data -setting on
  Error: The directory is not a mounted file system. Give the mount point of a mounted file system.
  reason: /srv/data is not a mounted file system; mounted: /, /data, /dev/shm, /var/log
  [1]
  $ ktl-cli logger -confirm edit
  Logger configuration
  
    Syslog output           : On
      Information alerts    : On
      Warning alerts        : On
      Error alerts          : On
    CPU usage monitor       : On
      Interval (seconds)    : 60
      Count                 : 3
      Threshold (%)         : 90
    Memory usage monitor    : On
      Interval (seconds)    : 60
      Count                 : 3
      Threshold (%)         : 90
    Disk usage monitor      : On
      Interval (seconds)    : 300
      Count                 : 5
      Mount point               Threshold (%)
      /dev/shm                  90
  $ echo y | ktl-cli logger -save
  Saving puts 3 pending changes into effect (in effect -> pending):
    Disk usage monitor: Off -> On
    Disk usage monitor, Count: 3 -> 5
    Mount point /dev/shm: added (On, Threshold (%) 90)
  Save the pending changes and put the logger configuration into effect? [y/n]: y
  The pending changes were saved and are now in effect.
  $ ktl-cli logger -confirm cur
  Logger configuration
  
    Syslog output           : On
      Information alerts    : On
      Warning alerts        : On
      Error alerts          : On
    CPU usage monitor       : On
      Interval (seconds)    : 60
      Count                 : 3
      Threshold (%)         : 90
    Memory usage monitor    : On
      Interval (seconds)    : 60
      Count                 : 3
      Threshold (%)         : 90
    Disk usage monitor      : On
      Interval (seconds)    : 300
      Count                 : 5
      Mount point               Threshold (%)
      /dev/shm                  90
