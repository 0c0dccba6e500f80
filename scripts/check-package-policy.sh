#!/usr/bin/env bash
# Checks Debian packages the way a Debian user would find them: lintian
# reports no error and no warning (deliberate tags are overridden in
# packaging/lintian/ with a reason), each package has its machine-readable
# copyright and a compressed changelog, no directory is empty, and every
# Description's first line is a summary, followed by text without stray
# list separators.
#   scripts/check-package-policy.sh DEB...
set -euo pipefail
[ $# -gt 0 ] || { echo "usage: check-package-policy.sh DEB..." >&2; exit 2; }

status=0
fail() { echo "check-package-policy: $*" >&2; status=1; }

for deb in "$@"; do
  name=$(basename "$deb")
  package=$(dpkg-deb -f "$deb" Package)
  listing=$(dpkg-deb -c "$deb" | awk '{print $6}' | sed 's|^\./|/|')
  for path in "/usr/share/doc/$package/copyright" "/usr/share/doc/$package/changelog.Debian.gz"; do
    grep -qxF "$path" <<<"$listing" || fail "$name lacks $path"
  done
  copyright=$(dpkg-deb --fsys-tarfile "$deb" | tar -xO "./usr/share/doc/$package/copyright" 2>/dev/null || true)
  grep -q '^Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/' <<<"$copyright" ||
    fail "$name: the copyright file is not in the machine-readable format"
  # A directory is empty when no other path lies below it.
  empty=$(grep '/$' <<<"$listing" | while read -r dir; do
    grep -q "^${dir}." <<<"$listing" || echo "$dir"
  done)
  [ -z "$empty" ] || fail "$name has empty directories: $empty"
  description=$(dpkg-deb -f "$deb" Description)
  ! grep -qE '^ ?;|;$' <<<"$description" || fail "$name: stray \";\" in the description: $description"
  [ "$(wc -l <<<"$description")" -gt 1 ] || fail "$name has no long description"
done

# lintian names itself a risk when run as root; that note is not a finding.
lintian_status=0
report=$(lintian --fail-on error,warning "$@" 2>&1) || lintian_status=$?
report=$(grep -v '^running with root privileges' <<<"$report" || true)
[ -z "$report" ] || echo "$report"
[ "$lintian_status" -eq 0 ] || fail "lintian reports errors or warnings (above)"

[ "$status" -eq 0 ] && echo "check-package-policy: OK ($*)"
exit "$status"
