#!/usr/bin/env bash
# Every text of the window program has its translation, and no translation is left of a text that is gone. English has
# the plurals only.
set -euo pipefail
cd "$(dirname "$0")/.."
PATH=/usr/lib/qt6/bin:$PATH
fresh=$(mktemp --suffix .ts)
trap 'rm -f "$fresh"' EXIT
check() { # file of texts, options of lupdate
    cp "$1" "$fresh"
    lupdate -silent -locations none "${@:2}" apps/workbench -ts "$fresh"
    if grep -B 1 -E 'type="(unfinished|vanished|obsolete)"' "$fresh" >&2; then
        echo "$1 is behind: lupdate -no-obsolete -locations none ${*:2} apps/workbench -ts $1, then translate" >&2
        return 1
    fi
}
check apps/workbench/texts/workbench_zh_CN.ts
check apps/workbench/texts/workbench_en.ts -pluralonly
