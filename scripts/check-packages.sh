#!/usr/bin/env bash
# Builds the Debian packages, checks their contents and control fields, has
# lintian inspect them, installs them on this machine, runs the installed
# ktl-cli once, and removes them again.
#   scripts/check-packages.sh [BUILD_DIR]     (default: build-package/)
# The build is the "package" preset: Release, no tests, the installed paths.
# Needs root for dpkg -i; the machine is left as it was, also on failure.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build_dir=${1:-$top/build-package}
packages=(ktl-cli-host ktl-cli-logger)   # removal order: the host depends on the plug-in

fail() { echo "check-packages: $*" >&2; exit 1; }

for p in "${packages[@]}"; do
  if dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'installed'; then
    fail "$p is already installed; remove it first, this check must not replace it"
  fi
done

echo "== build"
bash "$top/scripts/build.sh" package "$build_dir"

echo "== package"
rm -f "$build_dir"/*.deb
(cd "$build_dir" && cpack -G DEB >/dev/null)
logger_deb=$(ls "$build_dir"/ktl-cli-logger_*.deb)
host_deb=$(ls "$build_dir"/ktl-cli-host_*.deb)

echo "== contents"
# Lists a package's paths without the leading "." of dpkg-deb's listing.
paths_of() { dpkg-deb -c "$1" | awk '{print $6}' | sed 's|^\./|/|'; }
expect_paths() {
  local deb=$1; shift
  local listing; listing=$(paths_of "$deb")
  for path in "$@"; do
    grep -qxF "$path" <<<"$listing" || fail "$(basename "$deb") lacks $path"
  done
  if grep -Ei 'test|probe|nofactory|gtest' <<<"$listing"; then
    fail "$(basename "$deb") contains test files (above)"
  fi
}
expect_paths "$logger_deb" \
  /opt/velmora/ktl/cli/plugins/libktl_cli-logger.so \
  /opt/velmora/ktl/cli/LoggerParams.ini
expect_paths "$host_deb" \
  /usr/bin/ktl-cli \
  /usr/share/ktl-cli/templates/logger.mustache \
  /usr/share/ktl-cli/catalogue/messages.ini \
  /usr/share/ktl-cli/default/logger.ini \
  /usr/lib/ktl-cli/libktl_shell.so \
  /opt/velmora/ktl/cli/plugins/logger.command.ini \
  /opt/velmora/ktl/cli/plugins/logger.reasons.ini \
  /usr/share/man/man1/ktl-cli.1.gz \
  /usr/share/man/man1/ktl-cli-logger.1.gz \
  /usr/share/bash-completion/completions/ktl-cli
dpkg-deb -f "$logger_deb" Package >/dev/null
[ "$(dpkg-deb --ctrl-tarfile "$logger_deb" | tar -xO ./conffiles)" = /opt/velmora/ktl/cli/LoggerParams.ini ] ||
  fail "LoggerParams.ini is not a conffile"
dpkg-deb -f "$host_deb" Depends | grep -q 'ktl-cli-logger' || fail "ktl-cli-host does not depend on ktl-cli-logger"
bash "$top/scripts/check-package-policy.sh" "$logger_deb" "$host_deb"
# dpkg-shlibdeps states the plug-in's dependencies here; the cross packages
# state them from the module's symbol versions. Both must agree.
stated=$(bash "$top/scripts/runtime-depends.sh" "$build_dir/plugins/libktl_cli-logger.so")
[ "$(dpkg-deb -f "$logger_deb" Depends)" = "$stated" ] ||
  fail "dpkg-shlibdeps gives $(dpkg-deb -f "$logger_deb" Depends), runtime-depends.sh $stated"

echo "== install and run"
state_dir=$(mktemp -d)
cleanup() {
  dpkg --purge "${packages[@]}" >/dev/null 2>&1 || true
  rm -rf "$state_dir"
}
trap cleanup EXIT
dpkg -i "$logger_deb" "$host_deb" >/dev/null
# Only the installed paths: nothing of the environment may point elsewhere.
report=$(env -u KTL_PLUGIN_DIR -u KTL_TEMPLATE_DIR -u KTL_CATALOGUE -u KTL_DEFAULT_CONF -u KTL_ROOT \
  KTL_STATE_DIR="$state_dir" /usr/bin/ktl-cli logger -confirm cur) ||
  fail "the installed ktl-cli failed: $report"
grep -q 'CPU' <<<"$report" || fail "the installed ktl-cli printed no report: $report"
echo "$report"
KTL_STATE_DIR="$state_dir" /usr/bin/ktl-cli help logger | grep -q -- '-device cpu|mem|disk' ||
  fail "the installed ktl-cli has no help for logger"

echo "== remove"
dpkg --purge "${packages[@]}" >/dev/null
for path in /usr/bin/ktl-cli /opt/velmora/ktl/cli/plugins/libktl_cli-logger.so /opt/velmora/ktl/cli/LoggerParams.ini; do
  [ ! -e "$path" ] || fail "$path is still there after the purge"
done
echo "check-packages: OK"
