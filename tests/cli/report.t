The report of -confirm as an administrator reads it. This machine mounts
a few more directories, among them names with "&" and "<" (shown as they
are) and one too long for its column (shown as "..." and its last 30
characters).

  $ cat > mounts.txt <<'LIST'
  > /dev/vda1 on / type ext4 (rw)
  > /dev/vdc1 on /var/log type ext4 (rw)
  > srv:/exports on /srv/exports/projects type nfs (rw)
  > /dev/vdd1 on /mnt/backup&<archive>/daily type ext4 (rw)
  > /dev/vde1 on /mnt/a/rather/long/path/to/some/volume type ext4 (rw)
  > LIST
  $ export KTL_MOUNT_CMD="cat $PWD/mounts.txt"
  $ edit() { ktl-cli logger "$@" > /dev/null; }
  $ edit -alert wrn -setting off
  $ edit -device mem -setting on -interval 120 -count 4 -threshold 80
  $ edit -device disk -setting on -interval 300 -count 5
  $ edit -mp / -setting on -threshold 80
  $ edit -mp /var/log -setting on -threshold 85
  $ edit -mp /srv/exports/projects -setting on -threshold 90
  $ edit -mp '/mnt/backup&<archive>/daily' -setting on -threshold 95
  $ edit -mp /mnt/a/rather/long/path/to/some/volume -setting on -threshold 70
  $ ktl-cli logger -confirm edit
  Logger configuration
  
    Syslog output           : On
      Information alerts    : On
      Warning alerts        : Off
      Error alerts          : On
    CPU usage monitor       : On
      Interval (seconds)    : 60
      Count                 : 3
      Threshold (%)         : 90
    Memory usage monitor    : On
      Interval (seconds)    : 120
      Count                 : 4
      Threshold (%)         : 80
    Disk usage monitor      : On
      Interval (seconds)    : 300
      Count                 : 5
      Mount point               Threshold (%)
      /                         80
      /var/log                  85
      /srv/exports/projects     90
      /mnt/backup&<archive>/daily    95
      ...ather/long/path/to/some/volume    70

A monitor that is off shows its switch alone; with syslog output off the
report is the syslog line alone.

  $ edit -device cpu -setting off
  $ ktl-cli logger -confirm edit | grep -A1 CPU
    CPU usage monitor       : Off
    Memory usage monitor    : On
  $ edit -syslogoutput off
  $ ktl-cli logger -confirm edit
  Logger configuration
  
    Syslog output           : Off

A report template that cannot be loaded is named:

  $ KTL_TEMPLATE_DIR=$PWD/none ktl-cli logger -confirm cur
  ktl-cli: cannot read the template */none/logger.mustache: it does not exist (glob)
  Error: The logging tool's service failed to carry out the request. Try again; if the error persists, contact your support representative. (code 0xFF000001)
  reason: the report's template could not be loaded
  [1]
  $ mkdir broken; echo '{{#Open}}never closed' > broken/logger.mustache
  $ KTL_TEMPLATE_DIR=$PWD/broken ktl-cli logger -confirm cur
  ktl-cli: the template */broken/logger.mustache cannot be parsed: Unclosed section "Open" at 0 (glob)
  Error: The logging tool's service failed to carry out the request. Try again; if the error persists, contact your support representative. (code 0xFF000001)
  reason: the report's template could not be loaded
  [1]
  $ mkdir deep
  $ printf '%.0s{{#Deep}}' $(seq 101) > deep/logger.mustache
  $ printf '%.0s{{/Deep}}' $(seq 101) >> deep/logger.mustache
  $ KTL_TEMPLATE_DIR=$PWD/deep ktl-cli logger -confirm cur
  ktl-cli: refusing the template */deep/logger.mustache: its sections nest more than 100 deep (glob)
  Error: The logging tool's service failed to carry out the request. Try again; if the error persists, contact your support representative. (code 0xFF000001)
  reason: the report's template could not be loaded
  [1]
  $ printf '{{=<< >>=}}' > deep/logger.mustache
  $ printf '%.0s<<#Deep>>' $(seq 20000) >> deep/logger.mustache
  $ KTL_TEMPLATE_DIR=$PWD/deep ktl-cli logger -confirm cur 2>&1 | sed -n 1p
  ktl-cli: refusing the template */deep/logger.mustache: its sections nest more than 100 deep (glob)
  $ printf '%.0s{{#Deep}}' $(seq 100) > deep/logger.mustache
  $ printf '%.0s{{/Deep}}' $(seq 100) >> deep/logger.mustache
  $ KTL_TEMPLATE_DIR=$PWD/deep ktl-cli logger -confirm cur
