#!/usr/bin/env bash
# The script checker on real demoscripts, against what the demo itself says about them.
exec "$(dirname "$0")/../support/with-display.sh" python3 "$(dirname "$0")/democheck_program.py"
