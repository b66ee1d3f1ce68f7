#!/usr/bin/env bash
# Makes the Debian packages of a release build, has them looked at, and builds and runs the examples against what they
# hold, unpacked into a folder of its own. Usage: check_packages.sh BUILD_FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1 packages=$1/packages root=$1/packages/root
echo "== packages"
umask 022 # the permissions of the packed folders
rm -rf "$packages"
(cd "$build" && cpack >cpack.log 2>&1) || { cat "$build/cpack.log" >&2; exit 1; }
findings=$(lintian --tag-display-limit 0 --allow-root "$packages"/*.deb) || true # errors are told below
if [ -n "$findings" ]; then
    printf '%s\n' "$findings" >&2
    exit 1
fi

for package in "$packages"/*.deb; do
    dpkg-deb -x "$package" "$root"
done
root=$(realpath "$root")
libraries=$root/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)
export LD_LIBRARY_PATH=$libraries QT_QPA_PLATFORM=offscreen
build_host() { # source folder, build folder
    cmake -S "$1" -B "$2" -G Ninja -D CMAKE_PREFIX_PATH="$root/usr" -D CMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build "$2" >/dev/null
}

build_host examples "$packages/examples"
scripts/run_examples.sh "$packages/examples" "$root/usr/bin/shapedoc" samples "$packages/work"

# The host in the README is the whole program that it looks like.
block() { awk -v language="$1" '/^```/ { on = $0 == "```" language; next } on' README.md; }
mkdir "$packages/readme"
block cpp >"$packages/readme/main.cpp"
{
    printf '%s\n' "cmake_minimum_required(VERSION 3.25)" "project(host CXX)" "set(CMAKE_CXX_STANDARD 20)" "add_executable(host main.cpp)"
    block cmake
} >"$packages/readme/CMakeLists.txt"
build_host "$packages/readme" "$packages/readme"
cd "$packages/work"
../readme/host 2>host.txt
"$root/usr/bin/shapedoc" info --bare ring.bin | grep "1 shapes" >/dev/null

# Desktops know the document by its first bytes, whatever its name, and their thumbnailer draws it.
share=$root/usr/share
update-mime-database "$share/mime"
cp moved.shapes "a name"
kind=$(XDG_DATA_DIRS=$share XDG_DATA_HOME=$share gio info -a standard::content-type "a name" | sed -n 's/.*content-type: //p')
[ "$kind" = application/x-shapemodel-document ] || { echo "a document is taken for '$kind'" >&2; exit 1; }
thumbnail=$(sed -n 's/%i/moved.shapes/; s/%o/small.png/; s/%s/128/; s/^Exec=//p' "$share/thumbnailers/shapedoc.thumbnailer")
PATH=$root/usr/bin:$PATH $thumbnail
[ -s small.png ]
