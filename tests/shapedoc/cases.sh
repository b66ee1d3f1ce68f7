#!/usr/bin/env bash
# End-to-end cases of the program. Usage: cases.sh CASE SHAPEDOC SAMPLES
set -euo pipefail
case=$1 shapedoc=$2 samples=$3 sources=$(realpath "$(dirname "$0")/../../apps/shapedoc")
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

# A drawing of 96 units to the inch from standard input, as doc.shapes.
import() {
    drawing in.svg "width='300' height='300'"
    "$shapedoc" import in.svg -o doc.shapes
}

# rows COLUMN…: those columns of the table's shape rows, one shape a line.
rows() {
    "$shapedoc" info doc.shapes | sed -e 1d -e '$d' | awk -v list="$*" '{
        n = split(list, columns, " "); line = ""
        for (i = 1; i <= n; i++) line = line (i > 1 ? " " : "") $columns[i]
        print line }'
}

# le32 NUMBER…: little-endian 32-bit numbers.
le32() {
    local n
    for n in "$@"; do
        printf "$(printf '\\x%02x\\x%02x\\x%02x\\x%02x' $((n & 255)) $((n >> 8 & 255)) $((n >> 16 & 255)) $((n >> 24 & 255)))"
    done
}

# refused CODE WORDS ARGUMENTS…: the program ends with the code and one line on standard error that holds the words.
refused() {
    local code=0
    "$shapedoc" "${@:3}" >out.txt 2>err.txt || code=$?
    expect "exit code of ${*:3}" "$1" "$code"
    expect "lines of ${*:3}" 1 "$(wc -l <err.txt)"
    grep -qF -- "$2" err.txt || fail "${*:3}: no '$2' in '$(cat err.txt)'"
}

# A table of "CODE|WORDS|ARGUMENTS" from standard input, each refused; none has written a file of the name x.
refused_all() {
    local code words arguments
    while IFS='|' read -r code words arguments; do
        refused "$code" "$words" $arguments
        ! compgen -G 'x.*' >/dev/null || fail "$arguments: wrote in spite of an error"
    done
}

# becomes WHAT WANTED COLUMNS < drawing: those columns of the shapes that it becomes, joined by semicolons.
becomes() {
    import
    expect "$1" "$2" "$(rows $3 | paste -sd ';')"
}

# follows WHAT WANTED ARGUMENTS…: the rows of the job that lines makes with the arguments.
follows() {
    "$shapedoc" lines --order reading -o rows.csv "${@:3}"
    expect "$1" "$2" "$(sed 1d rows.csv)"
}

case_round_trip() {
    local name
    for name in ornament rosette; do
        "$shapedoc" import "$samples/$name.svg" -o doc.shapes 2>&1 | cmp - /dev/null
        expect header "53484150 45444f43 0e000000" "$(head -c 12 doc.shapes | od -An -tx1 | tr -d ' \n' | sed 's/.\{8\}/& /g;s/ $//')"
        "$shapedoc" transform doc.shapes -o again.shapes
        cmp doc.shapes again.shapes
    done
    local points
    points=$("$shapedoc" info doc.shapes | sed -n 's/^total: .* \([0-9]*\) points.*/\1/p')
    [ "$points" -gt 10000 ] || fail "the rosette has only $points points"
}

