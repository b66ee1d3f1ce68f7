#!/usr/bin/env bash
# Makes the Debian packages of a release build, has them looked at, and builds and runs the examples against what they
# hold, installed into a root of its own. Usage: check_packages.sh BUILD_FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath "$1")
packages=$build/packages root=$build/packages/root
echo "== packages"
scripts/make_packages.sh "$build"
findings=$(lintian --tag-display-limit 0 --allow-root "$packages"/*.deb) || true # errors are told below
if [ -n "$findings" ]; then
    printf '%s\n' "$findings" >&2
    exit 1
fi

# Installed by the system's own tool, into a root of its own, and at the end removed again. Dependencies are those
# of the machine, which must have them all.
apt-get install --simulate --no-install-recommends "$packages"/*.deb >/dev/null
mkdir -p "$root"/var/lib/dpkg/{info,updates,triggers}
touch "$root"/var/lib/dpkg/{status,available}
in_root() {
    local log=$packages/dpkg.log
    fakeroot dpkg --root="$root" --force-not-root,depends,script-chrootless --log=/dev/null "$@" >"$log" 2>&1 || {
        cat "$log" >&2
        exit 1
    }
}
in_root --install "$packages"/*.deb
libraries=$root/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)
export LD_LIBRARY_PATH=$libraries QT_QPA_PLATFORM=offscreen
build_host() { # source folder, build folder
    cmake -S "$1" -B "$2" -G Ninja -D CMAKE_PREFIX_PATH="$root/usr" -D CMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build "$2" >/dev/null
}

# The package for Python finds its library by itself.
PYTHON=$(sed -n 's/^SHAPEMODEL_PYTHON:[^=]*=//p' "$build/CMakeCache.txt")
case $PYTHON in
*-NOTFOUND | "")
    unset PYTHON
    echo "no python3 with cffi and numpy: the package for Python and its page are not looked at"
    ;;
*)
    export PYTHON PYTHONPATH=$root/usr/lib/python3/dist-packages PYTHONDONTWRITEBYTECODE=1
    env -u SHAPEMODEL_C_LIBRARY "$PYTHON" -c "import shapemodel; print(shapemodel.__version__)" | grep -q "^[0-9]"
    ;;
esac
build_host examples "$packages/examples"
scripts/run_examples.sh "$packages/examples" "$root/usr/bin/shapedoc" samples "$packages/work"

# The host in the README is the whole program that it looks like.
block() { awk -v language="$1" '/^```/ { on = $0 == "```" language; next } on' README.md; }
mkdir "$packages/readme"
block cpp >"$packages/readme/main.cpp"
{
    printf '%s\n' "cmake_minimum_required(VERSION 3.25)" "project(host CXX)" "set(CMAKE_CXX_STANDARD 20)" \
        "add_executable(host main.cpp)"
    block cmake
} >"$packages/readme/CMakeLists.txt"
build_host "$packages/readme" "$packages/readme"
cd "$packages/work"
env -u QT_QPA_PLATFORM -u DISPLAY -u WAYLAND_DISPLAY "$root/usr/bin/shapebench" --version |
    grep "^shapebench [0-9]" >/dev/null
../readme/host 2>host.txt
"$root/usr/bin/shapedoc" info --bare ring.bin | grep "1 shapes" >/dev/null
# It keeps the pixels of pictures, and does not take a full disk for success.
"$root/usr/bin/shapedoc" import --bare "$OLDPWD/samples/medallion.png" -o picture.bin
../readme/host picture.bin 2>host.txt
"$root/usr/bin/shapedoc" info --bare ring.bin | grep "2 shapes" >/dev/null
[ "$(stat -c %s ring.bin)" -gt 70000 ] || { echo "the README's host lost the pixels of a picture" >&2; exit 1; }
ln -sf /dev/full ring.bin
! ../readme/host 2>host.txt || { echo "the README's host takes a full disk for success" >&2; exit 1; }

# Desktops know the document by its first bytes, whatever its name, and their thumbnailer draws it.
cp -r "$root/usr/share" . # the index of kinds is made beside them
share=$PWD/share
XDG_DATA_DIRS=$share update-mime-database "$share/mime"
cp moved.shapes "a name"
kind=$(XDG_DATA_DIRS=$share XDG_DATA_HOME=$share gio info -a standard::content-type "a name" |
    sed -n 's/.*content-type: //p')
[ "$kind" = application/x-shapemodel-document ] || { echo "a document is taken for '$kind'" >&2; exit 1; }
thumbnail=$(sed -n 's/%i/moved.shapes/; s/%o/small.png/; s/%s/128/; s/^Exec=//p' \
    "$share/thumbnailers/shapedoc.thumbnailer")
PATH=$root/usr/bin:$PATH $thumbnail
[ -s small.png ]

mapfile -t installed < <(awk '/^Package: / { print $2 }' "$root/var/lib/dpkg/status")
in_root --purge "${installed[@]}"
left=$(find "$root" -path "$root/var" -prune -o -type f -print)
[ -z "$left" ] || { printf 'left behind:\n%s\n' "$left" >&2; exit 1; }
