"""Runs democapture on real demoscripts, splits the bundled demo into chunks, and runs the
README's capture recipes exactly as printed."""
import os
import re
import struct
import subprocess
import sys
import tempfile
import wave
from concurrent.futures import ThreadPoolExecutor

SRC = os.environ.get("QLN_SOURCE_DIR") or os.path.abspath(os.path.join(os.path.dirname(__file__), "..", ".."))
BIN = os.environ.get("QLN_BINARY_DIR") or os.path.join(SRC, "build")
CAPTURE = os.path.join(BIN, "democapture")
W, H = 64, 48
RATE = 44100
failed = []


def check(condition, what):
    if not condition:
        failed.append(what)
        print("FAIL:", what)


def run(args, cwd, stdout=subprocess.DEVNULL, env=None):
    env = dict(os.environ, **(env or {}))
    env.pop("DISPLAY", None)  # democapture starts its own X server
    return subprocess.run(args, cwd=cwd, env=env, stdin=subprocess.DEVNULL, stdout=stdout, stderr=subprocess.PIPE,
                          timeout=600)


def capture(work, *args, stdout=subprocess.DEVNULL):
    return run([CAPTURE, *args], work, stdout)


def files(folder, suffix=".png"):
    return sorted(n for n in os.listdir(folder) if n.endswith(suffix)) if os.path.isdir(folder) else []


def read(path):
    return open(path, "rb").read() if os.path.exists(path) else None


def same_files(a, b, names):
    return all(read(os.path.join(a, n)) is not None and read(os.path.join(a, n)) == read(os.path.join(b, n))
               for n in names)


def png_size(path):
    with open(path, "rb") as f:
        return struct.unpack(">II", f.read(24)[16:24])


def write_clock_script(work, name, stop):
    # Black to white in exactly one second: the grey level tells the demo time of a frame.
    # The music is a ramp that never repeats: sample i of the left channel is i mod 30000.
    os.makedirs(os.path.join(work, "resources", "scripts"), exist_ok=True)
    with open(os.path.join(work, "resources", "scripts", name), "w") as f:
        f.write("""{QLNDS1}
paths { definition = %s/resources/definitions/; sound = %s/; }
system { stop = %s; }
screen { width = %d; height = %d; }
sound { file = music.wav; play = 1; }
fader * FadeEffect { comment = clock; }
timeline {
    fader.start(00:00:000, 50);
    fader.fade(00:00:000, 00:01:000, 0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 1.0, 1.0);
}
""" % (SRC, work, stop, W, H))
    with wave.open(os.path.join(work, "music.wav"), "wb") as w:
        w.setnchannels(2)
        w.setsampwidth(2)
        w.setframerate(RATE)
        w.writeframes(b"".join(struct.pack("<hh", i % 30000, -(i % 30000)) for i in range(RATE * 3)))