case_not_as_painted() {
    drawing plain.svg "width='96' height='96'" <<<"<rect width='9' height='9'/>"
    drawing soft.svg "width='96' height='96'" <<'SVG'
<g filter='url(#f)'><rect width='9' height='9'/></g><g filter='url(#f)'><text y='50' font-family='No Such Family'>A</text></g>
SVG
    "$shapedoc" import --strict plain.svg -o doc.shapes 2>&1 | cmp - /dev/null
    refused 4 "shapedoc: soft.svg: 2 filters ignored, font No Such Family replaced by " import --strict plain.svg soft.svg -o doc.shapes
    expect "shapes written" 3 "$(rows 1 | wc -l)"
    "$shapedoc" import --json plain.svg soft.svg -o doc.shapes 2>err.txt >said.json
    expect "exit and names" "plain.svg 1 True {}
soft.svg 2 False {'filtersIgnored': 2}" "$(python3 -c 'import json
for d in json.load(open("said.json")): print(d["file"], d["shapes"], d["asPainted"], d["notAsPainted"])')"
    gzip -c plain.svg >plain.svgz
    "$shapedoc" import plain.svgz -o again.shapes
    "$shapedoc" import plain.svg -o doc.shapes
    cmp doc.shapes again.shapes
    cp "$samples/medallion.png" picture.svg
    refused 1 "picture.svg: is no SVG drawing: it is a PNG picture" import picture.svg -o doc.shapes
    mkfifo pipe.svg
    refused 1 "pipe.svg: is no regular file" import pipe.svg -o doc.shapes
}

case_report() {
    import <<'SVG'
<g fill='none'><path stroke='red' d='M0 0 H96 V96 L0 2'/><path stroke='blue' d='M192 0 H480'/></g>
SVG
    "$shapedoc" render doc.shapes -o plain.png --lines
    "$shapedoc" render doc.shapes -o marked.png --lines --report
    ! cmp -s plain.png marked.png || fail "no marks"
    "$shapedoc" report doc.shapes --gap 0.1 >report.txt
    expect "a job that can be cut" "doc.shapes: 2 paths, 162.5 mm to cut" "$(head -n 1 report.txt | cut -d, -f1,2)"
    [ "$("$shapedoc" report doc.shapes --bed 100,50 >report.txt; echo $?)" = 4 ] || fail "exit code"
    expect "a gap" "doc.shapes: 1 contour that is not quite closed: 0, 0.26 (0.529 mm)" "$(sed -n 3p report.txt)"
    expect "out of the bed" "doc.shapes: 1 path outside the bed: 88.9, 0 (27 mm)" "$(sed -n 4p report.txt)"
    "$shapedoc" report doc.shapes --json >report.json || [ $? = 4 ]
    expect "the same as data" "doc.shapes 2 True 1 0" "$(python3 -c 'import json
r = json.load(open("report.json"))
print(r["file"], r["paths"], r["spoils"], r["findings"]["gaps"]["count"], r["findings"]["outOfBed"]["count"])')"
    printf '[machine]\nfeed = 2400\nfree = 1\n' >machine.ini
    refused 1 'machine/free' report doc.shapes --machine machine.ini
    "$shapedoc" import "$samples/medallion.png" -o picture.shapes
    "$shapedoc" report picture.shapes --engrave --lines-per-mm 4 >report.txt
    grep -q 'mm² to engrave$' report.txt || fail "no engraving"
    "$shapedoc" report picture.shapes --engrave --bed 5,5 >report.txt || [ $? = 4 ]
    grep -q '1 path outside the bed' report.txt || fail "engraved outside the bed"
    # A corner has no place: the float behind 82 bytes.
    import <<<"<path fill='none' stroke='red' d='M0 0 L96 0 L96 96 L0 96'/>"
    { head -c 82 doc.shapes; printf '\0\0\300\177'; tail -c +87 doc.shapes; } >nan.shapes
    "$shapedoc" lines nan.shapes -o nan.csv 2>err.txt
    grep -q 'point without place' err.txt || fail "a point is lost without a word: $(cat err.txt)"
    "$shapedoc" report doc.shapes picture.shapes --json --out-dir reports >said.txt || [ $? = 4 ]
    [ -s reports/doc.json ] && [ -s reports/picture.json ] || fail "no reports"
}

case_order() {
    import <<'SVG'
<g fill='none'><path stroke='red' d='M96 0 L96 96 L0 96 L0 0 Z'/><path stroke='red' d='M192 0 L120 0'/>
<path stroke='blue' d='M24 24 L48 24'/></g>
SVG
    places() { # wanted arguments…: colour and begin of each path
        "$shapedoc" lines doc.shapes -o doc.csv --force "${@:2}" 2>said.txt
        expect "order ${*:2}" "$1" "$(awk -F, 'NR > 1 && $2 != last {printf "%s %.4g,%.4g  ", $8, $4, $5; last = $2}' doc.csv)"
    }
    places "#0000ff 6.35,6.35  #ff0000 25.4,0  #ff0000 31.75,0  "
    places "#0000ff 6.35,6.35  #ff0000 25.4,0  #ff0000 31.75,0  " --mix-colors
    places "#ff0000 25.4,0  #ff0000 50.8,0  #0000ff 6.35,6.35  " --order reading
    refused 2 "--mix-colors goes with --order fast only" lines doc.shapes -o x.csv --order reading --mix-colors
    refused 2 "--order" lines doc.shapes -o x.csv --order slow
    refused 2 "--order" render doc.shapes -o x.png --order fast
    "$shapedoc" render doc.shapes -o fast.png --lines
    "$shapedoc" render doc.shapes -o reading.png --lines --order reading
    ! cmp -s fast.png reading.png || fail "one picture for two orders"
}

case_gcode() {
    import <<<"<path fill='none' stroke='red' d='M0 0 L96 0 M96 96 L0 96 L0 48'/>"
    "$shapedoc" lines doc.shapes -o doc.gcode --feed 900 --power 300
    expect program "G21
G90
G94
M5
G0 X0.0000 Y25.4000
M4 S300
G1 X25.4000 Y25.4000 F900
M5
G0 X25.4000 Y0.0000
M4 S300
G1 X0.0000 Y0.0000 F900
G1 X0.0000 Y12.7000
M5
G0 X0 Y0
M2" "$(grep -v '^;' doc.gcode)"
    "$shapedoc" lines doc.shapes -o doc.gcode --y-down --constant-power
    grep -qx "G0 X25.4000 Y25.4000" doc.gcode && grep -qx "M3 S500" doc.gcode
    "$shapedoc" lines doc.shapes -o doc.gcode --height 100
    grep -qx "G0 X25.4000 Y74.6000" doc.gcode
    # Whatever the drawing, the laser is off on every move.
    "$shapedoc" import "$samples/ornament.svg" -o doc.shapes
    "$shapedoc" lines doc.shapes -o doc.gcode
    awk '/^M[34]/ {on = 1} /^M5/ {on = 0} /^G0/ && on || /^G1/ && !on {exit 1}' doc.gcode || fail "laser and moves"
}

case_engrave() {
    "$shapedoc" import "$samples/medallion.png" -o doc.shapes
    "$shapedoc" lines doc.shapes -o doc.gcode --engrave --lines-per-mm 4 --overscan 2 2>err.txt
    expect "what is said of an engraved picture" "" "$(cat err.txt)"
    "$shapedoc" lines doc.shapes -o doc.gcode --engrave --lines-per-mm 4 --overscan 9 2>err.txt
    grep -q 'the run-up of [0-9]* rows reaches left of 0, to X-' err.txt || fail "run-up: $(cat err.txt)"
    grep -q '^G1X[0-9.]*S[0-9]*F1200$\|^X[0-9.]*S' doc.gcode || fail "no rows"
    "$shapedoc" render doc.gcode -o doc.png
    refused 2 "0 is no number from 0.01 to 200" lines doc.shapes -o x.gcode --engrave --lines-per-mm 0
    refused 2 "requires --engrave" lines doc.shapes -o x.gcode --overscan 2
    refused 2 "black would burn with less power" lines doc.shapes -o x.gcode --engrave --engrave-power 5,3
    refused 2 "300 is more than 255" lines doc.shapes -o x.gcode --engrave --dialect marlin --power 300
    refused 2 "no line has a second pass" lines doc.shapes -o x.gcode --engrave --step 1
    refused 2 "none.ini: cannot be opened" lines doc.shapes -o x.gcode --engrave --colors none.ini
    # Areas other than white, lines of no colour that the settings know, and a picture too light for dots.
    drawing in.svg "width='300' height='300'" <<<"<path d='M0 0h96v96z'/><path fill='#fff' stroke='red' d='M0 0h96v96z'/>"
    "$shapedoc" import in.svg -o doc.shapes --fills
    printf '[#ff0000]\norder = 1\n[#00ff00]\npasses = 2\n' >colors.ini
    "$shapedoc" lines doc.shapes -o doc.gcode --engrave --lines-per-mm 1 --colors colors.ini 2>err.txt
    expect "what is said of colours" "shapedoc: warning: doc.shapes: no line has the colour #00ff00 of --colors" "$(cat err.txt)"
    expect "rows and paths" "25 1" "$(grep -c '^G0X' doc.gcode) $(grep -c '^M4 S500' doc.gcode)"
    printf '; nothing\nG1 X5\n' >empty.gcode
    refused 1 "empty.gcode: burns nothing" render empty.gcode -o x.png
    [ ! -e x.gcode ] && [ ! -e x.png ] || fail "wrote in spite of an error"
}

# A grey PNG of that many pixels a side, without any.
png_header() {
    printf '\x89PNG\r\n\x1a\n\0\0\0\rIHDR'
    printf "$(printf '\\x%02x\\x%02x\\x%02x\\x%02x' 0 0 $(($1 >> 8)) $(($1 & 255)) 0 0 $(($1 >> 8)) $(($1 & 255)))"
    printf '\x08\0\0\0\0\0\0\0\0'
}

case_pictures() {
    "$shapedoc" import "$samples/ornament.svg" -o doc.shapes
    "$shapedoc" render doc.shapes -o doc.png --width 300
    expect "PNG width" "0000012c" "$(od -An -tx1 -j16 -N4 doc.png | tr -d ' \n')"
    "$shapedoc" render doc.shapes -o doc.pdf
    expect PDF "%PDF" "$(head -c 4 doc.pdf)"
    "$shapedoc" render doc.shapes --lines --leads -o doc.svg
    grep -q 'stroke="#d62728"' doc.svg || fail "no red line"
    grep -q 'stroke-dasharray' doc.svg || fail "no dashed move"
    import <<<"<path fill='none' stroke='red' d='M0 0 L96 0'/>"
    "$shapedoc" render doc.shapes -o doc.png # without height
}

case_array() {
    import <<<"<rect x='0' y='0' width='96' height='48' fill='none' stroke='#f00'/>"
    "$shapedoc" group doc.shapes -o doc.shapes
    "$shapedoc" array doc.shapes -o doc.shapes --rows 2 --cols 2 --gap 1,2 --shift 3,0 --delete 1
    expect nesting "array group vector" "$(rows 2 | tr '\n' ' ' | sed 's/ $//')"
    expect cells "3 of 4 cells" "$("$shapedoc" info doc.shapes | sed -n 2p | grep -o '3 of 4 cells')"
    # 25.4 x 12.7 mm: the second row lies 14.7 lower, its cells 3 and 29.4 to the right.
    expect "json cells" "0,0,true 26.4,0,false 3,14.7,true 29.4,14.7,true " "$("$shapedoc" info --json doc.shapes \
        | awk '/"index"/ { i++ } /"valid"/ { v = $2 } /"x": / { x = $2 } /"y": / { if (i != seen) { seen = i; printf "%.4g,%.4g,%s ", x, $2, v } }' \
        | tr -d '\n' | sed 's/true,/true/g;s/false,/false/g')"
    "$shapedoc" lines doc.shapes -o out.csv
    expect "lines of three cells" 12 "$(grep -c '^[0-9]' out.csv)"
    refused 1 "there is no cell 4" array doc.shapes -o out.shapes --rows 2 --cols 2 --delete 4
    # An array in a group is followed as it is outside.
    "$shapedoc" group doc.shapes -o group.shapes
    "$shapedoc" lines group.shapes -o group.csv
    cmp out.csv group.csv
}

# levels COUNT: a bare list stream of groups inside each other around the bare list that is read.
levels() {
    { le32 1 3; head -c 44 /dev/zero; } >level.bin
    { yes level.bin || true; } | head -n "$1" | xargs cat
    cat
}

case_nested_too_deep() {
    import <<<"<rect width='96' height='48' fill='none' stroke='red'/>"
    tail -c +13 doc.shapes >bare.bin
    levels 255 <bare.bin >deep.bin
    "$shapedoc" group --bare deep.bin -o deepest.bin
    local side
    "$shapedoc" lines --bare deepest.bin -o out.csv
    expect "lines of the innermost" 5 "$(wc -l <out.csv)"
    # Cells inside cells inside cells: a few kilobytes ask for a billion outlines.
    cp bare.bin cells.bin
    for side in rows rows cols; do "$shapedoc" array --bare cells.bin -o cells.bin --$side 1000 --gap=-25.4,-12.7; done
    refused_all <<'TABLE'
1|deepest.bin: nests groups and arrays 256 deep|group --bare deepest.bin -o x.bin
1|deepest.bin: nests groups and arrays 256 deep|array --bare deepest.bin -o x.bin
1|cells.bin: its arrays ask for more than 10000000 outlines|lines --bare cells.bin -o x.csv
1|cells.bin: its arrays ask for more than 10000000 outlines|render --bare cells.bin -o x.png
TABLE
}

case_only_regular_files() {
    import <<<"<rect width='96' height='48' fill='none' stroke='red'/>"
    mkfifo pipe pipe.svg pipe.png
    local command
    for command in "info pipe" "check pipe" "lines pipe -o x.csv" "render pipe -o x.png" "repair pipe -o x.shapes" \
        "group pipe -o x.shapes" "array pipe -o x.shapes" "fit pipe -o x.shapes" "transform pipe -o x.shapes" \
        "import pipe.svg -o x.shapes" "import pipe.png -o x.shapes" "info ." "info /dev/zero"; do
        echo "1|is no regular file|$command"
    done | refused_all
    # What a name or a document holds steers no terminal.
    local name=$'red\e[31m\nline\u202e.shapes'
    refused 1 'red\x1b[31m\nline\u202e.shapes: cannot be opened' info "$name"
    refused 1 'red\x1b[31m\nline\u202e.shapes: cannot be opened' check "$name"
    refused 2 '\x1b[31m' lines doc.shapes -o x.csv --feed $'\e[31m'
    cp doc.shapes "$name"
    expect "clean" 'red\x1b[31m\nline\u202e.shapes: clean, 1 shapes, version 14' "$("$shapedoc" check "$name")"
}

case_kept_of_outputs() {
    import <<<"<rect width='96' height='48' fill='none' stroke='red'/>"
    ln -s there.shapes first.link
    ln -s first.link second.link
    "$shapedoc" transform doc.shapes -o second.link
    cmp doc.shapes there.shapes
    [ -L first.link ] && [ -L second.link ] || fail "a link was replaced"
    ln -s ring.link ring.link
    refused 1 "ring.link: cannot be written" transform doc.shapes -o ring.link
    echo "the user's own" >there.shapes
    chmod 440 there.shapes
    refused 1 "second.link: is write-protected" transform doc.shapes -o second.link
    expect "content" "the user's own" "$(cat there.shapes)"
    "$shapedoc" transform doc.shapes -o second.link --force
    cmp doc.shapes there.shapes
    expect "mode" 440 "$(stat -c %a there.shapes)"
    # Nothing can be written in a folder that takes no new files.
    mkdir locked
    cp doc.shapes locked/keep.shapes
    chmod 644 doc.shapes locked/keep.shapes
    chmod 755 .
    chmod 555 locked
    local message
    message=$(without_rights "$shapedoc" transform doc.shapes -o locked/keep.shapes --move 1,1 --force 2>&1) &&
        fail "the folder takes no new files"
    expect message "shapedoc: locked/keep.shapes: cannot be written: Permission denied" "$(tail -n 1 <<<"$message")"
    cmp doc.shapes locked/keep.shapes || fail "the file has changed"
    chmod 755 locked
    [ "$(id -u)" -eq 0 ] || return 0
    chmod 6640 there.shapes
    chown 1234:4321 there.shapes
    chmod 6640 there.shapes
    "$shapedoc" transform doc.shapes -o second.link --move 1,1
    expect "owner, group and mode" "1234:4321 6640" "$(stat -c '%u:%g %a' there.shapes)"
    chmod 666 there.shapes
    chmod 777 .
    chmod 644 doc.shapes
    cp there.shapes before.shapes
    refused_as_other=$(without_rights "$shapedoc" transform doc.shapes -o there.shapes 2>&1) &&
        fail "took the file from its owner"
    expect "said" "shapedoc: there.shapes: belongs to another user or group, which the new file could not; --force replaces it" \
        "$(tail -n 1 <<<"$refused_as_other")"
    cmp there.shapes before.shapes
    without_rights "$shapedoc" transform doc.shapes -o there.shapes --force
    expect "new owner" 65534 "$(stat -c %u there.shapes)"
}

# A signal in the middle of the writing leaves the old file whole and nothing beside it.
case_signals() {
    set -m # or the signals of the keyboard would be ignored in the background
    "$shapedoc" import "$samples/rosette.svg" -o one.shapes
    "$shapedoc" array one.shapes -o doc.shapes --rows 3 --cols 3
    local signal running code
    for signal in INT TERM HUP PIPE; do
        echo "the user's own" >keep.csv
        "$shapedoc" lines doc.shapes --order reading -o keep.csv &
        running=$!
        until compgen -G '.shapedoc-*' >/dev/null || ! kill -0 $running 2>/dev/null; do :; done
        kill -s $signal $running 2>/dev/null || fail "$signal: came too late"
        code=0
        wait $running 2>/dev/null || code=$?
        expect "exit code of SIG$signal" $((128 + $(kill -l $signal))) "$code"
        expect "content after SIG$signal" "the user's own" "$(cat keep.csv)"
        expect "left over after SIG$signal" "" "$(find . -name '.shapedoc*')"
    done
}

case_fit() {
    drawing in.svg "width='300' height='300'" <<<"<circle cx='100' cy='100' r='90' fill='none' stroke='#f00'/>"
    "$shapedoc" import --flatten in.svg -o doc.shapes
    expect "flattened kind" EVECTOR_POLYLINE "$(rows 3)"
    local points
    points=$(rows 4)
    [ "$points" -gt 500 ] || fail "$points points of a flattened circle"
    "$shapedoc" lines doc.shapes -o out.csv >said.txt
    expect "without the plug-in" "" "$(cat said.txt)"
    LD_LIBRARY_PATH=$PLUGINS "$shapedoc" lines doc.shapes -o out.csv >said.txt
    expect "with the plug-in" "curve fitting was on" "$(cat said.txt)"
    LD_LIBRARY_PATH=$PLUGINS "$shapedoc" fit doc.shapes -o fitted.shapes >said.txt
    awk '/^all/ { exit !($5 < 26 && $9 <= 0.005) }' said.txt || fail "$(cat said.txt)"
    mv fitted.shapes doc.shapes
    expect "fitted kind" EVECTOR_MIXED "$(rows 3)"
    LD_LIBRARY_PATH=$PLUGINS "$shapedoc" fit doc.shapes -o again.shapes 2>&1 | cmp - <(
        echo "all: 0 points before, 0 after, largest deviation 0.000000"
        echo "left as they are: 1 x outline of curves")
    cmp doc.shapes again.shapes
    refused 1 "curve fitting: is off" fit doc.shapes -o x.shapes
    # Straight pieces of an imported outline are fitted as those of a polyline; corners stay.
    {
        awk 'BEGIN { printf "<path fill=\"none\" stroke=\"red\" d=\"M 300 200"
            for (i = 1; i < 600; i++) printf " L %.4f %.4f", 200 + 100 * cos(i * 0.0104719755), 200 + 100 * sin(i * 0.0104719755)
            print " Z\"/>" }'
        echo "<path fill='none' stroke='red' d='M0 0 L96 0 L96 96 Z'/>"
    } | import
    expect "imported kinds" "EVECTOR_MIXED EVECTOR_MIXED" "$(rows 3 | tr '\n' ' ' | sed 's/ $//')"
    LD_LIBRARY_PATH=$PLUGINS "$shapedoc" fit doc.shapes -o fitted.shapes >said.txt
    awk '/^shape 1/ { exit !($3 > 590 && $6 < 40 && $10 <= 0.005) }' said.txt || fail "$(cat said.txt)"
    expect "why not" "left as they are: 1 x outline that nothing shorter fits" "$(tail -n 1 said.txt)"
}

