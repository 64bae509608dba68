#!/usr/bin/env bash
# Configures and builds one build tree: tools/build.sh DIR [cmake options...] [-- build options...]
# e.g. tools/build.sh build-assets -DQLN_TESTS=OFF -- --target makeassets
# The compiler's messages are shown without the progress lines; a failed step fails the script.
set -euo pipefail
cd "$(dirname "$0")/.."
dir=$1; shift
configure=() build=()
while [ $# -gt 0 ]; do
  if [ "$1" = -- ]; then shift; build=("$@"); break; fi
  configure+=("$1"); shift
done
cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo "${configure[@]}" > "$dir.configure.log" 2>&1 || { cat "$dir.configure.log"; exit 1; }
# grep exits 1 when a clean build leaves it nothing to print: only cmake's status may fail the pipeline.
cmake --build "$dir" -j"$(nproc)" "${build[@]}" 2>&1 | { grep -vE '^\[ *[0-9]+%\]' || true; }
