#!/usr/bin/env bash
# Line coverage of the engine, the utilities and the demo under the whole test suite:
# builds a separate instrumented tree (DIR, default build-cov), runs ctest, prints gcovr's figures.
set -euo pipefail
cd "$(dirname "$0")/.."
dir=${1:-build-cov}
command -v gcovr > /dev/null || bash tools/setup.sh

cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=Debug -DQLN_TESTS=ON -DQLN_BENCH=OFF \
  -DCMAKE_CXX_FLAGS=--coverage -DCMAKE_C_FLAGS=--coverage -DCMAKE_EXE_LINKER_FLAGS=--coverage \
  > "$dir.configure.log" 2>&1 || { cat "$dir.configure.log"; exit 1; }
cmake --build "$dir" -j"$(nproc)" > "$dir.build.log" 2>&1 || { tail -50 "$dir.build.log"; exit 1; }

# Counts from earlier runs would inflate the figures.
find "$dir" -name '*.gcda' -delete
(cd "$dir" && ctest -j2 --output-on-failure) || echo "coverage: some tests failed; figures cover what ran"

gcovr -r . --object-directory "$dir" --exclude-directories "$dir/CMakeFiles/[0-9]" --filter 'qlnutils/' --filter 'demosys/' --filter 'demo/' \
  --json-summary "$dir/coverage.json" --print-summary > "$dir/coverage.txt"
python3 - "$dir/coverage.json" <<'PY'
import json, sys
files = json.load(open(sys.argv[1]))["files"]
for folder in ("qlnutils/", "demosys/", "demo/"):
    mine = [f for f in files if f["filename"].startswith(folder)]
    covered = sum(f["line_covered"] for f in mine)
    total = sum(f["line_total"] for f in mine)
    print(f"{folder:10} {covered:6}/{total:<6} lines  {100.0 * covered / max(total, 1):5.1f}%")
covered = sum(f["line_covered"] for f in files)
total = sum(f["line_total"] for f in files)
print(f"{'total':10} {covered:6}/{total:<6} lines  {100.0 * covered / max(total, 1):5.1f}%")
PY
