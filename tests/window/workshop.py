#!/usr/bin/env python3
"""Draws in the workshop as a person with a mouse and a keyboard does, and uses what was drawn.

    workshop.py GRIDWRIGHT
"""
import os
import sys
import tempfile

from desktop import Failed, until, walkThrough

PAPER, NAVY = (254, 254, 254), (0, 0, 128)


class Workshop:
    def __init__(self, desktop, work, program):
        self.desktop, self.work, self.program = desktop, work, program

    def sheet(self):
        """The columns and rows of the screen that show paper or ink, in the middle of the sheet."""
        left, top, right, bottom = self.desktop.client()
        return (left + right) // 2, top + 60, right - 40, bottom - 120

    def count(self, colour):
        left, top, right, bottom = self.sheet()
        rows = self.desktop.shot().part(left, top, right, bottom)
        return sum(row[at:at + 3] == bytes(colour) for row in rows for at in range(0, len(row), 3))

    def drag(self, begin, *places):
        self.desktop.say("xdotool", "mousemove", *map(str, begin), "mousedown", "1")
        for place in places:
            self.desktop.say("xdotool", "mousemove", *map(str, place))
        self.desktop.say("xdotool", "mouseup", "1")

    # The walk

    def open(self):
        desktop = self.desktop
        desktop.run([self.program], self.work)
        desktop.key("alt+b")
        desktop.awaitCaption("drawing picture for 'Regular mazes'")
        desktop.key("ctrl+d")
        left, top, right, bottom = self.sheet()
        until(lambda: self.count(PAPER) == (right - left) * (bottom - top), "a sheet of paper is open")

    def line(self):
        """Of three pieces: the pencil goes through each corner that the mouse was at."""
        left, top, right, bottom = self.sheet()
        corners = [(left + 20, top + 20), (right - 20, top + 20), (right - 20, bottom - 20), (left + 20, bottom - 20)]
        self.drag(*corners)
        until(lambda: self.desktop.shot().at(*corners[1]) == NAVY, "the pencil paints")
        shot = self.desktop.quietShot()
        for x, y in ((left + 60, top + 20), (right - 20, top + 60), (left + 60, bottom - 20)):
            if shot.at(x, y) != NAVY:
                raise Failed(f"the line does not go through {x}, {y}")

    def undone(self):
        drawn = self.count(NAVY)
        self.desktop.key("ctrl+z")
        until(lambda: self.count(NAVY) == 0, "one undo takes the stroke back")
        self.desktop.key("ctrl+y")
        until(lambda: self.count(NAVY) == drawn, "and redo brings it again")

    def shapes(self):
        """A rectangle by keys alone: its tool, two corners, and Space as the button."""
        desktop, before = self.desktop, self.count(NAVY)
        desktop.key("ctrl+3", "ctrl+Right")
        desktop.say("xdotool", "keydown", "space")
        desktop.key("ctrl+Down", "ctrl+Down", "ctrl+Left", "ctrl+Left")
        desktop.say("xdotool", "keyup", "space")
        until(lambda: self.count(NAVY) >= before + 300, "two cells by two are painted")

    def word(self):
        desktop, before = self.desktop, self.count(NAVY)
        desktop.key("ctrl+8")
        desktop.quietShot()
        desktop.type("MIA")
        desktop.key("alt+w")
        until(lambda: self.count(NAVY) > before + 2000, "the word is put down")

    def use(self):
        desktop = self.desktop
        desktop.key("ctrl+Return")
        until(lambda: desktop.shot().at(*self.corner()) != self.tools, "the workshop is gone")
        shot = desktop.quietShot()
        left, top, right, bottom = desktop.client()
        if not shot.holds(NAVY, left, top, right, bottom - 20):
            raise Failed("the sheet did not become the drawing")
        if not shot.holds(PAPER, left, top, right, bottom - 20):
            raise Failed("its paper did not become the ground")

    def corner(self):
        left, top, _, _ = self.desktop.client()
        return left + 3, top + 60

    def look(self):
        """The ground of the tools, by which the workshop is known to be open."""
        self.tools = self.desktop.quietShot().at(*self.corner())
        if self.tools == PAPER:
            raise Failed("there are no tools beside the sheet")

    def escape(self):
        """Opened again, from a menu that was left, the sheet waits with the keyboard, and Escape leaves it."""
        desktop = self.desktop
        drawn = desktop.quietShot()
        desktop.key("alt+f")
        until(lambda: desktop.windows() > 1, "the menu is open")
        desktop.key("Escape")
        until(lambda: desktop.windows() == 1, "the menu is gone")
        desktop.key("ctrl+d")
        until(lambda: desktop.shot().at(*self.corner()) == self.tools, "the workshop is open again")
        until(lambda: self.count(NAVY) > 0, "the sheet is as it was left")
        desktop.key("Escape")
        until(lambda: desktop.shot().data == drawn.data, "Escape leaves the drawing as it was")


def main(program):
    with tempfile.TemporaryDirectory(prefix="gridwright-workshop-") as folder:
        work = os.path.join(folder, "work")
        os.makedirs(work)

        def begin(desktop):
            walk = Workshop(desktop, work, os.path.abspath(program))
            return (walk.open, walk.look, walk.line, walk.undone, walk.shapes, walk.word, walk.use, walk.escape)

        return walkThrough("workshop", folder, begin)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
