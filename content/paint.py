"""The drawings of the title and the slides. A maze grows in the palette's background colours alone,
so all that is to stay as painted has colours of no palette."""

import math
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "examples"))
import make_pictures as draw  # noqa: E402
from letters import width, write  # noqa: E402
from make_pictures import (  # noqa: E402
    BLACK, GREEN, MAROON, NAVY, OLIVE, PURPLE, SILVER, TEAL, Picture, arc, curve, gradient, mirrored)

INK = (28, 30, 52)
PAPER = (252, 246, 228)
GOLD = (250, 196, 60)
CORAL = (238, 110, 84)


def caption(picture, words, colour=INK, ground=PAPER):
    """A label at the lower edge that tells what the slide shows."""
    half = width(words, 2) // 2 + 14
    picture.box(400 - half - 2, 566, 400 + half + 2, 596, colour)
    picture.box(400 - half, 568, 400 + half, 594, ground)
    write(picture, words, 400, 572, 2, colour, middle=True)
    return picture


def name_strokes():
    """The middle lines of the letters of the name, a list for each letter."""
    base, middle, top, narrow = 318, 196, 96, 0.82

    def at(x, *points):
        return [(x + dx * narrow, y) for dx, y in points]

    def bowl(x):
        return arc(x + 32 * narrow, 257, 32 * narrow, 61, 0, 360)

    letters = []
    x = 31
    letters.append([arc(x + 46 * narrow, 207, 46 * narrow, 111, -42, -340) + at(x, (90, 222), (56, 222))])
    x += 75 + 36
    for letter in "ridwright":
        if letter == "r":
            shoulder = curve([(x, 248), (x + 10, 210), (x + 33, 198)])
            letters.append([[(x, middle), (x, base)], shoulder])
            x += 33
        elif letter == "i":
            letters.append([[(x, middle), (x, base)], [(x, 142), (x, 143)]])
        elif letter == "d":
            letters.append([bowl(x), at(x, (64, top), (64, base))])
            x += 52
        elif letter == "w":
            letters.append([at(x, (0, middle), (20, base), (46, 212), (72, base), (92, middle))])
            x += 75
        elif letter == "g":
            hook = curve([(x + 52, 330), (x + 42, 360), (x + 20, 367), (x, 357)])
            letters.append([bowl(x), at(x, (64, middle), (64, 330)), hook])
            x += 52
        elif letter == "h":
            arch = curve([(x, 250), (x + 12, 206), (x + 36, 200), (x + 48, 236), (x + 48, base)])
            letters.append([[(x, top), (x, base)], arch])
            x += 48
        else:
            x += 14
            foot = curve([(x, 270), (x + 8, 310), (x + 32, 316)])
            letters.append([[(x, 132), (x, 280)], foot, [(x - 16, middle), (x + 30, middle)]])
            x += 30
        x += 36
    return letters


def title():
    """The name, each letter a maze of its own, over hills at the end of a day."""
    picture = Picture(GOLD)
    gradient(picture, (255, 228, 130), (250, 150, 90), 30)
    picture.ellipse(400, 470, 150, 150, (255, 240, 190))
    for points, colour in (
        ([(-20, 470), (130, 420), (300, 462), (470, 425), (640, 465), (820, 418)], (222, 116, 88)),
        ([(-20, 520), (150, 486), (330, 520), (520, 480), (680, 512), (820, 488)], (168, 82, 92)),
        ([(-20, 566), (170, 540), (380, 570), (560, 540), (820, 562)], (96, 52, 84)),
    ):
        picture.polygon(curve(points) + [(820, 620), (-20, 620)], colour)
    rise = 66  # clear of the buttons
    letters = [[[(x, y - rise) for x, y in line] for line in letter] for letter in name_strokes()]
    for spread, dx, dy, colour in ((36, 5, 7, (206, 120, 62)), (34, 0, 0, PAPER), (29, 0, 0, INK)):
        for letter in letters:
            for line in letter:
                picture.stroke([(x + dx, y + dy) for x, y in line], spread, colour)
    colours = (NAVY, PURPLE, MAROON, TEAL, NAVY, PURPLE, MAROON, GREEN, NAVY, PURPLE)
    for letter, colour in zip(letters, colours):
        for line in letter:
            picture.stroke(line, 26, colour)
    return picture


