"""Golden frames: the bundled demo rendered by democapture and compared with references."""
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import zlib

SRC = os.environ.get("QLN_SOURCE_DIR") or os.path.abspath(os.path.join(os.path.dirname(__file__), "..", ".."))
BIN = os.environ.get("QLN_BINARY_DIR") or os.path.join(SRC, "build")
GOLDEN = os.path.join(SRC, "tests", "golden")
FPS = 4
SIZE = (160, 120)
# One frame in every scene of the demo (frame k shows k * 250 ms), the intro and the outro twice.
FRAMES = [3, 10, 26, 36, 48, 66, 80, 100, 130, 150, 170, 190, 210, 230, 250, 262, 282, 296]
# llvmpipe may round a colour differently from one build to the next: a few units per
# channel are allowed, and a few pixels (edges of moving geometry) may differ more.
CHANNEL_TOLERANCE = 8
PIXEL_SHARE = 0.02


def read_png(path):
    """RGB pixels of an 8-bit RGB PNG as written by democapture (filters 0-4)."""
    data = open(path, "rb").read()
    pos, idat, width, height = 8, b"", 0, 0
    while pos < len(data):
        length = struct.unpack(">I", data[pos:pos + 4])[0]
        kind, chunk = data[pos + 4:pos + 8], data[pos + 8:pos + 8 + length]
        if kind == b"IHDR":
            width, height = struct.unpack(">II", chunk[:8])
        elif kind == b"IDAT":
            idat += chunk
        pos += 12 + length
    raw = zlib.decompress(idat)
    stride, out, prev, i = width * 3, bytearray(), bytearray(width * 3), 0
    for _ in range(height):
        kind = raw[i]
        line = bytearray(raw[i + 1:i + 1 + stride])
        i += 1 + stride
        for x in range(stride):
            a = line[x - 3] if x >= 3 else 0
            b = prev[x]
            c = prev[x - 3] if x >= 3 else 0
            if kind == 1:
                line[x] = (line[x] + a) & 255
            elif kind == 2:
                line[x] = (line[x] + b) & 255
            elif kind == 3:
                line[x] = (line[x] + (a + b) // 2) & 255
            elif kind == 4:
                p = a + b - c
                pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
                line[x] = (line[x] + (a if pa <= pb and pa <= pc else b if pb <= pc else c)) & 255
        out += line
        prev = line
    return width, height, bytes(out)


def render(out):
    env = dict(os.environ)
    env.pop("DISPLAY", None)
    frames = "%d-%d" % (FRAMES[0], FRAMES[-1])
    run = subprocess.run([os.path.join(BIN, "democapture"), "--fps", str(FPS), "--size", "%dx%d" % SIZE,
                          "--frames", frames, "--no-audio", "--out", out], cwd=SRC, env=env,
                         stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, timeout=600)
    if run.returncode != 0:
        print(run.stderr.decode()[-2000:])
        sys.exit("golden frames: the capture failed")


def name(frame):
    return "frame_%06d.png" % frame


def main():
    work = tempfile.mkdtemp(prefix="qlngolden-")
    try:
        render(work)
        if "--update" in sys.argv:
            os.makedirs(GOLDEN, exist_ok=True)
            for frame in FRAMES:
                shutil.copy(os.path.join(work, name(frame)), os.path.join(GOLDEN, name(frame)))
            print("golden frames: %d references written to %s" % (len(FRAMES), GOLDEN))
            return 0
        passed = failed = 0
        for frame in FRAMES:
            reference = os.path.join(GOLDEN, name(frame))
            if not os.path.exists(reference):
                print("FAIL: no reference %s (run with --update once)" % reference)
                failed += 1
                continue
            w, h, want = read_png(reference)
            gw, gh, got = read_png(os.path.join(work, name(frame)))
            if (w, h) != (gw, gh):
                print("FAIL: %s is %dx%d, the reference %dx%d" % (name(frame), gw, gh, w, h))
                failed += 1
                continue
            off = sum(1 for i in range(0, len(want), 3)
                      if max(abs(want[i + k] - got[i + k]) for k in range(3)) > CHANNEL_TOLERANCE)
            share = off / float(w * h)
            if share > PIXEL_SHARE:
                print("FAIL: %s (%.2f s): %.1f%% of the pixels differ from the reference"
                      % (name(frame), frame / float(FPS), 100 * share))
                failed += 1
            else:
                passed += 1
        print("golden frames: %d passed, %d failed" % (passed, failed))
        return 0 if failed == 0 else 1
    finally:
        shutil.rmtree(work, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main())