case_texts() {
    "$shapedoc" import --text 'AB\nC' --font 'Liberation Sans' --size 10 --align right -o doc.shapes
    expect "kind" text "$(rows 2 | head -n 1)"
    "$shapedoc" info --json doc.shapes | grep -q '"text": "AB\\nC"' || fail "$("$shapedoc" info --json doc.shapes)"
    "$shapedoc" lines doc.shapes -o out.csv
    [ "$(grep -c '^[0-9]' out.csv)" -gt 30 ] || fail "no outlines"
    "$shapedoc" import --text A --font 'No Such Family' -o doc.shapes 2>err.txt
    expect "warnings of a replaced family" 1 "$(grep -c 'No Such Family' err.txt)"
    refused 2 size import --text A --size nan -o out.shapes

    # Line ends of every system, and what stands for a tab.
    "$shapedoc" import --text $'A\r\nB\rC\tD' --font 'Liberation Sans' -o doc.shapes 2>err.txt
    expect "the column of the vector type" text "$(rows 3 | head -n 1)"
    "$shapedoc" info doc.shapes 2>&1 | grep -qF '"A\nB\nC\tD"' || fail "$("$shapedoc" info doc.shapes)"
    expect "the tab" "shapedoc: warning: white space and control characters that take no room: U+0009" "$(cat err.txt)"

    # An emoji, Hebrew, Arabic, Devanagari, a combining accent, an ideograph of the second plane and a private letter.
    local letter
    "$shapedoc" import --text $'a\U1F600 \u05D0 \u0628 \u0915 e\u0301 \U20000 \uE8F0' -o doc.shapes 2>err.txt
    for letter in 1F600 05D0 0628 0915 0301 20000 E8F0; do
        expect "warnings of U+$letter" 1 "$(grep -c "warning: .*U+$letter" err.txt)"
    done
    "$shapedoc" import --text $'Stra\u00DFe \u7530 \u03A9 1.' --font 'Liberation Sans' -o doc.shapes 2>&1 | cmp - /dev/null
    # A text of version 1 comes back as vectors, which tell no font: A and a Hebrew letter in size 20.
    {
        le32 1 2; head -c 44 /dev/zero; le32 0 3; printf 'A\327\220'
        le32 8; printf 'Old Font'; head -c 9 /dev/zero; printf '\x34\x40'; head -c 8 /dev/zero
    } >old.bin
    "$shapedoc" info --bare --version 1 old.bin >doc.txt 2>err.txt
    grep -q ' vector ' doc.txt || fail "$(cat doc.txt)"
    expect "the font" 1 "$(grep -c 'fonts that are not installed.*"Old Font"' err.txt)"
    expect "the letter" 1 "$(grep -c 'U+05D0' err.txt)"
}

