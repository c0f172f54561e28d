#!/usr/bin/env python3
"""Paints the icon, a G that is a way through a maze, into icons/: one SVG, and a PNG for each size."""

import os
import struct
import zlib

HERE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "icons")
ROWS = """
..############..
.##############.
##++++++++++++##
##++++++++++++##
##++########ss##
##++########ss##
##++############
##++############
##++####ff++++##
##++####ff++++##
##++########++##
##++########++##
##++++++++++++##
##++++++++++++##
.##############.
..############..
""".split()
COLOURS = {"#": (24, 28, 110), "+": (252, 250, 240), "s": (255, 60, 160), "f": (250, 190, 50)}
SIZES = (16, 32, 48, 64, 128, 256)


def chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))


def write_png(path, size):
    scale = size // len(ROWS)
    body = bytearray()
    for row in ROWS:
        line = b"".join((bytes(COLOURS[c]) + b"\xff" if c in COLOURS else bytes(4)) * scale for c in row)
        body += (b"\0" + line) * scale
    with open(path, "wb") as out:
        out.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0))
                  + chunk(b"IDAT", zlib.compress(bytes(body), 9)) + chunk(b"IEND", b""))


def write_svg(path):
    lines = ['<svg xmlns="http://www.w3.org/2000/svg" width="256" height="256" viewBox="0 0 16 16" '
             'shape-rendering="crispEdges">', "<title>Gridwright</title>"]
    for y, row in enumerate(ROWS):
        x = 0
        while x < len(row):
            end = x
            while end < len(row) and row[end] == row[x]:
                end += 1
            if row[x] in COLOURS:
                lines.append(f'<rect x="{x}" y="{y}" width="{end - x}" height="1" fill="#%02x%02x%02x"/>' % COLOURS[row[x]])
            x = end
    with open(path, "w", encoding="ascii") as out:
        out.write("\n".join(lines + ["</svg>", ""]))


def main():
    os.makedirs(HERE, exist_ok=True)
    write_svg(os.path.join(HERE, "gridwright.svg"))
    for size in SIZES:
        write_png(os.path.join(HERE, f"gridwright-{size}.png"), size)


if __name__ == "__main__":
    main()
