bash completion offers what the shell's Tab key offers: what may come next
at that point of the command's grammar, from the installed description.

  $ source "$TESTDIR/../../devhost/completion/ktl-cli"
  $ complete -p ktl-cli
  complete -F _ktl_cli ktl-cli
  $ offer() { COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _ktl_cli; echo "${COMPREPLY[*]}"; }

The top level: the installed commands and ktl-cli's own words; after
"help", the commands it can describe.

  $ offer ktl-cli ''
  logger help compare --help --version
  $ offer ktl-cli --
  --help --version
  $ offer ktl-cli help ''
  logger
  $ offer ktl-cli help logger ''
  
  $ offer ktl-cli compare ''
  logger
  $ offer ktl-cli compare logger ''
  

The first option of each form, in the order help lists the forms; a prefix
narrows them, in any case.

  $ offer ktl-cli logger ''
  -syslogoutput -alert -device -mp -confirm -save -discard
  $ offer ktl-cli logger -d
  -device -discard
  $ offer ktl-cli logger -S
  -syslogoutput -save

Each position of each form. Values of a set match in any case; the
required options come one by one in their order; after them the optional
ones not given yet, except a threshold for disk; nothing after a value
that ends the form (-setting off) or after the last word a form takes.

  $ offer ktl-cli logger -syslogoutput ''
  on off
  $ offer ktl-cli logger -syslogoutput ON ''
  
  $ offer ktl-cli logger -alert I
  inf
  $ offer ktl-cli logger -alert Inf ''
  -setting
  $ offer ktl-cli logger -alert inf -setting O
  on off
  $ offer ktl-cli logger -alert inf -setting on ''
  
  $ offer ktl-cli logger -device ''
  cpu mem disk
  $ offer ktl-cli logger -device cpu -
  -setting
  $ offer ktl-cli logger -device cpu -setting on ''
  -interval -count -threshold
  $ offer ktl-cli logger -device CPU -setting on -count 3 ''
  -interval -threshold
  $ offer ktl-cli logger -device disk -setting on ''
  -interval -count
  $ offer ktl-cli logger -device mem -setting off ''
  
  $ offer ktl-cli logger -device mem -setting on -interval 5 -count 3 -threshold 50 ''
  
  $ offer ktl-cli logger -mp /data ''
  -setting
  $ offer ktl-cli logger -mp /data -setting on ''
  -threshold
  $ offer ktl-cli logger -mp /data -setting off ''
  
  $ offer ktl-cli logger -confirm ''
  cur edit
  $ offer ktl-cli logger -confirm E
  edit
  $ offer ktl-cli logger -confirm edit ''
  
  $ offer ktl-cli logger -save ''
  -nochk
  $ offer ktl-cli logger -save -nochk ''
  
  $ offer ktl-cli logger -discard ''
  -nochk

A mount point is one of the mounted file systems that the mount command
lists, matched as typed. Kernel interfaces (/proc, /sys, cgroups), lines
that name no mount and directories that are not one plain word (a blank,
a control character) are left out; a mount command that fails offers
nothing.

  $ offer ktl-cli logger -mp ''
  / /dev/shm /data /var/log
  $ offer ktl-cli logger -mp /d
  /dev/shm /data
  $ offer ktl-cli logger -mp /D
  
  $ KTL_MOUNT_CMD=false offer ktl-cli logger -mp ''
  
  $ cat > odd-mounts <<'EOF'
  > a line that names no mount
  > /dev/sdb1 on /mnt/usb type vfat (rw)
  > /dev/sdc1 on /mnt/my disk type ext4 (rw)
  > cgroup2 on /sys/fs/cgroup type cgroup2 (rw)
  > /dev/sde1 on /srv type xfs
  > EOF
  $ printf '/dev/sdd1 on /mnt/\033[31mred type ext4 (rw)\n' >> odd-mounts
  $ KTL_MOUNT_CMD="cat odd-mounts" offer ktl-cli logger -mp ''
  /mnt/usb /srv

A number is not completed: its range in force is shown instead, for the
monitor chosen, with an empty second candidate so that bash lists the
range rather than put it on the line. A limits file moves the range.

  $ offer ktl-cli logger -device cpu -setting on -threshold ''
  <10-100> 
  $ offer ktl-cli logger -device mem -setting on -threshold 5
  <40-100> 
  $ offer ktl-cli logger -device disk -setting on -interval ''
  <1-86400> 
  $ offer ktl-cli logger -mp /data -setting on -threshold ''
  <40-100> 
  $ mkdir -p root/opt/velmora/ktl/cli
  $ printf '[CPU]\nTHRESHOLD_MIN=20\nTHRESHOLD_MAX=90\n' > root/opt/velmora/ktl/cli/LoggerParams.ini
  $ KTL_ROOT=$PWD/root offer ktl-cli logger -device cpu -setting on -threshold ''
  <20-90> 
  $ ktl-cli --complete logger -device cpu -setting on -threshold ''
  <10-100>

Nothing is offered where the words before do not fit the grammar, nor for
a command that is not installed.

  $ offer ktl-cli logger -verbose ''
  
  $ offer ktl-cli logger -device foo ''
  
  $ offer ktl-cli logger -device cpu -threshold ''
  
  $ offer ktl-cli logger -alert inf -interval ''
  
  $ offer ktl-cli logger -device cpu -setting -
  
  $ offer ktl-cli nosuch ''
  
  $ offer ktl-cli '?' ''
  
