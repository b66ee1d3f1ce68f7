#!/usr/bin/env bash
# Installs the packages of a folder as a user would, into a minimal system of the machine's own release with all that
# they depend on; builds and runs the examples there, with no more than the development package brings and a compiler;
# and removes them again. Usage: check_install.sh PACKAGES_FOLDER [ROOT]; ROOT is made where it is not there, and kept.
# Ends with 77 where this cannot be done.
set -euo pipefail
packages=$(realpath "$1")
top=$(dirname "$(dirname "$(realpath "$0")")")
if [ "$(id -u)" -ne 0 ] || ! command -v debootstrap >/dev/null; then
    echo "no root rights or no debootstrap: the packages are not installed into a clean system" >&2
    exit 77
fi
release=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
mirror=$(apt-get indextargets --format '$(REPO_URI)' "Created-By: Packages" "Codename: $release" | head -n 1)
kept=${2-}
root=${kept:-$(mktemp -d "${TMPDIR:-/var/tmp}/clean-root.XXXXXX")}
mkdir -p "$root"
root=$(realpath "$root")
log=$(mktemp)
clean_up() {
    umount "$root/proc" 2>/dev/null || true
    [ -n "$kept" ] || rm -rf --one-file-system "$root"
    rm -f "$log"
}
trap clean_up EXIT
quietly() { "$@" >"$log" 2>&1 || { tail -n 40 "$log" >&2; exit 1; }; }
inside() {
    chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        QT_QPA_PLATFORM=offscreen "$@"
}

echo "== a minimal $release"
[ -e "$root/etc/os-release" ] || quietly debootstrap --variant=minbase "$release" "$root" "$mirror"
echo force-unsafe-io >"$root/etc/dpkg/dpkg.cfg.d/unsafe-io" # nobody needs this system after a power cut
mount -t proc proc "$root/proc" || echo "no right to mount: the system has no /proc"
quietly inside apt-get update

echo "== installed with what they depend on"
rm -rf "$root/check"
mkdir "$root/check"
cp "$packages"/*.deb "$root/check"
cp -r "$top"/{README.md,docs,examples,samples,scripts} "$root/check"
mapfile -t ours < <(for file in "$packages"/*.deb; do dpkg-deb -f "$file" Package; done)
quietly inside bash -c 'apt-get install -y --no-install-recommends /check/*.deb'
inside dpkg -L "${ours[@]}" | grep -vx '/\.' | sort -u >"$root/check/files"

echo "== examples"
# What the pages print is of letters of these fonts.
quietly inside apt-get install -y --no-install-recommends g++ cmake ninja-build pkg-config \
    fonts-liberation fonts-dejavu-core
quietly inside pkg-config --cflags --libs shapemodel shapedocument
quietly inside cmake -S /check/examples -B /check/built -G Ninja -D CMAKE_BUILD_TYPE=Release
quietly inside cmake --build /check/built
python=()
[[ " ${ours[*]} " != *" python3-shapemodel "* ]] || python=(PYTHON=/usr/bin/python3)
inside "${python[@]}" /check/scripts/run_examples.sh /check/built shapedoc /check/samples /check/work
inside shapedoc import /check/samples/rosette.svg -o /check/rosette.shapes
inside shapedoc render /check/rosette.shapes -o /check/rosette.png
[ "$(head -c 4 "$root/check/rosette.png" | tail -c 3)" = PNG ]
if ((${#python[@]})); then
    inside python3 -c "import shapemodel; print(shapemodel.__version__)" | grep "^[0-9]" >/dev/null
fi

echo "== removed"
quietly inside apt-get purge -y "${ours[@]}"
# Folders that other packages have, too, stay.
left=$(inside bash -c 'while read -r file; do
        if [ ! -e "$file" ] && [ ! -L "$file" ]; then continue; fi
        dpkg -S "$file" >/dev/null 2>&1 || echo "$file"
    done </check/files')
# Python's byte code is no package's file.
left+=$(find "$root/usr/lib/python3/dist-packages" -path "*/shapemodel/*")
[ -z "$left" ] || { printf 'left behind:\n%s\n' "$left" >&2; exit 1; }
