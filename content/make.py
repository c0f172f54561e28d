#!/usr/bin/env python3
"""Makes one picture of the title and the slides: paints its drawing, and lets the program make the maze.

    make.py NAME --program GRIDWRIGHT-HEADLESS --out FOLDER
"""

import argparse
import itertools
import os
import shutil
import struct
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
PATTERNS = os.path.join(HERE, "..", "examples", "patterns")
sys.path.insert(0, HERE)
import paint  # noqa: E402

# These are taken before the program places the start and the finish.
WITHOUT_ENDS = ("title", "credit1", "credit2")


def read(path):
    """Rows of a bitmap of 24 bits as the program writes it: 800 by 600, bottom up."""
    with open(path, "rb") as source:
        data = source.read()
    start = int.from_bytes(data[10:14], "little")
    rows = []
    for y in reversed(range(paint.draw.HEIGHT)):
        row = data[start + y * 3 * paint.draw.WIDTH :][: 3 * paint.draw.WIDTH]
        turned = bytearray(len(row))
        turned[0::3], turned[1::3], turned[2::3] = row[2::3], row[1::3], row[0::3]
        rows.append(turned)
    return rows


def side_by_side(drawing, maze):
    """The left half of a drawing beside the left half of its maze."""
    half = 3 * paint.draw.WIDTH // 2
    page = paint.Picture(paint.PAPER)
    lower = 70  # both stand in the middle of the page
    for y in range(paint.draw.HEIGHT):
        above = drawing.rows[0] if y < lower else drawing.rows[y - lower][:half] + maze[y - lower][:half]
        page.rows[y] = bytearray(above)
    page.stroke([(374, 300), (410, 300)], 10, paint.CORAL)
    page.polygon([(406, 278), (434, 300), (406, 322)], paint.CORAL)
    return paint.caption(page, "A drawing, and the maze that grows in it").rows


def run_lengths(row):
    """A row of palette numbers as pairs of a count and a number, and runs of single ones as they stand."""
    packed, singles = bytearray(), bytearray()

    def flush():
        while len(singles) >= 3:
            part = singles[:255] if len(singles) - 255 not in (1, 2) else singles[:252]
            packed.extend(bytes((0, len(part))) + part + bytes(len(part) % 2))
            del singles[: len(part)]
        for number in singles:
            packed.extend((1, number))
        singles.clear()

    for number, run in itertools.groupby(row):
        count = len(list(run))
        if count < 3:
            singles.extend(bytes((number,)) * count)
            continue
        flush()
        while count:
            packed.extend((min(count, 255), number))
            count -= min(count, 255)
    flush()
    return packed + b"\0\0"


def save(rows, path):
    """A bitmap of at most 256 colours, packed by run lengths: a sixth of the plain one."""
    palette = {}
    body = bytearray()
    for row in reversed(rows):
        triples = zip(row[0::3], row[1::3], row[2::3])
        body += run_lengths(bytes(palette.setdefault(triple, len(palette)) for triple in triples))
    body[-2:] = b"\0\1"
    table = b"".join(bytes((blue, green, red, 0)) for red, green, blue in palette)
    start = 54 + len(table)
    head = struct.pack("<2sIHHI", b"BM", start + len(body), 0, 0, start)
    size = (paint.draw.WIDTH, paint.draw.HEIGHT)
    info = struct.pack("<IiiHHIIiiII", 40, *size, 1, 8, 1, len(body), 3780, 3780, len(palette), len(palette))
    with open(path, "wb") as out:
        out.write(head + info + table + body)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("name", choices=list(paint.DRAWINGS))
    parser.add_argument("--program", required=True)
    parser.add_argument("--out", required=True)
    words = parser.parse_args()
    os.makedirs(words.out, exist_ok=True)
    target = os.path.join(words.out, words.name + ".bmp")
    with tempfile.TemporaryDirectory() as folder:
        drawing = paint.DRAWINGS[words.name]()
        drawing.save(os.path.join(folder, "picture.bmp"))
        for entry in os.listdir(PATTERNS):
            shutil.copy(os.path.join(PATTERNS, entry), folder)
        script = os.path.join(HERE, words.name + ".txt")
        status = subprocess.run([words.program, "--work", folder, script], check=False).returncode
        if status:
            sys.exit(status)
        maze = read(os.path.join(folder, "drawing3.bmp" if words.name in WITHOUT_ENDS else "maze.bmp"))
    save(side_by_side(drawing, maze) if words.name == "example9" else maze, target + ".tmp")
    os.replace(target + ".tmp", target)


if __name__ == "__main__":
    main()
