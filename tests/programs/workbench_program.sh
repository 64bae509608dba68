#!/usr/bin/env bash
# The workbench on a copy of a demoscript: control lines, real key presses, live reload.
exec python3 "$(dirname "$0")/workbench_program.py"
