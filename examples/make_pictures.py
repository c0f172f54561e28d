#!/usr/bin/env python3
"""Paints the pictures of the examples as bitmap files.

    make_pictures.py FOLDER [NAME...]

A maze grows through the eight background colours of the palette and through nothing else. So what
is to become a maze is painted in one of those, and everything around it in a colour that no maze may
enter: the border colours of the palette, or any colour that is not in the palette at all. White is
never used, since white is what a corridor looks like; paper is a shade darker. Edges are hard, without a
blended pixel: a blend of two colours is a third colour, and between two grounds the maze would leave a
rim there.
"""

import math
import os
import struct
import sys

WIDTH, HEIGHT = 800, 600

# Background colours: a maze fills them.
BLACK, NAVY, GREEN, TEAL = (0, 0, 0), (0, 0, 128), (0, 128, 0), (0, 128, 128)
MAROON, PURPLE, OLIVE, SILVER = (128, 0, 0), (128, 0, 128), (128, 128, 0), (192, 192, 192)
# Border colours: a maze goes round them.
GREY, BLUE, LIME, AQUA = (128, 128, 128), (0, 0, 255), (0, 255, 0), (0, 255, 255)
RED, FUCHSIA, YELLOW = (255, 0, 0), (255, 0, 255), (255, 255, 0)


class Picture:
    """Rows of pixels, with shapes whose edges are hard."""

    def __init__(self, colour):
        self.rows = [bytearray(bytes(colour) * WIDTH) for _ in range(HEIGHT)]

    def span(self, y, left, right, colour):
        """Paints row y from left up to, but not including, right."""
        left, right = max(left, 0), min(right, WIDTH)
        if 0 <= y < HEIGHT and left < right:
            self.rows[y][3 * left : 3 * right] = bytes(colour) * (right - left)

    def polygon(self, points, colour):
        """Fills a polygon, inside by the even-odd rule."""
        edges = list(zip(points, points[1:] + points[:1]))
        top = max(0, math.floor(min(y for _, y in points)))
        bottom = min(HEIGHT - 1, math.ceil(max(y for _, y in points)))
        for y in range(top, bottom + 1):
            middle = y + 0.5
            cuts = sorted(
                x0 + (middle - y0) * (x1 - x0) / (y1 - y0)
                for (x0, y0), (x1, y1) in edges
                if (y0 <= middle) != (y1 <= middle)
            )
            for left, right in zip(cuts[::2], cuts[1::2]):
                self.span(y, round(left), round(right), colour)

    def ellipse(self, x, y, across, down, colour):
        self.polygon(arc(x, y, across, down, 0, 360), colour)

    def box(self, left, top, right, bottom, colour):
        for y in range(top, bottom):
            self.span(y, left, right, colour)

    def stroke(self, points, width, colour):
        """A line through the points, with round ends; `width` may be a function of the way gone, 0 to 1."""
        lengths = [math.dist(a, b) for a, b in zip(points, points[1:])]
        gone, whole = 0.0, sum(lengths)
        for (x0, y0), (x1, y1), length in zip(points, points[1:], lengths):
            steps = max(1, math.ceil(length))
            for i in range(steps + 1):
                part = i / steps
                radius = (width((gone + part * length) / whole) if callable(width) else width) / 2
                self.dot(x0 + part * (x1 - x0), y0 + part * (y1 - y0), radius, colour)
            gone += length

    def dot(self, x, y, radius, colour):
        for row in range(math.ceil(y - radius - 0.5), math.floor(y + radius - 0.5) + 1):
            half = math.sqrt(max(0.0, radius**2 - (row + 0.5 - y) ** 2))
            self.span(row, round(x - half), round(x + half), colour)

    def save(self, path):
        """A bitmap file of 24 bits, rows from the bottom up."""
        pixels = bytearray()
        for row in reversed(self.rows):
            turned = bytearray(len(row))
            turned[0::3], turned[1::3], turned[2::3] = row[2::3], row[1::3], row[0::3]
            pixels += turned + bytes(-len(row) % 4)
        head = struct.pack("<2sIHHI", b"BM", 54 + len(pixels), 0, 0, 54)
        info = struct.pack("<IiiHHIIiiII", 40, WIDTH, HEIGHT, 1, 24, 0, len(pixels), 3780, 3780, 0, 0)
        with open(path, "wb") as out:
            out.write(head + info + pixels)


def arc(x, y, across, down, start, end, steps=180):
    """Points on an ellipse from one angle to another; 0 degrees points right, 90 down."""
    angles = [math.radians(start + (end - start) * i / steps) for i in range(steps + 1)]
    return [(x + across * math.cos(a), y + down * math.sin(a)) for a in angles]


