#!/usr/bin/env python3
"""Brings pictures to the window in every way that a person has: with the start, by dropping, pasting, the dialog, the
menus, by keyboard alone where that goes.

    arrivals.py GRIDWRIGHT DRAG_SOURCE
"""
import os
import subprocess
import sys
import tempfile
import time

from desktop import Failed, until, walkThrough

PAPER, NAVY, GREEN, BLUE, RED = (254, 254, 254), (0, 0, 128), (0, 128, 0), (0, 0, 255), (255, 0, 0)


def paint(path, paper, ink, size=(400, 300)):
    """A box on paper; colours of the palette make it ready for a maze."""
    box = f"rectangle 100,80 {size[0] - 100},{size[1] - 80}"
    subprocess.run(["convert", "-size", f"{size[0]}x{size[1]}", "xc:rgb%s" % (paper,), "-fill", "rgb%s" % (ink,),
                    "-draw", box, path], check=True)


class Arrivals:
    def __init__(self, desktop, folder, program, source):
        self.desktop, self.folder, self.program, self.source = desktop, folder, program, source

    def path(self, name):
        return os.path.join(self.folder, name)

    def start(self, *words):
        work = self.path("work")
        os.makedirs(work, exist_ok=True)
        self.desktop.run([self.program, *words], work)

    def holds(self, colour):
        """Whether the Canvas, which begins at the window's left, shows a colour where the box is."""
        left, top, _, _ = self.desktop.client()
        return self.desktop.shot().at(left + 250, top + 200) == colour

    def await_(self, colour, what):
        until(lambda: self.holds(colour), what)

    def drag(self, *addresses):
        desktop = self.desktop
        dragging = desktop._start([self.source, *addresses])
        until(lambda: desktop.say("xdotool", "search", "--onlyvisible", "--pid", str(dragging.pid)).split(),
              "the drag source is there")
        left, top, right, bottom = desktop.client()
        # Drags are steps of several programs: each waits for the one before.
        for step in (["mousemove", "8", "8"], ["mousedown", "1"], ["mousemove", "14", "12"],
                     ["mousemove", "60", "60"], ["mousemove", str((left + right) // 2), str((top + bottom) // 2)],
                     ["mousemove_relative", "3", "3"], ["mouseup", "1"]):
            desktop.say("xdotool", *step)
            time.sleep(0.3)
        dragging.terminate()

    def noticeTold(self, before):
        left, _, _, bottom = self.desktop.client()
        box = left + 2, bottom - 16, left + 300, bottom - 2
        return self.desktop.shot().part(*box) != before.part(*box)

    def copy(self, name):
        with open(self.path(name), "rb") as file:
            subprocess.run(["xclip", "-selection", "clipboard", "-t", "image/png"], stdin=file,
                           env=self.desktop.environment, check=True)

    # The ways

    def withTheStart(self):
        self.start(self.path("navy.png"))
        self.desktop.awaitCaption("drawing picture for 'Regular mazes'")
        self.await_(NAVY, "the picture it was started with is the drawing")

    def byDropping(self):
        self.drag(self.path("green.png"))
        self.await_(GREEN, "the dropped picture is the drawing")
        before = self.desktop.quietShot()
        self.drag("http://example.invalid/navy.png")
        until(lambda: self.noticeTold(before), "an address in the web is answered with a line")
        if not self.holds(GREEN):
            raise Failed("the address changed the drawing")

    def byPasting(self):
        self.copy("navy.png")
        self.desktop.key("ctrl+v")
        self.await_(NAVY, "the pasted picture is the drawing")

    def fromTheDialog(self):
        desktop = self.desktop
        desktop.key("ctrl+o")
        until(lambda: desktop.windows() == 2, "the dialog is up")
        desktop.type(self.path("green.png"))
        desktop.key("Return")
        self.await_(GREEN, "the chosen picture is the drawing")
        desktop.key("ctrl+o")
        until(lambda: desktop.windows() == 2, "the dialog is up again")
        desktop.key("Escape")
        until(lambda: desktop.windows() == 1, "the dialog is gone")

    def fromTheMenus(self):
        desktop = self.desktop
        for before, other in ((GREEN, NAVY), (NAVY, GREEN)):
            self.await_(before, "the one opened last is there")
            desktop.key("alt+f")
            until(lambda: desktop.windows() >= 2, "the menu is open")
            desktop.quietShot()
            desktop.key("Down", "Right")
            desktop.quietShot()
            desktop.key("Down")
            desktop.quietShot()
            desktop.key("Return")
            self.await_(other, "the picture opened before the last one is there again")
            until(lambda: desktop.windows() == 1, "the menu is gone")

    def throughThePanel(self):
        desktop = self.desktop
        drawn = GREEN if self.holds(GREEN) else NAVY
        self.drag(self.path("photo.png"))
        until(lambda: not self.holds(drawn), "the panel is up")
        desktop.key("Escape")
        self.await_(drawn, "the panel is left, and the drawing is as it was")
        self.drag(self.path("photo.png"))
        until(lambda: not self.holds(drawn), "the panel is up again")
        desktop.key("Return")
        left, top, _, _ = desktop.client()
        until(lambda: desktop.shot().at(left + 12, top + 60) == PAPER, "the prepared picture is the drawing")

    def regions(self):
        desktop = self.desktop
        left, top, right, bottom = desktop.client()
        view = left, top, right, bottom - 20  # what is told below it goes by itself
        before = desktop.quietShot().part(*view)
        desktop.key("alt+f")
        until(lambda: desktop.windows() >= 2, "the menu is open")
        desktop.key("h")  # the letter of the item, wherever it stands
        until(lambda: desktop.windows() == 1 and desktop.quietShot().part(*view) != before, "the regions are shown")
        desktop.key("l")
        until(lambda: desktop.shot().part(*view) == before, "a key closes them, and moves no square")


def main(program, source):
    with tempfile.TemporaryDirectory(prefix="gridwright-arrivals-") as folder:
        paint(os.path.join(folder, "navy.png"), PAPER, NAVY)
        paint(os.path.join(folder, "green.png"), PAPER, GREEN)
        paint(os.path.join(folder, "photo.png"), (255, 255, 255), (180, 40, 60), (700, 500))

        def begin(desktop):
            walk = Arrivals(desktop, folder, os.path.abspath(program), os.path.abspath(source))
            return (walk.withTheStart, walk.byDropping, walk.byPasting, walk.fromTheDialog, walk.fromTheMenus,
                    walk.throughThePanel, walk.regions)

        return walkThrough("arrivals", folder, begin)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
