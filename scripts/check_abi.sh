#!/usr/bin/env bash
# Holds the libraries' binary interface against the one that packaging/abi keeps: the layouts and virtual functions of
# all public types, and all exported symbols. What breaks hosts that are built already is an error until the major
# version, and with it the libraries' names for the loader, is raised; new symbols are an error until they are kept.
# Usage: check_abi.sh BUILD_FOLDER [--renew]
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath "$1") kept=packaging/abi
work=$build/abi
echo "== binary interface"
cmake --build "$build" --target public_types shapemodel shapedocument shapehost >/dev/null
mkdir -p "$work"

compiler=$(g++ -dumpversion)
rooms=(src libs/shapedocument apps/referencehost "$build/include")
# Types of other projects' headers are known by their names alone.
abidw --drop-private-types --no-corpus-path --no-comp-dir-path --no-show-locs "${rooms[@]/#/--headers-dir=}" \
    "$build/lib/libpublic_types.so" --out-file "$work/types.abi"
soname() { objdump -p "$1" | sed -n 's/^ *SONAME *//p'; }
for library in shapehost shapemodel shapedocument; do
    soname "$build/lib/lib$library.so"
    nm -D --defined-only "$build/lib/lib$library.so" | cut -d' ' -f2- | grep -v ' _\(edata\|end\|_bss_start\)$' | LC_ALL=C sort
done >"$work/symbols"
if [ "${2:-}" = --renew ]; then
    xz -9c "$work/types.abi" >"$kept/types-gcc$compiler.abi.xz"
    cp "$work/symbols" "$kept/symbols"
    exit
fi

mapfile -t names < <(grep '\.so\.' "$work/symbols")
mapfile -t former < <(grep '\.so\.' "$kept/symbols")
if [ "${names[*]}" != "${former[*]}" ]; then
    echo "${names[*]} replace ${former[*]}: keep their interface by scripts/check_abi.sh BUILD_FOLDER --renew" >&2
    exit 1
fi
diff -u "$kept/symbols" "$work/symbols" >&2 || { echo "the exported symbols (-: gone, +: new) are not those of $kept" >&2; exit 1; }
if [ ! -e "$kept/types-gcc$compiler.abi.xz" ]; then
    echo "left out: layouts, which are kept of another compiler than GCC $compiler"
    exit
fi
xz -dc "$kept/types-gcc$compiler.abi.xz" >"$work/kept.abi"
abidiff --no-added-syms "$work/kept.abi" "$work/types.abi" >&2 || { echo "the layouts above are not those of $kept" >&2; exit 1; }
