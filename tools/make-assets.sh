#!/usr/bin/env bash
# Regenerates every generated file of resources/ with the asset tools. The tools use
# fixed seeds and write no time stamps, so a second run changes no byte; the unit test
# AssetToolsTest checks the committed files against the tools.
#   bash tools/make-assets.sh          (builds the tools in build-assets/ first)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${QLN_ASSET_BUILD:-build-assets}
bash tools/build.sh "$build" -DQLN_TESTS=OFF -DQLN_BENCH=OFF -- --target makeassets
"$build/tools/makeassets" resources
echo "make-assets: resources/ regenerated ($(du -sh resources | cut -f1))"
