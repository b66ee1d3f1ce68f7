#!/usr/bin/env bash
# Every symbol that the libraries define for others, weak ones too, is of a name in exported_names.txt, and every name
# is exported. The C interface's are the functions of its header. Usage: check_exports.sh LIBRARY...
set -euo pipefail
echo "== exported symbols"
header=$(dirname "$0")/../libs/shapemodel-c/shapemodel.h
cpp_libraries=()
for library in "$@"; do
    if [[ $library != *libshapemodel-c.so ]]; then
        cpp_libraries+=("$library")
    elif ! diff \
        <(grep -oE '^[a-z_0-9 ]+[ *]+sm_[a-z_0-9]+\(' "$header" | grep -oE 'sm_[a-z_0-9]+\(' | tr -d '(' | sort) \
        <(nm -D --defined-only "$library" | awk '{ print $3 }' | sort) >&2; then
        echo "the C interface exports (>) what its header does not declare (<)" >&2
        exit 1
    fi
done
names=$(sed -n 's/()$//; /^[A-Za-z]/p' "$(dirname "$0")/exported_names.txt")
symbols=$(nm -DC --defined-only "${cpp_libraries[@]}" | sed -n 's/^[0-9a-f]\{16\} //p' |
    grep -vE '^[BD] (__bss_start|_edata|_end)$')
made="non-virtual thunk to |(vtable|typeinfo|typeinfo name|VTT|guard variable) for " # by the compiler
strays=$(grep -vE "^. ($made)?($(paste -sd '|' <<<"$names"))(::|\(|$)" <<<"$symbols" || true)
if [ -n "$strays" ]; then
    printf 'exported, but of no name in the list:\n%s\n' "$strays" >&2
    exit 1
fi
while read -r name; do
    if ! grep -qE "^. (vtable for )?$name(::|\(|$)" <<<"$symbols"; then
        echo "$name is listed, but not exported" >&2
        exit 1
    fi
done <<<"$names"
