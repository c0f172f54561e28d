#!/usr/bin/env python3
"""Goes from the first key to a printed page and the end by the keys that the menus show, and through what
File has for pages: F1, F5 to F8, F11, Ctrl with N, P, Q; Page setup and Print preview.

    keys.py GRIDWRIGHT
"""
import os
import subprocess
import sys
import tempfile

from desktop import Failed, until, walkThrough

RED, NAVY = (255, 0, 0), (0, 0, 128)


def expect(holds, what):
    if not holds:
        raise Failed("not so: " + what)


class Keys:
    def __init__(self, desktop, work, program):
        self.desktop, self.work, self.program = desktop, work, program

    def choose(self, title, item):
        """An item by the letters that are underlined."""
        before = self.desktop.windows()
        self.desktop.key("alt+" + title)
        until(lambda: self.desktop.windows() > before, "the menu is open")
        self.desktop.key(item)

    def inside(self):
        left, top, right, bottom = self.desktop.client()
        return left, top, right, bottom - 20

    def view(self):
        return self.desktop.shot().part(*self.inside())

    def awaitView(self, view, what):
        until(lambda: self.view() == view, what)

    # The walk

    def begin(self):
        desktop = self.desktop
        desktop.run([self.program], self.work)
        expect("Icon (128 x 128)" in desktop.say("xprop", "-id", desktop.window, "_NET_WM_ICON"), "the window has its icon")
        desktop.key("alt+b")
        desktop.awaitCaption("drawing picture for 'Regular mazes'")
        desktop.quietShot()

    def sheet(self):
        """The key that closes it is a key of the drawing, and paints nothing."""
        desktop, drawing = self.desktop, self.view()
        for close in ("l", "F1", "Escape"):
            desktop.key("F1")
            until(lambda: self.view() != drawing, "the sheet of keys is up")
            desktop.key(close)
            self.awaitView(drawing, close + " closes the sheet and does nothing else")
        desktop.key("l")
        until(lambda: self.view() != drawing, "L moves the square when no sheet is up")

    def wholeScreen(self):
        desktop = self.desktop
        before = desktop.client()
        desktop.key("F11")
        until(lambda: desktop.client()[3] == desktop.HEIGHT and desktop.client()[0] == 0, "the window fills the screen")
        desktop.key("F11")
        until(lambda: desktop.client() == before, "and is what it was")

    def maze(self):
        """Regular mazes are ticked, so F5 makes one; every step back has its key too."""
        desktop = self.desktop
        desktop.key("period")  # a colour that a maze grows in
        desktop.key(*["d"] * 6, *["s"] * 6)
        self.choose("s", "Right")
        desktop.key("Down", "Return")  # the computer creates mazes
        until(lambda: desktop.windows() == 1, "the menus are gone")
        desktop.key("F5")
        desktop.awaitCaption("placing start and finish")
        desktop.key("F6")
        desktop.awaitCaption("solved")
        desktop.key("F7")
        desktop.awaitCaption("placing start and finish")
        desktop.key("ctrl+n")
        until(lambda: "placing" in desktop.caption(), "another maze is made")
        desktop.key("F8")
        desktop.awaitCaption("drawing picture")

    def pages(self):
        """What is typed into Page setup stands on the page that Ctrl+P prints."""
        desktop = self.desktop
        before = desktop.quietShot().part(*self.inside())
        self.choose("f", "s")
        until(lambda: desktop.windows() == 1 and self.view() != before, "Page setup is up")
        desktop.quietShot()
        desktop.type("Cats")
        desktop.key("Return")
        self.awaitView(before, "it is accepted")
        desktop.key("ctrl+p")
        page = os.path.join(self.work, "gridwright-0001.pdf")
        until(lambda: os.path.exists(page), "a page is printed")
        words = subprocess.run(["pdftotext", page, "-"], capture_output=True, text=True, check=True).stdout
        expect("Cats" in words, "the page has its title: " + words)

    def preview(self):
        desktop = self.desktop
        before = desktop.quietShot().part(*self.inside())
        self.choose("f", "i")
        until(lambda: desktop.say("xdotool", "search", "--onlyvisible", "--name", "Preview"), "the preview is a window")
        desktop.quietShot()
        desktop.key("Escape")
        until(lambda: not desktop.say("xdotool", "search", "--onlyvisible", "--name", "Preview"), "Escape closes it")
        self.awaitView(before, "and leaves the drawing")

    def quit(self):
        desktop = self.desktop
        desktop.key("ctrl+q")
        desktop.awaitCaption("by Orrin Vale")
        desktop.key("ctrl+q")
        desktop.key("alt+q")
        until(lambda: desktop.program.poll() is not None, "the program ends")
        expect(desktop.program.returncode == 0, "it ends well")


def main(program):
    with tempfile.TemporaryDirectory(prefix="gridwright-keys-") as folder:
        work = os.path.join(folder, "work")
        os.makedirs(work)

        def begin(desktop):
            walk = Keys(desktop, work, os.path.abspath(program))
            return walk.begin, walk.sheet, walk.wholeScreen, walk.maze, walk.pages, walk.preview, walk.quit

        return walkThrough("keys", folder, begin)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
