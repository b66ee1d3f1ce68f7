# What drawings, pictures and texts become.

case_samples() {
    local name
    for name in ornament rosette; do
        run_with 0 "" import "$samples/$name.svg" -o doc.shapes
        runs 0 "" "transform doc.shapes -o again.shapes"
        cmp doc.shapes again.shapes
        # Whatever the drawing, the laser is off on every move.
        "$shapedoc" lines doc.shapes -o doc.gcode
        awk '/^M[34]/ {on = 1} /^M5/ {on = 0} /^G0/ && on || /^G1/ && !on {exit 1}' doc.gcode || fail "laser and moves"
    done
}

case_not_as_painted() {
    drawing plain.svg "width='96' height='96'" <<<"<rect width='9' height='9'/>"
    drawing soft.svg "width='96' height='96'" <<'SVG'
<g filter='url(#f)'><rect width='9' height='9'/></g>
<g filter='url(#f)'><text y='50' font-family='No Such'>A</text></g>
SVG
    drawing empty.svg "width='10' height='10'" </dev/null
    gzip -c plain.svg >packed.svgz
    mkfifo pipe.png
    drawing linked.svg "xmlns:xlink='http://www.w3.org/1999/xlink' width='10' height='10'" \
        <<<"<rect width='5' height='5'/><image xlink:href='$PWD/pipe.png' width='9' height='9'/>"
    each runs <<'TABLE'
4|shapedoc: soft.svg: 2 filters ignored, font No Such replaced by |import --strict plain.svg soft.svg -o doc.shapes
0|total: 3 shapes|info doc.shapes
0|"filtersIgnored": 2|import --json plain.svg soft.svg -o doc.shapes
0||import --strict packed.svgz -o doc.shapes
0|total: 1 shapes, 5 points|info doc.shapes
0|linked.svg: 1 picture left out|import linked.svg -o doc.shapes
1|empty.svg: paints no path|import plain.svg empty.svg -o x.shapes
TABLE
}

case_imported() {
    becomes() { # OPTIONS CONTENT COLUMNS WANTED: a drawing of 96 units a side
        drawing in.svg "width='96' height='96'" <<<"$2"
        "$shapedoc" import $1 in.svg -o doc.shapes
        expect "$1 $2" "$4" "$(rows $3)"
    }
    each becomes <<'TABLE'
|<path d='M0 0H96V96M10 0C50 0 50 50 20 50'/>|4,5,7|9 closed #000000
|<path fill='none' stroke='red' d='M0 0H96M9 9'/><rect width='9' height='9'/>|4,5,7|2 open #ff0000;5 closed #000000
|<rect x='10mm' y='1cm' width='1in' height='72pt' fill='none' stroke='red'/>|8,10,12,13|25.400 25.400 10.000, 10.000
|<path fill='none' stroke='red' d='M-0.001 0 L96 0'/>|8,10,12,13|25.400 0.000 0.000, 0.000
--visible|<circle r='4' cx='9' cy='9'/><rect width='48' height='96' fill='lime'/>|7,8,12|#00ff00 12.700 0.000,
--crop|<path d='M48 24H192' stroke='blue'/>|8,12|12.700 12.700,
--flatten|<circle r='9'/>|3|EVECTOR_POLYLINE
--solid|<path d='M0 0H96' stroke='red' stroke-dasharray='48 24'/>|4|2
TABLE
}

case_texts() {
    "$shapedoc" import --text 'AB\nC' --font 'Liberation Sans' --size 10 --align right -o doc.shapes
    runs 0 '"text": "AB\nC"' "info --json doc.shapes"
    expect "columns of the types" "text text" "$(rows 2,3| cut -d ';' -f 1)"
    # Line ends of every system, and what stands for a tab.
    run_with 0 "shapedoc: warning: white space and control characters that take no room: U+0009" \
        import --text $'A\r\nB\rC\tD' --font 'Liberation Sans' -o doc.shapes
    runs 0 '"A\nB\nC\tD"' "info doc.shapes"
    runs 2 size "import --text A --size nan -o x.shapes"
    all_change shapes import --font Arial --text 'Ab\nc' <<'TABLE'
--bold
--italic
--vertical
--spacing 3
--align right
--size 5
TABLE
    drawing in.svg "width='96' height='96'" <<<"<text y='50' font-family='Liberation Sans'>A</text>"
    "$shapedoc" import --text-as-text in.svg -o doc.shapes
    runs 0 ' text  ' "info doc.shapes"
    # A text of version 1 comes back as vectors, which tell no font: A and a Hebrew letter in size 20.
    {
        printf '\1\0\0\0\2\0\0\0' && head -c 48 /dev/zero && printf '\3\0\0\0A\327\220'
        printf '\10\0\0\0Old Font' && head -c 9 /dev/zero && printf '\x34\x40' && head -c 8 /dev/zero
    } >old.bin
    each runs <<'TABLE'
0|fonts that are not installed are replaced: "Old Font"|info --bare --version 1 old.bin
0|U+05D0|info --bare --version 1 old.bin
TABLE
}