case_nothing_half_written() {
    "$shapedoc" import "$samples/rosette.svg" -o doc.shapes
    local name command words
    for name in keep.gcode keep.csv keep.svg keep.png keep.shapes; do
        echo "the user's own" >$name
        words="$name: cannot be written: File too large"
        case $name in
        *.shapes) command="transform" ;;
        *.png) command="render" ;;
        *) command="lines" words="doc.shapes: no room for its lines in" ;;
        esac
        (
            ulimit -f 16
            refused 1 "$words" $command doc.shapes -o $name
        )
        expect "content of $name" "the user's own" "$(cat $name)"
    done
    mkdir folder.csv
    refused 1 "folder.csv: is no regular file" lines doc.shapes -o folder.csv
    refused 1 "/dev/full: is no regular file" transform doc.shapes -o /dev/full
    refused 1 "none/x.csv: cannot be written" lines doc.shapes -o none/x.csv
    # Links and access rights survive a successful write.
    chmod 600 keep.csv
    ln -s keep.csv link.csv
    "$shapedoc" lines doc.shapes -o link.csv
    [ -L link.csv ] || fail "the link was replaced"
    expect mode 600 "$(stat -c %a keep.csv)"
    expect "files left over" "" "$(find . -name '.shapedoc*')"
}

# without_rights COMMAND…: as a user whom access rights stop.
without_rights() {
    if [ "$(id -u)" -eq 0 ]; then
        setpriv --reuid=65534 --regid=65534 --clear-groups --inh-caps=-all "$@"
    else
        "$@"
    fi
}

case_bare() {
    import <<<"<path fill='none' stroke='red' d='M0 0 L96 0 L96 48'/>"
    "$shapedoc" import --bare in.svg -o in.bin
    cmp in.bin <(tail -c +13 doc.shapes)
    "$shapedoc" info --bare --version 14 in.bin | tail -1 | grep -q "total: 1 shapes, 3 points, version 14"
    # Up to version 6 a vector record has no flag byte at its end; up to version 2 each sub-path becomes a shape.
    head -c -1 in.bin >old.bin
    "$shapedoc" transform --bare --version 6 old.bin -o new.bin
    cmp new.bin in.bin
    "$shapedoc" info --bare --version 2 old.bin | tail -1 | grep -q "total: 1 shapes, 3 points, version 2"
    refused_all <<'TABLE'
1|in.bin: is no shape document; it is a bare list stream of version 7 to 14, which is read with --bare|info in.bin
1|of version 0 to 6, which is read with --bare --version 6|lines old.bin -o x.csv
1|doc.shapes: begins with the header of document files|info --bare doc.shapes
TABLE
}

case_imported() {
    becomes "points and closing" "9 closed;4 closed;4 closed;3 open;3 open;2 open;4 open" "4 5" <<'SVG'
<path fill='red' d='M0 0 L96 0 L96 96 M100 0 C 150 0 150 50 200 50'/>
<polyline fill='red' stroke='blue' points='0,0 96,0 96,96'/>
<polygon fill='none' stroke='blue' points='0,0 96,0 96,96'/>
<path fill='none' stroke='blue' d='M0 0 L96 0 L96 96'/>
<polyline fill='none' stroke='blue' points='0,0 96,0 96,96'/>
<line stroke='blue' fill='red' x1='0' y1='0' x2='96' y2='0'/>
<path fill='none' stroke='blue' d='M0 0 C 1 2 3 4 5 6 M 7 7'/>
<rect fill='none' stroke='none' width='10' height='10'/>
SVG
    becomes colours "#112233;#abcdef;#112233;#00ff00" 7 <<'SVG'
<rect fill='#112233' width='10' height='10'/>
<rect fill='#112233' stroke='#abcdef' x='20' width='10' height='10'/>
<rect fill='#112233' x='20' width='10' height='10'/>
<g stroke='lime' fill='none'><circle r='5'/></g>
SVG
    becomes units "25.400 25.400 10.000, 10.000;50.800 50.800 -5.400, -5.400" "8 10 12 13" <<'SVG'
<rect x='10mm' y='1cm' width='1in' height='72pt' fill='none' stroke='red'/>
<circle cx='20mm' cy='20mm' r='6pc' fill='none' stroke='red'/>
SVG
    drawing in.svg "width='96' height='96'" <<'SVG'
<path d='M0 48H96' stroke='red'/><rect x='10' y='10' width='4' height='4'/><rect y='0' width='48' height='96' fill='lime'/>
<path d='M48 24H192' stroke='blue'/>
SVG
    "$shapedoc" import --visible --crop in.svg -o doc.shapes
    expect "what is visible" "#ff0000 12.700 12.700,;#00ff00 12.700 0.000,;#0000ff 12.700 12.700," \
        "$(rows 7 8 12 | paste -sd ';')"
}

