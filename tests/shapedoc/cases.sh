#!/usr/bin/env bash
# End-to-end cases of the program. Usage: cases.sh CASE SHAPEDOC SAMPLES
# What the cases share is here, the cases themselves stand by subject in the other files of this folder.
set -euo pipefail
case=$1 shapedoc=$2 samples=$3 here=$(realpath "$(dirname "$0")")
work=$(mktemp -d "$PWD/$case.XXXXXX")
trap 'rm -rf "$work"' EXIT
cd "$work"
export XDG_CONFIG_HOME=$work/config QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

expect() { # what wanted got
    [ "$2" = "$3" ] || fail "$1: wanted '$2', got '$3'"
}

# drawing FILE ROOT_ATTRIBUTES < content
drawing() {
    { echo "<svg xmlns='http://www.w3.org/2000/svg' $2>"; cat; echo "</svg>"; } >"$1"
}

# A drawing of 96 units to the inch from standard input, as doc.shapes or another file.
import() {
    drawing in.svg "width='300' height='300'"
    "$shapedoc" import in.svg -o "${1-doc.shapes}"
}

# A document of one closed outline, 25.4 x 12.7 mm.
one_rect() {
    import <<<"<rect width='96' height='48' fill='none' stroke='red'/>"
}

# rows COLUMNS: those columns of the table's shape rows, the shapes separated by semicolons.
rows() {
    "$shapedoc" info doc.shapes | sed '1d;$d;s/^ *//' | tr -s ' ' | cut -d ' ' -f "$1" | paste -sd ';'
}

# runs CODE WORDS [ARGUMENTS]: the program ends with the code. A line of what it says holds the words; without words it
# says nothing. An error is told in one line on standard error, and no file of the name x is written then.
runs() {
    run_with "$1" "$2" ${3-}
}

# run_with CODE WORDS ARGUMENT…: the same for arguments that hold blanks.
run_with() {
    local code=0 said=said.txt
    "$shapedoc" "${@:3}" >out.txt 2>err.txt || code=$?
    expect "exit code of ${*:3}" "$1" "$code"
    cat out.txt err.txt >said.txt
    if [[ $code == [12] || $code == [34] && ! -s out.txt ]]; then
        expect "lines of ${*:3}" 1 "$(wc -l <err.txt)"
        ! compgen -G 'x.*' >/dev/null || fail "${*:3}: wrote in spite of an error"
        said=err.txt
    fi
    if [ -n "$2" ]; then
        grep -qaF -- "$2" $said || fail "${*:3}: no '$2' in '$(cat $said)'"
    else
        expect "said by ${*:3}" "" "$(cat $said)"
    fi
}

# each FUNCTION: called with the fields of every row, separated by |, of the table on standard input.
each() {
    local row
    while IFS='|' read -ra row; do
        "$1" "${row[@]}" </dev/null
    done
}

# all_change ENDING ARGUMENTS…: each line of options from standard input changes the file that the arguments make.
all_change() {
    local options
    "$shapedoc" "${@:2}" -o "plain.$1"
    while read -r options; do
        "$shapedoc" "${@:2}" $options -o "other.$1" </dev/null
        ! cmp -s "plain.$1" "other.$1" || fail "${*:2}: $options changes nothing"
    done
}

# A bare list of one group record (tag, status, colour, guide line, no points) without its members' list.
group_record() {
    printf '\1\0\0\0\3\0\0\0'
    head -c 44 /dev/zero
}

# with FILE OFFSET BYTES: the file with those bytes (as printf takes them) in place of its own.
with() {
    printf "$3" | dd of="$1" bs=1 seek="$2" conv=notrunc status=none
}

for file in "$here"/*.sh; do
    [ "$file" -ef "$0" ] || . "$file"
done
case_"$case"
