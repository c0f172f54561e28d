#!/usr/bin/env python3
"""A book from the menu of the window, and the same book by the line that its panel shows: on a desktop with fonts,
scale and language of its own. Then a book that is cancelled, and one whose window is closed in the middle.

    book.py GRIDWRIGHT GRIDWRIGHT-BOOK
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time

from desktop import Failed, until, walkThrough


def expect(holds, what):
    if not holds:
        raise Failed("not so: " + what)


class Book:
    def __init__(self, desktop, work, program, command):
        self.desktop, self.work, self.program, self.command = desktop, work, program, command

    def files(self):
        """What there is of books, whole or not."""
        return sorted(name for name in os.listdir(self.work) if name.startswith(("book-", ".book", "sheet-")))

    def open(self):
        before = self.desktop.windows()
        self.desktop.key("alt+f")
        until(lambda: self.desktop.windows() > before, "the menu is open")
        drawing = self.desktop.quietShot()
        self.desktop.key("b")
        self.desktop.quietShot()
        if self.desktop.windows() > before:
            self.desktop.key("m")  # no item has that letter
        until(lambda: self.desktop.windows() == before, "the menu is gone")
        until(lambda: self.desktop.shot().data != drawing.data, "the panel is up")
        self.desktop.quietShot()

    def begin(self):
        desktop = self.desktop
        with open(os.path.join(self.work, "names.txt"), "w", encoding="utf-8") as names:
            names.write("Mia\nZoë\n")
        speech = os.path.join(desktop.folder, "speech")
        os.makedirs(speech)
        subprocess.run(["localedef", "-i", "de_DE", "-f", "UTF-8", os.path.join(speech, "de_DE.UTF-8")], check=True)
        desktop.environment.update(LOCPATH=speech, LC_ALL="de_DE.UTF-8", QT_QPA_PLATFORMTHEME="gtk3",
                                   QT_SCALE_FACTOR="1.5")
        fonts = os.path.join(desktop.environment["HOME"], ".config", "gtk-3.0")
        os.makedirs(fonts)
        with open(os.path.join(fonts, "settings.ini"), "w", encoding="utf-8") as settings:
            settings.write("[Settings]\ngtk-font-name=DejaVu Serif 11\ngtk-application-prefer-dark-theme=1\n")
        desktop.run([self.program], self.work)
        desktop.key("alt+b")
        desktop.awaitCaption("drawing picture")
        desktop.key("period", *["d"] * 9, *["s"] * 9)  # colours that a maze grows in
        desktop.quietShot()

    def make(self):
        desktop = self.desktop
        self.open()
        desktop.type("3")
        desktop.key("alt+n")
        desktop.type("names.txt")
        desktop.key("alt+l")
        desktop.type("Bob's mazes")
        desktop.key("alt+y")
        self.line = until(lambda: self.clipboard("cd "), "the line is copied")
        expect(self.files() == ["book-1.bmp", "book-1.maze"], "what the line names is there: %s" % self.files())
        desktop.key("alt+k")
        until(lambda: "book-1.pdf" in self.files(), "the book is there")

    def clipboard(self, begin):
        try:
            said = subprocess.run(["xclip", "-selection", "clipboard", "-o"], env=self.desktop.environment,
                                  capture_output=True, text=True, timeout=5).stdout
        except subprocess.TimeoutExpired:
            return None
        return said if said.startswith(begin) else None

    def same(self):
        """In a terminal that knows nothing of the window's desktop."""
        book, kept = os.path.join(self.work, "book-1.pdf"), os.path.join(self.work, "kept.pdf")
        os.rename(book, kept)
        environment = {"PATH": os.path.dirname(self.command) + ":" + os.environ["PATH"], "HOME": self.work}
        subprocess.run(["sh", "-c", self.line], env=environment, check=True, cwd="/", stdout=subprocess.DEVNULL)
        with open(book, "rb") as one, open(kept, "rb") as other:
            expect(one.read() == other.read(), "the book is the command's, by the line " + self.line)
        expect("9 mazes" in subprocess.run(["pdfinfo", book], capture_output=True, text=True).stdout, "it has nine")

    def long(self):
        self.open()
        before = self.files()
        self.desktop.key("ctrl+a")
        self.desktop.type("90000")
        self.desktop.key("Return")
        until(lambda: "book-2.maze" in self.files(), "the drawing is saved")
        return before

    def cancel(self):
        """Tab leads from the Canvas to what the status line has: Pages, then Cancel."""
        before = self.long()
        self.desktop.key("Tab", "Tab", "space")
        until(lambda: self.files() == before, "nothing is left of a book that is cancelled")

    def close(self):
        before = self.long()
        began = time.monotonic()
        self.desktop.key("alt+F4")
        until(lambda: self.desktop.program.poll() is not None, "the program ends")
        took = time.monotonic() - began
        print(f"the window was closed within {took:.2f} s")
        expect(self.desktop.program.returncode == 0, "it ends well")
        expect(self.files() == before, "nothing is left of its book: %s" % self.files())


def main(program, command):
    if shutil.which("xclip") is None:
        print("missing: xclip", file=sys.stderr)
        return 1
    with tempfile.TemporaryDirectory(prefix="gridwright-book-") as folder:
        work = os.path.join(folder, "work")
        os.makedirs(work)

        def begin(desktop):
            walk = Book(desktop, work, os.path.abspath(program), os.path.abspath(command))
            return walk.begin, walk.make, walk.same, walk.cancel, walk.close

        return walkThrough("book", folder, begin)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