# Size and place in mm of a square that begins at 96, 48 and is 96 wide, for a page's attributes.
case_pages() {
    local what wanted page content
    while IFS='|' read -r what wanted page content; do
        drawing page.svg "$page" <<<"${content:-<rect x='96' y='48' width='96' height='96' fill='none' stroke='red'/>}"
        "$shapedoc" import page.svg -o doc.shapes
        expect "$what" "$wanted" "$(rows 8 10 12 13)"
    done <<'TABLE'
no page|25.400 25.400 25.400, 12.700|
page in pixels|25.400 25.400 25.400, 12.700|width='192' height='192'
page in millimetres|96.000 96.000 96.000, 48.000|width='192mm' height='192mm' viewBox='0 0 192 192'
view box alone|25.400 25.400 0.000, 0.000|viewBox='96 48 192 192'
width alone|50.800 50.800 50.800, 25.400|width='4in' viewBox='0 0 192 100'
centred in a wide page|96.000 96.000 196.000, 48.000|width='392mm' height='192mm' viewBox='0 0 192 192'
a little beyond the page|25.400 0.000 0.000, 0.000||<path fill='none' stroke='red' d='M-0.001 0 L96 0'/>
left in a wide page|96.000 96.000 96.000, 48.000|width='392mm' height='192mm' viewBox='0 0 192 192' preserveAspectRatio='xMinYMid'
stretched|192.000 96.000 192.000, 48.000|width='384mm' height='192mm' viewBox='0 0 192 192' preserveAspectRatio='none'
turned and scaled|50.800 50.800 -76.200, 50.800|width='300' height='300'|<rect transform='rotate(90) scale(2)' x='96' y='48' width='96' height='96' fill='none' stroke='red'/>
TABLE
}

case_lines() {
    import <<'SVG'
<g fill='none' stroke='red'><path d='M0 192 L96 192'/><path d='M48 0 L96 0 M0 48 L0 96 L48 96'/></g>
SVG
    follows rows "1,1,cut,12.7000,0.0000,25.4000,0.0000,#ff0000
1,2,cut,0.0000,12.7000,0.0000,25.4000,#ff0000
1,2,cut,0.0000,25.4000,12.7000,25.4000,#ff0000
2,3,cut,0.0000,50.8000,25.4000,50.8000,#ff0000" doc.shapes
    expect header "shape,path,kind,x1,y1,x2,y2,color" "$(head -n 1 rows.csv)"
    # The status word of the first shape, behind header, count and tag.
    { head -c 20 doc.shapes; le32 4; tail -c +25 doc.shapes; } >half.shapes
    "$shapedoc" info half.shapes | grep -q "hidden"
    follows "not hidden" "$(sed 1d rows.csv | head -n 3)" half.shapes
    import <<<"<path fill='none' stroke='red' d='M0 0 L96 0 L96 96'/>"
    follows leads "1,1,lead-in,-3.0000,0.0000,0.0000,0.0000,#ff0000
1,2,cut,0.0000,0.0000,25.4000,0.0000,#ff0000
1,2,cut,25.4000,0.0000,25.4000,25.4000,#ff0000
1,3,lead-out,25.4000,25.4000,25.4000,28.4000,#ff0000" doc.shapes --leads
    # A bare group record (tag, status, colour, guide line, no points, list) around a document's list.
    import <<<"<path fill='none' stroke='red' d='M0 0 L96 0'/>"
    { le32 1 3; head -c 44 /dev/zero; tail -c +13 doc.shapes; } >group.bin
    "$shapedoc" info --bare group.bin >info.txt
    grep -q '^ *1  group ' info.txt && grep -q '^ *2    vector ' info.txt && grep -q 'total: 2 shapes, 2 points' info.txt
    "$shapedoc" info --bare --json group.bin | grep -q '"members": \['
    follows "members" "1,1,cut,0.0000,0.0000,25.4000,0.0000,#ff0000" --bare group.bin
    import <<<"<path fill='none' stroke='red' d='M-96 0 L96 0 M96 96 L0 96 L0 48'/>"
    "$shapedoc" lines doc.shapes --order reading -o lines.svg
    "$shapedoc" import lines.svg -o doc.shapes
    # The page begins at the leftmost line.
    expect "shapes of the SVG" "2 50.800 0.000 0.000, 0.000
3 25.400 12.700 25.400, 12.700" "$(rows 4 8 10 12 13)"
}

case_transform() {
    import <<<"<path fill='none' stroke='red' d='M0 0 L192 0 L192 96'/>"
    local wanted arguments
    while IFS='|' read -r wanted arguments; do
        "$shapedoc" transform doc.shapes -o moved.shapes $arguments
        "$shapedoc" lines moved.shapes --order reading -o doc.csv
        expect "$arguments" "$wanted" "$(sed 1d doc.csv | cut -d, -f4-7 | tr '\n' ' ' | sed 's/\.\([0-9]\)000/.\1/g;s/ $//')"
    done <<'TABLE'
10.0,-5.0,60.8,-5.0 60.8,-5.0,60.8,20.4|--move 10 -5
10.0,-5.0,60.8,-5.0 60.8,-5.0,60.8,20.4|--move=10,-5
1.0,2.0,11.0,2.0 11.0,2.0,11.0,22.0|--fit 1,2,10,20
50.8,0.0,0.0,0.0 0.0,0.0,0.0,25.4|--mirror-x
0.0,25.4,50.8,25.4 50.8,25.4,50.8,0.0|--mirror-y
0.0,0.0,0.0,50.8 0.0,50.8,-25.4,50.8|--rotate 90 --about 0,0
0.0,10.0,0.0,60.8 0.0,60.8,-25.4,60.8|--rotate 90 --move 0,10 --about 0,0
-10.0,0.0,-10.0,50.8 -10.0,50.8,-35.4,50.8|--move 0,10 --rotate 90 --about 0,0
TABLE
}

