"""Runs demotool in a private X server on a demoscript in a temporary folder, steers it by
control lines and by real key presses, and checks the frames it shows."""
import os
import queue
import shutil
import socket
import struct
import subprocess
import sys
import tempfile
import threading
import time

SRC = os.environ.get("QLN_SOURCE_DIR") or os.path.abspath(os.path.join(os.path.dirname(__file__), "..", ".."))
BIN = os.environ.get("QLN_BINARY_DIR") or os.path.join(SRC, "build")
W, H = 160, 120
failed = []


def check(condition, what):
    if not condition:
        failed.append(what)
        print("FAIL:", what)


TIMELINE = """timeline {
    sky.start(00:00:000, 10);
    fader.start(00:00:000, 90);
    // Dark to %s over four seconds, half covering the sky: the picture tells the time.
    fader.fade(00:00:000, 00:04:000, 0.0, 0.0, 0.0, 0.5, %s, 0.5);
    late.start(00:03:000, 95);
    Checkpoint 00:01:000;
    Checkpoint 00:02:500;
}
"""


def write_script(work, colour="white", rgb="1.0, 1.0, 1.0", broken=False):
    text = """{QLNDS1}
paths {
    definition = %s/resources/definitions/;
    shaders = %s/;
    gfx = %s/;
    sound = %s/resources/music/;
}
system { stop = 00:08:000; }
screen { width = %d; height = %d; fullscreen = 0; }
sound { file = quillon.mod; play = 1; }
shaders { simple = simple; }
graphics { background = background.png; }
sky * DisplayTexture { texture = graphics[background]; xscale = 1.34; yscale = 1.0; zpos = -2.0; }
fader * FadeEffect { comment = clock; }
late * DisplayTexture { texture = graphics[background]; xscale = 0.3; yscale = 0.3; zpos = -2.0; }
""" % (SRC, work, work, SRC, W, H) + TIMELINE % (colour, rgb)
    if broken:
        text = text.replace("fader.start(00:00:000, 90);", "fader.strat(00:00:000, 90);")
    path = os.path.join(work, "resources", "scripts", "wb.txt")
    with open(path + ".new", "w") as f:
        f.write(text)
    os.replace(path + ".new", path)  # one complete save, as editors do


def read_ppm(path):
    with open(path, "rb") as f:
        data = f.read()
    header = data.split(b"\n", 3)
    check(header[1] == b"%d %d" % (W, H), "shot size of " + path)
    return header[3]


def pixel(frame, x, y):
    at = (y * W + x) * 3
    return tuple(frame[at:at + 3])


class Workbench:
    """One demotool process; its standard output is read by a thread, line by line."""

    def __init__(self, work, display, *args):
        env = dict(os.environ, DISPLAY=display, SDL_VIDEODRIVER="x11", SDL_AUDIODRIVER="dummy")
        self.proc = subprocess.Popen([os.path.join(BIN, "demotool"), "wb.txt", "--control", *args], cwd=work,
                                     env=env, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                     stderr=subprocess.STDOUT, text=True, bufsize=1)
        self.lines = queue.Queue()
        self.log = []
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.proc.stdout:
            self.lines.put(line.rstrip("\n"))
        self.lines.put(None)

    def next_line(self, deadline):
        line = self.lines.get(timeout=max(0.01, deadline - time.time()))
        if line is not None:
            self.log.append(line)
        return line

    def wait_for(self, starts, seconds=30):
        """The first new line that starts with one of the given texts (None on timeout or exit)."""
        deadline = time.time() + seconds
        try:
            while True:
                line = self.next_line(deadline)
                if line is None or line.startswith(starts):
                    return line
        except queue.Empty:
            return None

    def ask(self, command, expect="ok"):
        self.proc.stdin.write(command + "\n")
        self.proc.stdin.flush()
        answer = self.wait_for(("ok", "error"))
        check(answer is not None and answer.startswith(expect), "'%s' answered %r" % (command, answer))
        if answer is None:
            print("\n".join(self.log[-30:]))
        return answer or ""

    def time(self):
        answer = self.ask("time").split()
        m, s, ms = answer[2].split(":")
        return (int(m) * 60 + int(s)) * 1000 + int(ms), answer[3]

    def shot(self, work, name):
        path = os.path.join(work, name + ".ppm")
        self.ask("shot " + path)
        return read_ppm(path)

    def finish(self, what):
        """Waits for the end; the normal shut-down log must close it."""
        try:
            self.proc.wait(timeout=30)
        except subprocess.TimeoutExpired:
            self.proc.kill()
        while self.wait_for(("\0",), 2) is not None:
            pass
        tail = [l for l in self.log if l.startswith(("Duration : ", "FPS = ", "[Shutting Down]", "[Application End]"))]
        check(self.proc.returncode == 0 and len(tail) == 4 and tail[-1] == "[Application End]",
              "%s ends with the normal shut-down log (exit %s)" % (what, self.proc.returncode))


