#!/bin/sh
# Seeds for the fuzz targets, made of the sample drawings and picture.
# Usage: make_seeds.sh SHAPEDOC FOLDER
set -eu
shapedoc=$1
seeds=$2
samples=$(dirname "$0")/../samples
for target in CallSequence JpegHeader ListStream Picture StreamCheck SvgImport TextRecord; do
    mkdir -p "$seeds/$target"
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The first byte chooses the version, from -1 on.
version_14='\017'
count_bytes=4
tag_bytes=4

# A document as input of the stream target.
stream() {
    "$shapedoc" "$@" --bare -o "$work/bare"
    { printf "$version_14"; cat "$work/bare"; } > "$seeds/ListStream/$name"
}

cp "$samples"/*.svg "$seeds/SvgImport"

# A drawing from standard input.
svg() {
    { echo "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='99' height='99'>"
        cat; echo "</svg>"; } > "$seeds/SvgImport/$1"
}
each() { # COUNT AWK_EXPRESSION: its value for i from 1 on.
    awk "BEGIN { for (i = 1; i <= $1; i++) print $2 }"
}
box="<rect id='u0' width='9' height='9'/>"
{ echo "$box"; each 400 '"<g id=\"u" i "\"><use href=\"#u" i - 1 "\"/></g>"'; } | svg use_chain.svg
{ each 300 '"<g id=\"u" i "\"><use xlink:href=\"#u" i + 1 "\"/></g>"'; echo "$box"; } | svg use_chain_forward.svg
{ echo "$box"; each 30 '"<g id=\"u" i "\"><use href=\"#u" i - 1 "\"/><use href=\"#u" i - 1 "\"/></g>"'; } |
    svg use_explosion.svg
echo "<g id='a'><use href='#b'/></g><g id='b'><use href='#a'/></g>" | svg use_ring.svg
[ -p "$seeds/pipe" ] || mkfifo "$seeds/pipe"
pipe=$(realpath "$seeds/pipe")
for link in /etc/hostname /dev/zero "$pipe" "file://$pipe" http://localhost/x.png; do
    echo "<image xlink:href='$link' width='9' height='9'/><image href='$link' width='9' height='9'/>"
done | svg linked_pictures.svg
{ echo "<rect"; each 1100 '"a" i "=\"" i "\""'; echo "/>"; } | svg attributes.svg
cp "$samples/medallion.png" "$seeds/Picture"
head -c 4096 "$samples/medallion.png" > "$seeds/JpegHeader/png"
printf '\377\330\377\340\000\020JFIF\000\001\002\001\001\054\001\054\000\000' > "$seeds/JpegHeader/jfif"
{ printf '\377\330\377\341\000\042Exif\000\000II*\000\010\000\000\000\001\000\032\001\005\000\001\000\000\000'
  printf '\032\000\000\000\000\000\000\000\054\001\000\000\001\000\000\000'; } > "$seeds/JpegHeader/exif"

name=ornament; stream import "$samples/ornament.svg"
cp "$work/bare" "$work/ornament"
name=rows; stream import --text 'A b\n\nc' --font 'Liberation Serif' --align center
{ printf "$version_14"; tail -c +$((count_bytes + tag_bytes + 1)) "$work/bare"; } > "$seeds/TextRecord/rows"
name=columns; stream import --text '激光\nAb' --font 'Noto Sans CJK SC' --vertical --spacing 2
{ printf "$version_14"; tail -c +$((count_bytes + tag_bytes + 1)) "$work/bare"; } > "$seeds/TextRecord/columns"

name=group; stream group "$work/ornament"
cp "$work/bare" "$work/group"
name=array; stream array "$work/group" --rows 2 --cols 2 --gap 6,6 --delete 2
cp "$seeds/ListStream"/* "$seeds/StreamCheck"