case_arguments() {
    import <<<"<rect width='96' height='48' fill='none' stroke='red'/>"
    refused_all <<'TABLE'
2|subcommand|
2|FILE|info
2|there is no option --nosuch of info|info --nosuch doc.shapes
2|there is no command improt; the nearest is import|improt
2|there is no option --formt of lines; the nearest is --format|lines --formt=csv doc.shapes
2|'two' is one argument too many of info|info one two
2|out.txt|lines doc.shapes -o out.txt
2|--format|lines doc.shapes -o x
2|--output|render doc.shapes
2|--output|transform doc.shapes
2|--bare|info doc.shapes --version 3
2|--version|info --bare --version 15 doc.shapes
2|--fit|transform doc.shapes -o x.shapes --fit 0,0,0,10
2|--fit|transform doc.shapes -o x.shapes --fit 0,0,1e-300,1
2|nan is no number from|transform doc.shapes -o x.shapes --rotate nan
2|1e90 is no number from|transform doc.shapes -o x.shapes --move 1e90,0
2|1e300 is no number from|transform doc.shapes -o x.shapes --move 1e300,0
2|nan is no number from|array doc.shapes -o x.shapes --gap nan,0
2|nan is no number from|lines doc.shapes -o x.gcode --feed nan
1|doc.shapes: would go beyond a kilometre|transform doc.shapes -o x.shapes --move 1e6,0
1|10000 rows of 10000 cells are too many|array doc.shapes -o x.shapes --rows 10000 --cols 10000
1|2 rows of 2000 cells go beyond a kilometre|array doc.shapes -o x.shapes --rows 2 --cols 2000 --gap 1e4,0
2|2x1 has no room for 3 drawings|import in.svg in.svg in.svg --grid 2x1 -o x.shapes
2|2 places for 3 drawings|import in.svg in.svg in.svg --at 1,1 --at 2,2 -o x.shapes
2|1 is no X,Y|import in.svg --at 1 -o x.shapes
2|0x4 is neither|import in.svg --grid 0x4 -o x.shapes
2|a table has one corner|import in.svg in.svg --grid 2 --at 1,1 --at 2,2 -o x.shapes
TABLE
}

case_errors() {
    import <<<"<path fill='none' stroke='red' d='M0 0 L96 0'/>"
    drawing empty.svg "width='10' height='10'" </dev/null
    echo "<svg><g></svg>" >torn.svg
    { printf '<svg>'; printf '<g>%.0s' {1..2000}; printf '</g>%.0s' {1..2000}; printf '</svg>'; } >deep.svg
    # Uses of uses: too many inside each other, and too much to paint.
    chain() { # COUNT USES_EACH
        awk -v n="$1" -v uses="$2" 'BEGIN { print "<rect id=\"u0\" width=\"9\" height=\"9\"/>"
            for (i = 1; i <= n; i++) { printf "<g id=\"u%d\">", i
                for (k = 0; k < uses; k++) printf "<use href=\"#u%d\"/>", i - 1
                print "</g>" } }'
    }
    chain 20000 1 | drawing chain.svg "width='10' height='10'"
    chain 30 2 | drawing explosion.svg "width='10' height='10'"
    { printf SHAPEDOC; le32 14 7; } >short.shapes
    { printf SHAPEDOC; le32 15 0; } >new.shapes
    { cat doc.shapes; printf x; } >long.shapes
    # A coordinate out of reach in the shape's first point (header 12, count and tag 8, common record 44, separator 9).
    { head -c 73 doc.shapes; le32 0x7e967699; tail -c +78 doc.shapes; } >far.shapes
    refused_all <<'TABLE'
1|nosuch.svg: cannot be opened|import nosuch.svg -o x.shapes
1|doc.shapes: is no SVG drawing|import doc.shapes -o x.shapes
1|in.svg: is no shape document|info in.svg
1|empty.svg: paints no path|import in.svg empty.svg -o x.shapes
1|torn.svg: is no SVG drawing (line 1|import torn.svg -o x.shapes
1|deep.svg: nests its elements too deep|import deep.svg -o x.shapes
1|chain.svg: nests its references too deep|import chain.svg -o x.shapes
1|explosion.svg: paints more than 300000 elements by references|import explosion.svg -o x.shapes
1|short.shapes: holds an unknown kind of shape|info short.shapes
1|new.shapes: has version 15|info new.shapes
1|long.shapes: goes on behind its last shape (1 bytes)|transform long.shapes -o x.shapes
1|far.shapes: shape 1 has a coordinate out of reach|lines far.shapes -o x.gcode
TABLE
    # Other files that a drawing names stay closed.
    mkfifo pipe.png
    drawing linked.svg "width='10' height='10'" \
        <<<"<rect width='5' height='5'/><image xlink:href='$PWD/pipe.png' xmlns:xlink='http://www.w3.org/1999/xlink' width='9' height='9'/>"
    "$shapedoc" import linked.svg -o linked.shapes 2>err.txt
    grep -q "linked.svg: 1 picture left out" err.txt || fail "a linked picture goes without a word: $(cat err.txt)"
}

# Three lines one above the other: 71 bytes each, behind header and count.
three_lines() {
    import <<<"<g fill='none' stroke='red'><path d='M0 0 L96 0'/><path d='M0 48 L96 48'/><path d='M0 96 L96 96'/></g>"
}

# with FILE OFFSET BYTES: the file with those bytes (as printf takes them) in place of its own.
with() {
    printf "$3" | dd of="$1" bs=1 seek="$2" conv=notrunc status=none
}

case_check() {
    three_lines
    tail -c +13 doc.shapes >bare.bin
    head -c 60 bare.bin >short.bin
    head -c 10 doc.shapes >short.shapes
    : >none.shapes
    mkfifo pipe.shapes
    # The second line's status word, behind header, count, first line and tag.
    local at=$((16 + ($(wc -c <doc.shapes) - 16) / 3 + 4)) wanted code file
    for file in status magic version; do cp doc.shapes $file.shapes; done
    with status.shapes $at '\x40'
    with magic.shapes 3 Q
    with version.shapes 3 PEDOC'\x0f'
    expect clean "doc.shapes: clean, 3 shapes, version 14" "$("$shapedoc" check doc.shapes)"
    expect bare "bare.bin: clean, 3 shapes, a bare stream of version 7 to 14" "$("$shapedoc" check bare.bin)"
    expect asked "bare.bin: clean, 3 shapes, version 9" "$("$shapedoc" check --version 9 bare.bin)"
    refused_all <<TABLE
3|bare.bin: list > shape 2 > tag: byte |check --version 6 bare.bin
3|short.bin: a bare stream of no version, nearest is 14: list > count: byte 0: 3 shapes need|check short.bin
3|status.shapes: list > shape 2 (vector) > status: byte $at: 64 is outside -16 to 15|check status.shapes
3|magic.shapes: header > magic: byte 3: is not "SHAPEDOC"|check magic.shapes
3|version.shapes: header > version: byte 8: 15 is outside 0 to 14|check version.shapes
3|short.shapes: header > version: byte 8: needs 4 bytes, 2 are left|check short.shapes
1|none.shapes: is empty|check none.shapes
1|pipe.shapes: is no regular file|check pipe.shapes
1|.: is no regular file|check .
1|nosuch.shapes: cannot be opened|check nosuch.shapes
2|--version|check --version 15 doc.shapes
TABLE
    while read -r wanted file; do
        code=0
        "$shapedoc" check --json ${file%% *} >said.json || code=$?
        expect "findings" "$wanted $file" "$code $(python3 -c 'import json
d = json.load(open("said.json"))
f = d["fault"]
print(d["file"], d["clean"], d["shapes"], d["version"], d["bareVersions"], f and (f["byte"], f["path"], f["reason"]))')"
    done <<TABLE
0 doc.shapes True 3 14 None None
0 bare.bin True 3 14 [7, 8, 9, 10, 11, 12, 13, 14] None
3 status.shapes False 1 14 None ($at, 'list > shape 2 (vector) > status', '64 is outside -16 to 15')
3 version.shapes False 0 None None (8, 'header > version', '15 is outside 0 to 14')
TABLE
}

