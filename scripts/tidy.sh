#!/usr/bin/env bash
# clang-tidy over the library and its plug-in; takes a build folder with a compilation database.
set -euo pipefail
cd "$(dirname "$0")/.."
echo "== clang-tidy"
git ls-files -z 'src/*.cpp' 'plugins/*.cpp' | xargs -0 -r -n 2 -P "$(nproc)" clang-tidy -p "$1" --quiet 2> >(grep -vE 'warnings? generated|Suppressed|Use -header-filter' >&2)
