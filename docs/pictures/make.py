#!/usr/bin/env python3
"""Makes the README's pictures from what the program has put into out/.

    ./run --headless NAME           for each name below
    docs/pictures/make.py

Each is a drawing, its maze and its answer side by side, at 0.6 of their size: every pixel is the mean
of the ground it covers, so that thin walls stay to be seen.
"""

import os
import struct
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(HERE, "..", "..", "out")
NAMES = ("balloon", "snail", "cat", "name")
UP, DOWN = 3, 5  # the scale, as a fraction
GAP = 12


def read(path):
    """Rows of (red, green, blue) from a bitmap of 24 bits, bottom up, as the program writes it."""
    with open(path, "rb") as source:
        data = source.read()
    start = struct.unpack_from("<I", data, 10)[0]
    width, height, _, depth = struct.unpack_from("<iiHH", data, 18)
    if data[:2] != b"BM" or depth != 24 or height <= 0:
        raise ValueError(f"not a bitmap of 24 bits, bottom up: {path}")
    rows = []
    for y in reversed(range(height)):
        row = data[start + y * ((3 * width + 3) // 4 * 4) :][: 3 * width]
        rows.append(list(zip(row[2::3], row[1::3], row[0::3])))
    return rows


def weights(size):
    """For each new pixel the old ones under it, with the share of each."""
    table = []
    for new in range(size * UP // DOWN):
        left, right = new * DOWN, (new + 1) * DOWN
        shares = []
        for old in range(left // UP, (right + UP - 1) // UP):
            shares.append((old, min(right, (old + 1) * UP) - max(left, old * UP)))
        table.append(shares)
    return table


def shrunk(rows):
    across, down = weights(len(rows[0])), weights(len(rows))
    narrow = [
        [tuple(sum(row[x][c] * share for x, share in shares) for c in range(3)) for shares in across] for row in rows
    ]
    whole = DOWN * DOWN
    return [
        [tuple((sum(narrow[y][x][c] * share for y, share in shares) + whole // 2) // whole for c in range(3))
         for x in range(len(across))]
        for shares in down
    ]


def write(path, rows):
    """A PNG file of eight bits a channel; each row as it differs from the one above."""
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    packed = bytearray()
    above = bytes(3 * len(rows[0]))
    for row in rows:
        flat = bytes(value for pixel in row for value in pixel)
        packed += b"\2" + bytes((a - b) & 255 for a, b in zip(flat, above))
        above = flat
    with open(path, "wb") as out:
        out.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 2, 0, 0, 0))
                  + chunk(b"IDAT", zlib.compress(bytes(packed), 9)) + chunk(b"IEND", b""))


def main():
    for name in NAMES:
        pictures = [shrunk(read(os.path.join(OUT, name, name + end))) for end in (".bmp", "-maze.bmp", "-answer.bmp")]
        gap = [(255, 255, 255)] * GAP
        write(os.path.join(HERE, name + ".png"), [a + gap + b + gap + c for a, b, c in zip(*pictures)])


if __name__ == "__main__":
    main()
