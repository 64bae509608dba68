#!/usr/bin/env bash
# The real demo program on the bundled starter script (resources/scripts/demoscript.txt,
# the default): every resource loads, the timeline parses, and the demo plays to its
# stop time of 00:09:600 and shuts down without an error message.
set -u
src=${QLN_SOURCE_DIR:-$(cd "$(dirname "$0")/../.." && pwd)}
bin=${QLN_BINARY_DIR:-$src/build}
log=$(mktemp)
trap 'rm -f "$log"' EXIT
passed=0
failed=0
check() {  # check DESCRIPTION command...
  local what=$1; shift
  if "$@"; then passed=$((passed + 1)); else failed=$((failed + 1)); echo "FAIL: $what"; fi
}

(cd "$src" && SDL_AUDIODRIVER=dummy "$src/tests/support/with-display.sh" timeout 120 "$bin/demo") > "$log" 2>&1
rc=$?
check "exit code $rc" test "$rc" -eq 0
for line in "Adding shader 'simple'" "Created 'scene' with options '512, 512, COLOR_BUFFER, DEPTH_BUFFER'" \
            "Load : background.png" "Load : logo.png" "Load : font.png" "Loading binary : 'heightmap.bin" \
            "Loading : 'cube.qlo'" "Loading : 'logo.qlo'" "Loaded 'camera.ani' using alias camera" \
            "Play : resources/music/quillon.mod" "Creating instance of FadeEffect" "[Parsing timeline - DONE]" \
            "[Demo Init]" "[Application End]"; do
  check "log line '$line'" grep -qF -e "$line" "$log"
done
check "three texture layers" test "$(grep -c '^Creating instance of DisplayTexture' "$log")" -eq 3
check "no error message" bash -c "! grep -qE 'Error|Failed|not found|GL_ERROR' '$log'"
duration=$(sed -n 's/^Duration : .*\[\([0-9:]*\)\]$/\1/p' "$log")
case "$duration" in 00:09:6[0-9][0-9]|00:09:[7-9][0-9][0-9]) passed=$((passed + 1)) ;;
  *) failed=$((failed + 1)); echo "FAIL: stopped at '$duration', expected just past 00:09:600" ;; esac
[ "$failed" -eq 0 ] || grep -v '^GL_' "$log" | head -80
echo "starter script: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
