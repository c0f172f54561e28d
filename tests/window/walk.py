#!/usr/bin/env python3
"""Walks the window as a person without a mouse does: slides, all eleven panels, a run of mazes, the menus
with their tips, what is taken back, and the status line.

    walk.py GRIDWRIGHT PATTERN_SET
"""
import os
import shutil
import struct
import sys
import tempfile
import time

from desktop import Failed, until, walkThrough

YELLOW, RED, NAVY, LIME, MAGENTA, GRAY = (255, 255, 0), (255, 0, 0), (0, 0, 128), (0, 255, 0), (255, 0, 255), (128, 128, 128)
SLIDES = [(10 * number, 200, 90) for number in range(1, 14)]
NAME_OF_SLIDE = [f"example{number}.bmp" for number in range(1, 12)] + ["credit1.bmp", "credit2.bmp"]


def paint(path, frame, colour, width=800, height=600):
    """A picture of one colour in a frame of 20 pixels; the width is a multiple of 4."""
    ends = bytes(reversed(frame)) * 20
    inside = ends + bytes(reversed(colour)) * (width - 40) + ends
    edge = bytes(reversed(frame)) * width
    rows = edge * 20 + inside * (height - 40) + edge * 20
    header = b"BM" + struct.pack("<IHHI", 54 + len(rows), 0, 0, 54)
    header += struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(rows), 0, 0, 0, 0)
    with open(path, "wb") as file:
        file.write(header + rows)


def expect(holds, what):
    if not holds:
        raise Failed("not so: " + what)


