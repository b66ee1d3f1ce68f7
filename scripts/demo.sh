#!/bin/sh
# The main job from one end to the other: drawings become documents, documents become machine lines and pictures.
# Usage: demo.sh SHAPEDOC [OUTPUT_FOLDER [PLUGIN_FOLDER]]
set -eu
shapedoc=$1
out=${2:-out}
plugins=${3:-}
samples=$(dirname "$0")/../samples
mkdir -p "$out"

say() {
    printf '  %-24s %s\n' "$1" "$2"
}

# Everything that can be made of a document.
use() {
    name=$1
    document=$out/$name.shapes
    say "$name.shapes" "the document"
    "$shapedoc" info "$document" > "$out/$name-info.txt"
    say "$name-info.txt" "$(tail -n 1 "$out/$name-info.txt")"
    for format in csv svg gcode; do
        "$shapedoc" lines "$document" -o "$out/$name-lines.$format"
        say "$name-lines.$format" "machine lines"
    done
    "$shapedoc" render "$document" -o "$out/$name.png"
    say "$name.png" "the preview"
    "$shapedoc" render --lines "$document" -o "$out/$name-order.png"
    say "$name-order.png" "the order of the lines"
    "$shapedoc" transform "$document" -o "$out/$name-again.shapes"
    if ! cmp "$document" "$out/$name-again.shapes"; then
        echo "$document did not come back as it was written" >&2
        exit 1
    fi
    say "$name-again.shapes" "read and written anew: came back byte for byte ($(wc -c < "$document") bytes)"
}

for name in ornament rosette; do
    echo "$name.svg"
    "$shapedoc" import "$samples/$name.svg" -o "$out/$name.shapes"
    use "$name"
done

echo "the ornament, grouped and repeated"
"$shapedoc" group "$out/ornament.shapes" -o "$out/group.shapes"
"$shapedoc" array "$out/group.shapes" -o "$out/array.shapes" --rows 3 --cols 4 --gap 6,6 --shift 25,0 --delete 5,10
use array

echo "the ornament, flattened and refitted"
"$shapedoc" import --flatten "$samples/ornament.svg" -o "$out/flat.shapes"
"$shapedoc" render --points "$out/flat.shapes" -o "$out/flat.png"
say "flat.png" "before: $("$shapedoc" info "$out/flat.shapes" | tail -n 1)"
LD_LIBRARY_PATH=$plugins "$shapedoc" fit "$out/flat.shapes" -o "$out/fitted.shapes" > "$out/fitted.txt"
"$shapedoc" render --points "$out/fitted.shapes" -o "$out/fitted.png"
say "fitted.png" "after: $(grep '^all' "$out/fitted.txt")"

echo "a drawing with flaws"
"$shapedoc" import "$samples/flaws.svg" -o "$out/flaws.shapes"
"$shapedoc" report "$out/flaws.shapes" --bed 115x80 --y-down > "$out/flaws.txt" || [ $? = 4 ]
say "flaws.txt" "the report: $(grep -c : "$out/flaws.txt") lines"
"$shapedoc" render --report "$out/flaws.shapes" --bed 115x80 --y-down -o "$out/flaws.png" --width 720
say "flaws.png" "its places"

echo "a text in three lines"
"$shapedoc" import --text 'Engraved by light,\ncut by light,\nkept as text' --font 'Liberation Serif' --size 12 \
    --italic --align center -o "$out/rows.shapes"
use rows

echo "a text in columns"
"$shapedoc" import --text '激光雕刻\n切割加工\n东京' --font 'Noto Sans CJK SC' --size 14 --vertical --spacing 2 \
    -o "$out/columns.shapes"
use columns

echo "medallion.png"
"$shapedoc" import "$samples/medallion.png" -o "$out/medallion-upright.shapes"
say "medallion-upright.shapes" \
    "the picture, $("$shapedoc" info "$out/medallion-upright.shapes" | sed -n '3s/^ *//;3s/;.*//p')"
"$shapedoc" transform "$out/medallion-upright.shapes" -o "$out/medallion.shapes" --rotate 30
say "medallion.shapes" "turned by 30 degrees"
"$shapedoc" render "$out/medallion.shapes" -o "$out/medallion.png"
say "medallion.png" "the preview"
"$shapedoc" lines "$out/medallion.shapes" -o "$out/medallion.gcode" --engrave --overscan 2
say "medallion.gcode" "its engraving ($(grep -c S "$out/medallion.gcode") changes of power)"
"$shapedoc" render "$out/medallion.gcode" -o "$out/medallion-burned.png"
say "medallion-burned.png" "what the machine burns"
"$shapedoc" lines "$out/medallion.shapes" -o "$out/medallion-dots.gcode" --engrave --dither
"$shapedoc" render "$out/medallion-dots.gcode" -o "$out/medallion-dots.png"
say "medallion-dots.png" "the same by a laser that is on or off"
"$shapedoc" array "$out/medallion.shapes" -o "$out/medallions.shapes" --rows 2 --cols 3 --gap 2,2
say "medallions.shapes" \
    "an array of copies ($(wc -c < "$out/medallions.shapes") bytes, one copy $(wc -c < "$out/medallion.shapes"))"
"$shapedoc" render "$out/medallions.shapes" -o "$out/medallions.png"
say "medallions.png" "the preview"

shapebench=$(dirname "$shapedoc")/shapebench
if [ -x "$shapebench" ]; then
    echo "a whole job in the window"
    # Without the remarks of a platform that shows no windows.
    QT_LOGGING_RULES="default.warning=false" LD_LIBRARY_PATH=$plugins \
        "$shapebench" --screenshots "$out" "$samples/ornament.svg" "$samples/medallion.png"
    for name in 1-import 2-text 3-picture 4-array 5-preview 6-dark; do
        say "workbench-$name.png" "the window"
    done
    say "workbench.gcode" "its job"
fi
