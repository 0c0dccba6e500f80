#!/usr/bin/env bash
# Prints the Debian dependencies of a module on the C and C++ runtimes, from
# the libraries it needs and the highest symbol version it imports from each
# (the versions scripts/check-plugin.sh reports), not from the libraries of
# this machine. For packages that dpkg-shlibdeps cannot serve: cross builds,
# whose target libraries are not packages of this machine's dpkg.
#   scripts/runtime-depends.sh MODULE
#   e.g. "libc6 (>= 2.32), libgcc-s1 (>= 3.5), libstdc++6 (>= 11)"
# Fails on a library or symbol version it has no package or version for.
set -euo pipefail
module=${1:?usage: runtime-depends.sh MODULE}
[ -f "$module" ] || { echo "runtime-depends: no module at $module" >&2; exit 2; }

fail() { echo "runtime-depends: $*" >&2; exit 1; }

# The first libstdc++6 version that provides a symbol version, as Debian's
# symbols file of libstdc++6 (GCC 12) states it. CXXABI_ARM_1.3.3 is ARM's
# EABI, present since the first EABI port (GCC 4.1).
libstdcxx_version() {
  case "$1" in
    CXXABI_1.3|CXXABI_1.3.1|CXXABI_ARM_1.3.3|GLIBCXX_3.4|GLIBCXX_3.4.[1-8]) echo 4.1.1 ;;
    GLIBCXX_3.4.9) echo 4.2.1 ;;
    CXXABI_1.3.[2-8]|GLIBCXX_3.4.10) echo 4.3 ;;
    GLIBCXX_3.4.11|GLIBCXX_3.4.12) echo 4.4 ;;
    GLIBCXX_3.4.13) echo 4.4.2 ;;
    GLIBCXX_3.4.14) echo 4.5 ;;
    GLIBCXX_3.4.15|GLIBCXX_3.4.16) echo 4.6 ;;
    CXXABI_TM_1|GLIBCXX_3.4.17) echo 4.7 ;;
    GLIBCXX_3.4.18|GLIBCXX_3.4.19) echo 4.8 ;;
    GLIBCXX_3.4.20) echo 4.9 ;;
    CXXABI_1.3.9|CXXABI_FLOAT128) echo 5 ;;
    GLIBCXX_3.4.21) echo 5.2 ;;
    CXXABI_1.3.10|GLIBCXX_3.4.22) echo 6 ;;
    GLIBCXX_3.4.24) echo 7 ;;
    GLIBCXX_3.4.25) echo 8 ;;
    CXXABI_1.3.12|GLIBCXX_3.4.26) echo 9 ;;
    GLIBCXX_3.4.27) echo 9.1 ;;
    CXXABI_1.3.11|GLIBCXX_3.4.23|GLIBCXX_3.4.28) echo 10.2 ;;
    CXXABI_1.3.13|GLIBCXX_3.4.29) echo 11 ;;
    GLIBCXX_3.4.30) echo 12 ;;
    *) return 1 ;;
  esac
}

# readelf's version needs: "File: libc.so.6 ..." opens a library's list of
# "Name: GLIBC_2.32 ..." entries.
needs=$(readelf -V -W "$module" | awk '
  /File: / { for (i = 1; i <= NF; i++) if ($i == "File:") file = $(i + 1) }
  /Name: / && file != "" { for (i = 1; i <= NF; i++) if ($i == "Name:") print file, $(i + 1) }')
libraries=$(readelf -d -W "$module" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')

# Highest version of each package, compared as Debian compares versions.
declare -A minimum=()
raise() {
  local package=$1 version=$2
  if [ -z "${minimum[$package]:-}" ] || dpkg --compare-versions "$version" gt "${minimum[$package]}"; then
    minimum[$package]=$version
  fi
}
for library in $libraries; do
  case "$library" in
    libc.so.6|libm.so.6) minimum[libc6]=${minimum[libc6]:-} ;;
    libstdc++.so.6) minimum[libstdc++6]=${minimum[libstdc++6]:-} ;;
    libgcc_s.so.1) minimum[libgcc-s1]=${minimum[libgcc-s1]:-} ;;
    *) fail "no Debian package known for $library, which $module needs" ;;
  esac
done
while read -r library node; do
  [ -n "$library" ] || continue
  case "$library:$node" in
    libc.so.6:GLIBC_PRIVATE|libm.so.6:GLIBC_PRIVATE) fail "$module imports GLIBC_PRIVATE symbols" ;;
    libc.so.6:GLIBC_*|libm.so.6:GLIBC_*) raise libc6 "${node#GLIBC_}" ;;
    libgcc_s.so.1:GCC_*) raise libgcc-s1 "${node#GCC_}" ;;
    libstdc++.so.6:*)
      version=$(libstdcxx_version "$node") || fail "no libstdc++6 version known for $node; add it to $0"
      raise libstdc++6 "$version" ;;
    *) fail "no Debian version known for $node of $library" ;;
  esac
done <<<"$needs"

depends=()
for package in $(printf '%s\n' "${!minimum[@]}" | sort); do
  if [ -n "${minimum[$package]}" ]; then
    depends+=("$package (>= ${minimum[$package]})")
  else
    depends+=("$package")
  fi
done
(IFS=,; echo "${depends[*]}" | sed 's/,/, /g')