def curve(points, closed=False, steps=16):
    """A smooth curve through the points."""
    if closed:
        around = points[-1:] + points + points[:2]
    else:
        around = points[:1] + points + points[-1:]
    smooth = []
    for p0, p1, p2, p3 in zip(around, around[1:], around[2:], around[3:]):
        for i in range(steps):
            t = i / steps
            smooth.append(tuple(
                0.5 * (2 * b + (c - a) * t + (2 * a - 5 * b + 4 * c - d) * t**2 + (3 * b - a - 3 * c + d) * t**3)
                for a, b, c, d in zip(p0, p1, p2, p3)
            ))
    return smooth if closed else smooth + points[-1:]


def mirrored(points, axis):
    return [(2 * axis - x, y) for x, y in points]


def gradient(picture, top, bottom, shades):
    """Bands from the colour `top` to the colour `bottom`, none of them a colour of the palette."""
    for y in range(HEIGHT):
        part = round(y / HEIGHT * shades) / shades
        colour = tuple(round(a + (b - a) * part) for a, b in zip(top, bottom))
        picture.span(y, 0, WIDTH, colour)


def cat():
    """A silhouette of one colour; eyes, nose, mouth and bow are holes in it."""
    picture = Picture(YELLOW)
    picture.stroke(curve([(500, 535), (600, 548), (676, 505), (694, 425), (668, 352), (672, 285), (708, 245)]), 46, NAVY)
    side = curve([(400, 240), (475, 255), (520, 330), (560, 430), (563, 520), (520, 566), (400, 570)])
    picture.polygon(side + mirrored(side, 400)[::-1], NAVY)
    picture.ellipse(330, 560, 62, 24, NAVY)
    picture.ellipse(470, 560, 62, 24, NAVY)
    ear = curve([(272, 178), (262, 90), (272, 22)]) + curve([(272, 22), (325, 62), (390, 92)])
    for points in (ear, mirrored(ear, 400)):
        picture.polygon(points, NAVY)
    picture.ellipse(400, 180, 140, 106, NAVY)
    for axis in (342, 458):
        picture.ellipse(axis, 168, 33, 25, LIME)
        picture.ellipse(axis, 168, 7, 22, (16, 40, 16))
    picture.polygon(curve([(378, 208), (400, 204), (422, 208), (400, 228)], closed=True), FUCHSIA)
    picture.stroke(curve([(400, 226), (392, 242), (372, 246)]), 5, FUCHSIA)
    picture.stroke(curve([(400, 226), (408, 242), (428, 246)]), 5, FUCHSIA)
    for start, end in ((192, 178), (212, 212), (230, 248)):
        whisker = curve([(270 if start != 230 else 279, start), (222, (start + end) // 2 - 2), (172, end)])
        picture.stroke(whisker, 3, NAVY)
        picture.stroke(mirrored(whisker, 400), 3, NAVY)
    wing = curve([(400, 312), (356, 284), (340, 316), (360, 344)], closed=True)
    picture.polygon(wing, RED)
    picture.polygon(mirrored(wing, 400), RED)
    picture.ellipse(400, 314, 15, 15, YELLOW)
    # The slit between the forelegs stops short of the chest.
    picture.stroke([(400, 480), (400, 590)], 6, YELLOW)
    return picture


def balloon():
    """Stripes of several background colours side by side, and one maze across all of them."""
    picture = Picture(AQUA)
    for x, y, size in ((130, 120, 1.0), (690, 90, 0.8), (660, 400, 1.1), (110, 420, 0.7)):
        for dx, dy, r in ((-48, 8, 24), (-18, -8, 34), (22, -2, 30), (52, 10, 20)):
            picture.ellipse(x + dx * size, y + dy * size, r * size * 1.2, r * size, (232, 250, 255))
    hills = curve([(-20, 560), (120, 520), (270, 565), (430, 535), (600, 572), (720, 525), (830, 548)])
    picture.polygon(hills + [(820, 620), (-20, 620)], (96, 190, 80))
    near = curve([(-20, 585), (150, 566), (330, 592), (520, 570), (700, 590), (830, 575)])
    picture.polygon(near + [(820, 620), (-20, 620)], (64, 160, 60))

    def outline(part):
        """One meridian of the balloon: `part` is -1 at the left rim and 1 at the right one."""
        right = [(0, 12), (105, 34), (182, 105), (206, 200), (186, 290), (124, 372), (58, 432), (44, 452)]
        return curve([(400 + part * x, y) for x, y in right])

    meridians = (-1, -0.74, -0.4, 0, 0.4, 0.74, 1)
    for left, right, colour in zip(meridians, meridians[1:], (NAVY, PURPLE, MAROON, OLIVE, GREEN, TEAL)):
        picture.polygon(outline(left) + outline(right)[::-1], colour)
    zigzag = [(400 + part * 206, 232 if i % 2 else 196) for i, part in enumerate(meridians)]
    lower = [(x, y + 52) for x, y in zigzag]
    belt = Picture(AQUA)
    belt.polygon(zigzag + lower[::-1], BLACK)
    for y in range(HEIGHT):  # the belt goes as far as the balloon does
        for x in range(WIDTH):
            at = slice(3 * x, 3 * x + 3)
            if belt.rows[y][at] == bytes(BLACK) and picture.rows[y][at] in PAINTED:
                picture.rows[y][at] = bytes(BLACK)
    picture.polygon([(356, 444), (444, 444), (436, 466), (364, 466)], MAROON)
    for left in (364, 412):
        picture.box(left, 460, left + 24, 508, OLIVE)
    picture.polygon([(352, 502), (448, 502), (438, 574), (362, 574)], OLIVE)
    return picture


PAINTED = [bytes(colour) for colour in (NAVY, PURPLE, MAROON, OLIVE, GREEN, TEAL)]


def snail():
    """Colours of no palette for sky, ground and outlines, and no edge on the grid of the cells."""
    picture = Picture(AQUA)
    gradient(picture, (255, 214, 150), (252, 240, 214), 24)
    ground = curve([(-20, 523), (160, 509), (390, 531), (610, 513), (830, 527)])
    picture.polygon(ground + [(820, 620), (-20, 620)], (150, 196, 92))
    outline = (236, 120, 24)
    body = curve([
        (97, 187), (136, 181), (163, 213), (171, 282), (201, 371), (262, 417), (420, 441), (590, 437),
        (693, 471), (757, 527), (640, 541), (420, 543), (213, 539), (131, 497), (101, 415), (83, 317), (71, 239),
    ], closed=True)
    for points, tip in ((curve([(109, 199), (97, 141), (67, 93)]), (67, 93)),
                        (curve([(139, 197), (149, 139), (181, 99)]), (181, 99))):
        picture.stroke(points, 9, outline)
        picture.dot(*tip, 13, (120, 52, 20))
    picture.polygon(body, GREEN)
    picture.stroke(body + body[:1], 5, outline)
    # One line winds from the mouth of the shell to its middle. The step of its first turn is the
    # mouth, where shell and body are one region.
    mouth, size, step = 97, 221, 50
    winding = []
    for turned in range(1300):
        radius = size - step * turned / 360
        winding += arc(424, 284, radius, radius, mouth + turned, mouth + turned, 1)[:1]
    picture.polygon(winding[:361], MAROON)
    picture.stroke(winding, 7, outline)
    picture.dot(119, 233, 8, (250, 250, 235))
    picture.dot(117, 234, 4, (30, 30, 30))
    picture.stroke(curve([(83, 281), (101, 297), (127, 295)]), 4, outline)
    for left in (40, 230, 350, 560, 700):
        for lean in (-9, 0, 8):
            picture.stroke([(left + lean, 571), (left + 2 * lean, 547)], 4, (84, 140, 60))
    return picture


def window():
    """Many regions of their own: thin lead between neighbours, thick stone between the rings."""
    picture = Picture(GREY)
    x, y, lead = 400, 300, (52, 52, 60)
    for course in range(25, HEIGHT, 50):  # joints of the wall around the glass
        picture.box(0, course, WIDTH, course + 2, (104, 104, 108))
        for joint in range(40 if course % 100 == 25 else 80, WIDTH, 80):
            picture.box(joint, course, joint + 2, course + 50, (104, 104, 108))
    for cx in (92, 708):
        for cy in (92, 508):
            picture.ellipse(cx, cy, 84, 84, lead)
            picture.ellipse(cx, cy, 74, 74, TEAL)
            picture.box(cx - 80, cy - 1, cx + 80, cy + 1, lead)
    picture.ellipse(x, y, 296, 296, lead)

    def pane(inner, outer, start, end, colour):
        picture.polygon(arc(x, y, outer, outer, start, end) + arc(x, y, inner, inner, end, start), colour)

    def spokes(inner, outer, count, shift, width):
        for i in range(count):
            angle = math.radians(i * 360 / count + shift)
            ends = [(x + r * math.cos(angle), y + r * math.sin(angle)) for r in (inner, outer)]
            picture.stroke(ends, width, lead)

    for i in range(16):
        pane(214, 284, i * 22.5, (i + 1) * 22.5, NAVY if i % 2 else PURPLE)
    for i in range(8):
        pane(102, 200, i * 45 - 22.5, i * 45 + 22.5, MAROON if i % 2 else GREEN)
    picture.ellipse(x, y, 90, 90, OLIVE)
    spokes(208, 290, 16, 0, 3)
    spokes(96, 206, 8, 22.5, 9)
    spokes(30, 94, 4, 45, 2)
    for i in range(8):
        angle = math.radians(i * 45)
        picture.ellipse(x + 153 * math.cos(angle), y + 153 * math.sin(angle), 17, 17, YELLOW if i % 2 else RED)
    picture.ellipse(x, y, 34, 34, lead)
    picture.ellipse(x, y, 29, 29, YELLOW)
    return picture


def butterfly():
    """Wings of several regions around a body that no maze enters; in the 3-d kind."""
    gold, ink = (250, 196, 60), (28, 30, 52)
    picture = Picture(YELLOW)
    gradient(picture, (196, 232, 246), (236, 250, 226), 24)
    for x, y, size in ((70, 520, 26), (150, 556, 18), (724, 520, 26), (650, 556, 18), (50, 60, 14), (750, 60, 14)):
        for turn in range(0, 360, 60):
            a = math.radians(turn)
            picture.ellipse(x + size * math.cos(a), y + size * math.sin(a), size * 0.55, size * 0.55, (246, 150, 170))
        picture.ellipse(x, y, size * 0.5, size * 0.5, gold)
    upper = curve([(412, 250), (470, 120), (600, 40), (735, 60), (752, 170), (690, 280), (560, 318), (430, 292)], closed=True)
    lower = curve([(416, 292), (520, 326), (640, 352), (676, 440), (610, 540), (510, 530), (440, 420)], closed=True)
    for shape, colour in ((lower, MAROON), (upper, NAVY)):
        for side in (shape, mirrored(shape, 400)):
            picture.stroke(side + side[:1], 10, ink)
            picture.polygon(side, colour)
    inner = curve([(470, 236), (520, 150), (620, 96), (690, 120), (684, 190), (620, 248), (530, 270)], closed=True)
    for side in (inner, mirrored(inner, 400)):
        picture.polygon(side, PURPLE)
    for axis in (606, 194):
        picture.ellipse(axis, 452, 40, 40, TEAL)
        picture.ellipse(axis, 452, 12, 12, gold)
    for axis, top in ((716, 96), (84, 96)):
        picture.ellipse(axis, top, 13, 13, gold)
    picture.stroke([(400, 226), (400, 470)], lambda part: 38 - 24 * part, ink)
    picture.dot(400, 206, 22, ink)
    for side in (1, -1):
        picture.stroke(curve([(400 + 8 * side, 190), (400 + 30 * side, 110), (400 + 74 * side, 70)]), 5, ink)
        picture.dot(400 + 74 * side, 70, 8, ink)
    return picture


def octopus():
    """Arms that are regions of one body; in the pipe kind."""
    coral, ink = (238, 110, 84), (28, 30, 52)
    picture = Picture(AQUA)
    gradient(picture, (120, 206, 222), (30, 108, 160), 30)
    for x, y, r in ((90, 110, 20), (120, 60, 10), (700, 90, 26), (736, 150, 12), (676, 40, 9), (60, 330, 9), (752, 330, 14)):
        picture.ellipse(x, y, r, r, (214, 244, 250))
        picture.ellipse(x - r * 0.3, y - r * 0.3, r * 0.25, r * 0.25, (252, 254, 252))
    picture.polygon(curve([(-20, 560), (200, 540), (420, 556), (620, 536), (820, 556)]) + [(820, 620), (-20, 620)],
                    (232, 206, 146))
    arms = (
        [(330, 330), (250, 400), (130, 400), (70, 340), (90, 270)],
        [(345, 360), (290, 460), (170, 500), (90, 470)],
        [(375, 370), (360, 470), (290, 530), (210, 540)],
        [(392, 380), (392, 470), (378, 520), (352, 546)],
    )
    for rim, colour in ((10, (64, 20, 60)), (0, MAROON)):
        for points in arms:
            for line in (curve(points), mirrored(curve(points), 400)):
                picture.stroke(line, lambda part, rim=rim: 62 - 26 * part + rim, colour)
        picture.ellipse(400, 210, 150 + rim / 2, 176 + rim / 2, colour)
    for axis in (344, 456):
        picture.ellipse(axis, 240, 34, 40, (252, 250, 240))
        picture.ellipse(axis + 4, 250, 15, 20, ink)
        picture.ellipse(axis - 1, 242, 5, 6, (252, 250, 240))
    picture.stroke(curve([(366, 304), (400, 322), (434, 304)]), 7, (64, 20, 60))
    for x, y, r in ((320, 130, 16), (362, 90, 10), (470, 120, 19), (424, 80, 8), (500, 176, 9), (300, 182, 8)):
        picture.ellipse(x, y, r, r, coral)
    return picture


def name():
    """A word on paper. Its letters are of several colours and hang together, so that one maze runs through it."""
    paper, pen = (254, 254, 254), 52
    picture = Picture(paper)

    def letter(colour, *lines):
        for line in lines:
            picture.stroke(line, pen, colour)

    def tail(x):  # from a letter's foot to the next one's stem
        return curve([(x, 346), (x + 16, 388), (x + 42, 384), (x + 56, 330)])

    def n(x, colour):
        arch = curve([(x, 286), (x + 28, 232), (x + 66, 220), (x + 100, 246), (x + 106, 296), (x + 106, 346)])
        letter(colour, [(x, 224), (x, 384)], arch, tail(x + 106))

    letter(NAVY, [(66, 384), (160, 100), (254, 384)], [(104, 304), (216, 304)], tail(244))
    n(304, TEAL)
    n(470, PURPLE)
    letter(MAROON, arc(682, 304, 50, 80, 0, 360), [(738, 224), (738, 384)])
    letter(OLIVE, curve([(738, 404), (722, 470), (640, 500), (480, 486), (300, 512), (160, 486), (70, 510)]))
    return picture


LETTERS = {  # five by five blocks, each letter in one piece
    "A": "##### #...# ##### #...# #...#", "C": "##### #.... #.... #.... #####", "E": "##### #.... ####. #.... #####",
    "G": "##### #.... #..## #...# #####", "H": "#...# #...# ##### #...# #...#", "L": "#.... #.... #.... #.... #####",
    "M": "##.## ##### #.#.# #...# #...#", "N": "##..# ###.# #.### #..## #..##", "O": "##### #...# #...# #...# #####",
    "P": "##### #...# ##### #.... #....", "R": "##### #...# ##### #.##. #..##",
}


def words():
    """Twenty letters that do not touch: each has a maze of its own."""
    picture, block = Picture((254, 254, 254)), 24
    colours = (NAVY, MAROON, GREEN, PURPLE, TEAL, OLIVE)
    for line, word in enumerate(("APPLE", "GRAPE", "MELON", "PEACH")):
        for place, letter in enumerate(word):
            for down, row in enumerate(LETTERS[letter].split()):
                for across, ink in enumerate(row):
                    left, top = 32 + 152 * place + block * across, 24 + 144 * line + block * down
                    if ink == "#":
                        picture.box(left, top, left + block, top + block, colours[(5 * line + place) % 6])
    return picture


def panes():
    """A hundred panes in lead as thick as three cells, so that no walker comes from one to the next."""
    lead = (52, 52, 60)
    picture = Picture(lead)
    colours = (NAVY, TEAL, PURPLE, MAROON, OLIVE, GREEN, SILVER)
    for row in range(10):
        for column in range(10):
            left, top = 23 + 77 * column, 23 + 57 * row
            colour = colours[min(abs(2 * row - 9), 9) // 2 + min(abs(2 * column - 9), 9) // 2 - 2]
            picture.box(left, top, left + 61, top + 41, colour)
    return picture


PICTURES = {
    "balloon": balloon, "cat": cat, "snail": snail, "window": window, "butterfly": butterfly, "octopus": octopus,
    "name": name, "words": words, "panes": panes,
}


def main(words):
    if not words:
        sys.exit(f"usage: make_pictures.py FOLDER [{'|'.join(PICTURES)}...]")
    folder, names = words[0], words[1:] or list(PICTURES)
    unknown = [name for name in names if name not in PICTURES]
    if unknown:
        sys.exit(f"no such picture: {' '.join(unknown)}; there are {' '.join(PICTURES)}")
    os.makedirs(folder, exist_ok=True)
    for name in names:
        PICTURES[name]().save(os.path.join(folder, name + ".bmp"))


if __name__ == "__main__":
    main(sys.argv[1:])