def test_clock(work):
    write_clock_script(work, "clock.txt", "00:02:000")
    # Frame k shows demo time floor(k * 1000 / fps); --to is the first frame left out.
    for fps in (24, 60, 144):
        codes = os.path.join(work, "codes%d.txt" % fps)
        r = capture(work, "clock.txt", "--raw", "--fps", str(fps), "--to", "00:01:000", "--no-audio", "--timecodes",
                    codes, stdout=subprocess.PIPE)
        frames = [r.stdout[i:i + W * H * 3] for i in range(0, len(r.stdout), W * H * 3)]
        check(r.returncode == 0 and len(r.stdout) == fps * W * H * 3,
              "%d fps: one second of the script's 64x48 holds %d frames: %s" % (fps, fps, r.stderr.decode()[-300:]))
        times = [tuple(map(int, line.split())) for line in open(codes)] if os.path.exists(codes) else []
        check(times == [(k, k * 1000 // fps) for k in range(fps)], "%d fps: time codes follow floor(k*1000/fps)" % fps)
        grey = [f[((H // 2) * W + W // 2) * 3] for f in frames]
        worst = max((abs(g - 255.0 * (k * 1000 // fps) / 1000) for k, g in enumerate(grey)), default=99)
        check(worst <= 2, "%d fps: every frame shows its own demo time (worst grey error %.1f)" % (fps, worst))

    # Defaults: 60 fps, the script's size, into capture/, every frame before the stop time,
    # PNG level 1, music on; --count agrees with what is written.
    r = capture(work, "clock.txt")
    names = files(os.path.join(work, "capture"))
    check(r.returncode == 0 and names == ["frame_%06d.png" % k for k in range(120)],
          "a whole capture writes frames 0-119 before the 2 s stop into capture/ (%d)" % len(names))
    check(capture(work, "clock.txt", "--count", stdout=subprocess.PIPE).stdout == b"120\n", "--count says 120")
    check(names and png_size(os.path.join(work, "capture", names[0])) == (W, H), "the size is the script's")
    check(os.path.exists(os.path.join(work, "capture", "audio.wav")), "a whole capture writes audio.wav")
    level1 = os.path.join(work, "level1")
    capture(work, "clock.txt", "--frames", "0-9", "--png-level", "1", "--out", level1)
    check(same_files(level1, os.path.join(work, "capture"), files(level1)) and len(files(level1)) == 10,
          "the default PNG level is 1, and a range equals the same frames of a whole capture")
    level0 = os.path.join(work, "level0")
    capture(work, "clock.txt", "--frames", "0-9", "--png-level", "0", "--size", "32x24", "--no-audio", "--out", level0)
    sizes = [os.path.getsize(os.path.join(d, "frame_000005.png")) for d in (level0, level1)]
    check(png_size(os.path.join(level0, "frame_000005.png")) == (32, 24) and sizes[0] > sizes[1] / 4,
          "--size and --png-level 0 change the frames (%s)" % sizes)
    check(files(level0, ".wav") == [], "--no-audio writes no music")
    r = capture(work, "clock.txt", "--discard", "--out", os.path.join(work, "discard"))
    check(r.returncode == 0 and not os.path.exists(os.path.join(work, "discard")), "--discard writes nothing")

    # The music of a range starts at the range's first frame, to the sample.
    part = os.path.join(work, "part")
    check(capture(work, "clock.txt", "--fps", "30", "--from", "00:01:000", "--out", part).returncode == 0, "--from")
    check(files(part) == ["frame_%06d.png" % k for k in range(30, 60)], "--from 1 s at 30 fps writes frames 30-59")
    wav = os.path.join(part, "audio_000030-000059.wav")
    check(os.path.exists(wav), "the range's music is audio_000030-000059.wav")
    if os.path.exists(wav):
        with wave.open(wav) as w:
            check((w.getframerate(), w.getnchannels(), w.getnframes()) == (RATE, 2, RATE), "one second of stereo")
            head = list(struct.unpack("<8h", w.readframes(4)))
            check(head == [v for i in range(RATE, RATE + 4) for v in (i % 30000, -(i % 30000))],
                  "the WAV starts with music sample %d: %s" % (RATE, head))

    # Chunks cover the demo without gap or overlap; --join needs every piece.
    counts = [capture(work, "clock.txt", "--chunk", "%d/3" % i, "--count", stdout=subprocess.PIPE).stdout
              for i in range(3)]
    check(counts == [b"40\n"] * 3, "three chunks of 40 frames: %s" % counts)
    os.remove(os.path.join(part, "audio_000030-000059.wav"))
    for piece in ("audio_000000-000009.wav", "audio_000020-000029.wav"):
        open(os.path.join(part, piece), "wb").write(read(os.path.join(level1, "audio_000000-000009.wav")))
    r = capture(work, "--join", "--out", part)
    check(r.returncode == 1 and b"frames 10-19 have no audio file" in r.stderr, "--join refuses a gap")

    # Nothing is overwritten unless asked for; bad arguments fail before any frame.
    before = os.path.getmtime(os.path.join(level1, "frame_000000.png"))
    r = capture(work, "clock.txt", "--frames", "0-9", "--out", level1)
    check(r.returncode == 2 and b"would be overwritten" in r.stderr, "refuses to overwrite existing frames")
    check(os.path.getmtime(os.path.join(level1, "frame_000000.png")) == before, "a refused run leaves files alone")
    check(capture(work, "clock.txt", "--frames", "0-9", "--out", level1, "--overwrite").returncode == 0, "--overwrite")
    for args, text in ((["--size", "0x10"], b"bad size"), (["--fps", "fast"], b"bad frame rate"),
                       (["--frames", "9-3"], b"bad frame range"), (["--from", "00:05:000", "--to", "00:01:000"],
                                                                   b"empty"), (["--from", "1:2"], b"bad time"),
                       (["--chunk", "3/3"], b"bad chunk"), (["--chunk", "0/2", "--frames", "1-2"], b"give one of"),
                       (["--frames", "500-"], b"no frame before"), (["--out", "/etc/passwd/x"], b"output folder"),
                       (["--out", ""], b"folder name is empty"), (["--png-level", "10"], b"0 to 9"),
                       (["--bogus"], b"unknown option"), (["other.txt"], b"more than one"), (["--fps"], b"needs a value")):
        r = capture(work, "clock.txt", *args)
        check(r.returncode == 2 and text in r.stderr, "%s is refused with '%s'" % (args, text.decode()))
    blocked = os.path.join(work, "blocked")
    os.makedirs(os.path.join(blocked, "frame_000005.png"))
    r = capture(work, "clock.txt", "--frames", "0-9", "--no-audio", "--out", blocked, "--overwrite")
    check(r.returncode == 1 and b"cannot write %s/frame_000005.png" % blocked.encode() in r.stderr,
          "a frame that cannot be written fails the run: %s" % r.stderr.decode()[-300:])
    usage = capture(work, "--help", stdout=subprocess.PIPE).stdout.decode()
    options = re.findall(r"^  (--[a-z-]+)", usage, re.M)
    check(len(options) == 15 and "frame at the stop time is not" in usage.replace("\n", " "), "--help: %s" % options)


def test_chunks(work):
    # Chunk boundaries fall in the tunnel, the height map, the cube wall, the flip and the
    # landscape; each chunk runs the demo before it without rasterising it.
    common = ["--fps", "4", "--size", "80x60"]
    full = os.path.join(work, "full")
    split = os.path.join(work, "split")
    jobs = [(common + ["--out", full])] + [common + ["--chunk", "%d/7" % i, "--out", split] for i in range(7)]
    with ThreadPoolExecutor(2) as pool:
        results = list(pool.map(lambda args: capture(SRC, *args), jobs))
    check(all(r.returncode == 0 for r in results), "the bundled demo captures whole and in 7 chunks: %s" %
          [r.stderr.decode()[-300:] for r in results if r.returncode])
    names = files(full)
    check(len(names) == 308 and files(split) == names, "308 frames at 4 fps, the chunks write them all")
    check(same_files(full, split, names), "every chunk's frames equal the whole capture's, byte for byte")
    r = capture(SRC, "--join", "--out", split)
    check(r.returncode == 0 and same_files(split, full, ["audio.wav"]) and
          os.path.getsize(os.path.join(full, "audio.wav")) == 44 + 308 * RATE // 4 * 4,
          "the joined chunks' module music equals the whole capture's WAV, byte for byte")


def probe(path, stream, entry):
    r = subprocess.run(["ffprobe", "-v", "error", "-count_frames", "-select_streams", stream, "-show_entries",
                        "stream=" + entry, "-of", "csv=p=0", path], capture_output=True, text=True)
    try:
        return float(r.stdout.strip())
    except ValueError:
        return -1


def test_recipes(work):
    readme = open(os.path.join(SRC, "README.md")).read()
    section = readme.split("## Capturing a demo frame by frame")[1].split("\n## ")[0]
    recipes = re.findall(r"```sh\n(.*?)```", section, re.S)
    join = re.search(r"`(build/democapture --join --out capture)`", section).group(1)
    # The bundled demo, stopped after one second: 60 frames at its own 640x480.
    results = {}
    for i, recipe in enumerate(recipes):
        home = os.path.join(work, "recipe%d" % i)
        os.makedirs(os.path.join(home, "resources", "scripts"))
        os.symlink(BIN, os.path.join(home, "build"))
        for entry in os.listdir(os.path.join(SRC, "resources")):
            if entry != "scripts":
                os.symlink(os.path.join(SRC, "resources", entry), os.path.join(home, "resources", entry))
        script = open(os.path.join(SRC, "resources", "scripts", "demoscript.txt")).read()
        with open(os.path.join(home, "resources", "scripts", "demoscript.txt"), "w") as f:
            f.write(script.replace("stop = 01:16:800;", "stop = 00:01:000;"))
        tasks = [{"SLURM_ARRAY_TASK_ID": str(t)} for t in range(8)] if "#SBATCH" in recipe else [{}]
        ok = all(run(["bash", "-e", "-c", recipe], home, env=task).returncode == 0 for task in tasks)
        if "#SBATCH" in recipe:
            ok = ok and run(["bash", "-e", "-c", join], home).returncode == 0
        check(ok, "README recipe %d runs as printed:\n%s" % (i, recipe))
        results[i] = home
    movies = [(os.path.join(results[i], m), frames) for i, r in enumerate(recipes)
              for m, frames in (("demo.mp4", 60), ("part.mp4", 30), ("raw.mp4", 60)) if m in r]
    check(len(movies) == 3 and len(recipes) == 5, "the README has five capture recipes, three making an MP4")
    for path, frames in movies:
        video, audio = probe(path, "v:0", "nb_read_frames"), probe(path, "a:0", "duration")
        check(video == frames and abs(audio - frames / 60.0) < 0.05,
              "%s: %d video frames and %.2f s of sound, got %s and %s" % (path, frames, frames / 60, video, audio))
    whole = os.path.join(results[0], "capture")
    for i, recipe in enumerate(recipes):
        if "--chunk" in recipe:
            out = os.path.join(results[i], "capture")
            check(files(out) == files(whole) and same_files(out, whole, files(whole) + ["audio.wav"]),
                  "recipe %d: the joined chunks equal the whole capture, frames and WAV" % i)


def main():
    with tempfile.TemporaryDirectory(prefix="qlncapture-") as work:
        for test in (test_clock, test_chunks, test_recipes):
            os.makedirs(os.path.join(work, test.__name__))
            test(os.path.join(work, test.__name__))
    print("capture program: %d failed" % len(failed))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