case_left_out() {
    import <<<"<rect width='96' height='48' fill='none' stroke='red'/>"
    "$shapedoc" array doc.shapes -o none.shapes --rows 1 --cols 2 --delete 0,1
    "$shapedoc" array doc.shapes -o cell.shapes --rows 1 --cols 2
    # The x of the last cell, 18 bytes before the end, is no number.
    with cell.shapes $(($(stat -c %s cell.shapes) - 18)) '\0\0\0\0\0\0\370\177'
    "$shapedoc" import "$samples/medallion.png" -o picture.shapes
    "$shapedoc" import in.svg "$samples/medallion.png" -o both.shapes
    local count said arguments
    while IFS='|' read -r count said arguments; do
        rm -f job.csv
        "$shapedoc" lines $arguments -o job.csv 2>err.txt || grep -qF "has no line to follow" err.txt || fail "$(cat err.txt)"
        expect "lines of $arguments" "$count" "$(cat job.csv 2>/dev/null | wc -l)"
        expect "said of $arguments" "$said" "$(sed -n 's/^shapedoc: warning: //p' err.txt)"
    done <<'TABLE'
0|none.shapes: left out: 1 x array without cells|none.shapes
5|cell.shapes: left out: 1 x cell without place|cell.shapes
0|picture.shapes: left out: 1 x picture|picture.shapes
5||picture.shapes --frames
5|both.shapes: left out: 1 x picture|both.shapes
TABLE
}

case_picture_limits() {
    png_header 16385 >large.png
    refused 1 "large.png: is a picture of 16385 x 16385 pixels; more than 256 MiB of them need --large" import large.png -o x.shapes
    refused 1 "large.png: is no picture that can be read" import --large large.png -o x.shapes
    png_header 16384 >small.png
    refused 1 "small.png: is no picture that can be read" import small.png -o x.shapes
    import <<<"<path fill='none' stroke='red' d='M0 0 L96 0 L96 48'/>"
    "$shapedoc" render doc.shapes -o whole.png
    "$shapedoc" import whole.png -o x.shapes 2>&1 | cmp - /dev/null
    head -c $(($(stat -c %s whole.png) / 2)) whole.png >torn.png # The decoder's own lines would be further ones.
    refused 1 "torn.png: is no picture that can be read" import torn.png -o y.shapes
    png_header 16384 >whole.png # no longer the picture of the document
    "$shapedoc" info x.shapes | grep -q "whole.png: 16384 x 16384 pixels, too large to be decoded here" || fail "not said"
}

case_standard_streams() {
    import <<<"<rect width='96' height='48' fill='none' stroke='red'/>"
    "$shapedoc" import - -o - <in.svg | cmp - doc.shapes
    "$shapedoc" import - --format picture -o pixels.shapes <"$samples/medallion.png"
    "$shapedoc" info pixels.shapes | grep -q image
    "$shapedoc" transform - -o moved.shapes --move 1,1 <doc.shapes
    cat doc.shapes | "$shapedoc" transform - -o - --move 1,1 | cmp - moved.shapes
    "$shapedoc" group - -o - <doc.shapes | "$shapedoc" array - -o - --cols 2 | "$shapedoc" info - | grep -q "2 of 2 cells"
    "$shapedoc" repair - -o - <doc.shapes 2>report.txt | cmp - doc.shapes
    grep -q "standard input: version 14, no fault" report.txt
    expect check "standard input: clean, 1 shapes, version 14" "$("$shapedoc" check - <doc.shapes)"
    "$shapedoc" render - -o - --format png <doc.shapes | head -c 4 | grep -q PNG
    local ending
    "$shapedoc" lines doc.shapes -o doc.gcode
    for ending in nc ngc gc; do
        "$shapedoc" lines doc.shapes -o doc.$ending
        cmp doc.gcode doc.$ending
    done
    "$shapedoc" lines - -o - --format gcode <doc.shapes | cmp - doc.gcode
    "$shapedoc" lines doc.shapes -o plain --format csv
    expect "rows without ending" 5 "$(wc -l <plain)"
    refused 2 "--format" lines doc.shapes -o -
    refused 2 "dxf is none of csv|svg|gcode" lines doc.shapes -o x --format dxf
    refused 1 "standard input: is no shape document" info - <in.svg
    refused 1 "standard input: is no SVG drawing" import - -o x.shapes <doc.shapes
}

case_repair() {
    three_lines
    cp doc.shapes whole.shapes
    local line=$((($(wc -c <doc.shapes) - 16) / 3))
    local second=$((16 + line))
    repaired() { # wanted places of the lines, text that the report holds, arguments…
        "$shapedoc" repair "${@:3}" >report.txt
        grep -qF -- "$2" report.txt || fail "no '$2' in '$(cat report.txt)'"
        "$shapedoc" check doc.shapes >clean.txt
        expect "${*:3}" "$1" "$(rows 13 | tr '\n' ' ' | sed 's/ $//')"
    }
    with doc.shapes $second '\x09'
    refused 1 "unknown kind of shape" info doc.shapes
    # In place: the damaged document gives way to what was saved of it.
    repaired "0.000 25.400" "left out: $line bytes: $second to $((second + line - 1))" doc.shapes -o doc.shapes
    repaired "0.000 12.700 25.400" "no fault" whole.shapes -o doc.shapes
    cmp whole.shapes doc.shapes
    with whole.shapes 0 QQQPEDOC'\x0f'
    repaired "0.000 12.700 25.400" "header > magic: byte 0" whole.shapes -o doc.shapes
    with whole.shapes $((second + 4)) '\x40'
    repaired "0.000 12.700 25.400" "replaced values, at byte: $((second + 4)); look at shape: 2" whole.shapes -o doc.shapes
    # Old streams are brought to the present version: here without the contour flag that ends each record from 7 on.
    {
        tail -c +13 doc.shapes | head -c $((4 + line - 1))
        printf '\x09'
        tail -c +$((second + 2)) doc.shapes | head -c $((line - 2))
        tail -c +$((second + line + 1)) doc.shapes | head -c $((line - 1))
    } >old.bin
    repaired "0.000 25.400" "version 6, list > shape 2 > tag" old.bin -o doc.shapes
    refused 3 "old.bin: holds no shape that can be saved" repair old.bin -o doc.shapes --version 14
    cp doc.shapes before.shapes
    seq 1000 >noise.bin
    refused 3 "noise.bin: holds no shape that can be saved" repair noise.bin -o doc.shapes
    cmp doc.shapes before.shapes
    refused 1 "none/x.shapes: cannot be written" repair whole.shapes -o none/x.shapes
}

# What does not arrive is a failure of every command.
case_full_output() {
    import <<<"<rect width='96' height='48' fill='none' stroke='red'/>"
    local code arguments
    while read -r arguments; do
        code=0
        "$shapedoc" $arguments >/dev/full 2>err.txt || code=$?
        expect "exit code of $arguments" 1 "$code"
        expect "said of $arguments" "shapedoc: standard output: cannot be written: No space left on device" "$(cat err.txt)"
    done <<'TABLE'
--help
info doc.shapes
info --json doc.shapes
check doc.shapes
repair doc.shapes -o x.shapes
import in.svg -o -
lines doc.shapes -o - --format csv
lines doc.shapes --out-dir . --format csv
render doc.shapes -o - --format png
transform doc.shapes -o -
TABLE
    code=0
    "$shapedoc" info doc.shapes >&- 2>err.txt || code=$?
    expect "exit code of a closed output" 1 "$code"
}

