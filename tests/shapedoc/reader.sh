# The documents of the samples, read by a program that knows the format alone.

case_other_reader() {
    for name in ornament rosette flaws; do
        "$shapedoc" import "$samples/$name.svg" -o $name.shapes
    done
    "$shapedoc" import --flatten "$samples/ornament.svg" -o flat.shapes
    "$shapedoc" import "$samples/medallion.png" -o upright.shapes
    "$shapedoc" transform upright.shapes -o turned.shapes --rotate 30
    "$shapedoc" group ornament.shapes -o group.shapes
    "$shapedoc" array group.shapes -o array.shapes --rows 3 --cols 4 --gap 6,6 --shift 25,0 --delete 5,10
    "$shapedoc" array turned.shapes -o pictures.shapes --rows 2 --cols 3 --gap 2,2
    "$shapedoc" import --text 'Engraved by light,\nGrüße' --font 'Liberation Sans' --italic --align center \
        -o rows.shapes
    "$shapedoc" transform rows.shapes -o turned-text.shapes --rotate 40
    # Every kind of record is in one of the last three, whose older versions are compared as well.
    python3 "$here/compare_readers.py" "$shapedoc" {ornament,rosette,flaws,flat,upright,turned,group,rows}.shapes \
        --older {array,pictures,turned-text}.shapes >compared.txt || fail "the readers differ"
    expect "documents compared" 11 "$(wc -l <compared.txt)"
    # What is damaged is no document to either of them.
    head -c 500 ornament.shapes >short.shapes
    ! python3 "$here/../../examples/read_document.py" short.shapes 2>said.txt || fail "a short document is read"
    grep -q "byte [0-9]*: ends within point" said.txt || fail "no place is told of a short document: $(cat said.txt)"
}
