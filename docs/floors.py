#!/usr/bin/env python3
"""Draws the floors of src/ from its CMake files: which folder stands on which.

    docs/floors.py            writes docs/pictures/floors.svg
    docs/floors.py --check    fails where that picture is not what the CMake files say
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PICTURE = ROOT / "docs/pictures/floors.svg"
KEYWORDS = ("FLOOR", "STANDS_ON", "SOURCES", "LIBRARY", "LINKS")

WIDTH, MARGIN, GAP = 1240, 30, 14
ROOM_HEIGHT, FLOOR_HEIGHT = 64, 112
INK, PAPER, WALL, STRIPE = "#1f2430", "#ffffff", "#5a6ea8", "#eef1f8"


class Room:
    def __init__(self, name, text):
        words = re.search(r"gridwright_module\(([^)]*)\)", text).group(1).split()
        values, keyword = {}, None
        for word in words[1:]:
            if word in KEYWORDS:
                keyword = word
                values[keyword] = []
            else:
                values[keyword].append(word)
        self.name = name
        self.floor = int(values["FLOOR"][0])
        self.stands_on = values.get("STANDS_ON", [])
        self.words = text.splitlines()[0].lstrip("# ").split(". ")[0].rstrip(".")


def read_rooms():
    listed = re.findall(r"^ *add_subdirectory\(([^)]*)\)", (ROOT / "src/CMakeLists.txt").read_text(), re.M)
    return [Room(name, (ROOT / "src" / name / "CMakeLists.txt").read_text()) for name in listed]


def reached_from(name, rooms):
    """All that a room stands on, directly or by way of others."""
    reached = set()
    for below in rooms[name].stands_on:
        reached |= {below} | reached_from(below, rooms)
    return reached


def arrows(rooms):
    """Those that say something: an arrow that two others make up is left out."""
    by_name = {room.name: room for room in rooms}
    for room in rooms:
        for below in room.stands_on:
            others = [other for other in room.stands_on if other != below]
            if not any(below in reached_from(other, by_name) for other in others):
                yield room.name, below


def lines_of(words, width):
    """Words broken into lines of at most so many letters."""
    lines = [""]
    for word in words.split():
        if lines[-1] and len(lines[-1]) + 1 + len(word) > width:
            lines.append("")
        lines[-1] = (lines[-1] + " " + word).strip()
    return lines


def places(rooms):
    floors = sorted({room.floor for room in rooms})
    height = len(floors) * FLOOR_HEIGHT + 2 * MARGIN
    for level in floors:
        row = [room for room in rooms if room.floor == level]
        wide = (WIDTH - 2 * MARGIN - 90 - GAP * (len(row) - 1)) / len(row)
        top = height - MARGIN - (floors.index(level) + 1) * FLOOR_HEIGHT + (FLOOR_HEIGHT - ROOM_HEIGHT) / 2
        for i, room in enumerate(row):
            yield room.name, (MARGIN + 90 + i * (wide + GAP), top, wide)


def draw(rooms):
    place = dict(places(rooms))
    floors = sorted({room.floor for room in rooms})
    height = len(floors) * FLOOR_HEIGHT + 2 * MARGIN
    out = [
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {height}" font-family="sans-serif">',
        "<title>The floors of Gridwright's source: an arrow leads to what a folder stands on</title>",
        '<defs><marker id="tip" viewBox="0 0 8 8" refX="7" refY="4" markerWidth="7" markerHeight="7" '
        f'orient="auto"><path d="M0 0 8 4 0 8Z" fill="{WALL}"/></marker></defs>',
        f'<rect width="{WIDTH}" height="{height}" fill="{PAPER}"/>',
    ]
    for i, level in enumerate(floors):
        top = height - MARGIN - (i + 1) * FLOOR_HEIGHT
        if i % 2 == 0:
            out.append(f'<rect x="{MARGIN}" y="{top}" width="{WIDTH - 2 * MARGIN}" height="{FLOOR_HEIGHT}" fill="{STRIPE}"/>')
        out.append(f'<text x="{MARGIN + 14}" y="{top + FLOOR_HEIGHT / 2 + 5:.0f}" font-size="15" fill="{INK}">floor {level}</text>')
    for above, below in arrows(rooms):
        ax, ay, aw = place[above]
        bx, by, bw = place[below]
        if ay == by:  # on one floor, along its ceiling
            left, right = (bx + bw, ax) if bx < ax else (bx, ax + aw)
            if abs(right - left) <= GAP + 1:
                path = f"M{right:.0f} {ay + 20:.0f} H{left:.0f}"
            else:
                path = f"M{ax + aw * 0.3:.0f} {ay:.0f} C{ax:.0f} {ay - 26:.0f} {bx + bw:.0f} {ay - 26:.0f} {bx + bw * 0.7:.0f} {ay:.0f}"
        else:
            fx, fy = ax + aw / 2, ay + ROOM_HEIGHT
            tx, ty = min(max(fx, bx + 12), bx + bw - 12), by
            path = f"M{fx:.0f} {fy:.0f} L{tx:.0f} {ty:.0f}"
        out.append(f'<path d="{path}" fill="none" stroke="{WALL}" stroke-width="1.3" marker-end="url(#tip)"/>')
    for room in rooms:
        x, y, wide = place[room.name]
        out.append(f'<rect x="{x:.0f}" y="{y:.0f}" width="{wide:.0f}" height="{ROOM_HEIGHT}" rx="5" fill="{PAPER}" stroke="{WALL}" stroke-width="1.5"/>')
        out.append(f'<text x="{x + 10:.0f}" y="{y + 20:.0f}" font-size="15" font-weight="bold" fill="{INK}">{room.name}/</text>')
        for i, line in enumerate(lines_of(room.words, int((wide - 16) / 5.6))[:3]):
            out.append(f'<text x="{x + 10:.0f}" y="{y + 34 + 12 * i:.0f}" font-size="10.5" fill="{INK}">{line}</text>')
    out.append("</svg>")
    return "\n".join(out) + "\n"


def main():
    picture = draw(read_rooms())
    if sys.argv[1:] == ["--check"]:
        if not PICTURE.exists() or PICTURE.read_text() != picture:
            sys.exit("docs/pictures/floors.svg is not what the CMake files say: run docs/floors.py")
    elif not sys.argv[1:]:
        PICTURE.write_text(picture)
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main()
