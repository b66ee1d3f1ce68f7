#!/usr/bin/env bash
# What the inputs of the fuzz targets reach, per source file, as a Markdown table.
# Usage: coverage.sh PROGRAMS WORK_FOLDER
# PROGRAMS are the replay programs of a build that counts; WORK_FOLDER is that of run.sh, whose kept inputs and
# seeds are run beside the corpus.
set -euo pipefail
programs=$1 work=$2
here=$(dirname "$0")
counts=$work/counts
mkdir -p "$counts"
objects=()
for replay in "$programs"/*Replay; do
    target=$(basename "$replay" Replay)
    folders=("$here/corpus/$target")
    for folder in "$work/seeds/$target" "$work/kept/$target"; do
        [ -z "$(ls -A "$folder" 2>/dev/null)" ] || folders+=("$folder")
    done
    LLVM_PROFILE_FILE=$counts/$target.raw "$replay" "${folders[@]}" >/dev/null 2>&1
    objects+=(-object "$replay")
done
llvm-profdata merge -sparse "$counts"/*.raw -o "$counts/all"
echo "| file | lines | reached | branches | reached |"
echo "| --- | --- | --- | --- | --- |"
llvm-cov export -summary-only -instr-profile "$counts/all" "${objects[@]:1}" |
    python3 -c '
import json, sys
files = json.load(sys.stdin)["data"][0]["files"]
for file in sorted(files, key=lambda file: file["filename"]):
    place = next((p for p in ("/libs/", "/src/", "/plugins/") if p in file["filename"]), None)
    if not place or file["filename"].endswith(".h"):
        continue
    name = file["filename"][file["filename"].index(place) + 1:]
    lines, branches = file["summary"]["lines"], file["summary"]["branches"]
    percent = lambda counted: "%.0f %%" % counted["percent"] if counted["count"] else ""
    print("| `%s` | %d | %s | %d | %s |" % (name, lines["count"], percent(lines), branches["count"], percent(branches)))
'