def oak():
    picture = Picture(GOLD)
    gradient(picture, (255, 236, 196), (224, 240, 206), 20)
    picture.polygon(curve([(-20, 520), (200, 494), (420, 520), (640, 492), (820, 516)]) + [(820, 620), (-20, 620)],
                    (142, 190, 96))
    picture.ellipse(664, 96, 52, 52, (250, 176, 70))
    trunk = curve([(352, 330), (362, 440), (330, 512), (262, 552)]) + curve([(538, 552), (470, 512), (438, 440), (450, 330)])
    crown = ((400, 150, 140, 118), (270, 190, 120, 100), (530, 190, 120, 100), (190, 280, 110, 92), (610, 280, 110, 92),
             (310, 300, 130, 100), (490, 300, 130, 100), (400, 250, 150, 130))
    picture.stroke(trunk + trunk[:1], 8, (70, 44, 26))
    for rim, colour in ((5, (24, 66, 36)), (0, GREEN)):
        for x, y, across, down in crown:
            picture.ellipse(x, y, across + rim, down + rim, colour)
        if not rim:
            picture.polygon(trunk, OLIVE)
            for x, y, across, down in crown[:3] + crown[5:]:
                picture.ellipse(x, y, across, down, GREEN)
    for x, y in ((200, 240), (300, 140), (420, 90), (540, 160), (620, 260), (470, 260), (330, 280), (400, 190), (250, 320), (560, 330)):
        picture.ellipse(x, y, 13, 13, (120, 20, 24))
        picture.ellipse(x, y, 11, 11, (232, 62, 54))
        picture.ellipse(x - 3, y - 4, 3, 3, (255, 214, 200))
    return caption(picture, "Wall size 5: seven thousand cells")


def fish():
    picture = Picture(GOLD)
    gradient(picture, (186, 234, 240), (70, 150, 190), 26)
    for x, lean in ((60, 20), (110, -16), (700, 18), (754, -14)):
        picture.stroke(curve([(x, 620), (x + lean, 540), (x - lean, 470), (x + lean, 400)]), lambda p: 20 - 14 * p, (60, 140, 96))
    picture.polygon(curve([(-20, 566), (260, 548), (520, 570), (820, 552)]) + [(820, 620), (-20, 620)], (236, 212, 156))
    body = curve([(60, 290), (150, 160), (320, 100), (480, 140), (596, 262), (596, 318), (480, 440), (320, 480), (150, 420)], closed=True)
    tail = [(570, 290)] + curve([(600, 250), (680, 140), (768, 108)]) + curve([(768, 108), (730, 290), (768, 472)]) + \
        curve([(768, 472), (680, 440), (600, 330)])
    fins = (curve([(270, 120), (330, 36), (450, 40), (500, 164)]), curve([(300, 470), (340, 544), (440, 548), (450, 452)]))
    for shape in (tail, *fins):
        picture.stroke(shape + shape[:1], 10, INK)
        picture.polygon(shape, TEAL)
    picture.stroke(body + body[:1], 10, INK)
    picture.polygon(body, NAVY)
    picture.stroke(curve([(232, 150), (272, 290), (232, 430)]), 7, INK)
    picture.ellipse(160, 250, 30, 30, (252, 250, 240))
    picture.ellipse(152, 252, 14, 14, INK)
    picture.stroke(curve([(72, 330), (118, 336), (150, 322)]), 7, CORAL)
    for x, y, r in ((36, 210, 10), (52, 160, 15), (34, 104, 9)):
        picture.ellipse(x, y, r, r, (240, 252, 252))
    return caption(picture, "A pattern of your own shapes the maze: spirals")


