# What the machine gets: lines in their order, G-code, rows, reports, and pictures of them.

# begins WANTED ARGUMENTS: kind and begin of every path that lines makes with the arguments, separated by semicolons.
begins() {
    expect "$2" "$1" "$("$shapedoc" lines -o - --format csv $2 |
        awk -F, 'NR > 1 && $2 != last { printf "%s%s %.4g,%.4g", last ? ";" : "", $3, $4, $5; last = $2 }')"
}

case_lines() {
    import three.shapes <<'SVG'
<g fill='none' stroke='red'><path d='M0 192 L96 192'/><path d='M48 0 L96 0 M0 48 L0 96 L48 96'/></g>
SVG
    # Hidden by the status word of the first shape, behind header, count and tag.
    cp three.shapes hidden.shapes
    with hidden.shapes 20 '\x04'
    runs 0 hidden "info hidden.shapes"
    import corner.shapes <<<"<path fill='none' stroke='red' d='M0 0 L96 0 L96 96'/>"
    { group_record; tail -c +13 corner.shapes; } >group.bin
    each begins <<'TABLE'
cut 12.7,0;cut 0,12.7;cut 0,50.8|three.shapes --order reading
cut 12.7,0;cut 0,12.7|hidden.shapes --order reading
lead-in -3,0;cut 0,0;lead-out 25.4,25.4|corner.shapes --leads
cut 0,0|--bare group.bin
TABLE
    # The page begins at the leftmost line.
    import <<<"<path fill='none' stroke='red' d='M-96 0 L96 0 M96 96 L0 96 L0 48'/>"
    "$shapedoc" lines doc.shapes --order reading -o lines.svg
    "$shapedoc" import lines.svg -o doc.shapes
    expect "shapes of the SVG" "2 50.800 0.000 0.000, 0.000;3 25.400 12.700 25.400, 12.700" "$(rows 4,8,10,12,13)"
    # Order by insides and colours.
    import <<'SVG'
<g fill='none'><path stroke='red' d='M96 0 L96 96 L0 96 L0 0 Z'/><path stroke='blue' d='M24 24 L48 24'/>
<path stroke='red' d='M192 0 H120'/><path stroke='blue' d='M216 0 H240'/></g>
SVG
    each begins <<'TABLE'
cut 6.35,6.35;cut 63.5,0;cut 50.8,0;cut 25.4,0|doc.shapes
cut 6.35,6.35;cut 25.4,0;cut 31.75,0;cut 57.15,0|doc.shapes --mix-colors
cut 25.4,0;cut 50.8,0;cut 57.15,0;cut 6.35,6.35|doc.shapes --order reading
TABLE
}

case_array() {
    one_rect
    "$shapedoc" group doc.shapes -o doc.shapes
    "$shapedoc" array doc.shapes -o doc.shapes --rows 2 --cols 2 --gap 1,2 --shift 3,0 --delete 1
    expect nesting "array;group;vector" "$(rows 2)"
    # An array in a group is followed as it is outside.
    "$shapedoc" group doc.shapes -o group.shapes
    # The second row lies 12.7 + 2 lower, its cells 3 and 3 + 25.4 + 1 to the right.
    each begins <<'TABLE'
cut 0,0;cut 3,14.7;cut 29.4,14.7|doc.shapes --order reading
cut 0,0;cut 3,14.7;cut 29.4,14.7|group.shapes --order reading
TABLE
    runs 0 " 3 of 4 cells " "info doc.shapes"
    runs 0 '"valid": false' "info --json doc.shapes"
    runs 1 "there is no cell 4" "array doc.shapes -o x.shapes --rows 2 --cols 2 --delete 4"
}

case_nested_too_deep() {
    one_rect
    tail -c +13 doc.shapes >bare.bin
    group_record >group.bin
    { for _ in {1..255}; do cat group.bin; done; cat bare.bin; } >deep.bin
    # Cells inside cells inside cells: a few kilobytes ask for a billion outlines.
    cp bare.bin cells.bin
    local side
    for side in rows rows cols; do "$shapedoc" array --bare cells.bin -o cells.bin --$side 1000 --gap=-25.4,-12.7; done
    each runs <<'TABLE'
0||group --bare deep.bin -o deepest.bin
0|#ff0000|lines --bare deepest.bin -o - --format csv
1|deepest.bin: nests groups and arrays 256 deep|group --bare deepest.bin -o x.bin
1|cells.bin: its arrays ask for more than 10000000 outlines|lines --bare cells.bin -o x.csv
1|cells.bin: its arrays ask for more than 10000000 outlines|render --bare cells.bin -o x.png
TABLE
}

