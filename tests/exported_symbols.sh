#!/bin/sh
# Lists the module's defined dynamic symbols; passes only when PluginEntry is the one function.
set -eu
symbols=$(nm -D --defined-only "$1" | awk '{print $3}' | grep -v -E '^(_init|_fini|_edata|_end|__bss_start)$' || true)
if [ "$symbols" = "PluginEntry" ]; then
  echo "exported: PluginEntry"
  exit 0
fi
echo "unexpected exports:"
echo "$symbols"
exit 1
