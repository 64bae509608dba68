#!/usr/bin/env bash
# The real demo program on real demoscripts: the log from the first banner to the end,
# and every failing start-up stage ending in its message and a clean shutdown.
set -u
src=${QLN_SOURCE_DIR:-$(cd "$(dirname "$0")/../.." && pwd)}
bin=${QLN_BINARY_DIR:-$src/build}
demo=$bin/demo
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
passed=0
failed=0

fail() { echo "FAIL: $*"; failed=$((failed + 1)); }
ok() { passed=$((passed + 1)); }

# A demoscript in a private resources/scripts/ folder, using the repository's own data files.
script() {
  mkdir -p "$work/resources/scripts"
  cat > "$work/resources/scripts/$1"
}

header() {
  cat <<EOS
{QLNDS1}
paths {
    definition = $src/resources/definitions/;
    shaders = $src/resources/shaders/;
    gfx = $src/resources/gfx/;
    misc = $src/resources/misc/;
    object = $src/resources/objects/;
    sound = $src/resources/music/;
}
EOS
}

run() {  # run NAME [env...]: runs the demo on a script, log in $work/NAME.log
  local name=$1; shift
  (cd "$work" && env "$@" "$src/tests/support/with-display.sh" timeout 120 "$demo" "$name") > "$work/$name.log" 2>&1
  echo $? > "$work/$name.rc"
}

# Lines must appear in this order (each a fixed string at the start of a line).
in_order() {
  local log=$1; shift
  local at=0 line n
  for line in "$@"; do
    n=$(tail -n +$((at + 1)) "$log" | grep -n -m1 -F -x -e "$line" | cut -d: -f1)
    [ -z "$n" ] && n=$(tail -n +$((at + 1)) "$log" | grep -n -m1 -F -e "$line" | cut -d: -f1)
    if [ -z "$n" ]; then echo "missing after line $at: '$line'"; return 1; fi
    at=$((at + n))
  done
}

expect() {  # expect NAME DESCRIPTION lines...
  local name=$1 what=$2; shift 2
  if [ "$(cat "$work/$name.rc")" != 0 ]; then fail "$what: exit code $(cat "$work/$name.rc")"; tail -20 "$work/$name.log"; return; fi
  if in_order "$work/$name.log" "$@"; then ok; else fail "$what"; grep -v '^GL_' "$work/$name.log" | tail -40; fi
}

absent() {  # absent NAME DESCRIPTION text
  if grep -qF -e "$3" "$work/$1.log"; then fail "$2: '$3' should not appear"; else ok; fi
}

shutdown_lines=("[Shutting Down]" "# Resources" "[Deleting Pools]" "QLNDemosys::shutdown()" "[Application End]")
# A failed start-up shows its message after the shutdown banner.
end_lines=("# Resources" "[Deleting Pools]" "QLNDemosys::shutdown()" "[Application End]")

# 1. A short demo with every kind of resource plays to its stop time and shuts down.
{ header; cat <<'EOS'
system { stop = 00:00:400; }
screen { width = 320; height = 240; fullscreen = 0; }
sound { file = quillon.mod; play = 1; }
shaders { simple = simple; }
framebuffers { scene = width, height, COLOR_BUFFER; }
graphics { logo = logo.png; }
binary { heightmap = heightmap.bin; }
objects { cube = cube.qlo; }
animation { camera = camera.ani; }
logo * DisplayTexture { texture = graphics[logo]; }
fader * FadeEffect { comment = test; }
timeline {
    logo.start(00:00:000, 20);
    fader.start(00:00:100);
    Checkpoint 00:00:200;
    logo.stop(00:00:300);
}
EOS
} | script full.txt
run full.txt SDL_AUDIODRIVER=dummy
expect full.txt "full demo log" "[Creating DataPools]" "[Creating Pool objects]" "[Adding effect templates]" \
  "[Adding event templates]" "[Creating DemoScriptParser]" "[Parsing defaults]" "[Parsing demoscript]" \
  "[Parsing .def files]" "[Supported OpenGL Extensions]" "[Loading Shaders]" "Loading shader simple = simple" \
  "[Creating FramebufferObjects]" "Created 'scene' with options 'width, height, COLOR_BUFFER' : object -> FrameBufferObject(320,240,COLOR_BUFFER)" \
  "[Loading Graphics]" "Load : logo.png" "[Loading Binary Data]" "[Loading 3D Objects]" "Loading : 'cube.qlo'" \
  "[Loading Animation Data]" "Loaded 'camera.ani' using alias camera" "[Setting up sound]" \
  "Play : $src/resources/music/quillon.mod" "[Create effect objects]" "Creating instance of FadeEffect" \
  "Creating instance of DisplayTexture" "[Parsing timeline]" "[Parsing timeline - DONE]" "[Timeline init]" \
  "[Getting Startpos]" "startpos = " "[Demo Init]" "Duration : " "FPS = " "${shutdown_lines[@]}"
