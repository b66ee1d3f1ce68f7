#!/usr/bin/env bash
# Runs the examples one after the other and looks at what they make. Usage: run_examples.sh BUILT SHAPEDOC SAMPLES WORK
set -euo pipefail
here=$(dirname "$(realpath "$0")")
built=$(realpath "$1") shapedoc=$2 samples=$(realpath "$3") work=$4
export QT_QPA_PLATFORM=offscreen
mkdir -p "$work"
cd "$work"

expect() { # text command...
    local said
    said=$("${@:2}" 2>&1) || { echo "$2 failed: $said" >&2; exit 1; }
    [[ $said == *"$1"* ]] || { echo "$2 said '$said', not '$1'" >&2; exit 1; }
}

expect "4 shapes" "$built/make_and_save" tag.shapes
expect "clean, 4 shapes" "$shapedoc" check tag.shapes
expect "" "$built/open_draw_save" tag.shapes tag.png moved.shapes
[ "$(head -c 4 tag.png | tail -c 3)" = PNG ]
expect "dropped at 30 10"$'\n'"undone to 0 0" "$built/drag_and_undo"
expect "11 tags on 290 x 215 mm" "$built/array_sheet" tag.shapes sheet.shapes
expect "of 44 shapes" "$built/lines_to_gcode" sheet.shapes sheet.gcode
grep -q "^M4" sheet.gcode
expect "x 240 pixels on 50 x" "$built/picture_true_size" "$samples/medallion.png" picture.shapes
expect "clean, 2 shapes" "$shapedoc" check picture.shapes
expect "37 shapes, 37 paths on 140.0 x 140.0 mm" "$built/main_job" "$samples/rosette.svg" rosette.gcode

expect "told step by step" "$built/progress_in_c" "$samples/ornament.svg" ornament.shapes
expect "clean, 54 shapes" "$shapedoc" check ornament.shapes
expect "0 handles left" "$built/shapes_in_c" sheet_in_c.shapes sheet_in_c.png
expect "clean, 5 shapes" "$shapedoc" check sheet_in_c.shapes
expect "the host has set no stores for pixels" "$built/picture_stores" "$samples/medallion.png" stores.png
expect "theme OwnTheme, second cell at 100 pixels" "$built/own_host"
# The plug-in leaves out two points that lie within 0.002 mm of the line between their neighbours.
printf '<svg xmlns="http://www.w3.org/2000/svg" width="96" height="96"><path d="%s" stroke="red" fill="none"/></svg>' \
    "M0 0L30 30.004L60 60L90 90.004L90 10" | "$shapedoc" import --flatten - -o line.shapes
LD_LIBRARY_PATH=$built/plugin:${LD_LIBRARY_PATH:-} \
    expect "6 points before, 4 after, largest deviation 0.0005" "$shapedoc" fit line.shapes -o fitted.shapes
# The guides show these programs and say what they print.
"$here/check_pages.py" "$built" "$shapedoc" pages
