#!/usr/bin/env bash
# Runs a command with an X display: the caller's, or a private Xvfb on Mesa's software GL.
export SDL_VIDEODRIVER=${SDL_VIDEODRIVER:-x11}
export SDL_AUDIODRIVER=${SDL_AUDIODRIVER:-dummy}
if [ -n "${DISPLAY:-}" ]; then
  exec "$@"
fi
# Tests run side by side: each starts its search for a free display number elsewhere.
exec xvfb-run -a -n $((100 + $$ % 20000)) -s "-screen 0 1280x720x24 -noreset" "$@"
