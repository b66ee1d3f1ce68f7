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
cmake --build "$build" --target public_types shapemodel shapedocument shapehost shapemodel-c >/dev/null
mkdir -p "$work"

compiler=$(g++ -dumpversion)
rooms=()
for room in src libs/shapedocument apps/referencehost "$build/include"; do
    rooms+=(--headers-dir "$room")
done
# Types of other projects' headers are known by their names alone.
abidw --drop-private-types --no-corpus-path --no-comp-dir-path --no-show-locs "${rooms[@]}" \
    "$work/libpublic_types.so" --out-file "$work/types.abi"
symbols() { # package, libraries, version, more options of dpkg-gensymbols: writes the symbols of the libraries
    local files=()
    for library in $2; do
        files+=("-e$build/lib/lib$library.so.$version")
    done
    dpkg-gensymbols "-p$1" -v"$3" "${files[@]}" -O"$work/$1.symbols" "${@:4}" >"$work/log" 2>&1 ||
        { cat "$work/log" >&2; echo "the exported symbols (-: gone, +: new) are not those of $kept" >&2; return 1; }
}
version=$(sed -n "s/^CMAKE_PROJECT_VERSION:STATIC=//p" "$build/CMakeCache.txt")
declare -A packages=(["libshapemodel${version%%.*}"]="shapehost shapemodel shapedocument"
    ["libshapemodel-c${version%%.*}"]="shapemodel-c")
for package in "${!packages[@]}"; do
    if [ "${2:-}" = --renew ]; then
        rm -f "$work/$package.symbols" # what a former run has left there would be merged
        symbols "$package" "${packages[$package]}" "$version"
        sed '/#MINVER#$/a * Build-Depends-Package: libshapemodel-dev' "$work/$package.symbols" \
            >"$kept/$package.symbols"
    else
        [ -e "$kept/$package.symbols" ] || {
            echo "$kept holds nothing of $package: check_abi.sh --renew keeps it" >&2
            exit 1
        }
        # Only in a later version are symbols missed that this version kept.
        symbols "$package" "${packages[$package]}" "$version+later" "-I$kept/$package.symbols" -c4
    fi
done
if [ "${2:-}" = --renew ]; then
    xz -9c "$work/types.abi" >"$kept/types-gcc$compiler.abi.xz"
elif [ -e "$kept/types-gcc$compiler.abi.xz" ]; then
    xz -dc "$kept/types-gcc$compiler.abi.xz" >"$work/kept.abi"
    abidiff --no-added-syms "$work/kept.abi" "$work/types.abi" >&2 ||
        { echo "the layouts above are not those of $kept" >&2; exit 1; }
else
    echo "left out: layouts, which are kept of another compiler than GCC $compiler"
fi
