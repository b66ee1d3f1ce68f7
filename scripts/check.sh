#!/usr/bin/env bash
# What can be seen without building: formatting and the direction of includes.
set -euo pipefail
cd "$(dirname "$0")/.."
echo "== format"
git ls-files -co --exclude-standard -z '*.h' '*.cpp' | xargs -0 -r clang-format --dry-run --Werror
echo "== includes"
python3 scripts/check_includes.py
echo "== texts"
scripts/check_texts.sh