# A grey PNG of that many pixels a side, without any.
png_header() {
    local side
    side=$(printf '\\x%02x\\x%02x' $(($1 >> 8)) $(($1 & 255)))
    printf "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0$side\0\0$side\x08\0\0\0\0\0\0\0\0"
}

case_picture_limits() {
    png_header 16385 >large.png
    png_header 16384 >small.png
    import <<<"<path fill='none' stroke='red' d='M0 0 L96 0 L96 48'/>"
    "$shapedoc" render doc.shapes -o whole.png
    # What a decoder says of a colour profile is no damage.
    python3 - whole.png profile.png <<'END'
import struct, sys, zlib
whole, body = open(sys.argv[1], "rb").read(), b"iCCPx\0\0" + zlib.compress(b"no profile")
chunk = struct.pack(">I", len(body) - 4) + body + struct.pack(">I", zlib.crc32(body))
open(sys.argv[2], "wb").write(whole[:33] + chunk + whole[33:])
END
    runs 0 "" "import profile.png -o profile.shapes"
    head -c $(($(stat -c %s whole.png) / 2)) whole.png >torn.png # The decoder's own lines would be further ones.
    each runs <<'TABLE'
1|large.png: is a picture of 16385 x 16385 pixels; more than 256 MiB of them need --large|import large.png -o x.shapes
1|large.png: is no picture that can be read|import --large large.png -o x.shapes
1|small.png: is no picture that can be read|import small.png -o x.shapes
1|torn.png: is no picture that can be read|import torn.png -o x.shapes
0||import whole.png -o doc.shapes
TABLE
    png_header 16384 >whole.png # no longer the picture of the document
    runs 0 "whole.png: 16384 x 16384 pixels, too large to be decoded here" "info doc.shapes"
    # 304 pixels of 254 to the inch, for 301 in the file.
    "$shapedoc" import "$samples/medallion.png" -o doc.shapes
    runs 0 ": 301 x 240 pixels, 3 columns padded, 254.00 x 254.00 dpi, 254 x 254 dpi used, 0.300, 0.000 mm larger" \
        "info doc.shapes"
}

# Places of the shapes of a.svg (10 mm wide) and b.svg (20 mm), both of them 10, 5 from their pages' corners.
case_places() {
    drawing a.svg "width='50mm' height='50mm' viewBox='0 0 50 50'" <<<"<rect x='10' y='5' width='10' height='10'/>"
    drawing b.svg "width='50mm' height='50mm' viewBox='0 0 50 50'" <<<"<rect x='10' y='5' width='20' height='5'/>"
    lie() { # WANTED SAID ARGUMENTS
        runs 0 "$2" "import $3 -o doc.shapes"
        expect "$3" "$1" "$(rows 12,13 | sed 's/\.000//g')"
    }
    each lie <<'TABLE'
11, 5||--at 1,0 a.svg
0, 0;15, 0|2 drawings side by side|a.svg b.svg
0, 0;15, 0;0, 15||a.svg b.svg a.svg --grid 2
30, 40;30, 51;30, 57||a.svg b.svg a.svg --grid 1x3 --gap 1 --at 30,40
10, 5;10, 5|2 drawings lie on each other: a.svg, b.svg|a.svg b.svg --at 0,0
8, 9;110, 5||a.svg b.svg --at -2,4 --at 100,0
TABLE
}

case_bare() {
    import <<<"<path fill='none' stroke='red' d='M0 0 L96 0 L96 48'/>"
    "$shapedoc" import --bare in.svg -o in.bin
    cmp in.bin <(tail -c +13 doc.shapes)
    # Up to version 6 a vector record has no flag byte at its end; up to version 2 each sub-path becomes a shape.
    head -c -1 in.bin >old.bin
    each runs <<'TABLE'
0|total: 1 shapes, 3 points, version 14|info --bare --version 14 in.bin
0|total: 1 shapes, 3 points, version 2|info --bare --version 2 old.bin
0||transform --bare --version 6 old.bin -o new.bin
1|in.bin: is no shape document; it is a bare list stream of version 7 to 14, which is read with --bare|info in.bin
1|of version 0 to 6, which is read with --bare --version 6|lines old.bin -o x.csv
1|doc.shapes: begins with the header of document files|info --bare doc.shapes
TABLE
    cmp new.bin in.bin
}
