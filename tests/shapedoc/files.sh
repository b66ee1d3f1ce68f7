# How files are read and written: standard streams, links and rights, several files, signals, full disks.

# without_rights COMMAND…: as a user whom access rights stop.
without_rights() {
    if [ "$(id -u)" -eq 0 ]; then
        setpriv --reuid=65534 --regid=65534 --clear-groups --inh-caps=-all "$@"
    else
        "$@"
    fi
}

case_only_regular_files() {
    one_rect
    mkfifo pipe pipe.svg pipe.png
    local command name=$'red\e[31m\nline\u202e.shapes'
    for command in "info pipe" "check pipe" "lines pipe -o x.csv" "render pipe -o x.png" "repair pipe -o x.shapes" \
        "group pipe -o x.shapes" "array pipe -o x.shapes" "fit pipe -o x.shapes" "transform pipe -o x.shapes" \
        "report pipe" "import pipe.svg -o x.shapes" "import pipe.png -o x.shapes" "info ." "info /dev/zero"; do
        runs 1 "is no regular file" "$command"
    done
    # What a name or a document holds steers no terminal.
    for command in info check; do
        run_with 1 'red\x1b[31m\nline\u202e.shapes: cannot be opened' $command "$name"
    done
    run_with 2 '\x1b[31m' lines doc.shapes -o x.csv --feed $'\e[31m'
    cp doc.shapes "$name"
    run_with 0 'red\x1b[31m\nline\u202e.shapes: clean, 1 shapes, version 14' check "$name"
}

case_standard_streams() {
    one_rect
    "$shapedoc" import - -o - <in.svg | cmp - doc.shapes
    runs 0 "" "import - --format picture -o pixels.shapes" <"$samples/medallion.png"
    runs 0 " image " "info pixels.shapes"
    cat doc.shapes | "$shapedoc" transform - -o - --move 0,0 | cmp - doc.shapes
    "$shapedoc" group - -o - <doc.shapes | "$shapedoc" array - -o - --cols 2 | "$shapedoc" info - |
        grep -q "2 of 2 cells"
    "$shapedoc" repair - -o - <doc.shapes 2>report.txt | cmp - doc.shapes
    grep -q "standard input: version 14, no fault" report.txt
    runs 0 PNG "render - -o - --format png" <doc.shapes
    runs 1 "standard input: is no shape document" "info -" <in.svg
    runs 1 "standard input: is no SVG drawing" "import - -o x.shapes" <doc.shapes
    "$shapedoc" lines - -o doc.gcode <doc.shapes
    local ending
    for ending in nc ngc gc; do
        "$shapedoc" lines doc.shapes -o doc.$ending
        cmp doc.gcode doc.$ending
    done
    runs 2 --format "lines doc.shapes -o -"
    runs 2 "dxf is none of csv" "lines doc.shapes -o x --format dxf"
}

case_kept_of_outputs() {
    one_rect
    cp doc.shapes there.shapes
    ln -s there.shapes link.shapes
    runs 1 "/dev/full: is no regular file" "transform doc.shapes -o /dev/full"
    if ! without_rights "$shapedoc" --version >/dev/null 2>&1; then
        echo "left out: another user cannot enter the folder of $shapedoc"
        exit 77
    fi
    # Nothing can be written in a folder that takes no new files.
    mkdir locked
    cp doc.shapes locked/keep.shapes
    chmod 644 doc.shapes locked/keep.shapes
    chmod 777 .
    chmod 555 locked
    as_other() { # WORDS ARGUMENTS…: refused to the user whom access rights stop
        ! without_rights "$shapedoc" "${@:2}" 2>err.txt || fail "${*:2}: succeeds"
        expect "${*:2}" "shapedoc: $1" "$(tail -n 1 err.txt)"
    }
    as_other "locked/keep.shapes: cannot be written: Permission denied" \
        transform doc.shapes -o locked/keep.shapes --move 1,1 --force
    cmp doc.shapes locked/keep.shapes || fail "the file has changed"
    chmod 755 locked
    [ "$(id -u)" -eq 0 ] || return 0
    chown 1234:4321 there.shapes
    chmod 6640 there.shapes
    "$shapedoc" transform doc.shapes -o link.shapes --move 1,1
    expect "owner, group and mode" "1234:4321 6640" "$(stat -c '%u:%g %a' there.shapes)"
    chmod 666 there.shapes
    cp there.shapes before.shapes
    as_other "there.shapes: belongs to another user or group, which the new file could not; --force replaces it" \
        transform doc.shapes -o there.shapes
    cmp there.shapes before.shapes
    without_rights "$shapedoc" transform doc.shapes -o there.shapes --force
    expect "new owner" 65534 "$(stat -c %u there.shapes)"
}

