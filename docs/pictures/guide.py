#!/usr/bin/env python3
"""Takes the steps of docs/guide.md in the real window, as they are written there, looks at the files that come of
them, and makes the pictures of guide/.

    docs/pictures/guide.py build/release [RECIPE...]
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.join(HERE, "..", "..")
sys.path[:0] = [os.path.join(ROOT, "tests", "window")]
from desktop import Desktop, Failed, until  # noqa: E402

PICTURES = os.path.join(HERE, "guide")
NAMES = ["Amélie", "Ben", "Chiara", "Deniz", "Emma", "Finn", "Greta", "Hugo", "Ida", "Jakub", "Lena", "Mia", "Noah",
         "Olga", "Paul", "Rosa", "Sami", "Tilda", "Umut", "Wanda"]
FEW = ["+dither", "-colors", "16", "-define", "png:compression-level=9"]  # a screen has few colours


class Person(Desktop):
    """Somebody at the window, with a folder of drawings and one of pictures."""
    WIDTH, HEIGHT = 900, 680

    def settle(self, folder, program):
        self.work = os.path.join(self.environment["HOME"], "drawings")
        self.brought = folder
        os.makedirs(self.work)
        self.binary = program

    def path(self, name):
        return os.path.join(self.work, name)

    def begin(self):
        """A window with an empty drawing."""
        self.run([self.binary], self.work)
        self.quietShot()
        self.key("alt+b")
        self.awaitCaption("drawing picture")
        self.quietShot()

    def leave(self):
        self.program.terminate()
        self.program.wait()

    def choose(self, menu, letter):
        before = self.windows()
        self.key("alt+" + menu)
        until(lambda: self.windows() > before, "the menu is open")
        self.key(letter)
        self.quietShot()

    def fill(self, box, text):
        """Goes to a box of a panel by its letter and writes into it."""
        self.key("alt+" + box, "ctrl+a")
        self.type(text)

    def next(self, words=""):
        """What the next box of a panel holds gives way."""
        self.key("Tab")
        if words:
            self.type(words)

    def file(self, name):
        """Says a file's name in Qt's dialog, which is there."""
        until(lambda: self.windows() > 1, "the dialog is open")
        self.quietShot()
        self.type(name)
        self.key("Return")
        until(lambda: self.windows() == 1, "the dialog is gone")
        self.quietShot()

    def letTheComputerCarve(self):
        self.key("F5")
        self.awaitCaption("creating")
        self.key("j")
        self.awaitCaption("placing start and finish")
        self.quietShot()

    def keep(self, name):
        self.quietShot()
        self.say("import", "-silent", "-window", "root", *FEW, os.path.join(PICTURES, name + ".png"))

    def awaitFile(self, name):
        until(lambda: os.path.exists(self.path(name)), name + " is there")
        return self.path(name)

    def pages(self, document):
        told = self.say("pdfinfo", document)
        return int(told.split("Pages:")[1].split()[0])

    def keepPages(self, name, document, first, last=None, across=1, dots=45):
        """Pages of a document beside and below each other."""
        last = last or first
        self.say("pdftoppm", "-png", "-r", str(dots), "-f", str(first), "-l", str(last), document, self.path("seen"))
        pages = sorted(os.path.join(self.work, each) for each in os.listdir(self.work) if each.startswith("seen-"))
        self.say("montage", *pages, "-tile", f"{across}x", "-geometry", "+4+4", "-background", "gray60", *FEW,
                 os.path.join(PICTURES, name + ".png"))
        for page in pages:
            os.remove(page)


def expect(condition, what):
    if not condition:
        raise Failed(what)


def names(person):
    with open(person.path("names.txt"), "w", encoding="utf-8") as text:
        text.write("\n".join(NAMES) + "\n")
    person.begin()
    person.choose("f", "b")
    person.key("alt+w")
    person.fill("n", "names.txt")
    person.fill("g", "1x2")
    person.fill("a", "none")
    person.fill("l", "My name is a maze")
    person.next("{picture}")
    person.keep("names-panel")
    person.key("Return")
    book = person.awaitFile("book-1.pdf")
    expect(person.pages(book) == 10, "twenty names, two on a page")
    words = person.say("pdftotext", book, "-")
    expect(all(name in words for name in NAMES), "each name is under its maze")
    person.keepPages("names-page", book, 1)


def photograph(person):
    person.begin()
    person.key("ctrl+o")
    person.file(os.path.join(person.brought, "photograph.jpg"))
    person.fill("c", "4")
    person.key("alt+l")
    person.type("n")
    person.keep("photograph-panel")
    person.key("alt+u")
    time.sleep(2)  # while the large picture is being made ready nothing changes on the screen
    person.quietShot()
    person.letTheComputerCarve()
    person.key("F6")
    person.awaitCaption("solved")
    person.choose("f", "x")
    person.fill("l", "photograph.png")
    person.key("Return")
    image = person.awaitFile("photograph.png")
    expect(int(person.say("identify", "-format", "%w", image)) > 1500, "it is as large as a page takes")
    person.say("convert", image, "-filter", "box", "-resize", "640x", "+dither", "-colors", "16",
               os.path.join(PICTURES, "photograph-maze.png"))
    person.key("ctrl+p")
    page = person.awaitFile("gridwright-0001.pdf")
    expect(person.pages(page) == 1, "the maze is one page")


def colouring(person):
    person.begin()
    person.choose("f", "b")
    person.key("alt+w")
    person.key("alt+d")
    person.file(os.path.join(person.brought, "colouring_page.png"))
    person.fill("x", "8")
    person.fill("a", "after")
    person.fill("l", "Find the way, then colour")
    person.next()
    person.key("Delete")
    person.keep("colouring-panel")
    person.key("Return")
    book = person.awaitFile("book-1.pdf")
    expect(person.pages(book) == 2, "a page, and its answer behind it")
    person.keepPages("colouring-pages", book, 1, 2, across=2)


def forty(person):
    person.begin()
    person.choose("f", "b")
    person.key("alt+w")
    for name in ("balloon.bmp", "cat.bmp", "snail.bmp"):
        person.key("alt+d")
        person.file(person.path(name))
    person.fill("z", "40")
    person.key("Tab", "Down")
    person.next("regular,3d,pipe")
    person.next("10,8")
    person.fill("g", "1x2")
    person.fill("a", "end")
    person.next("3x4")
    person.fill("l", "Forty ways")
    person.next("{n}")
    person.keep("forty-panel")
    person.key("Return")
    book = person.awaitFile("book-1.pdf")
    expect(person.pages(book) == 20 + 4, "forty mazes by two, and their answers by twelve")
    person.keepPages("forty-pages", book, 1)
    person.keepPages("forty-answers", book, 21)


def poster(person):
    person.begin()
    person.key("ctrl+o")
    person.file(person.path("balloon.bmp"))
    person.key("alt+l")
    person.type("n")
    person.quietShot()
    person.key("alt+u")
    person.quietShot()
    person.choose("o", "w")
    person.type("6")
    person.key("Return")
    person.quietShot()
    person.letTheComputerCarve()
    person.choose("f", "s")
    person.type("Who finds the way?")
    person.key("alt+i", "ctrl+a")
    person.type("3")
    person.key("Tab", "ctrl+a")
    person.type("2")
    person.keep("poster-setup")
    person.key("Return")
    person.quietShot()
    person.key("ctrl+p")
    sheets = person.awaitFile("gridwright-0001.pdf")
    expect(person.pages(sheets) == 6, "three sheets across, two down")
    person.key("F6")
    person.awaitCaption("solved")
    person.keepPages("poster-sheets", sheets, 1, 6, across=3, dots=16)


RECIPES = {recipe.__name__: recipe for recipe in (names, photograph, colouring, forty, poster)}


def main(build, *wanted):
    os.makedirs(PICTURES, exist_ok=True)
    program = os.path.abspath(os.path.join(build, "src", "platform", "qt", "gridwright"))
    with tempfile.TemporaryDirectory(prefix="gridwright-guide-") as brought:
        for maker in ("examples", os.path.join("tests", "pictures")):
            subprocess.run([sys.executable, os.path.join(ROOT, maker, "make_pictures.py"), brought], check=True)
        for name in wanted or RECIPES:
            with tempfile.TemporaryDirectory(prefix="gridwright-guide-") as folder:
                person = Person(folder)
                try:
                    person.settle(brought, program)
                    for picture in ("balloon.bmp", "cat.bmp", "snail.bmp"):
                        shutil.copy(os.path.join(brought, picture), person.work)
                    RECIPES[name](person)
                    print(name + ": as it is written", flush=True)
                except Failed as reason:
                    person.say("import", "-silent", "-window", "root", "failed.png")
                    raise SystemExit(f"{name}: {reason}: see failed.png")
                finally:
                    person.end()


if __name__ == "__main__":
    main(*sys.argv[1:])
