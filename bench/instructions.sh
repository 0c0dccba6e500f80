#!/usr/bin/env bash
# Instruction counts per command form under callgrind: the whole command
# (factory to delete) and the part spent inside the scripted host's
# functions, so that the plug-in's own share can be told apart. Instruction
# counts do not depend on the machine's load, unlike the wall times.
#   bench/instructions.sh [BUILD_DIR]      (default: build-bench, the "bench" preset)
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
bench="$(cd "${1:-$top/build-bench}" && pwd)/bench/plugin_bench"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The host interfaces the scripted host implements.
host_api='CCommand::|CCommandParam::|CMessage::|CToolServiceLoggerAcc::|CTempleteContext::|CTemplateEngine::|CStringUtil::|CKtlUtil::|CTraceUtility::|GetPrivateProfileIntA'

printf '%-14s %12s %12s %12s\n' form "Ir/command" "host Ir" "plug-in Ir"
for form in syslogoutput alert device mp confirm_edit discard_nochk save_nochk; do
  out="$work/$form.out"
  valgrind --tool=callgrind --callgrind-out-file="$out" "$bench" \
    --benchmark_filter="BM_CommandForm/$form\$" --benchmark_min_time=0.02 >/dev/null 2>&1
  callgrind_annotate --threshold=100 --tree=calling --inclusive=yes "$out" 2>/dev/null |
    sed 's/std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >/string/g' |
    awk -v form="$form" -v api="$host_api" '
      # Calls of RunCommand and the host functions made from the plug-in or the bench.
      />   .*RunCommand.*\([0-9]+x\)/ { n = $0; sub(/.*\(/, "", n); sub(/x\).*/, "", n); calls += n;
                                               v = $1; gsub(/,/, "", v); total += v }
      # Top-level inclusive costs of the host functions (they do not call each other).
      /^ *[0-9,]+ \([ 0-9.]+%\)  \*  / && /libscripted_host.so/ {
        name = $0; sub(/.*\?\?\?:/, "", name)
        if (name ~ "^(" api ")") { v = $1; gsub(/,/, "", v); host += v } }
      END { if (calls == 0) { print form, "no calls found"; exit }
            printf "%-14s %12d %12d %12d\n", form, total / calls, host / calls, (total - host) / calls }'
done
