#!/usr/bin/env bash
# Every text of the window program has its translation, and no translation is left of a text that is gone.
set -euo pipefail
cd "$(dirname "$0")/.."
PATH=/usr/lib/qt6/bin:$PATH
texts=apps/workbench/texts/workbench_zh_CN.ts
fresh=$(mktemp --suffix .ts)
trap 'rm -f "$fresh"' EXIT
cp "$texts" "$fresh"
lupdate -silent -locations none apps/workbench -ts "$fresh"
if grep -B 1 -E 'type="(unfinished|vanished|obsolete)"' "$fresh" >&2; then
    echo "$texts is behind: lupdate -no-obsolete -locations none apps/workbench -ts $texts, then translate" >&2
    exit 1
fi
