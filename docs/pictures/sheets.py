#!/usr/bin/env python3
"""Makes title.png, slides.png and the pictures of the pattern sets from a build.

    docs/pictures/sheets.py build/release

The pattern sets are carved anew: each fills the same room, with the same seed.
"""

import os
import struct
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
PATTERNS = os.path.join(HERE, "..", "..", "examples", "patterns")
sys.path[:0] = [HERE, os.path.join(HERE, "..", "..", "examples")]
import make  # noqa: E402
import make_pictures as draw  # noqa: E402

KINDS = {".pat": ("createreg", draw.NAVY), ".3d-pat": ("create3d", draw.MAROON), ".3d-pipe-pat": ("create3dpipe", draw.GREEN)}
SCRIPT = """seed 3
click Command2
menu importdrawing
type Text8 "room"
enter Text8
menu cgenerate
menu {kind}
menu loadpatterns
type Text6 "{name}"
enter Text6
expect message ""
menu newmaze
until phase 2
snapshot maze.bmp
"""


def read_packed(path):
    """Rows of a bitmap of 256 colours, packed by run lengths, as the build makes the slides."""
    with open(path, "rb") as source:
        data = source.read()
    at = struct.unpack_from("<I", data, 10)[0]
    width, height = struct.unpack_from("<ii", data, 18)
    palette = [(data[i + 2], data[i + 1], data[i]) for i in range(54, at, 4)]
    rows, row = [], []
    while len(rows) < height:
        count, number = data[at], data[at + 1]
        at += 2
        if count:
            row += [palette[number]] * count
        elif number < 2:
            rows.append(row[:width])
            row = []
        else:
            row += [palette[i] for i in data[at : at + number]]
            at += number + number % 2
    return rows[::-1]


def smaller(rows, times):
    """Each new pixel is the mean of the old ones under it."""
    small = []
    for y in range(0, len(rows) // times * times, times):
        line = []
        for x in range(0, len(rows[0]) // times * times, times):
            under = [rows[y + j][x + i] for j in range(times) for i in range(times)]
            line.append(tuple(sum(pixel[c] for pixel in under) // len(under) for c in range(3)))
        small.append(line)
    return small


def contact_sheet(pictures, columns):
    gap, paper = 8, (255, 255, 255)
    high, wide = len(pictures[0]), len(pictures[0][0])
    pictures = pictures + [[[paper] * wide] * high] * (-len(pictures) % columns)
    sheet = []
    for first in range(0, len(pictures), columns):
        for y in range(high):
            sheet.append([p for picture in pictures[first : first + columns] for p in picture[y] + [paper] * gap][:-gap])
        sheet += [[paper] * len(sheet[0])] * gap
    return sheet[:-gap]


def pattern_picture(program, entry):
    name, ending = os.path.splitext(entry)
    kind, colour = KINDS[ending]
    with tempfile.TemporaryDirectory() as folder:
        room = draw.Picture(draw.YELLOW)
        room.box(10, 10, 252, 172, colour)
        room.save(os.path.join(folder, "room.bmp"))
        with open(os.path.join(PATTERNS, entry), "rb") as source, open(os.path.join(folder, entry), "wb") as copy:
            copy.write(source.read())
        subprocess.run([program, "--work", folder, "-"], input=SCRIPT.format(kind=kind, name=name), text=True, check=True)
        return [row[8:254] for row in make.read(os.path.join(folder, "maze.bmp"))[8:174]]


def main():
    build = sys.argv[1] if len(sys.argv) == 2 else sys.exit(__doc__)
    names = ["title", *(f"example{i}" for i in range(1, 12)), "credit1", "credit2"]
    slides = {name: read_packed(os.path.join(build, "content", name + ".bmp")) for name in names}
    make.write(os.path.join(HERE, "title.png"), make.shrunk(slides["title"]))
    make.write(os.path.join(HERE, "slides.png"), contact_sheet([smaller(slides[name], 3) for name in names[1:]], 3))
    program = os.path.join(build, "src", "platform", "headless", "gridwright-headless")
    os.makedirs(os.path.join(HERE, "patterns"), exist_ok=True)
    for entry in sorted(os.listdir(PATTERNS)):
        make.write(os.path.join(HERE, "patterns", entry + ".png"), pattern_picture(program, entry))


if __name__ == "__main__":
    main()
