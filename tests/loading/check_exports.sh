#!/usr/bin/env bash
# Checks the binary shape of the plug-in module: it defines no dynamic symbol
# but its factory, needs no host library, and leaves the host's symbols
# undefined for the loading process to resolve.
set -euo pipefail
module=$1
status=0

defined=$(nm -D --defined-only "$module" | awk '{print $NF}' | sort)
if [ "$defined" != "GetCommandFactorylogger" ]; then
  echo "FAIL: dynamic symbols defined besides the factory:"
  echo "$defined"
  status=1
fi

needed=$(readelf -d "$module" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
for lib in $needed; do
  case "$lib" in
    libstdc++.so.*|libm.so.*|libgcc_s.so.*|libc.so.*|libasan.so.*|libubsan.so.*) ;;
    *) echo "FAIL: unexpected DT_NEEDED $lib"; status=1 ;;
  esac
done

undefined=$(nm -D --undefined-only "$module" | awk '{print $NF}')
for sym in _ZN8CMessage4showENSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEEmS5_ \
           _ZN21CToolServiceLoggerAcc9initWriteEi \
           _ZN21CToolServiceLoggerAcc12GetParameterER18Velmora_LoggerConf \
           _ZN8CCommand4ExecENSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE \
           _ZN13CTraceUtility10WriteDebugEPKcNS_15TRACE_DBG_LEVELES1_z; do
  if ! grep -qx "$sym" <<<"$undefined"; then
    echo "FAIL: host symbol $sym is not an undefined reference"
    status=1
  fi
done

[ "$status" -eq 0 ] && echo "module exports only GetCommandFactorylogger; host symbols undefined"
exit "$status"