class Walk:
    def __init__(self, desktop, work):
        self.desktop, self.work = desktop, work

    def hasFile(self, name):
        return os.path.exists(os.path.join(self.work, name))

    def awaitFile(self, name):
        until(lambda: self.hasFile(name), name + " is written")

    def readFile(self, name):
        with open(os.path.join(self.work, name), "rb") as file:
            return file.read()

    # What is on the screen

    def centre(self):
        left, top, right, bottom = self.desktop.client()
        return (left + right) // 2, (top + bottom) // 2

    def strip(self, shot):
        """The status line, without the edges."""
        left, _, right, bottom = self.desktop.client()
        return left + 2, bottom - 14, right - 2, bottom - 4

    def isEmpty(self, shot, box):
        left, top, right, bottom = box
        return len({shot.at(x, y) for y in range(top, bottom) for x in range(left, right)}) == 1

    def notice(self, shot):
        left, top, right, bottom = self.strip(shot)
        return left, top, left + 200, bottom

    def status(self, shot):
        left, top, right, bottom = self.strip(shot)
        return (left + right) // 2, top, right, bottom

    def onCanvas(self, x, y):
        return self.canvas[0] + x, self.canvas[1] + y

    def awaitPixel(self, x, y, colour, what):
        until(lambda: self.desktop.shot().at(*self.onCanvas(x, y)) == colour, what)

    # What a person does

    def menu(self, letter, *keys):
        """Opens a title, whose first item is reached then, and goes on by keys."""
        before = self.desktop.windows()
        self.desktop.key("alt+" + letter)
        until(lambda: self.desktop.windows() > before, "the menu of Alt and " + letter + " is open")
        if keys:
            self.desktop.key(*keys)

    def choose(self, letter, *keys):
        self.menu(letter, *keys, "Return")
        until(lambda: self.desktop.windows() == 1, "the menu is gone")

    def openPanel(self, letter, *keys):
        self.before = self.desktop.quietShot()
        self.choose(letter, *keys)
        until(lambda: not self.sameView(self.before), "a panel is up")

    def view(self):
        """The Canvas and what lies over it."""
        left, top, right, bottom = self.desktop.client()
        return left, top, right, bottom - 20

    def sameView(self, shot, bottom=None):
        """Whether it looks as it did, at least above this row."""
        left, top, right, foot = self.view()
        box = left, top, right, bottom or foot
        return self.desktop.shot().part(*box) == shot.part(*box)

    def firstChange(self, before, after):
        """The first row of the view in which two shots differ."""
        left, top, right, bottom = self.view()
        rows = zip(before.part(left, top, right, bottom), after.part(left, top, right, bottom))
        return next(top + number for number, (old, new) in enumerate(rows) if old != new)

    def awaitView(self, shot, what):
        until(lambda: self.sameView(shot), what)

    def enter(self, text):
        self.desktop.type(text)
        self.desktop.key("Return")

    # The walk

    def slides(self):
        title = self.desktop.quietShot()
        expect(self.isEmpty(title, self.strip(title)), "the status line is empty at the title")
        x, y = self.centre()
        for _ in range(10):
            began = time.monotonic()
            self.desktop.key("alt+e")
            until(lambda: self.desktop.shot().at(x, y) == SLIDES[0], "the first slide is there")
            self.desktop.key("j", "Return", "Right", "space")
            until(lambda: self.desktop.shot().at(x, y) != SLIDES[0], "Space shows the next slide")
            shown = self.desktop.shot().at(x, y)
            self.desktop.key("Escape")
            until(lambda: self.desktop.shot().data == title.data, "Escape leads back to the title")
            if time.monotonic() - began < 4:  # else the show may have gone on by itself
                expect(shown == SLIDES[1], "one slide further, by Space alone")
                return
        raise Failed("this machine is too slow to tell a key from the show's own five seconds")

    def begin(self):
        self.desktop.key("alt+b")
        self.desktop.awaitCaption("drawing picture for 'Regular mazes'")

        def outline():
            shot = self.desktop.shot()
            left, top, _, bottom = self.desktop.client()
            for y in range(top, bottom):
                if shot.at(left + 10, y) == RED and shot.at(left + 5, y) == YELLOW:
                    return left, y - 10
            return None
        self.canvas = until(outline, "the square's outline is drawn")
        shot = self.desktop.quietShot()
        expect(shot.holds(YELLOW, *self.status(shot)), "the status line shows the colour in hand")
        expect(not self.isEmpty(shot, self.notice(shot)), "the line says how the keys are shown")

    def tips(self):
        """Each menu is a window, and so is a tip."""
        desktop = self.desktop
        self.menu("o")
        until(lambda: desktop.windows() == 3, "the first item shows its tip")
        desktop.key("Up", "Up", "Right")  # round the end, to symmetry
        until(lambda: desktop.windows() == 3, "the submenu is open, and its first item has no tip")
        desktop.key("Down")
        until(lambda: desktop.windows() == 4, "Horizontal shows its tip")
        desktop.key("Escape")
        until(lambda: desktop.windows() <= 3, "the submenu is gone")
        desktop.key("Escape", "Escape")
        until(lambda: desktop.windows() == 1, "all menus are gone")

    def textPanels(self):
        desktop = self.desktop
        self.openPanel("o")
        desktop.key("Escape")
        self.awaitView(self.before, "Escape leaves the panel of imports")
        self.openPanel("o")
        self.enter("ground")
        self.awaitPixel(100, 100, NAVY, "the picture is imported")
        self.openPanel("o", "Down", "Down")
        self.enter("mine")
        self.awaitFile("mine.maze")
        self.awaitView(self.before, "the panel that saves is gone")
        self.openPanel("o", "Down", "Down", "Down")
        desktop.key("Down", "Return")  # the one drawing of the list
        self.awaitPixel(100, 100, NAVY, "the drawing is loaded")
        self.awaitPixel(10, 10, RED, "the panel that loads is gone")
        self.openPanel("o", *["Down"] * 7)
        self.enter("20")
        self.awaitPixel(39, 39, RED, "the square is 20 pixels wide")
        self.openPanel("s", *["Down"] * 6)
        self.enter("7")
        self.awaitView(self.before, "the panel of random sizes is gone")
        self.openPanel("t", *["Down"] * 5)
        self.enter("mine")
        self.awaitFile("mine.pat")
        self.awaitView(self.before, "the panel that saves patterns is gone")
        plain = self.readFile("Left.pt")
        self.openPanel("t", *["Down"] * 6)
        self.enter("steps")
        until(lambda: self.readFile("Left.pt") != plain, "the patterns are loaded")
        self.awaitView(self.before, "the panel that loads patterns is gone")

    def selectColor(self):
        desktop = self.desktop
        self.openPanel("o", *["Down"] * 9)
        desktop.key("Tab", "Right", "Down", "Escape")
        self.awaitView(self.before, "Escape leaves Select color")
        self.openPanel("o", *["Down"] * 9)
        desktop.key("Up", *["Left"] * 7, "Down", "Right", "Right", "space")  # from black to lime
        until(lambda: self.desktop.shot().holds(LIME, *self.status(self.desktop.shot())), "lime is in hand")
        desktop.key("l")
        self.awaitPixel(50, 30, LIME, "the square paints in lime, and the keys reach the Canvas again")

    def takeBack(self):
        desktop = self.desktop
        painted = desktop.quietShot()
        for redo in ("ctrl+shift+z", "ctrl+y"):
            desktop.key("ctrl+z")
            until(lambda: desktop.shot().at(*self.onCanvas(50, 30)) != LIME, "Ctrl+Z takes the stroke back")
            desktop.key(redo)
            self.awaitView(painted, redo + " does it again")
        desktop.hold("l", lambda: desktop.shot().at(*self.onCanvas(130, 30)) == LIME, "the key that is held repeats")
        desktop.quietShot()
        desktop.key("ctrl+z")
        self.awaitView(painted, "one Ctrl+Z takes back all that the held key painted")

    def editColors(self):
        desktop = self.desktop
        self.openPanel("o", *["Down"] * 8)
        desktop.key("Down", "Down", "space")  # individual maze colours
        desktop.key("Up", "Up", *["Left"] * 7, "Right")  # to navy
        classes = desktop.quietShot()
        foot = self.firstChange(self.before, classes)  # over this panel comes that of the maze colours
        desktop.key("shift+space")
        until(lambda: not self.sameView(classes, foot), "the maze colours are up")
        desktop.key("Left", "Escape")
        until(lambda: self.sameView(classes, foot), "Escape goes back from the maze colours")
        desktop.key("Menu")
        until(lambda: not self.sameView(classes, foot), "the maze colours are up again, of navy too")
        desktop.key("Left", "Left", "Return")  # from white to magenta
        until(lambda: self.sameView(classes, foot), "a maze colour is picked")
        desktop.key("Escape")
        self.awaitView(self.before, "Escape is Done")

    def run(self):
        desktop = self.desktop
        self.choose("s", "Right", "Down")  # the computer creates mazes
        self.openPanel("p", "Down", "Down")
        self.enter("2")
        until(lambda: not self.isEmpty(desktop.shot(), self.notice(desktop.shot())), "the run says what it will do")
        self.choose("m")
        self.awaitFile("gridwright-0001.pdf")
        desktop.awaitCaption("placing start and finish")
        shot = desktop.quietShot()
        expect(shot.holds(MAGENTA, *self.onCanvas(60, 60), *self.onCanvas(240, 140)), "mazes in navy are magenta")
        expect(not self.isEmpty(shot, self.status(shot)), "the ends are told")

    def openPrinted(self):
        """A notice stands for eight seconds, which a loaded machine may need to find the mouse."""
        desktop = self.desktop
        left, top, _, _ = self.strip(desktop.shot())
        for number in range(2, 12):
            name = f"gridwright-{number:04}.pdf"
            self.choose("p")  # print the window
            self.awaitFile(name)
            until(lambda: not self.isEmpty(desktop.shot(), self.notice(desktop.shot())), "it is told")
            desktop.click(left + 60, top + 5)
            end = time.monotonic() + 9
            while not self.hasFile("opened") and time.monotonic() < end:
                time.sleep(0.05)
            if self.hasFile("opened"):
                expect(self.readFile("opened").decode().strip().endswith(name), "the click opened what was printed")
                return
        raise Failed("no click on a notice opens the file")

    def solve(self):
        self.choose("m", "Up")
        self.desktop.awaitCaption("solved")
        shot = self.desktop.quietShot()
        expect(not self.isEmpty(shot, self.status(shot)), "the ends are told")

    def quit(self):
        desktop = self.desktop
        self.choose("o", "Up")
        desktop.awaitCaption("by Orrin Vale")
        until(lambda: self.isEmpty(desktop.shot(), self.strip(desktop.shot())), "the status line is empty again")
        desktop.key("alt+q")
        until(lambda: desktop.program.poll() is not None, "the program ends")
        expect(desktop.program.returncode == 0, "it ends well")


