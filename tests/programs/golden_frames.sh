#!/usr/bin/env bash
# The bundled demo at a dozen chosen times, compared with the reference pictures in
# tests/golden/. Update the references (after a deliberate change) with:
#   bash tests/programs/golden_frames.sh --update
exec python3 "$(dirname "$0")/golden_frames.py" "$@"
