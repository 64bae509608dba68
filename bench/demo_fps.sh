#!/usr/bin/env bash
# Frame rates of the bundled demo, measured with the capture program's driven clock:
#  - per scene: drawing alone (--discard) at 160x120 and at 640x480 under Xvfb: a scene
#    as fast at both sizes is bound by its geometry, one much faster when small by pixels;
#  - one scene written as raw video and as PNG files, at 640x480 and 1280x720,
#    next to the same frames drawn without writing;
#  - time from launch to the first frame of the demo program;
#  - with "chunks": the wall time of the first and last chunk of an 8-way split at 640x480,
#    the time the last chunk spends running the frames before it, and the split run two at
#    a time against one whole capture (several minutes).
# Usage: bash bench/demo_fps.sh [build dir] [chunks]   (run from anywhere; prints tables)
set -euo pipefail
src=$(cd "$(dirname "$0")/.." && pwd)
bin=${1:-$src/build}
mode=${2:-}  # read now: the scene loop below reuses the positional parameters
cd "$src"
export SDL_AUDIODRIVER=dummy
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

rate() {  # the frames-per-second figure of democapture's final progress line
  sed -n 's/.* frames  \([0-9.]*\) fps.*/\1/p' "$1" | tail -n 1
}

capture() {  # capture LOG ARGS...: runs one capture under a private X server
  local log=$1; shift
  env -u DISPLAY "$bin/democapture" "$@" --no-audio > /dev/null 2> "$log"
}

echo "== Drawing alone, per scene (frames/s, 60 fps demo time)"
printf '%-28s %10s %10s\n' "scene" "160x120" "640x480"
scenes=("intro 00:00:000 00:07:680" "build-up 00:07:680 00:15:360" "tunnel 00:15:360 00:23:040"
        "landscape+scroller 00:23:040 00:30:720" "cube-wall 00:30:720 00:38:400" "cube+flip 00:38:400 00:46:080"
        "greetings 00:46:080 00:53:760" "tunnel-2 00:53:760 01:01:440" "landscape-2 01:01:440 01:09:120"
        "outro 01:09:120 01:16:320")
for scene in "${scenes[@]}"; do
  set -- $scene
  capture "$tmp/small.log" --discard --size 160x120 --from "$2" --to "$3"
  capture "$tmp/scene.log" --discard --size 640x480 --from "$2" --to "$3"
  printf '%-28s %10s %10s\n' "$1" "$(rate "$tmp/small.log")" "$(rate "$tmp/scene.log")"
done

echo
# One scene (the height map with the scroller, 7.68 s of demo time) stands for the demo.
range=(--from 00:23:040 --to 00:30:720)
echo "== One scene written (60 fps demo time)"
printf '%-12s %-10s %10s\n' "size" "output" "frames/s"
for size in 640x480 1280x720; do
  capture "$tmp/d.log" --discard --size "$size" "${range[@]}"
  printf '%-12s %-10s %10s\n' "$size" "none" "$(rate "$tmp/d.log")"
  env -u DISPLAY "$bin/democapture" --raw --no-audio --size "$size" "${range[@]}" 2> "$tmp/r.log" > /dev/null
  printf '%-12s %-10s %10s\n' "$size" "raw" "$(rate "$tmp/r.log")"
  capture "$tmp/p.log" --size "$size" "${range[@]}" --out "$tmp/png-$size"
  printf '%-12s %-10s %10s\n' "$size" "png" "$(rate "$tmp/p.log")"
  rm -rf "$tmp/png-$size"
done

echo
echo "== Launch to first frame of the demo program (bundled demo, Xvfb)"
for i in 1 2 3; do
  start=$(date +%s%N)
  rm -f "$tmp/demo.pid"
  # The demo's process id is written first, so exactly this run is stopped (SIGKILL: SDL
  # turns SIGTERM into a quit event the demo does not answer); xvfb-run then ends and
  # takes its private X server with it.
  xvfb-run -a -s "-screen 0 1280x720x24 -noreset" \
    sh -c 'echo $$ > "$1"; exec stdbuf -oL "$2"' sh "$tmp/demo.pid" "$bin/demo" > "$tmp/launch.log" 2>&1 &
  runner=$!
  until grep -qxF "[Demo Init]" "$tmp/launch.log" 2>/dev/null; do
    kill -0 "$runner" 2>/dev/null || { cat "$tmp/launch.log"; exit 1; }
    sleep 0.01
  done
  echo "run $i: $(( ($(date +%s%N) - start) / 1000000 )) ms to the first frame"
  kill -KILL "$(cat "$tmp/demo.pid")" 2>/dev/null || true
  wait "$runner" 2>/dev/null || true
done

[ "$mode" = chunks ] || exit 0
seconds() {  # seconds COMMAND...: runs it and prints its wall time in seconds, to the millisecond
  local t0 ms; t0=$(date +%s%N); "$@"; ms=$(( ($(date +%s%N) - t0) / 1000000 ))
  printf '%d.%03d\n' $((ms / 1000)) $((ms % 1000))
}
echo
echo "== An 8-way split of the bundled demo (640x480, 60 fps, PNG), load $(cut -d' ' -f1-3 /proc/loadavg)"
declare -A took
for i in 0 7; do
  took[$i]=$(seconds capture "$tmp/c.log" --size 640x480 --chunk $i/8 --out "$tmp/chunk$i")
  echo "chunk $i/8: ${took[$i]} s"
done
echo "last chunk / first chunk: $(awk -v a="${took[7]}" -v b="${took[0]}" 'BEGIN { printf "%.2f", a / b }')"
# What the last chunk pays for the frames before it: running them with nothing drawn,
# against starting at frame 0 (launch and loading alone).
first=$(( $("$bin/democapture" --count) * 7 / 8 ))
launch=$(seconds capture "$tmp/l.log" --size 640x480 --frames 0-0 --discard)
ahead=$(seconds capture "$tmp/a.log" --size 640x480 --frames "$first-$first" --discard)
echo "frames 0-$((first - 1)) run ahead of chunk 7: $(awk -v a="$ahead" -v b="$launch" 'BEGIN { printf "%.2f", a - b }') s (launch alone: $launch s)"
rm -rf "$tmp"/chunk*
split() { seq 0 7 | xargs -P2 -I{} env -u DISPLAY "$bin/democapture" --size 640x480 --chunk {}/8 --out "$tmp/split" \
            > /dev/null 2>&1; }
echo "8 chunks, 2 at a time: $(seconds split) s"
rm -rf "$tmp/split"
echo "one whole capture: $(seconds capture "$tmp/w.log" --size 640x480 --out "$tmp/whole") s"
echo "load after: $(cut -d' ' -f1-3 /proc/loadavg)"