def layOut(work, patterns):
    """The pictures and files that the walk begins with."""
    for name, colour in zip(NAME_OF_SLIDE, SLIDES):
        paint(os.path.join(work, name), colour, colour)
    paint(os.path.join(work, "ground.bmp"), GRAY, NAVY, 300, 200)
    shutil.copy(patterns, os.path.join(work, "steps.pat"))


def opener(folder, work):
    """A desktop's program that opens files: it notes which."""
    tools = os.path.join(folder, "tools")
    os.makedirs(tools)
    path = os.path.join(tools, "xdg-open")
    with open(path, "w") as script:
        script.write(f'#!/bin/sh\nprintf "%s\\n" "$1" > "{work}/opened.part"\nmv "{work}/opened.part" "{work}/opened"\n')
    os.chmod(path, 0o755)
    return tools


def main(program, patterns):
    with tempfile.TemporaryDirectory(prefix="gridwright-window-") as folder:
        work = os.path.join(folder, "work")
        os.makedirs(work)
        layOut(work, patterns)

        def begin(desktop):
            desktop.environment["PATH"] = opener(folder, work) + os.pathsep + desktop.environment["PATH"]
            desktop.run([os.path.abspath(program)], work)
            walk = Walk(desktop, work)
            return (walk.slides, walk.begin, walk.tips, walk.textPanels, walk.selectColor, walk.takeBack, walk.editColors,
                    walk.run, walk.openPrinted, walk.solve, walk.quit)

        return walkThrough("walk", folder, begin)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
