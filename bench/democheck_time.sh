#!/usr/bin/env bash
# Time democheck takes on the bundled demo and on the tutorial script, without a display,
# against the time demo needs from launch to its first frame (bench/demo_fps.sh).
# Usage: bash bench/democheck_time.sh [build dir] [runs]
set -euo pipefail
src=$(cd "$(dirname "$0")/.." && pwd)
bin=${1:-$src/build}
runs=${2:-10}
cd "$src"
for script in demoscript.txt tutorial.txt gallery.txt; do
  start=$(date +%s%N)
  for ((i = 0; i < runs; i++)); do env -u DISPLAY "$bin/democheck" "$script" > /dev/null; done
  printf '%-16s %6d ms a run (mean of %d)\n' "$script" $(( ($(date +%s%N) - start) / 1000000 / runs )) "$runs"
done
