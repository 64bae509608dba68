"""A picture moved by sync tracks is drawn exactly where timed calls with the tracks' values put it."""
import os, shutil, struct, subprocess, sys, tempfile

SRC = os.environ.get("QLN_SOURCE_DIR") or os.path.abspath(os.path.join(os.path.dirname(__file__), "..", ".."))
BIN = os.environ.get("QLN_BINARY_DIR") or os.path.join(SRC, "build")
FPS = 8  # 120 bpm at 4 rows per beat is 8 rows a second: frame k is row k
# name -> keys (row, value, kind); kinds 0 step, 1 linear, 2 smooth
TRACKS = {"pic:x": [(0, -0.5, 0), (4, -0.5, 1), (12, 0.25, 0)], "pic:y": [(0, 0.0, 2), (8, 0.5, 0)], "pic z": [(0, -2.0, 0)]}
failures = []


def value(keys, row):
    (r0, v0, kind), after = ([k for k in keys if k[0] <= row] or keys[:1])[-1], [k for k in keys if k[0] > row]
    if row < r0 or not after or kind == 0:
        return v0
    t = (row - r0) / (after[0][0] - r0)
    return v0 + (after[0][1] - v0) * (t if kind == 1 else t * t * (3 - 2 * t))


def script(work, name, sync, timeline):
    os.makedirs(os.path.join(work, "resources", "scripts"), exist_ok=True)
    with open(os.path.join(work, "resources", "scripts", name), "w") as f:
        f.write("{QLNDS1}\npaths { definition = %s/resources/definitions/; gfx = %s/resources/gfx/; }\n"
                "system { stop = 00:02:000; }\n%sgraphics { logo = logo.png; }\n"
                "pic * DisplayTexture { texture = graphics[logo]; xscale = 0.5; yscale = 0.5; }\n"
                "timeline {\n    pic.start(00:00:000);\n%s}\n" % (SRC, SRC, sync, timeline))


def capture(work, name):  # with --raw the engine's log goes to standard error
    env = {k: v for k, v in os.environ.items() if k != "DISPLAY"}
    return subprocess.run([os.path.join(BIN, "democapture"), name, "--raw", "--no-audio", "--fps", str(FPS),
                           "--size", "64x48"], cwd=work, env=env, capture_output=True, timeout=300)


def check(condition, what):
    if not condition:
        failures.append(what), print("FAIL:", what)


def main():
    work = tempfile.mkdtemp(prefix="qlnsync-")
    os.makedirs(os.path.join(work, "sync"))
    files = {"pic:x": "pic_pic-3Ax.track", "pic:y": "pic_pic-3Ay.track", "pic z": "pic_pic-20z.track"}
    for name, keys in TRACKS.items():
        with open(os.path.join(work, "sync", files[name]), "wb") as f:
            f.write(struct.pack("<i", len(keys)) + b"".join(struct.pack("<ifb", *key) for key in keys))
    script(work, "synced.txt", "sync { bpm = 120.0; rpb = 4; tracks = sync/pic; }\n",
           "    pic.sync(00:00:000, setPosition, pic:x, pic:y, pic z);\n")
    calls = ["pic.setPosition(00:%02d:%03d, %s);\n" % (k * 125 // 1000, k * 125 % 1000, ", ".join(
        repr(value(TRACKS[n], k)) for n in ("pic:x", "pic:y", "pic z"))) for k in range(2 * FPS + 1)]
    script(work, "timed.txt", "", "".join(calls))

    synced, timed = capture(work, "synced.txt"), capture(work, "timed.txt")
    check(synced.returncode == 0 and timed.returncode == 0, "both captures run: " + synced.stderr.decode()[-300:])
    size = 64 * 48 * 3
    frames = [synced.stdout[i:i + size] for i in range(0, len(synced.stdout), size)]
    check(len(frames) >= 2 * FPS and synced.stdout == timed.stdout, "synced frames equal timed calls' frames")
    check(len(set(frames[i] for i in (0, 6, 10, 14))) == 4, "the picture moves with the tracks")
    check(b"Loading sync" not in timed.stderr and b"QLNDemosys::sync" not in timed.stderr,
          "a script without a sync block logs nothing of sync")

    os.remove(os.path.join(work, "sync", files["pic:y"]))
    run = capture(work, "synced.txt")
    check(run.returncode != 0 and b"Error loading sync track!\nTrack : 'pic:y'\n" in run.stderr, "a missing track stops the start")
    shutil.rmtree(work)
    print("sync capture: %d failed" % len(failures))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
