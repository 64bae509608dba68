#!/usr/bin/env bash
# Installs every Debian 12 package the project needs to build, test and play.
# Idempotent and non-interactive: only missing packages are installed.
set -euo pipefail

packages=(
  build-essential cmake pkg-config git
  clang libclang-rt-dev            # libFuzzer and sanitizer runtimes
  googletest libgtest-dev libbenchmark-dev
  xvfb xauth                       # headless X server for the GL tests and the demo
  libsdl1.2-dev libglew-dev libglu1-mesa-dev libgl1-mesa-dri
  libpng-dev
  glslang-dev                      # offline shader compiling in democheck
  libsndfile1-dev libopenmpt-dev   # music decoding
  sox                              # test audio
  xdotool                          # real key presses for the workbench test
  ffmpeg parallel                  # the capture recipes of the README, run by the tests
  python3
  gcovr                            # line coverage (tools/coverage.sh)
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

# The engine is written against classic SDL 1.2; where the compatibility shim is
# installed in its place, switch back to the original library.
compat=0
dpkg-query -W -f='${Status}' libsdl1.2-compat-dev 2>/dev/null | grep -q "install ok installed" && compat=1

if [ ${#missing[@]} -eq 0 ] && [ $compat -eq 0 ]; then
  echo "setup: all packages present"
  exit 0
fi

SUDO=""
[ "$(id -u)" -eq 0 ] || SUDO="sudo"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
if [ ${#missing[@]} -gt 0 ]; then
  echo "setup: installing ${missing[*]}"
  $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
if [ $compat -eq 1 ]; then
  $SUDO apt-get install -y -qq libsdl1.2-dev libsdl1.2-compat-dev- libsdl1.2-compat-shim-
fi
echo "setup: done"