def teapot():
    picture = Picture(GOLD)
    gradient(picture, (250, 226, 214), (242, 196, 188), 16)
    for y in range(0, 470, 58):
        for x in range(0, 840, 58):
            picture.dot(x + (29 if y % 116 else 0), y, 5, (252, 244, 236))
    picture.box(0, 470, 800, 600, (150, 96, 70))
    picture.box(0, 470, 800, 478, (190, 134, 100))
    outline = (60, 28, 60)
    handle = curve([(560, 240), (680, 210), (712, 310), (650, 400), (548, 420)])
    spout = curve([(240, 400), (150, 380), (120, 280), (60, 236)])
    body = curve([(250, 240), (220, 340), (260, 470), (330, 516), (470, 516), (540, 470), (580, 340), (550, 240)])
    for rim, colour in ((12, outline), (0, PURPLE)):
        picture.stroke(handle, 48 + rim, colour)
        picture.stroke(spout, lambda part, rim=rim: 48 + rim + 40 * (1 - part), colour)
        picture.stroke(body + body[:1], 1 + rim, colour)
        picture.polygon(body, colour)
    lid = curve([(270, 226), (300, 170), (400, 146), (500, 170), (530, 226)])
    picture.stroke(lid + lid[:1], 12, outline)
    picture.polygon(lid, (244, 150, 124))
    for x, y in ((320, 204), (360, 176), (400, 206), (440, 176), (480, 204)):
        picture.dot(x, y, 8, PAPER)
    picture.dot(400, 116, 30, outline)
    picture.dot(400, 116, 24, CORAL)
    for x, y in ((320, 330), (400, 300), (480, 330), (440, 410), (360, 410)):
        for turn in range(0, 360, 72):
            a = math.radians(turn - 90)
            picture.dot(x + 13 * math.cos(a), y + 13 * math.sin(a), 8, (250, 190, 200))
        picture.dot(x, y, 7, GOLD)
    return caption(picture, "One being played: the trail is yours")


def castle():
    picture = Picture(GOLD)
    gradient(picture, (60, 60, 120), (240, 150, 130), 40)
    picture.ellipse(650, 110, 56, 56, (252, 240, 200))
    for x, y, r in ((630, 96, 10), (672, 130, 14), (664, 84, 6)):
        picture.ellipse(x, y, r, r, (236, 218, 172))
    for x, y in ((80, 70), (180, 40), (300, 90), (520, 50), (740, 60), (560, 150), (40, 180), (250, 150), (770, 200)):
        picture.dot(x, y, 3, (252, 250, 220))
    picture.polygon(curve([(-20, 500), (200, 470), (600, 470), (820, 506)]) + [(820, 620), (-20, 620)], (48, 70, 70))
    ink = (30, 24, 50)

    walls = [(330, 190, 470, 420, NAVY), (110, 260, 210, 520, NAVY), (590, 260, 690, 520, NAVY), (210, 340, 590, 520, TEAL)]
    walls += [(left, 318, left + 38, 345, TEAL) for left in range(210, 590, 76)]
    roofs = [(400, 196, 84, 140), (160, 266, 64, 100), (640, 266, 64, 100)]
    for rim in (5, 0):  # all outlines first, so that walls and roofs hang together
        for x, foot, half, rise in roofs:
            picture.polygon([(x - half - 2 * rim, foot + rim), (x, foot - rise - 2 * rim), (x + half + 2 * rim, foot + rim)],
                            ink if rim else MAROON)
        for left, top, right, bottom, colour in walls:
            picture.box(left - rim, top - rim, right + rim, bottom, ink if rim else colour)
    for left, top in ((146, 320), (626, 320), (386, 240)):
        picture.box(left, top, left + 28, top + 46, GOLD)
        picture.ellipse(left + 14, top, 14, 16, GOLD)
    picture.ellipse(400, 440, 46, 50, ink)
    picture.box(354, 440, 446, 520, ink)
    for x in range(366, 446, 20):
        picture.box(x, 404, x + 4, 520, (120, 84, 60))
    return caption(picture, "Long pipes, and the longest way the computer finds")


