#!/usr/bin/env python3
"""Makes one picture of the title and the slides: paints its drawing, and lets the program make the maze.

    make.py NAME --program GRIDWRIGHT-HEADLESS --out FOLDER
"""

import argparse
import os
import shutil
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


def side_by_side(drawing, maze, path):
    """The left half of a drawing beside the left half of its maze."""
    half = 3 * paint.draw.WIDTH // 2
    page = paint.Picture(paint.PAPER)
    lower = 70  # both stand in the middle of the page
    for y in range(lower, paint.draw.HEIGHT):
        page.rows[y] = drawing.rows[y - lower][:half] + maze[y - lower][:half]
    for y in range(lower):
        page.rows[y] = drawing.rows[0][:] + bytearray()
    page.stroke([(366, 300), (426, 300)], 10, paint.CORAL)
    page.polygon([(420, 276), (456, 300), (420, 324)], paint.CORAL)
    paint.caption(page, "A drawing, and the maze that grows in it")
    page.save(path)


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
        maze = os.path.join(folder, "drawing3.bmp" if words.name in WITHOUT_ENDS else "maze.bmp")
        if words.name == "example9":
            side_by_side(drawing, read(maze), target + ".tmp")
        else:
            shutil.copy(maze, target + ".tmp")
    os.replace(target + ".tmp", target)


if __name__ == "__main__":
    main()
