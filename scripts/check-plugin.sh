#!/usr/bin/env bash
# What a firmware engineer runs before shipping a build of the plug-in.
#   scripts/check-plugin.sh BUILD_DIR
# Prints the module's target, the dynamic symbols it defines, the symbols it
# expects from the host, the libraries it needs and the highest GLIBCXX,
# CXXABI and GLIBC versions it requires. Fails when the module defines
# anything but its factory, needs a library other than the C and C++
# runtimes, imports a symbol that no host interface provides, or uses a
# std::string ABI other than the one the build asked for (KTL_CXX11_ABI in
# BUILD_DIR/CMakeCache.txt).
#
# Only readelf and c++filt are used: they read the ELF of any architecture,
# so the check works the same on cross builds.
set -euo pipefail
build_dir=${1:?usage: check-plugin.sh BUILD_DIR}
module=$build_dir/plugins/libktl_cli-logger.so
cache=$build_dir/CMakeCache.txt
[ -f "$module" ] || { echo "check-plugin: no module at $module; build the ktl_cli-logger target first" >&2; exit 2; }
[ -f "$cache" ] || { echo "check-plugin: $build_dir has no CMakeCache.txt" >&2; exit 2; }

cache_value() { sed -n "s/^$1:[A-Z]*=//p" "$cache"; }
case "$(cache_value KTL_CXX11_ABI)" in
  OFF|FALSE|0|NO) abi=older ;;
  *) abi=cxx11 ;;
esac
sanitize=$(cache_value KTL_SANITIZE)

status=0
fail() { echo "FAIL: $*"; status=1; }

# readelf's dynamic symbol table: "Num: Value Size Type Bind Vis Ndx Name",
# where an imported name carries "@VERSION (n)" when a library versions it.
# Local entries (the section symbols some targets' linkers add) are not
# visible to the loading process.
dynsyms=$(readelf --dyn-syms -W "$module" | awk 'NR > 3 && NF >= 8 && $5 != "LOCAL" {print $7, $8}')
defined=$(awk '$1 != "UND" {print $2}' <<<"$dynsyms" | sort -u)
undefined=$(awk '$1 == "UND" {print $2}' <<<"$dynsyms" | sort -u)
# Unversioned imports come from the loading process, the host; versioned
# ones from the C and C++ runtimes. The weak hooks of the C runtime's start
# files are resolved or left null by any process.
host_imports=$(grep -v '@' <<<"$undefined" |
  grep -vxE '__gmon_start__|_ITM_(de)?registerTMCloneTable' || true)
runtime_imports=$(grep '@' <<<"$undefined" || true)

echo "== target"
file -b "$module"

echo "== dynamic symbols defined"
echo "$defined"
[ "$defined" = GetCommandFactorylogger ] || fail "the module must define GetCommandFactorylogger and nothing else"

echo "== symbols expected from the host"
host_demangled=$(c++filt <<<"$host_imports")
echo "$host_demangled"
# The host interfaces of the binary contract, their vtables and typeinfo.
contract='^((vtable|typeinfo|typeinfo name) for )?(C(Command|CommandParam|Message|ToolServiceLoggerAcc|TempleteContext|TemplateEngine|StringUtil|KtlUtil|TraceUtility)(::|$)|GetPrivateProfileIntA$)'
# A sanitizer build binds the C and C++ runtime functions that the sanitizer
# runtimes intercept (memcmp, operator new, ...) to their unversioned
# definitions there.
if [ "$sanitize" = ON ]; then
  contract="$contract|^__(asan|ubsan|sanitizer|lsan)_|^operator (new|delete)(\[\])?\(|^__cxa_|^[A-Za-z_][A-Za-z0-9_]*$"
fi
unexpected=$(grep -vE "$contract" <<<"$host_demangled" || true)
[ -z "$unexpected" ] || fail "imports that no host interface provides (undefined in the module):
$unexpected"

echo "== libraries needed"
needed=$(readelf -d -W "$module" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
echo "$needed"
allowed_needed='libstdc\+\+\.so\.6|libm\.so\.6|libgcc_s\.so\.1|libc\.so\.6'
if [ "$sanitize" = ON ]; then
  allowed_needed="$allowed_needed|libasan\.so\.[0-9]+|libubsan\.so\.[0-9]+"
fi
for lib in $needed; do
  grep -qxE "$allowed_needed" <<<"$lib" || fail "the module needs $lib; only the C and C++ runtimes may be needed"
done

echo "== highest symbol versions required"
versions=$(readelf -V -W "$module" | sed -n 's/.*Name: \([A-Z_]*[0-9][0-9.]*\) .*Flags.*/\1/p')
# ARM's EABI adds a CXXABI_ARM family beside CXXABI.
for family in GLIBCXX CXXABI CXXABI_ARM GLIBC; do
  highest=$(grep -E "^${family}_[0-9]" <<<"$versions" | sort -V | tail -n 1 || true)
  [ -n "$highest" ] || [ "$family" = CXXABI_ARM ] || highest="(none)"
  [ -z "$highest" ] || echo "$family: $highest"
done

echo "== std::string ABI (the build asked for the ${abi/cxx11/C++11} one)"
# The C++11 ABI's types live in std::__cxx11; the older string mangles as
# "Ss" and demangles to std::string (or std::basic_string without __cxx11).
all_demangled=$(c++filt <<<"$undefined")
cxx11_count=$(grep -c 'std::__cxx11::' <<<"$all_demangled" || true)
old_count=$(grep -vF 'std::__cxx11::' <<<"$all_demangled" | grep -cE 'std::(string|basic_string<)' || true)
echo "imports with the C++11 ABI: $cxx11_count; with the older ABI: $old_count"
if [ "$abi" = cxx11 ]; then
  [ "$old_count" -eq 0 ] || fail "the build asked for the C++11 string ABI but $old_count imports use the older one"
  [ "$cxx11_count" -gt 0 ] || fail "the build asked for the C++11 string ABI but no import uses it"
else
  [ "$cxx11_count" -eq 0 ] || fail "the build asked for the older string ABI but $cxx11_count imports use the C++11 one"
  [ "$old_count" -gt 0 ] || fail "the build asked for the older string ABI but no import uses it"
fi

if [ "$status" -eq 0 ]; then
  echo "check-plugin: OK"
else
  echo "check-plugin: FAILED" >&2
fi
exit "$status"