case_left_out() {
    one_rect
    "$shapedoc" array doc.shapes -o none.shapes --rows 1 --cols 2 --delete 0,1
    "$shapedoc" array doc.shapes -o cell.shapes --rows 1 --cols 2
    # The x of the last cell, 18 bytes before the end, is no number.
    with cell.shapes $(($(stat -c %s cell.shapes) - 18)) '\0\0\0\0\0\0\370\177'
    # Nor is the x of a corner, the float behind 82 bytes.
    import nan.shapes <<<"<path fill='none' stroke='red' d='M0 0 L96 0 L96 96 L0 96'/>"
    cp nan.shapes far.shapes
    with nan.shapes 82 '\0\0\300\177'
    # Out of reach: the first point's x, behind header 12, count and tag 8, common record 44, separator 9.
    with far.shapes 73 '\x99\x76\x96\x7e'
    "$shapedoc" import "$samples/medallion.png" -o picture.shapes
    "$shapedoc" import in.svg "$samples/medallion.png" -o both.shapes
    each runs <<'TABLE'
0|cell.shapes: left out: 1 x cell without place|lines cell.shapes -o cell.csv
0|point without place|lines nan.shapes -o nan.csv
0|both.shapes: left out: 1 x picture|lines both.shapes -o both.csv
0||lines picture.shapes --frames -o frame.csv
1|far.shapes: shape 1 has a coordinate out of reach|lines far.shapes -o x.gcode
TABLE
    expect "said of nothing" "shapedoc: warning: none.shapes: left out: 1 x array without cells
shapedoc: none.shapes: has no line to follow" "$("$shapedoc" lines none.shapes -o x.csv 2>&1)"
    expect "lines made" "5 4 5" "$(cat cell.csv | wc -l) $(cat both.csv | wc -l) $(cat frame.csv | wc -l)"
}

# Options of G-code, and a line that they make of two lines of 25.4 mm.
case_gcode() {
    import <<<"<path fill='none' stroke='red' d='M0 0 L96 0 M96 96 L0 96 L0 48'/>"
    printf '[#ff0000]\nfeed=300\n' >colors.ini
    holds() { # LINE OPTIONS
        "$shapedoc" lines doc.shapes -o doc.gcode ${2-}
        grep -qxF -- "$1" doc.gcode || fail "${2-}: no '$1' in $(cat doc.gcode)"
    }
    each holds <<'TABLE'
G0 X0.0000 Y25.4000|
M4 S500|
G1 X25.4000 Y25.4000 F900|--feed 900
M4 S300|--power 300
G0 X25.4000 Y25.4000|--y-down
G0 X25.4000 Y74.6000|--height 100
M3 S500|--constant-power
G1 X25.4000 Y25.4000 F1200 S127|--dialect marlin
G0 Z-0.5000|--passes 2 --step 0.5
M8|--air lines
G1 X25.4000 Y25.4000 F300|--colors colors.ini
TABLE
}

case_engrave() {
    "$shapedoc" import "$samples/medallion.png" -o doc.shapes
    printf '; nothing\nG1 X5\n' >empty.gcode
    each runs <<'TABLE'
0||lines doc.shapes -o doc.gcode --engrave --lines-per-mm 4 --overscan 2
0|rows reaches left of 0, to X-|lines doc.shapes -o far.gcode --engrave --lines-per-mm 4 --overscan 9
0||render doc.gcode -o doc.png
1|empty.gcode: burns nothing|render empty.gcode -o x.png
2|0 is no number from 0.01 to 200|lines doc.shapes -o x.gcode --engrave --lines-per-mm 0
2|requires --engrave|lines doc.shapes -o x.gcode --overscan 2
2|black would burn with less power|lines doc.shapes -o x.gcode --engrave --engrave-power 5,3
2|300 is more than 255|lines doc.shapes -o x.gcode --engrave --dialect marlin --power 300
2|no line has a second pass|lines doc.shapes -o x.gcode --engrave --step 1
2|none.ini: cannot be opened|lines doc.shapes -o x.gcode --engrave --colors none.ini
TABLE
    grep -q '^G1X[0-9.]*S[0-9]*F1200$\|^X[0-9.]*S' doc.gcode || fail "no rows"
    all_change gcode lines doc.shapes --engrave --lines-per-mm 2 <<'TABLE'
--one-way
--dither
--grey-step 60
--engrave-feed 600
--engrave-power 10,300
--overscan 2
TABLE
    # Areas other than white are engraved, lines of a colour without lines are told.
    drawing in.svg "width='300' height='300'" \
        <<<"<path d='M0 0h96v96z'/><path fill='#fff' stroke='red' d='M0 0h96v96z'/>"
    "$shapedoc" import in.svg -o fills.shapes --fills
    printf '[#ff0000]\norder = 1\n[#00ff00]\npasses = 2\n' >colors.ini
    runs 0 "fills.shapes: no line has the colour #00ff00 of --colors" \
        "lines fills.shapes -o fills.gcode --engrave --lines-per-mm 1 --colors colors.ini"
    expect "rows and paths" "25 1" "$(grep -c '^G0X' fills.gcode) $(grep -c '^M4 S500' fills.gcode)"
}

