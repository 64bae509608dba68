#!/usr/bin/env bash
# Sync-bound motion in captured frames, and the start-up errors of broken track files.
exec python3 "$(dirname "$0")/sync_capture.py"
