"""Runs democapture on small demoscripts and checks what it writes."""
import os
import struct
import subprocess
import sys
import tempfile
import wave

SRC = os.environ.get("QLN_SOURCE_DIR") or os.path.abspath(os.path.join(os.path.dirname(__file__), "..", ".."))
BIN = os.environ.get("QLN_BINARY_DIR") or os.path.join(SRC, "build")
CAPTURE = os.path.join(BIN, "democapture")
W, H = 64, 48
RATE = 44100

passed = 0
failed = 0


def check(condition, what):
    global passed, failed
    if condition:
        passed += 1
    else:
        failed += 1
        print("FAIL:", what)


def write_script(work, name, stop, play=1):
    scripts = os.path.join(work, "resources", "scripts")
    os.makedirs(scripts, exist_ok=True)
    with open(os.path.join(scripts, name), "w") as f:
        f.write("""{QLNDS1}
paths {
    definition = %s/resources/definitions/;
    sound = %s/;
}
system { stop = %s; }
sound { file = music.wav; play = %d; }
// Black to white in exactly one second: the grey level tells the demo time of a frame.
fader * FadeEffect { comment = clock; }
timeline {
    fader.start(00:00:000, 50);
    fader.fade(00:00:000, 00:01:000, 0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 1.0, 1.0);
}
""" % (SRC, work, stop, play))


def write_music(work):
    # A ramp that never repeats within the test: sample i of the left channel is i mod 30000.
    path = os.path.join(work, "music.wav")
    with wave.open(path, "wb") as w:
        w.setnchannels(2)
        w.setsampwidth(2)
        w.setframerate(RATE)
        frames = bytearray()
        for i in range(RATE * 3):
            frames += struct.pack("<hh", i % 30000, -(i % 30000))
        w.writeframes(bytes(frames))
    return path


def capture(work, *args, stdout=subprocess.DEVNULL):
    env = dict(os.environ)
    env.pop("DISPLAY", None)  # the program starts its own X server
    return subprocess.run([CAPTURE, *args], cwd=work, env=env, stdout=stdout, stderr=subprocess.PIPE, timeout=300)


def centre_grey(frame_bytes):
    at = ((H // 2) * W + W // 2) * 3
    return frame_bytes[at]


def main():
    work = tempfile.mkdtemp(prefix="qlncapture-")
    write_music(work)
    write_script(work, "clock.txt", "00:02:000")
    write_script(work, "short.txt", "00:00:500")

    # Frame k shows demo time floor(k * 1000 / fps), whatever the frame rate.
    for fps in (24, 30, 60, 144):
        codes = os.path.join(work, "codes%d.txt" % fps)
        run = capture(work, "clock.txt", "--raw", "--fps", str(fps), "--to", "00:01:000", "--size", "%dx%d" % (W, H),
                      "--no-audio", "--timecodes", codes, stdout=subprocess.PIPE)
        check(run.returncode == 0, "raw capture at %d fps exits 0: %s" % (fps, run.stderr.decode()[-400:]))
        video = run.stdout
        frames = [video[i:i + W * H * 3] for i in range(0, len(video), W * H * 3)]
        check(len(video) == fps * W * H * 3, "%d fps: one second holds %d frames, got %d bytes" % (fps, fps, len(video)))
        times = [tuple(map(int, line.split())) for line in open(codes)] if os.path.exists(codes) else []
        check(times == [(k, k * 1000 // fps) for k in range(fps)], "%d fps: frame times follow floor(k*1000/fps)" % fps)
        worst = max((abs(centre_grey(f) - 255.0 * (k * 1000 // fps) / 1000) for k, f in enumerate(frames)), default=99)
        check(worst <= 2, "%d fps: every frame shows its own demo time (worst grey error %.1f)" % (fps, worst))

    # The same range twice gives the same bytes; a range equals the same frames of a full run.
    full = os.path.join(work, "full")
    again = os.path.join(work, "again")
    part = os.path.join(work, "part")
    common = ["clock.txt", "--fps", "30", "--size", "%dx%d" % (W, H)]
    check(capture(work, *common, "--frames", "0-59", "--out", full).returncode == 0, "full PNG capture")
    check(capture(work, *common, "--frames", "0-59", "--out", again).returncode == 0, "repeated PNG capture")
    run = capture(work, *common, "--frames", "30-59", "--out", part)
    check(run.returncode == 0, "partial PNG capture")
    names = sorted(n for n in os.listdir(full) if n.endswith(".png"))
    check(len(names) == 60, "60 frames written, got %d" % len(names))
    same = all(open(os.path.join(full, n), "rb").read() == open(os.path.join(again, n), "rb").read() for n in names)
    check(same, "two captures of the same range are byte-identical")
    part_names = sorted(n for n in os.listdir(part) if n.endswith(".png"))
    check(part_names == names[30:], "a range starting at frame 30 writes frames 30..59")
    same = all(open(os.path.join(full, n), "rb").read() == open(os.path.join(part, n), "rb").read() for n in part_names)
    check(same, "frame k of a range equals frame s+k of the full capture")

    # The music of the range starts at the range's first frame, to the sample.
    wav = os.path.join(part, "audio_000030-000059.wav")
    check(os.path.exists(wav), "the range's music is written as audio_000030-000059.wav")
    if os.path.exists(wav):
        with wave.open(wav) as w:
            check(w.getframerate() == RATE and w.getnchannels() == 2, "WAV is 44.1 kHz stereo")
            check(w.getnframes() == 30 * RATE // 30, "WAV holds exactly the range's 30 frames of sound")
            first = struct.unpack("<%dh" % 8, w.readframes(4))
            start = 30 * RATE // 30
            expected = []
            for i in range(start, start + 4):
                expected += [i % 30000, -(i % 30000)]
            check(list(first) == expected, "WAV starts with music sample %d: %s" % (start, first))

    # A stop time inside the range ends the capture there.
    stopped = os.path.join(work, "stopped")
    run = capture(work, "short.txt", "--fps", "30", "--size", "%dx%d" % (W, H), "--frames", "0-100", "--out", stopped)
    pngs = [n for n in os.listdir(stopped) if n.endswith(".png")] if os.path.isdir(stopped) else []
    check(run.returncode == 0 and len(pngs) == 16, "a stop at 500 ms ends a 30 fps capture after frame 15 (%d)" % len(pngs))

    # Nothing is overwritten unless asked for; bad arguments fail before any frame.
    before = os.path.getmtime(os.path.join(part, names[30]))
    run = capture(work, *common, "--frames", "30-59", "--out", part)
    check(run.returncode == 2 and b"would be overwritten" in run.stderr, "refuses to overwrite existing frames")
    check(os.path.getmtime(os.path.join(part, names[30])) == before, "refused capture leaves the frames alone")
    run = capture(work, *common, "--frames", "30-59", "--out", part, "--overwrite")
    check(run.returncode == 0, "--overwrite replaces them")
    for args, text in ((["--size", "0x10"], b"bad size"), (["--fps", "fast"], b"bad frame rate"),
                       (["--frames", "9-3"], b"bad frame range"), (["--from", "00:05:000", "--to", "00:01:000"], b"empty"),
                       (["--from", "1:2"], b"bad time"), (["--out", "/etc/passwd/frames"], b"output folder")):
        run = capture(work, "clock.txt", *args)
        check(run.returncode == 2 and text in run.stderr, "%s is refused with '%s'" % (args, text.decode()))
    check(not os.path.exists(os.path.join(work, "capture")), "refused runs write nothing")

    subprocess.run(["rm", "-rf", work])
    print("capture program: %d passed, %d failed" % (passed, failed))
    return 0 if failed == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