case_pictures() {
    "$shapedoc" import "$samples/ornament.svg" -o doc.shapes
    "$shapedoc" render doc.shapes -o doc.png --width 300
    expect "PNG width" "0000012c" "$(od -An -tx1 -j16 -N4 doc.png | tr -d ' \n')"
    import flat.shapes <<<"<path fill='none' stroke='red' d='M0 0 L96 0'/>"
    each runs <<'TABLE'
0|%PDF|render doc.shapes -o - --format pdf
0|stroke="#d62728"|render doc.shapes -o - --format svg --lines --leads
0|stroke-dasharray|render doc.shapes -o - --format svg --lines
0||render flat.shapes -o flat.png
TABLE
    all_change svg render doc.shapes <<'TABLE'
--points
--lines
--lines --leads
TABLE
    all_change svg render doc.shapes --lines <<<"--order reading"
}

case_report() {
    import <<'SVG'
<g fill='none'><path stroke='red' d='M0 0 H96 V96 L0 2'/><path stroke='blue' d='M192 0 H480'/></g>
SVG
    "$shapedoc" import "$samples/medallion.png" -o picture.shapes
    printf '[machine]\nfeed = 2400\nfree = 1\n' >machine.ini
    # 33 s: 162.5 mm at 5.5 mm a second, 205 at 100, three times 0.2 s to go faster.
    each runs <<'TABLE'
0|doc.shapes: about 33 s|report doc.shapes --gap 0.1 --feed 330
0|doc.shapes: 2 paths, 162.5 mm to cut|report doc.shapes --gap 0.1
4|doc.shapes: 1 gap in a contour that is not quite closed: 0, 0.26 (0.529 mm)|report doc.shapes --bed 100,50
4|doc.shapes: 1 path outside the bed: 127, 0 (27 mm)|report doc.shapes --bed 100x50
0|doc.shapes: 1 path outside the bed: 127, 0 (27 mm)|report doc.shapes --bed 100x50 --gap 0.1
4|doc.shapes: 1 path outside the bed: 0, 0.53 (10 mm)|report doc.shapes --bed 300x200+10-5 --join 1 --strict
4|"outOfBed":{"complete":true,"count":1,|report doc.shapes --bed 100,50 --json
2|--bed|report doc.shapes --bed=300
2|--bed|report doc.shapes --bed=0x5
2|--bed|report doc.shapes --bed=300x200+5
2|--bed|report doc.shapes --bed=nanx1e9
4|1 path outside the bed|lines doc.shapes -o x.gcode --bed 100x50 --strict
0|warning: doc.shapes: 1 path outside the bed|lines doc.shapes -o doc.gcode --bed 100x50
2|machine.ini: line 3: "free" is none of|report doc.shapes --machine machine.ini
2|--join: only with --lines or --report|render doc.shapes -o x.png --join 1
0|mm of the travel|report picture.shapes --engrave --lines-per-mm 4
0|1 path outside the bed|report picture.shapes --engrave --bed 5x5
4|doc.shapes: reports/doc.json|report doc.shapes picture.shapes --json --out-dir reports
TABLE
    [ -s reports/doc.json ] && [ -s reports/picture.json ] || fail "no reports"
    all_change png render doc.shapes <<<"--report --bed 300,300"
}