# A signal in the middle of the writing leaves the old file whole, and nothing beside it where it can be caught.
case_signals() {
    set -m # or the signals of the keyboard would be ignored in the background
    "$shapedoc" import "$samples/medallion.png" -o doc.shapes
    local signal running code
    for signal in INT TERM HUP PIPE KILL; do
        echo "the user's own" >keep.gcode
        # Rows are made while they are written: these take seconds.
        "$shapedoc" lines doc.shapes -o keep.gcode --engrave --lines-per-mm 100 &
        running=$!
        until compgen -G '.shapedoc-*' >/dev/null || ! kill -0 $running 2>/dev/null; do :; done
        kill -s $signal $running 2>/dev/null || fail "$signal: came too late"
        code=0
        wait $running 2>/dev/null || code=$?
        expect "exit code of SIG$signal" $((128 + $(kill -l $signal))) "$code"
        expect "content after SIG$signal" "the user's own" "$(cat keep.gcode)"
        [ $signal = KILL ] || expect "left over after SIG$signal" "" "$(find . -name '.shapedoc*')"
    done
}

case_nothing_half_written() {
    "$shapedoc" import "$samples/rosette.svg" -o doc.shapes
    keeps() { # FILE COMMAND WORDS
        echo "the user's own" >$1
        (
            ulimit -f 16
            runs 1 "$3" "$2 doc.shapes -o $1"
        )
        expect "content of $1" "the user's own" "$(cat $1)"
    }
    each keeps <<'TABLE'
keep.gcode|lines|doc.shapes: no room for its lines in
keep.svg|lines|doc.shapes: no room for its lines in
keep.png|render|keep.png: cannot be written: File too large
keep.shapes|transform|keep.shapes: cannot be written: File too large
TABLE
    expect "files left over" "" "$(find . -name '.shapedoc*')"
}

# What does not arrive is a failure of every command.
case_full_output() {
    one_rect
    cannot_print() { # ARGUMENTS
        local code=0
        "$shapedoc" $1 >/dev/full 2>err.txt || code=$?
        expect "$1" "1 shapedoc: standard output: cannot be written: No space left on device" "$code $(cat err.txt)"
    }
    each cannot_print <<'TABLE'
--help
info --json doc.shapes
check doc.shapes
repair doc.shapes -o new.shapes
import in.svg -o -
lines doc.shapes -o - --format csv
lines doc.shapes --out-dir . --format csv
render doc.shapes -o - --format png
transform doc.shapes -o -
TABLE
    local code=0
    "$shapedoc" info doc.shapes >&- 2>err.txt || code=$?
    expect "exit code of a closed output" 1 "$code"
}

case_batch() {
    mkdir one two
    drawing one/a.svg "width='96' height='96'" <<<"<rect width='96' height='96'/>"
    drawing two/a.svg "width='96' height='96'" <<<"<g stroke='red'><path d='M0 0H96'/><path d='M0 9H96'/></g>"
    drawing soft.svg "width='96' height='96'" <<<"<g filter='url(#f)'><rect width='9' height='9'/></g>"
    cp two/a.svg b.svg
    echo "no drawing" >c.svg
    local jobs code=0
    for jobs in 1 3; do
        runs 1 "shapedoc: c.svg: is no SVG drawing" "import c.svg one/a.svg b.svg --out-dir made --jobs $jobs"
        expect "said" "2 of 3 files made, 1 failed
b.svg: made/b.shapes, 2 shapes
one/a.svg: made/a.shapes, 1 shapes" "$(sort out.txt)"
        expect "files" "made/a.shapes made/b.shapes" "$(echo made/*)"
    done
    "$shapedoc" import c.svg soft.svg --out-dir soft --strict 2>err.txt || code=$?
    expect "one failed, one not as painted" 1 "$code"
    "$shapedoc" import b.svg -o b.shapes
    cmp b.shapes made/b.shapes
    each runs <<'TABLE'
0|made/b.shapes: jobs/b.gcode, 2 paths of 2 shapes|lines made/a.shapes made/b.shapes --out-dir jobs --format gcode
0|2 of 2 files made, 0 failed|render made/a.shapes made/b.shapes --out-dir made --format svg
4|"asPainted":false|import soft.svg b.svg --out-dir made --strict --json
2|one/a.svg and two/a.svg would both become x.made/a.shapes|import one/a.svg two/a.svg --out-dir x.made
2|b.shapes would replace the input |lines b.shapes b.svg --out-dir . --format svg
2|told by --format|lines b.shapes --out-dir x.made
2|--out-dir|lines made/a.shapes made/b.shapes -o x.csv
2|standard input has no name|lines - --out-dir x.made --format csv
1|c.svg: is no folder|lines b.shapes --out-dir c.svg --format csv
TABLE
}

# What ends one process of several leaves the others; what ends the program ends them.
case_batch_signals() {
    one_rect
    "$shapedoc" array doc.shapes -o long.shapes --rows 1000 --cols 100
    local child signal code
    for signal in KILL TERM; do
        "$shapedoc" lines long.shapes doc.shapes --out-dir $signal --format csv >out.txt 2>err.txt &
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
    [ ! -e TERM/doc.csv ] || fail "goes on behind the program's end"
}
