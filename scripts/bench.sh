#!/usr/bin/env bash
# Runs every benchmark of a folder, one after the other; further arguments go to Google Benchmark.
set -euo pipefail
folder=$1
shift
for program in "$folder"/*Bench; do
    echo "== $(basename "$program")"
    "$program" "$@"
done
