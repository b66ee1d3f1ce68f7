#!/usr/bin/env bash
# Puts the licence that the owner has chosen into its places: LICENSE, the first line of every source and script, and
# the packages' copyright. Until then none is granted (packaging/copyright). Another run replaces the last choice.
# Usage: set_licence.sh SPDX_IDENTIFIER TEXT_FILE
set -euo pipefail
[ $# -eq 2 ] && [[ $1 =~ ^[A-Za-z0-9.+-]+$ ]] && [ -s "$2" ] || { sed -n '2,4s/^# //p' "$0" >&2; exit 2; }
licence=$1 text=$(realpath "$2")
cd "$(dirname "$0")/.."
[ "$text" -ef LICENSE ] || cp "$text" LICENSE

sign() { # start of a comment, files...
    local line="$1 SPDX-License-Identifier: $licence" file first
    for file in "${@:2}"; do
        sed -i '1,2{/^\(\/\/\|#\) SPDX-License-Identifier: /d}' "$file"
        first=1
        [[ $(head -c 2 "$file") != '#!' ]] || first=2 # behind the interpreter's name
        if [ "$first" -gt "$(wc -l <"$file")" ]; then echo "$line" >>"$file"; else sed -i "${first}i $line" "$file"; fi
    done
}
mapfile -t sources < <(git ls-files '*.h' '*.cpp' '*.c' '*.h.in')
mapfile -t scripts < <(git ls-files '*.sh' '*.py' '*.cmake' '*CMakeLists.txt' dev .ci/run)
sign // "${sources[@]}"
sign '#' "${scripts[@]}"

{
    sed '/^Comment: /,/^ a right /{/^Comment: /s/:.*/: The libraries that it is linked with/p;d}; /^ are not part/q' \
        packaging/copyright | sed '$d'
    sed -n '/^ are not part/,/^Copyright: /p' packaging/copyright
    printf 'License: %s\n\nLicense: %s\n' "$licence" "$licence"
    sed 's/^$/./; s/^/ /' LICENSE
} >packaging/copyright.new
mv packaging/copyright.new packaging/copyright
echo "${#sources[@]} sources and ${#scripts[@]} scripts are under $licence"
