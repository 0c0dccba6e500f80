#!/usr/bin/env bash
# Builds the plug-in's Debian package in a configured cross build and checks
# that it is for the target's architecture, with the installed paths of
# every other build, that its dependencies are the symbol versions
# check-plugin.sh reports, and that lintian accepts it. It cannot be
# installed on this machine, so nothing is installed.
#   scripts/check-cross-package.sh BUILD_DIR ARCHITECTURE    (e.g. build-armhf armhf)
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build_dir=${1:?usage: check-cross-package.sh BUILD_DIR ARCHITECTURE}
arch=${2:?usage: check-cross-package.sh BUILD_DIR ARCHITECTURE}

fail() { echo "check-cross-package: $*" >&2; exit 1; }

cmake --build "$build_dir" --target ktl_cli-logger
rm -f "$build_dir"/*.deb
(cd "$build_dir" && cpack -G DEB >/dev/null)
debs=("$build_dir"/*.deb)
[ "${#debs[@]}" -eq 1 ] || fail "a cross build packages the plug-in alone, not: ${debs[*]}"
deb=$(ls "$build_dir"/ktl-cli-logger_*.deb)

[ "$(dpkg-deb -f "$deb" Architecture)" = "$arch" ] ||
  fail "$(basename "$deb") is for $(dpkg-deb -f "$deb" Architecture), not $arch"
listing=$(dpkg-deb -c "$deb" | awk '{print $6}' | sed 's|^\./|/|')
for path in /opt/velmora/ktl/cli/plugins/libktl_cli-logger.so /opt/velmora/ktl/cli/LoggerParams.ini; do
  grep -qxF "$path" <<<"$listing" || fail "$(basename "$deb") lacks $path"
done
# The packaged module is the target's, not this machine's.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
dpkg-deb -x "$deb" "$work"
target=$(file -b "$work/opt/velmora/ktl/cli/plugins/libktl_cli-logger.so")
case "$arch" in
  armhf) machine='32-bit LSB .*, ARM, EABI5' ;;
  arm64) machine='64-bit LSB .*, ARM aarch64' ;;
  amd64) machine='64-bit LSB .*, x86-64' ;;
  *) fail "no ELF machine known for $arch" ;;
esac
grep -qE "$machine" <<<"$target" || fail "the packaged module is not for $arch: $target"

# The lowest C runtime that provides the highest GLIBC version the module
# imports, and the C++ runtime of GCC 11 or later for GLIBCXX 3.4.29.
depends=$(dpkg-deb -f "$deb" Depends)
versions=$(bash "$top/scripts/check-plugin.sh" "$build_dir" | sed -n 's/^\(GLIBC\|GLIBCXX\): //p')
glibc=$(sed -n 's/^GLIBC_//p' <<<"$versions")
grep -qF "libc6 (>= $glibc)" <<<"$depends" || fail "Depends: $depends, but the module needs GLIBC_$glibc"
grep -qE 'libstdc\+\+6 \(>= [0-9.]+\)' <<<"$depends" || fail "Depends: $depends, but the module needs libstdc++6"
bash "$top/scripts/check-package-policy.sh" "$deb"
echo "$(basename "$deb"): Architecture $arch, Depends $(dpkg-deb -f "$deb" Depends)"
echo "$target"
echo "check-cross-package: OK"