# Places of the shapes of a.svg (10 mm wide) and b.svg (20 mm), both of them 10, 5 from their pages' corners.
case_places() {
    drawing a.svg "width='50mm' height='50mm' viewBox='0 0 50 50'" <<<"<rect x='10' y='5' width='10' height='10'/>"
    drawing b.svg "width='50mm' height='50mm' viewBox='0 0 50 50'" <<<"<rect x='10' y='5' width='20' height='5'/>"
    local wanted said arguments
    while IFS='|' read -r wanted said arguments; do
        "$shapedoc" import $arguments -o doc.shapes >out.txt 2>&1
        expect "$arguments" "$wanted" "$(rows 12 13 | tr '\n' ' ' | sed 's/\.000//g;s/ $//')"
        [[ -z $said && ! -s out.txt || -n $said && $(cat out.txt) == *"$said"* ]] || fail "$arguments: says '$(cat out.txt)'"
    done <<'TABLE'
11, 5||--at 1,0 a.svg
10, 5||a.svg
0, 0 15, 0|2 drawings side by side|a.svg b.svg
0, 0 12, 0||a.svg b.svg --gap 2
0, 0 15, 0 0, 15||a.svg b.svg a.svg --grid 2
30, 40 30, 51 30, 57||a.svg b.svg a.svg --grid 1x3 --gap 1 --at 30,40
10, 5 10, 5|2 drawings lie on each other: a.svg, b.svg|a.svg b.svg --at 0,0
8, 9 110, 5||a.svg b.svg --at -2,4 --at 100,0
TABLE
}

case_batch() {
    mkdir one two
    drawing one/a.svg "width='96' height='96'" <<<"<rect width='96' height='96'/>"
    drawing two/a.svg "width='96' height='96'" <<<"<g stroke='red'><path d='M0 0H96'/><path d='M0 9H96'/></g>"
    drawing soft.svg "width='96' height='96'" <<<"<g filter='url(#f)'><rect width='9' height='9'/></g>"
    cp two/a.svg b.svg
    echo "no drawing" >c.svg
    local code jobs
    for jobs in 1 3; do
        code=0
        "$shapedoc" import c.svg one/a.svg b.svg --out-dir made --jobs $jobs >out.txt 2>err.txt || code=$?
        expect "exit code" 1 $code
        expect "said" "2 of 3 files made, 1 failed
b.svg: made/b.shapes, 2 shapes
one/a.svg: made/a.shapes, 1 shapes" "$(sort out.txt)"
        expect "errors" 1 "$(grep -c 'shapedoc: c.svg: is no SVG drawing' err.txt)"
        expect "files" "made/a.shapes made/b.shapes" "$(echo made/*)"
    done
    "$shapedoc" import b.svg -o b.shapes
    cmp b.shapes made/b.shapes
    "$shapedoc" lines made/*.shapes --out-dir jobs --format gcode | grep -qx "made/b.shapes: jobs/b.gcode, 2 paths of 2 shapes"
    "$shapedoc" render made/*.shapes --out-dir made --format svg | grep -qx "2 of 2 files made, 0 failed"
    # What ends one process leaves the others; what ends the program ends them.
    "$shapedoc" array made/b.shapes -o long.shapes --rows 1000 --cols 100
    local child signal
    for signal in KILL TERM; do
        "$shapedoc" lines long.shapes made/a.shapes --out-dir $signal --format csv >out.txt 2>err.txt &
        until child=$(cat /proc/$!/task/$!/children) && [ -n "$child" ]; do sleep 0.1; done
        [ $signal = KILL ] && kill -KILL $child || kill $!
        code=0
        wait $! 2>/dev/null || code=$?
        while grep -qs '^State:.[^Z]' /proc/$child/status; do sleep 0.1; done
        [ ! -e $signal/long.csv ] || fail "$signal came too late"
        [ $signal = KILL ] || continue
        expect "exit code" 1 $code
        expect "ended" "shapedoc: long.shapes: its process was ended by signal 9" "$(cat err.txt)"
        expect "the others" "1 of 2 files made, 1 failed" "$(tail -n 1 out.txt)"
    done
    expect "exit code behind SIGTERM" 143 $code
    [ ! -e TERM/a.csv ] || fail "goes on behind the program's end"
    code=0
    "$shapedoc" import soft.svg b.svg --out-dir made --strict --json >said.json 2>err.txt || code=$?
    expect "exit code of what is not as painted" 4 $code
    expect "objects" "soft.svg False b.svg True" "$(python3 -c 'import json
print(*(w for l in open("said.json") for d in [json.loads(l)] for w in (d["file"], d["asPainted"])))')"
    refused_all <<'TABLE'
2|one/a.svg and two/a.svg would both become x.made/a.shapes|import one/a.svg two/a.svg --out-dir x.made
2|b.shapes would replace the input |lines b.shapes b.svg --out-dir . --format svg
2|told by --format|lines b.shapes --out-dir x.made
2|--out-dir|lines made/a.shapes made/b.shapes -o x.csv
2|standard input has no name|lines - --out-dir x.made --format csv
1|c.svg: is no folder|lines b.shapes --out-dir c.svg --format csv
TABLE
}

# Whatever option a command has stands in its help, in the manual page and in every completion.
case_explained() {
    local form command option escaped
    for form in man bash zsh fish; do "$shapedoc" help --as $form >text.$form; done
    bash -n text.bash
    ! type zsh >/dev/null 2>&1 || zsh -n text.zsh
    ! type fish >/dev/null 2>&1 || fish -n text.fish
    ! type mandoc >/dev/null 2>&1 || mandoc -Tlint -W error text.man
    expect version "shapedoc 1" "$("$shapedoc" --version | head -c 10)"
    grep -ohzE 'AddCommand\(\s*"[a-z]+' "$sources"/*.cpp | tr '\0' '\n' | grep -oE '[a-z]+$' >commands.txt
    [ "$(wc -l <commands.txt)" -ge 10 ] || fail "few commands in $sources"
    while read -r command; do
        "$shapedoc" help "$command" >help.txt
        cmp help.txt <("$shapedoc" "$command" --help)
        sed -n "/^\.SS $command\$/,/^\.S[SH]/p" text.man | sed 's/\\-/-/g' >section.man
        sed -n "/^    $command)/,/esac ;;\$/p" text.bash >section.bash
        sed -n "/^        $command)/,/ ;;\$/p" text.zsh >section.zsh
        for option in $(grep -oE '^  (-., )?--[a-z-]+' help.txt | grep -oE -- '--[a-z-]+' | grep -vx -- --help); do
            grep -qE -- "$option(\\\\fR|=)" section.man || fail "manual: no $option of $command"
            grep -qE -- "[' ]$option[ ']" section.bash || fail "bash: no $option of $command"
            grep -qE -- "'\*?$option=?\[" section.zsh || fail "zsh: no $option of $command"
            grep -qE -- "from $command' .*-l ${option#--} " text.fish || fail "fish: no $option of $command"
        done
    done <commands.txt
    # What the sources declare is in the manual.
    for option in $(grep -ohzE '\bAdd[A-Z][a-z]+\((command, )?\s*"[^"]*--[a-z-]+' "$sources"/*.cpp | tr '\0' '\n' | grep -oE -- '--[a-z-]+' | sort -u); do
        grep -qF -- "${option//-/\\-}" text.man || fail "the manual has no $option"
    done
}

# However far a run has come when it is killed, the file is the old one or the new one, whole.
case_killed() {
    "$shapedoc" import "$samples/rosette.svg" -o old.shapes
    "$shapedoc" transform old.shapes -o new.shapes --move 1,1
    local round running
    for round in {1..12}; do
        cp old.shapes keep.shapes
        "$shapedoc" transform old.shapes -o keep.shapes --move 1,1 &
        running=$!
        if [ $((round % 2)) -eq 0 ]; then # in the middle of the writing
            until compgen -G '.shapedoc-*' >/dev/null || ! kill -0 $running 2>/dev/null; do :; done
        else
            sleep 0.0$round
        fi
        kill -9 $running 2>/dev/null || true
        wait $running 2>/dev/null || true
        cmp -s keep.shapes old.shapes || cmp -s keep.shapes new.shapes || fail "round $round: neither old nor new"
        rm -f .shapedoc-*
    done
}

case_"$case"
