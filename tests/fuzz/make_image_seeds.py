#!/usr/bin/env python3
"""Writes tiny PNGs of each colour type into seeds/fuzz_image/ for the image fuzz target."""
import os
import struct
import zlib

OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "seeds", "fuzz_image")


def chunk(kind, payload):
    body = kind + payload
    return struct.pack(">I", len(payload)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)


ADAM7 = [(0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2), (0, 1, 1, 2)]


def adam7(rows, width, pixel_bytes):
    """The seven reduced pictures of an interlaced PNG, for byte-sized pixels."""
    passes = []
    for x0, y0, dx, dy in ADAM7:
        for y in range(y0, len(rows), dy):
            row = b"".join(rows[y][x * pixel_bytes:(x + 1) * pixel_bytes] for x in range(x0, width, dx))
            if row:
                passes.append(row)
    return passes


def png(width, height, depth, colour, rows, interlace=0, extra=b"", pixel_bytes=4):
    header = struct.pack(">IIBBBBB", width, height, depth, colour, 0, 0, interlace)
    if interlace:
        rows = adam7(rows, width, pixel_bytes)
    raw = b"".join(b"\x00" + row for row in rows)  # filter type 0 on every row
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + extra +
            chunk(b"IDAT", zlib.compress(raw)) + chunk(b"IEND", b""))


def main():
    os.makedirs(OUT, exist_ok=True)
    seeds = {
        "rgba8.png": png(2, 2, 8, 6, [bytes([255, 0, 0, 255, 0, 255, 0, 255]),
                                      bytes([0, 0, 255, 255, 255, 255, 255, 128])]),
        "rgb8.png": png(3, 1, 8, 2, [bytes(range(9))]),
        "grey8.png": png(4, 2, 8, 0, [bytes([0, 85, 170, 255]), bytes([255, 170, 85, 0])]),
        "grey1.png": png(9, 1, 1, 0, [bytes([0xA5, 0x80])]),
        "greyalpha8.png": png(2, 1, 8, 4, [bytes([10, 255, 20, 0])]),
        "palette8.png": png(2, 2, 8, 3, [bytes([0, 1]), bytes([1, 0])],
                            extra=chunk(b"PLTE", bytes([10, 20, 30, 40, 50, 60])) +
                            chunk(b"tRNS", bytes([128]))),
        "palette2.png": png(5, 1, 2, 3, [bytes([0b00011011, 0b00000000])],
                            extra=chunk(b"PLTE", bytes(range(12)))),
        "rgba16.png": png(1, 2, 16, 6, [bytes(range(8)), bytes(range(8, 16))]),
        "rgb16.png": png(2, 1, 16, 2, [bytes(range(12))]),
        "interlaced.png": png(5, 5, 8, 6, [bytes(range(y * 20, y * 20 + 20)) for y in range(5)], interlace=1),
    }
    for name, data in seeds.items():
        with open(os.path.join(OUT, name), "wb") as f:
            f.write(data)


if __name__ == "__main__":
    main()
