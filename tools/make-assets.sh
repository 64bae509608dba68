#!/usr/bin/env bash
# Regenerates every generated file of resources/ with the asset tools. The tools use
# fixed seeds and write no time stamps, so a second run changes no byte; the unit test
# AssetToolsTest checks the committed files against the tools.
#   bash tools/make-assets.sh          (builds the tools in build-assets/ first)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${QLN_ASSET_BUILD:-build-assets}
programs=(objconvert makefont maketextures makeheightmap makepath makemusic makemodels)

if [ ! -f "$build/CMakeCache.txt" ]; then
  cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQLN_TESTS=OFF -DQLN_BENCH=OFF \
    > "$build.configure.log" 2>&1 || { cat "$build.configure.log"; exit 1; }
fi
cmake --build "$build" -j"$(nproc)" --target "${programs[@]}" > "$build.build.log" 2>&1 || { cat "$build.build.log"; exit 1; }

tools=$build/tools
res=resources
"$tools/makemodels" "$res/models"                  # logo.obj, logo.mtl, star.obj (cube.obj is hand-written)
"$tools/makefont" "$res/gfx/font.png"
"$tools/maketextures" "$res/gfx"
"$tools/makeheightmap" "$res/misc/heightmap.bin"
"$tools/makepath" "$res/misc/camera.ani"
for model in cube logo star; do
  "$tools/objconvert" "$res/models/$model.obj" "$res/objects/$model.qlo"
done
"$tools/makemusic" "$res/music/quillon.mod"
echo "make-assets: resources/ regenerated ($(du -sh "$res" | cut -f1))"
