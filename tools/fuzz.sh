#!/usr/bin/env bash
# Runs every fuzz target for the given number of seconds (default 20) on its seed corpus.
# Longer runs: tools/fuzz.sh 600   or one target: tools/fuzz.sh 600 fuzz_tokenizer
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-20}
only=${2:-}
passed=0
failed=0
for target in build-fuzz/tests/fuzz/fuzz_*; do
  [ -x "$target" ] || continue
  name=$(basename "$target")
  [ -z "$only" ] || [ "$name" = "$only" ] || continue
  corpus=build-fuzz/corpus/$name
  mkdir -p "$corpus"
  seeds=tests/fuzz/seeds/$name
  [ -d "$seeds" ] || seeds=
  echo "fuzz: $name for ${seconds}s"
  if "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=0 \
       -artifact_prefix=build-fuzz/"$name"- "$corpus" $seeds > build-fuzz/"$name".log 2>&1; then
    passed=$((passed + 1))
    tail -n 1 build-fuzz/"$name".log
  else
    failed=$((failed + 1))
    tail -n 60 build-fuzz/"$name".log
  fi
done
echo "fuzz: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