duration=$(sed -n 's/^Duration : .*\[\([0-9:]*\)\]$/\1/p' "$work/full.txt.log")
case "$duration" in 00:00:4[0-9][0-9]|00:00:[5-9][0-9][0-9]) ok ;; *) fail "stopped at '$duration', expected just past 00:00:400" ;; esac

# 2. A missing script stops before any window opens.
run nothere.txt SDL_AUDIODRIVER=dummy
expect nothere.txt "missing script" "[Creating DemoScriptParser]" "[Shutting Down]" \
  "DemoScriptParser : 'resources/scripts/nothere.txt' not found!" "${end_lines[@]}"
absent nothere.txt "missing script" "[Supported OpenGL Extensions]"

# 3. Each failing loader stage ends with its message and a clean shutdown.
{ header; echo 'framebuffers { bad = 512, 256, COLOR_BUFFER, STENCIL_BUFFER; }'; } | script fbo.txt
run fbo.txt SDL_AUDIODRIVER=dummy
expect fbo.txt "framebuffer option order" "[Creating FramebufferObjects]" "[Shutting Down]" "expected : 'DEPTH_BUFFER'" "${end_lines[@]}"
absent fbo.txt "framebuffer option order" "[Loading Graphics]"

{ header; echo 'graphics { missing = missing.png; }'; } | script texture.txt
run texture.txt SDL_AUDIODRIVER=dummy
expect texture.txt "missing texture" "Load : missing.png" "[Shutting Down]" "Failed to load texture!" "${end_lines[@]}"

{ header; echo 'sound { file = nothing.mod; play = 1; }'; } | script sound.txt
run sound.txt SDL_AUDIODRIVER=dummy
expect sound.txt "missing music" "[Setting up sound]" "[Shutting Down]" "Failed to load sound!" "File : '$src/resources/music/nothing.mod'" \
  "${end_lines[@]}"
absent sound.txt "missing music" "[Create effect objects]"

# No audio device at all: the music cannot start, and the program says so.
{ header; echo 'sound { file = quillon.mod; play = 1; }'; } | script nodevice.txt
run nodevice.txt SDL_AUDIODRIVER=no-such-driver
expect nodevice.txt "no audio device" "[Setting up sound]" "Failed to initialize FMOD!" "[Shutting Down]" "Failed to load sound!" \
  "${end_lines[@]}"

{ header; cat <<'EOS'
fader * FadeEffect { comment = x; }
timeline { ghost.start(00:01:000); }
EOS
} | script timeline.txt
run timeline.txt SDL_AUDIODRIVER=dummy
expect timeline.txt "unknown timeline object" "[Parsing timeline]" "[Shutting Down]" "Error Pasing Timeline!" "Script object 'ghost' not found" \
  "${end_lines[@]}"
absent timeline.txt "unknown timeline object" "[Demo Init]"

{ header; echo 'shaders { broken = nothere; }'; } | script shader.txt
run shader.txt SDL_AUDIODRIVER=dummy
expect shader.txt "missing shader" "[Loading Shaders]" "[Shutting Down]" "Vertex shader 'nothere.vert' not found" "${end_lines[@]}"

echo "demo program: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
