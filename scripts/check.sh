#!/usr/bin/env bash
# What can be seen without building: formatting, the length of lines, the direction of includes, translations.
set -euo pipefail
cd "$(dirname "$0")/.."
echo "== format"
git ls-files -co --exclude-standard -z '*.h' '*.cpp' | xargs -0 -r clang-format --dry-run --Werror
echo "== line lengths"
# Rows of tables and lines that are one picture cannot be wrapped.
long=$(git ls-files -co --exclude-standard -z '*.py' '*.sh' '*.cmake' '*CMakeLists.txt' '*.c' '*.md' 'scripts/*.txt' \
    dev .ci/run |
    LC_ALL=C.UTF-8 xargs -0 grep -nHE '.{121}' | grep -vE '^[^:]*\.md:[0-9]+:(\||!\[.*\)$)' |
    sed -E 's/^([^:]*:[0-9]+):.*/\1: longer than 120 columns/') || true
if [ -n "$long" ]; then
    echo "$long" >&2
    exit 1
fi
echo "== includes"
python3 scripts/check_includes.py
echo "== texts"
scripts/check_texts.sh
