#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: the normal build, the
# AddressSanitizer + UndefinedBehaviorSanitizer build, and each fuzz target briefly.
# Every build treats warnings as errors, and a failed compile stops the script.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/setup.sh

export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0:strict_string_checks=1

echo "== normal build"
bash tools/build.sh build -DQLN_WERROR=ON -DQLN_TESTS=ON -DQLN_BENCH=ON  # explicit: the play command builds the same tree without tests
(cd build && ctest --output-on-failure -j2)

echo "== sanitizer build (ASan + UBSan)"
bash tools/build.sh build-asan -DQLN_WERROR=ON -DQLN_SANITIZE=ON -DQLN_TESTS=ON -DQLN_BENCH=OFF
(cd build-asan && ctest --output-on-failure -j2)

echo "== fuzz targets"
bash tools/build.sh build-fuzz -DQLN_WERROR=ON -DQLN_FUZZ=ON -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++
bash tools/fuzz.sh "${QLN_FUZZ_SECONDS:-20}"
