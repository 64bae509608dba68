#!/usr/bin/env bash
# The capture program on real demoscripts: frame times, determinism, ranges, audio, refusals.
exec python3 "$(dirname "$0")/capture_program.py"
