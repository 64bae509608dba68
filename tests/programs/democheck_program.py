"""democheck on broken demoscripts: the same message as demo, each error at its line, all in one run."""
import os
import re
import shutil
import struct
import subprocess
import tempfile
import zlib

SRC = os.environ.get("QLN_SOURCE_DIR") or os.path.abspath(os.path.join(os.path.dirname(__file__), "..", ".."))
BIN = os.environ.get("QLN_BINARY_DIR") or os.path.join(SRC, "build")
NO_DISPLAY = {k: v for k, v in os.environ.items() if k != "DISPLAY"}
passed = failed = 0


def check(condition, what, detail=""):
    global passed, failed
    passed += bool(condition)
    failed += not condition
    if not condition:
        print("FAIL:", what, detail)


BASE = """{QLNDS1}
paths {
    definition = SRC/resources/definitions/;
    shaders = SHADERS/;
    gfx = GFX/;
    misc = SRC/resources/misc/;
    object = SRC/resources/objects/;
    sound = SRC/resources/music/;
}
system { stop = 00:00:300; }
screen { width = 160; height = 120; fullscreen = 0; }
sound { file = quillon.mod; play = 0; }
framebuffers { scene = width, height, COLOR_BUFFER; }
graphics { logo = logo.png; }
logo * DisplayTexture { texture = graphics[logo]; xscale = 1.0; }
fader * FadeEffect { comment = test; }
timeline {
    logo.start(00:00:000, 20, scene);
    logo.fadeUp(00:00:000, 00:00:100);
    fader.start(00:00:100);
    Checkpoint 00:00:200;
    logo.stop(00:00:250);
    fader.stop(00:00:250);
}
"""

# One mistake each, from the reader's and the loader's messages: (what, text replaced, replacement).
ENGINE_MISTAKES = [
    ("bad header", "{QLNDS1}", "{QLNDS 1}"),
    ("unbalanced braces", "graphics { logo = logo.png; }", "graphics { logo = logo.png;"),
    ("no value", "comment = test;", "comment test;"),
    ("two words", "comment = test;", "a b = test;"),
    ("too many tokens", "comment = test;", "comment = a = b;"),
    ("unknown class", "fader * FadeEffect", "fader * FadeEfect"),
    ("undeclared parameter", "comment = test;", "speed = 1.0;"),
    ("not a float", "xscale = 1.0;", "xscale = 1;"),
    ("not an option", "xscale = 1.0;", "alphablend = 2;"),
    ("lookup fails", "graphics[logo]", "graphics[nothing]"),
    ("redefinition", "fader * FadeEffect { comment = test; }", "fader * FadeEffect { comment = a; }\nfader * FadeEffect { comment = b; }"),
    ("unknown object", "fader.start(00:00:100);", "ghost.start(00:00:100);"),
    ("no arguments", "fader.start(00:00:100);", "fader.start();"),
    ("unknown method", "logo.fadeUp(00:00:000, 00:00:100);", "logo.spin(00:00:000);"),
    ("argument count", "logo.fadeUp(00:00:000, 00:00:100);", "logo.fadeUp(00:00:000);"),
    ("bad time argument", "logo.fadeUp(00:00:000, 00:00:100);", "logo.fadeUp(00:00:000, soon);"),
    ("bad checkpoint", "Checkpoint 00:00:200;", "Checkpoint soon;"),
    ("one-word declaration", "Checkpoint 00:00:200;", "Checkpoint;"),
    ("missing definitions", "definition = SRC/resources/definitions/;", "definition = SRC/resources/nowhere/;"),
    ("framebuffer width", "scene = width,", "scene = w,"),
    ("framebuffer option", "COLOR_BUFFER; }", "COLOR_BUFFER, STENCIL_BUFFER; }"),
    ("mipmap option", "logo = logo.png;", "logo = logo.png, GL_TEXTURE_2D, GEN_MIPMAPS;"),
    ("missing picture", "logo = logo.png;", "logo = missing.png;"),
    ("missing shader", "framebuffers {", "shaders { plain = missing; }\nframebuffers {"),
]

