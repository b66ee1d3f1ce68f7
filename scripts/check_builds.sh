#!/usr/bin/env bash
# Builds the libraries as a part of another project, static, and examples against what that installs; and a few
# targets in another folder, which must give the same bytes as those of the release build.
# Usage: check_builds.sh BUILD_FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
export QT_QPA_PLATFORM=offscreen
build=$(realpath "$1")
work=$build/builds
rm -rf "$work"
mkdir -p "$work"
quick=(-D CMAKE_BUILD_TYPE=Debug -D CMAKE_CXX_FLAGS_DEBUG=-O0 -D SHAPEMODEL_UNITY=ON -D SHAPEMODEL_PRECOMPILE=ON)
quietly() { "$@" >"$work/log" 2>&1 || { cat "$work/log" >&2; exit 1; }; }

echo "== inside another project, static"
quietly cmake -S tests/package/inside -B "$work/inside" -G Ninja "${quick[@]}" \
    -D BUILD_SHARED_LIBS=OFF -D SHAPEMODEL_INSTALL=ON -D SHAPEMODEL_FOLDER="$PWD"
quietly cmake --build "$work/inside"
"$work/inside/inside" 2>/dev/null
quietly cmake --install "$work/inside" --prefix "$work/static"
quietly cmake -S examples -B "$work/examples" -G Ninja -D CMAKE_BUILD_TYPE=Release -D CMAKE_PREFIX_PATH="$work/static"
quietly cmake --build "$work/examples" --target make_and_save open_draw_save picture_true_size
quietly "$work/examples/make_and_save" "$work/tag.shapes"
quietly "$work/examples/open_draw_save" "$work/tag.shapes" "$work/tag.png" "$work/moved.shapes"
quietly "$work/examples/picture_true_size" samples/medallion.png "$work/picture.shapes"
for document in moved picture; do
    "$build/bin/shapedoc" check "$work/$document.shapes" >/dev/null
done
PKG_CONFIG_PATH=$(dirname "$(find "$work/static" -name shapemodel.pc)")
export PKG_CONFIG_PATH
read -ra flags < <(pkg-config --static --cflags --libs shapedocument)
"${CXX:-g++}" -std=c++20 -fPIC examples/open_draw_save.cpp -o "$work/by-pkg-config" "${flags[@]}"

echo "== the same bytes from another folder"
other=$work/another/folder
mkdir -p "$other"
git ls-files -z | xargs -0 cp --parents -t "$other"
CCACHE_DISABLE=1 quietly cmake --preset release -S "$other" -B "$other/tree" -D SHAPEMODEL_BUILD_TESTS=OFF
CCACHE_DISABLE=1 quietly cmake --build "$other/tree" \
    --target shapehost shapemodel_curvesimulate shapemodel_picturecodecs shapemodel_commandline
for file in lib/libshapehost.so plugins/libCurveSimulate.so lib/shapemodel/libPictureCodecs.so \
    libs/commandline/libshapemodel_commandline.a; do
    cmp "$build/$file" "$other/tree/$file"
done
# What holds no path of a folder cannot differ by it.
if grep -lF "$PWD" "$build"/bin/shapedoc "$build"/lib/lib*.so; then
    echo "the files above hold the path of the folder that they were built in" >&2
    exit 1
fi
