#!/usr/bin/env bash
# Every symbol that the library defines for others belongs to a class of scripts/exported_classes.txt.
set -euo pipefail
library=$1
classes=$(grep -v '^#' "$(dirname "$0")/exported_classes.txt" | paste -sd '|')
echo "== exported symbols"
strays=$(nm -DC --defined-only "$library" | cut -c18- \
    | grep -vE "^. (non-virtual thunk to |vtable for |typeinfo for |typeinfo name for |VTT for |guard variable for )?($classes)(::|\\(|$)" \
    | grep -vE '^[VWuw] |^[BD] (__bss_start|_edata|_end)$' || true)
if [ -n "$strays" ]; then
    printf 'exported, but of no exported class:\n%s\n' "$strays" >&2
    exit 1
fi