def capture_frame(work, ms):
    """democapture's frame at demo time ms (1000 fps, so frame k is k ms), as raw RGB."""
    env = dict(os.environ)
    env.pop("DISPLAY", None)
    run = subprocess.run([os.path.join(BIN, "democapture"), "wb.txt", "--fps", "1000", "--size", "%dx%d" % (W, H),
                          "--frames", "%d-%d" % (ms, ms), "--raw", "--no-audio"], cwd=work, env=env,
                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=300)
    check(run.returncode == 0 and len(run.stdout) == W * H * 3, "democapture frame at %d ms" % ms)
    return run.stdout


def xdotool(display, *args):
    subprocess.run(["xdotool", *args], env=dict(os.environ, DISPLAY=display), check=False, timeout=20)


def press(bench, display, key):
    xdotool(display, "mousemove", str(W // 2), str(H // 2))  # no window manager: focus follows the pointer
    xdotool(display, "key", key)
    bench.ask("time")  # answered once the frame that took the key has been drawn
    time.sleep(0.2)


def control_lines(work, display):
    bench = Workbench(work, display, "--no-overlay", "--start", "00:00:500")
    start, state = bench.time()
    check(500 <= start < 2500 and state == "playing", "--start opens at 00:00:500 (%d %s)" % (start, state))

    # Paused, the picture and the demo time stand still while the clock runs on.
    bench.ask("pause")
    held, at = bench.shot(work, "held1"), bench.time()[0]
    time.sleep(0.4)
    check(bench.shot(work, "held2") == held and bench.time()[0] == at, "pause holds the frame and the time")
    bench.ask("play")
    time.sleep(0.4)
    check(bench.shot(work, "moving") != held, "play moves the picture again")

    # A checkpoint shows what the capture program draws at that time, even coming back
    # from later on, where more effects run.
    bench.ask("pause")
    bench.ask("seek 00:03:500")
    check(bench.ask("checkpoint 2").endswith("00:02:500"), "checkpoint 2 is at 00:02:500")
    check(bench.shot(work, "checkpoint") == capture_frame(work, 2500), "checkpoint 2 matches democapture's frame")
    for wrong in ("checkpoint 3", "seek 1:2", "loop 00:02:000-00:01:000", "jump"):
        bench.ask(wrong, "error")

    # A loop wraps: the time stays inside the range and goes back to its start.
    bench.ask("play")
    bench.ask("loop 00:01:000-00:01:400")
    times = []
    for _ in range(20):
        times.append(bench.time()[0])
        time.sleep(0.06)
    check(all(1000 <= t <= 1400 for t in times), "loop keeps the time in its range: %s" % times)
    check(any(b < a for a, b in zip(times, times[1:])), "loop wraps: %s" % times)
    bench.ask("loop off")

    # An edited timeline takes effect at once, at the same demo time.
    bench.ask("pause")
    bench.ask("seek 00:03:000")
    white = bench.shot(work, "white")
    write_script(work, "red", "1.0, 0.0, 0.0")
    reloaded = bench.wait_for(("Reloaded", "Reload failed"))
    check(reloaded is not None and reloaded.startswith("Reloaded") and "wb.txt" in reloaded, "timeline edit: %r" % reloaded)
    red = bench.shot(work, "red")
    r, g, _ = pixel(red, W // 8, H // 8)
    check(bench.time() == (3000, "paused") and red != white and r > g + 40, "edited timeline shows at 00:03:000")

    # Broken edits keep the last good frame and print the engine's message; fixes recover.
    shader = os.path.join(work, "simple.frag")
    good_shader = open(shader).read()
    breakages = [
        (lambda: open(shader, "w").write("void main() { broken }\n"), "Error while compiling fragment shader",
         lambda: open(shader, "w").write(good_shader)),
        (lambda: write_script(work, "red", "1.0, 0.0, 0.0", broken=True), "strat",
         lambda: write_script(work, "red", "1.0, 0.0, 0.0")),
    ]
    for breaking, message, fixing in breakages:
        breaking()
        line = bench.wait_for(("Reloaded", "Reload failed"))
        check(line is not None and line.startswith("Reload failed:"), "broken edit reported: %r" % line)
        detail = " ".join(bench.log[-6:])
        check(message in detail, "the engine's message '%s' is printed: %s" % (message, detail))
        check(bench.shot(work, "broken") == red, "a broken edit keeps the last good frame (%s)" % message)
        bench.ask("overlay on")
        check(bench.shot(work, "overlay") != red, "the overlay shows over the frame")
        bench.ask("overlay off")
        fixing()
        line = bench.wait_for(("Reloaded", "Reload failed"))
        check(line is not None and line.startswith("Reloaded"), "the fix reloads: %r" % line)
        check(bench.shot(work, "fixed") == red and bench.time()[0] == 3000, "the fix shows the same frame again")

    # A texture edit rebuilds the pools.
    shutil.copy(os.path.join(SRC, "resources", "gfx", "logo.png"), os.path.join(work, "background.png"))
    line = bench.wait_for(("Reloaded", "Reload failed"))
    check(line is not None and line.startswith("Reloaded") and "background.png" in line, "texture edit: %r" % line)
    check(bench.shot(work, "texture") != red, "the edited texture shows")
    bench.ask("quit")
    bench.finish("quit")


def keys(work, display):
    bench = Workbench(work, display, "--no-overlay", "--checkpoint", "2", "--bpm", "120")
    check(2500 <= bench.time()[0] < 4000, "--checkpoint 2 opens at 00:02:500")
    press(bench, display, "space")
    at, state = bench.time()
    check(state == "paused", "Space pauses")
    press(bench, display, "Right")
    check(bench.time()[0] == (at // 500 + 1) * 500, "Right seeks to the next beat of 120 bpm")
    press(bench, display, "shift+Left")
    check(bench.time()[0] == ((at // 500 + 1) * 500 - 1) // 2000 * 2000, "Shift+Left seeks to the bar before")
    press(bench, display, "Next")
    check(bench.time()[0] == 2500, "Page Down goes to the next checkpoint")
    press(bench, display, "Prior")
    check(bench.time()[0] == 1000, "Page Up goes to the checkpoint before")
    press(bench, display, "Home")
    check(bench.time() == (0, "paused"), "Home goes to the start")
    xdotool(display, "mousemove", str(W // 2), str(H // 2))
    xdotool(display, "key", "Escape")
    bench.finish("Escape")


def sync_editor(work, display):
    """A scripted sync editor: greeting, track requests, keys, seek, pause, save, hang-up."""
    path = os.path.join(work, "resources", "scripts", "wb.txt")
    text = open(path).read().replace("timeline {", "sync { bpm = 120.0; rpb = 4; tracks = tracks; }\ntimeline {")
    open(path, "w").write(text.replace("late.start(00:03:000, 95);", "late.start(00:03:000, 95);\n"
                                       "    late.sync(00:00:000, setPosition, a, b, c);"))
    for name in "abc":
        open(os.path.join(work, "tracks_%s.track" % name), "wb").write(struct.pack("<i", 0))
    editor = socket.create_server(("127.0.0.1", 0))
    editor.settimeout(30)
    bench = Workbench(work, display, "--no-overlay", "--sync", "127.0.0.1:%d" % editor.getsockname()[1])
    link = editor.accept()[0]
    link.settimeout(30)
    check(link.recv(19) == b"hello, synctracker!", "the workbench greets the editor")
    link.sendall(b"hello, demo!")
    link.sendall(b"\4\1\3" + struct.pack(">I", 28))  # pause, then row 28: 3.5 s at 8 rows a second
    for _ in range(50):
        if bench.time() == (3500, "paused"):
            break
        time.sleep(0.1)
    check(bench.time() == (3500, "paused"), "the editor pauses and seeks the workbench")
    keyless = bench.shot(work, "keyless")
    link.sendall(b"\0" + struct.pack(">IIfB", 2, 0, -2.0, 0) + b"\0" + struct.pack(">IIfB", 0, 0, 0.5, 1) + b"\5")
    time.sleep(0.5)
    check(bench.shot(work, "keyed") != keyless, "the editor's keys move the picture")
    check(open(os.path.join(work, "tracks_a.track"), "rb").read() == struct.pack("<iifb", 1, 0, 0.5, 1), "saved")
    link.close()
    bench.ask("time")
    bench.ask("quit")
    bench.finish("a vanished sync editor")


def main():
    work = tempfile.mkdtemp(prefix="qlnworkbench-")
    xvfb = subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", "640x480x24", "-nolisten", "tcp", "-noreset"],
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    display = ":" + xvfb.stdout.readline().strip()
    try:
        os.makedirs(os.path.join(work, "resources", "scripts"))
        for name in ("simple.vert", "simple.frag"):
            shutil.copy(os.path.join(SRC, "resources", "shaders", name), work)
        shutil.copy(os.path.join(SRC, "resources", "gfx", "background.png"), work)
        write_script(work)
        control_lines(work, display)
        write_script(work)
        keys(work, display)
        write_script(work)
        sync_editor(work, display)
    finally:
        xvfb.terminate()
        shutil.rmtree(work, ignore_errors=True)
    print("%d failed" % len(failed))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
