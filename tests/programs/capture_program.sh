#!/usr/bin/env bash
# The capture program: frame times, defaults, ranges, music, refusals, chunks of the bundled
# demo against a whole capture, and the README's recipes run as printed.
exec python3 "$(dirname "$0")/capture_program.py"