# Mistakes the engine passes over in silence: (what, replaced, replacement, expected finding, script line).
SILENT_MISTAKES = [
    ("byte-order mark", "{QLNDS1}", "\ufeff{QLNDS1}", "error: the file starts with a UTF-8 byte-order mark", 1),
    ("misspelt checkpoint", "Checkpoint 00:00:200;", "Chekpoint 00:00:200;", "error: declaration 'Chekpoint", 21),
    ("missing semicolon", "fader.start(00:00:100);", "fader.start(00:00:100, 30)", "error: a ';' is missing", 20),
    ("short time", "fader.start(00:00:100);", "fader.start(0:8);", "error: time '0:8'", 20),
    ("second alias", "logo = logo.png; }", "logo = logo.png; again = logo.png; }", "error: 'logo' names the same picture as 'again'", 14),
    ("empty effect block", "fader * FadeEffect { comment = test; }", "fader * FadeEffect { }", "error: effect block 'fader * FadeEffect' is empty", 16),
    ("grey picture", "logo = logo.png;", "logo = grey.png;", "error: 'GFX/grey.png' is a grey PNG", 14),
    ("truncated picture", "logo = logo.png;", "logo = cut.png;", "error: 'GFX/cut.png' is not a PNG that decodes", 14),
    ("unknown render target", "20, scene);", "20, scenery);", "error: render target 'scenery'", 18),
    ("event after the end", "logo.stop(00:00:250);", "logo.stop(00:00:350);", "warning: 'logo.stop' at 00:00:350 comes after", 22),
    ("call before start", "logo.fadeUp(00:00:000,", "logo.fadeUp(00:00:280,", "warning: 'logo.fadeUp' at 00:00:280 calls an effect that is not running", 19),
    ("stop before start", "fader.stop(00:00:250);", "fader.stop(00:00:050);", "warning: 'fader' is stopped at 00:00:050 but is not running", 23),
    ("never started", "fader.start(00:00:100);", "", "warning: effect 'fader' is never started", 16),
    ("unused resource", "logo = logo.png; }", "logo = logo.png; spare = font.png; }", "warning: graphics entry 'spare' is never used", 14),
    ("started twice", "fader.start(00:00:100);", "fader.start(00:00:100); fader.start(00:00:150);", "warning: 'fader' is started at 00:00:150", 20),
    ("fade after tunnel", "fader.start(00:00:100);", "fader.start(00:00:100); tube.start(00:00:000, 30); tube.stop(00:00:250);",
     "warning: 'fader' (FadeEffect) is drawn after the tunnel 'tube' left front-face culling on", 21),
]


def png(path, colour_type, rows, cut=0):
    width = len(rows[0]) // {0: 1, 2: 3}[colour_type]
    raw = b"".join(b"\0" + bytes(r) for r in rows)
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))
    data = (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, len(rows), 8, colour_type, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(raw)) + chunk(b"IEND", b""))
    with open(path, "wb") as f:
        f.write(data[:len(data) - cut] if cut else data)


def mean_grey(path):
    """Mean channel value of an 8-bit RGB PNG as democapture writes it (rows unfiltered or 'sub')."""
    data = open(path, "rb").read()
    width, height = struct.unpack(">II", data[16:24])
    idat, at = b"", 8
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        idat += data[at + 8:at + 8 + length] if kind == b"IDAT" else b""
        at += 12 + length
    raw, stride, total = zlib.decompress(idat), width * 3, 0
    for y in range(height):
        row = raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)]
        kind = raw[y * (stride + 1)]
        row = bytearray(row)
        for x in range(3, stride if kind == 1 else 0):
            row[x] = (row[x] + row[x - 3]) & 255
        total += sum(row)
    return total / (width * height * 3)


def setup(work):
    for d in ("resources/scripts", "gfx", "shaders"):
        os.makedirs(os.path.join(work, d), exist_ok=True)
    for picture in ("logo.png", "font.png"):
        shutil.copy(os.path.join(SRC, "resources/gfx", picture), os.path.join(work, "gfx"))
    png(os.path.join(work, "gfx/grey.png"), 0, [[0, 128], [255, 64]])
    png(os.path.join(work, "gfx/cut.png"), 2, [[9] * 48] * 16, cut=30)


def write(work, name, text):
    text = text.replace("SRC", SRC).replace("SHADERS", work + "/shaders").replace("GFX", work + "/gfx")
    with open(os.path.join(work, "resources/scripts", name), "w", encoding="utf-8") as f:
        f.write(text)


def democheck(work, *args):
    run = subprocess.run([os.path.join(BIN, "democheck"), *args], cwd=work, env=NO_DISPLAY,
                         capture_output=True, text=True, timeout=60)
    return run.returncode, run.stdout


def demo(work, name):
    run = subprocess.run(["timeout", "120", os.path.join(BIN, "demo"), name], cwd=work, capture_output=True,
                         text=True, errors="replace")
    return run.stdout, run.stderr


def first_error(out):
    """The first finding's message, its location taken off: what demo prints for the same script."""
    match = re.search(r"^[^\n]*?:\d+: error: (.*?)(?=^\S[^\n]*?:\d+: (?:error|warning): |^\S[^\n]*: \d+ errors?, )",
                      out, re.S | re.M)
    return match.group(1).rstrip("\n") if match else None


