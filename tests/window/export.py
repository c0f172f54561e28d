#!/usr/bin/env python3
"""Takes the picture elsewhere as a person does: Ctrl+C and what another program pastes, File, Export, and the
keys of a text box that stay its own.

    export.py GRIDWRIGHT
"""
import os
import re
import subprocess
import sys
import tempfile

from desktop import Failed, until, walkThrough


class Picture:
    """A picture of any format; of a larger one every so many pixels."""

    def __init__(self, data, scale=1):
        told = subprocess.run(["convert", "-", "-depth", "8", "-sample", f"{100 / scale}%", "ppm:-"], input=data,
                              capture_output=True, check=True).stdout
        head = re.match(rb"P6\s(\d+)\s(\d+)\s255\s", told)
        self.width, self.height = int(head[1]), int(head[2])
        self.data = told[head.end():]

    def row(self, y):
        return self.data[3 * y * self.width:3 * (y + 1) * self.width]


class Exports:
    def __init__(self, desktop, work, program):
        self.desktop, self.work, self.program = desktop, work, program

    def path(self, name):
        return os.path.join(self.work, name)

    def pasted(self, target):
        return subprocess.run(["xclip", "-selection", "clipboard", "-t", target, "-o"], capture_output=True,
                              env=self.desktop.environment).stdout

    def isShown(self, image):
        """Whether the window shows just this picture somewhere below its menus."""
        shot = self.desktop.quietShot()
        left, top, right, bottom = self.desktop.client()
        width, height = image.width, image.height
        rows = [image.row(y) for y in range(height)]
        return any(shot.part(x, y, x + width, y + height) == rows
                   for y in range(top, bottom - height + 1) for x in range(left, right - width + 1))

    def openPanel(self):
        desktop = self.desktop
        before = desktop.quietShot().data
        desktop.key("alt+f")
        until(lambda: desktop.windows() > 1, "the menu is open")
        desktop.key("x")
        until(lambda: desktop.windows() == 1 and desktop.quietShot().data != before, "the panel is up")

    # The walk

    def begin(self):
        desktop = self.desktop
        desktop.run([self.program], self.work)
        desktop.key("alt+b")
        desktop.awaitCaption("drawing picture for 'Regular mazes'")
        desktop.key("period", *["d"] * 9, *["s"] * 6, *["l"] * 5)
        desktop.quietShot()

    def copy(self):
        self.desktop.key("ctrl+c")
        until(lambda: self.pasted("image/png"), "a picture can be pasted")
        self.copied = Picture(self.pasted("image/png"))
        if not self.isShown(self.copied):
            raise Failed("what is pasted is not what the window shows")
        if b"<svg" not in self.pasted("image/svg+xml"):
            raise Failed("no SVG can be pasted")

    def export(self):
        for name in ("cat.png", "cat.svg", "cat.pdf"):
            self.openPanel()
            self.desktop.type(name)
            self.desktop.key("Return")
            until(lambda: os.path.exists(self.path(name)), name + " is there")
        drawn = subprocess.run(["rsvg-convert", self.path("cat.svg")], capture_output=True, check=True).stdout
        if Picture(drawn).data != self.copied.data:
            raise Failed("the SVG is another picture")
        with open(self.path("cat.png"), "rb") as file:
            large = file.read()
        scale = Picture(large).width // self.copied.width
        if scale < 2 or Picture(large, scale).data != self.copied.data:
            raise Failed("the PNG is another picture")

    def keysOfABox(self):
        self.openPanel()
        self.desktop.key("ctrl+c")
        until(lambda: self.pasted("UTF8_STRING") == b"cat-2.pdf", "the name in the box is copied")
        self.desktop.key("Escape")
        until(lambda: self.isShown(self.copied), "the panel is left")


def main(program):
    with tempfile.TemporaryDirectory(prefix="gridwright-export-") as folder:
        work = os.path.join(folder, "work")
        os.makedirs(work)

        def begin(desktop):
            walk = Exports(desktop, work, os.path.abspath(program))
            return walk.begin, walk.copy, walk.export, walk.keysOfABox

        return walkThrough("export", folder, begin)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
