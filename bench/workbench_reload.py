"""Workbench speed on the bundled demo, under a private X server:
 - save to reload: a timeline edit of the demoscript and a texture edit, each timed from
   the save to the "Reloaded" line (the reloaded demo's first frame follows in the same
   frame loop pass), next to the time the workbench reports for the reload itself;
 - frame time of the workbench with its overlay against the demo program, on one scene.
Usage: python3 bench/workbench_reload.py [build dir]"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import time
import queue

SRC = os.path.abspath(os.path.join(os.path.dirname(__file__), ".."))
BIN = sys.argv[1] if len(sys.argv) > 1 else os.path.join(SRC, "build")
SCENE = ("00:30:720", "00:38:400")  # the cube wall
ROUNDS = 5


def private_display():
    xvfb = subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", "1280x720x24", "-nolisten", "tcp", "-noreset"],
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    return xvfb, ":" + xvfb.stdout.readline().strip()


def bundled_copy(work, start="00:00:000", stop="01:16:800"):
    """The bundled demo with its textures in work/gfx (to be edited) and all else in place."""
    os.makedirs(os.path.join(work, "resources", "scripts"), exist_ok=True)
    if not os.path.isdir(os.path.join(work, "gfx")):
        shutil.copytree(os.path.join(SRC, "resources", "gfx"), os.path.join(work, "gfx"))
    text = open(os.path.join(SRC, "resources", "scripts", "demoscript.txt")).read()
    text = re.sub(r"= resources/", "= " + SRC + "/resources/", text)
    text = text.replace(SRC + "/resources/gfx/", work + "/gfx/")
    text = re.sub(r"start = [0-9:]+;", "start = %s;" % start, text, count=1)
    text = re.sub(r"stop = [0-9:]+;", "stop = %s;" % stop, text, count=1)
    return text


def save(path, text):
    with open(path + ".new", "w") as f:
        f.write(text)
    os.replace(path + ".new", path)


class Tool:
    def __init__(self, work, env, *args):
        self.proc = subprocess.Popen([os.path.join(BIN, "demotool"), "bench.txt", "--control", *args], cwd=work,
                                     env=env, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                     stderr=subprocess.DEVNULL, text=True, bufsize=1)
        self.lines = queue.Queue()
        threading.Thread(target=lambda: [self.lines.put(l.rstrip("\n")) for l in self.proc.stdout], daemon=True).start()

    def wait_for(self, prefix, seconds=60):
        deadline = time.time() + seconds
        while True:
            line = self.lines.get(timeout=max(0.01, deadline - time.time()))
            if line.startswith(prefix):
                return line

    def ask(self, command):
        self.proc.stdin.write(command + "\n")
        self.proc.stdin.flush()
        return self.wait_for(("ok", "error"))


def median(values):
    return sorted(values)[len(values) // 2]


def reloads(work, env):
    script = os.path.join(work, "resources", "scripts", "bench.txt")
    text = bundled_copy(work)
    save(script, text)
    tool = Tool(work, env, "--start", SCENE[0])
    tool.ask("time")
    for kind in ("timeline edit", "texture edit"):
        latency, own = [], []
        for i in range(ROUNDS):
            began = time.time()
            if kind == "timeline edit":
                # One checkpoint more or less: the timeline changes, nothing else does.
                save(script, text if i % 2 else text.replace("timeline {", "timeline {\n    Checkpoint 00:40:000;"))
            else:
                shutil.copy(os.path.join(SRC, "resources", "gfx", "plasma.png"), os.path.join(work, "gfx", "plasma.png"))
            line = tool.wait_for(("Reloaded", "Reload failed"))
            tool.ask("time")  # answered after the first frame of the reloaded demo
            latency.append((time.time() - began) * 1000)
            own.append(int(re.search(r"in (\d+) ms", line).group(1)) if "in " in line else -1)
            time.sleep(0.3)
        print("%-14s save to first frame: median %4.0f ms (max %4.0f); reload itself: median %3d ms"
              % (kind, median(latency), max(latency), median(own)))
    tool.ask("quit")
    tool.proc.wait(timeout=60)


def fps_line(output):
    found = re.findall(r"^FPS = ([0-9.]+)", output, re.M)
    return float(found[-1]) if found else 0.0


def frame_times(work, env):
    save(os.path.join(work, "resources", "scripts", "bench.txt"), bundled_copy(work, *SCENE))
    results = {"demo": [], "workbench+overlay": []}
    for _ in range(3):  # alternating, so that a busy machine weighs on both alike
        demo = subprocess.run([os.path.join(BIN, "demo"), "bench.txt"], cwd=work, env=env, capture_output=True,
                              text=True, timeout=300)
        results["demo"].append(fps_line(demo.stdout))
        tool = Tool(work, env)
        # Quit just before the stop time, where the workbench would pause and reset its count.
        while tool.ask("time").split()[2] < "00:37:900":
            time.sleep(0.1)
        tool.ask("quit")
        out, _ = tool.proc.communicate(timeout=60)
        rest = []
        while not tool.lines.empty():
            rest.append(tool.lines.get())
        results["workbench+overlay"].append(fps_line("\n".join(rest) + out))
    for name, rates in results.items():
        fps = median(rates)
        print("%-18s %6.1f fps  %6.2f ms a frame  (runs: %s)" % (name, fps, 1000.0 / fps if fps else 0,
                                                             ", ".join("%.1f" % r for r in rates)))


def main():
    xvfb, display = private_display()
    env = dict(os.environ, DISPLAY=display, SDL_VIDEODRIVER="x11", SDL_AUDIODRIVER="dummy")
    work = tempfile.mkdtemp(prefix="qlnbench-")
    try:
        print("== Reload on the bundled demo, playing at %s" % SCENE[0])
        reloads(work, env)
        print("\n== Frame time on the scene %s-%s (640x480)" % SCENE)
        frame_times(work, env)
    finally:
        xvfb.terminate()
        shutil.rmtree(work, ignore_errors=True)


if __name__ == "__main__":
    main()