def apple():
    """For the slide that shows a drawing beside its maze: it is half as wide as a slide."""
    picture = Picture((255, 233, 186))
    body = curve([(196, 170), (250, 130), (330, 150), (356, 250), (330, 370), (262, 440), (200, 424),
                  (138, 440), (70, 370), (44, 250), (70, 150), (150, 130)], closed=True)
    picture.stroke(body + body[:1], 10, (90, 20, 20))
    picture.polygon(body, MAROON)
    picture.stroke(curve([(200, 170), (204, 110), (226, 62)]), 14, (92, 60, 36))
    leaf = curve([(216, 112), (250, 60), (330, 40), (304, 104), (256, 130)], closed=True)
    picture.stroke(leaf + leaf[:1], 8, (20, 70, 30))
    picture.polygon(leaf, GREEN)
    picture.stroke(curve([(94, 226), (104, 190), (132, 172)]), 16, (250, 190, 170))
    picture.ellipse(250, 336, 24, 20, INK)
    worm = curve([(250, 338), (276, 316), (286, 284), (312, 274)])
    picture.stroke(worm, 24, (40, 96, 40))
    picture.stroke(worm, 18, (150, 206, 90))
    picture.dot(314, 270, 6, PAPER)
    picture.dot(316, 270, 3, INK)
    return picture


def cat():
    return caption(draw.cat(), "A regular maze inside a picture")


def balloon():
    return caption(draw.balloon(), "Many colours, one maze across them all", ground=(232, 250, 255))


def butterfly():
    return caption(draw.butterfly(), "A 3-d maze: its corridors run under one another")


def octopus():
    return caption(draw.octopus(), "A 3-d pipe maze: tunnels from wall to wall", ground=(236, 246, 240))


def snail():
    return caption(draw.snail(), "A maze with its answer")


def window():
    return caption(draw.window(), "Every pane has a maze of its own")


def sign(lines, colours):
    """A page of words on a ground that becomes a maze around them."""
    picture = Picture(colours[0])
    picture.box(24, 24, 776, 576, colours[1])
    picture.box(88, 88, 712, 512, INK)
    picture.box(92, 92, 708, 508, PAPER)
    y = 118
    for words, dot, colour in lines:
        write(picture, words, 400, y, dot, colour, middle=True)
        y += 9 * dot + 14
    return picture


def credit1():
    return sign([
        ("Gridwright", 9, MAROON_INK), ("makes mazes inside pictures.", 3, INK), ("", 1, INK),
        ("Draw one, or bring a bitmap.", 3, INK), ("A walker carves the maze while you watch,", 2, INK),
        ("pixel by pixel, with no grid in it.", 2, INK), ("Solve it yourself, or let the computer;", 2, INK),
        ("print it with its answer or without.", 2, INK), ("", 1, INK),
        ("All slides were made by Gridwright itself.", 2, MAROON_INK),
    ], (GOLD, NAVY))


def credit2():
    return sign([
        ("Thanks", 9, GREEN_INK), ("to the people of Qt 6,", 3, INK), ("who bring it to the screen", 3, INK),
        ("and to paper. (LGPL version 3)", 3, INK), ("", 1, INK), ("Gridwright is free software", 3, GREEN_INK),
        ("under the MIT licence:", 3, GREEN_INK), ("use it, change it, pass it on.", 3, GREEN_INK),
    ], ((255, 220, 170), GREEN))


MAROON_INK, GREEN_INK = (150, 24, 40), (20, 104, 60)

DRAWINGS = {
    "title": title, "example1": cat, "example2": balloon, "example3": butterfly, "example4": octopus,
    "example5": snail, "example6": oak, "example7": fish, "example8": teapot, "example9": apple,
    "example10": window, "example11": castle, "credit1": credit1, "credit2": credit2,
}
