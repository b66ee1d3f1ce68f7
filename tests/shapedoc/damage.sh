# Documents with faults: check, repair, and what other commands say of them.

# Three lines one above the other, behind header and count: each of `line` bytes, the second at `second`.
three_lines() {
    import <<<"<g fill='none' stroke='red'><path d='M0 0 L96 0'/><path d='M0 48 L96 48'/><path d='M0 96 L96 96'/></g>"
    line=$((($(stat -c %s doc.shapes) - 16) / 3))
    second=$((16 + line))
}

case_check() {
    three_lines
    tail -c +13 doc.shapes >bare.bin
    head -c 60 bare.bin >short.bin
    local at=$((second + 4)) # the second line's status word, behind its tag
    cp doc.shapes status.shapes
    cp doc.shapes version.shapes
    with status.shapes $at '\x40'
    with version.shapes 3 PEDOC'\x0f'
    each runs <<TABLE
0|doc.shapes: clean, 3 shapes, version 14|check doc.shapes
0|bare.bin: clean, 3 shapes, a bare stream of version 7 to 14|check bare.bin
3|bare.bin: list > shape 2 > tag: byte |check --version 6 bare.bin
3|short.bin: a bare stream of no version, nearest is 14: list > count: byte 0: 3 shapes need|check short.bin
3|status.shapes: list > shape 2 (vector) > status: byte $at: 64 is outside -16 to 15|check status.shapes
3|version.shapes: header > version: byte 8: 15 is outside 0 to 14|check version.shapes
0|"clean": true|check --json doc.shapes
0|"bareVersions": [|check --json bare.bin
3|"reason": "64 is outside -16 to 15"|check --json status.shapes
2|--version|check --version 15 doc.shapes
TABLE
}

case_repair() {
    three_lines
    cp doc.shapes whole.shapes
    repaired() { # WANTED WORDS FILE: places of the lines that are kept, and what is told
        runs 0 "$2" "repair $3 -o doc.shapes"
        runs 0 ": clean, " "check doc.shapes"
        expect "$3" "$1" "$(rows 13)"
    }
    with doc.shapes $second '\x09'
    runs 1 "unknown kind of shape" "info doc.shapes"
    # In place: the damaged document gives way to what was saved of it.
    repaired "0.000;25.400" "left out: $line bytes: $second to $((second + line - 1))" doc.shapes
    repaired "0.000;12.700;25.400" "no fault" whole.shapes
    cmp whole.shapes doc.shapes
    with whole.shapes 0 QQQPEDOC
    with whole.shapes $((second + 4)) '\x40'
    repaired "0.000;12.700;25.400" "replaced values, at byte: $((second + 4)); look at shape: 2" whole.shapes
    cp doc.shapes before.shapes
    cp doc.shapes after.shapes
    seq 1000 >noise.bin
    one_rect
    tail -c +13 doc.shapes | head -c -1 >old.bin # without the contour flag that ends records from version 7 on
    each runs <<'TABLE'
0|version 6, no fault|repair old.bin -o doc.shapes
0|clean, 1 shapes, version 14|check doc.shapes
3|old.bin: holds no shape that can be saved|repair old.bin -o after.shapes --version 14
3|noise.bin: holds no shape that can be saved|repair noise.bin -o after.shapes
1|none/x.shapes: cannot be written|repair whole.shapes -o none/x.shapes
TABLE
    cmp after.shapes before.shapes
}
