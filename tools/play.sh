#!/usr/bin/env bash
# Installs what is missing, builds, and plays the bundled demo (or the demoscript named
# as the first argument, a file in resources/scripts/).
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/setup.sh
bash tools/build.sh build -DQLN_WERROR=OFF -DQLN_TESTS=OFF -DQLN_BENCH=OFF

if [ ! -x build/demo ]; then
  echo "Everything is built, but there is no demo program yet: nothing to play."
  exit 0
fi

run=(build/demo "$@")
if [ -z "${DISPLAY:-}" ]; then
  echo "No display: playing under a private X server (xvfb-run) on software OpenGL."
  export SDL_VIDEODRIVER=x11
  run=(xvfb-run -a -s "-screen 0 1280x720x24 -noreset" "${run[@]}")
fi
if [ -z "${SDL_AUDIODRIVER:-}" ] && [ ! -e /dev/snd ] && ! command -v pulseaudio >/dev/null && [ -z "${PULSE_SERVER:-}" ]; then
  echo "No sound device: the music plays through SDL's silent dummy driver."
  export SDL_AUDIODRIVER=dummy
fi
exec "${run[@]}"