def main():
    work = tempfile.mkdtemp()
    try:
        setup(work)
        write(work, "clean.txt", BASE)
        rc, out = democheck(work, "clean.txt")
        check(rc == 0 and out == "resources/scripts/clean.txt: 0 errors, 0 warnings\n", "clean script", out)
        rc, out = subprocess.run([os.path.join(BIN, "democheck")], cwd=SRC, env=NO_DISPLAY, capture_output=True,
                                 text=True).returncode, None
        check(rc == 0, "the bundled demo checks clean")

        # The tutorial's demo is clean and plays: the flash on the beat at 7.68 s fills the screen.
        rc, out = democheck(SRC, "tutorial.txt")
        check(rc == 0 and out.endswith(": 0 errors, 0 warnings\n"), "tutorial checks clean", out)
        shots = os.path.join(work, "shots")
        capture = subprocess.run([os.path.join(BIN, "democapture"), "tutorial.txt", "--fps", "10", "--size", "64x48",
                                  "--frames", "77-77", "--no-audio", "--out", shots], cwd=SRC, env=NO_DISPLAY,
                                 capture_output=True, timeout=120)
        frame = os.path.join(shots, "frame_000077.png")
        check(capture.returncode == 0 and os.path.exists(frame) and mean_grey(frame) > 200, "tutorial plays")

        for what, old, new in ENGINE_MISTAKES:
            assert old in BASE, what
            write(work, "broken.txt", BASE.replace(old, new, 1))
            rc, out = democheck(work, "broken.txt")
            log, _ = demo(work, "broken.txt")
            # The message is shown after the shutdown banner, before the resource report.
            said = log.split("[Shutting Down]\n", 1)[-1].split("\n#####", 1)[0]
            said = said.rsplit("ResourceLoader:\nMessage :\n", 1)[-1].rstrip("\n")
            check(rc == 1 and first_error(out) == said, what, "\n-- democheck:\n%s\n-- demo:\n%s" % (out, said))

        for what, old, new, finding, line in SILENT_MISTAKES:
            assert old in BASE, what
            tube = "tube * TunnelEffect { tunnelTex = graphics[logo]; tunnelTex2 = graphics[logo]; }\ntimeline"
            write(work, "quiet.txt", BASE.replace(old, new, 1).replace("timeline", tube if "tube" in new else "timeline", 1))
            rc, out = democheck(work, "quiet.txt")
            expected = "resources/scripts/quiet.txt:%d: %s" % (line, finding.replace("GFX", work + "/gfx"))
            check(expected in out and rc == (1 if "error:" in finding else 0), what, "\nexpected: %s\n%s" % (expected, out))

        # The engine names the pictures it would draw wrongly, on standard error only.
        write(work, "pictures.txt", BASE.replace("logo = logo.png;", "logo = grey.png; cut = cut.png;"))
        log, err = demo(work, "pictures.txt")
        check("Warning: '%s/gfx/grey.png' is a grey PNG" % work in err and "grey PNG" not in log, "grey warning", err)
        check(re.search(r"libpng error: .* in '%s/gfx/cut.png'" % re.escape(work), err), "broken PNG named", err)

        # Five mistakes in five places, all in one run.
        five = (BASE.replace("comment = test;", "comment test;").replace("xscale = 1.0;", "xscale = 1;")
                .replace("logo.fadeUp(00:00:000, 00:00:100);", "logo.fadeUp(00:00:000);")
                .replace("Checkpoint 00:00:200;", "Checkpoint soon;").replace("logo = logo.png;", "logo = missing.png;"))
        write(work, "five.txt", five)
        rc, out = democheck(work, "five.txt")
        lines = re.findall(r"^resources/scripts/five\.txt:(\d+): error: ", out, re.M)
        check(rc == 1 and lines == ["14", "15", "16", "19", "21"], "five errors in one run", out)

        # A shader error is placed in the shader's own file, at its line.
        with open(os.path.join(work, "shaders/plain.vert"), "w") as f:
            f.write("void main() {\n    gl_Position = ftransform();\n}\n")
        with open(os.path.join(work, "shaders/plain.frag"), "w") as f:
            f.write("void main() {\n    vec4 c = vec4(1.0)\n    gl_FragColor = c;\n}\n")
        write(work, "shader.txt", BASE.replace("framebuffers {", "shaders { plain = plain; }\nframebuffers {"))
        rc, out = democheck(work, "shader.txt")
        check(rc == 1 and re.search(r"^%s/shaders/plain\.frag:3: error: " % re.escape(work), out, re.M), "shader line", out)

        # The effect tables of the documentation say what the .def files say.
        docs = subprocess.run([os.path.join(BIN, "tools", "effectdocs"), "resources/definitions/", "docs/effects.md",
                               "--check"], cwd=SRC, capture_output=True, text=True)
        check(docs.returncode == 0, "docs/effects.md is up to date", docs.stderr)

        # Warnings pass unless asked to fail; bad usage is told apart.
        write(work, "warned.txt", BASE.replace("fader.start(00:00:100);", ""))
        check(democheck(work, "warned.txt")[0] == 0 and democheck(work, "warned.txt", "--werror")[0] == 1, "--werror")
        check(democheck(work, "--bogus")[0] == 2 and democheck(work, "a.txt", "b.txt")[0] == 2, "bad usage")
    finally:
        shutil.rmtree(work)
    print("democheck: %d passed, %d failed" % (passed, failed))
    return 1 if failed else 0


if __name__ == "__main__":
    raise SystemExit(main())
