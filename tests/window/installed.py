#!/usr/bin/env python3
"""The first maze and a name, made by an ordinary person with the program that is installed in a root of its own.

    installed.py ROOT USER

To be run as root, who may change the root; the program runs as the user.
"""
import os
import subprocess
import sys
import tempfile

from desktop import Failed, until, walkThrough


def expect(holds, what):
    if not holds:
        raise Failed("not so: " + what)


class Installed:
    def __init__(self, desktop, root, user):
        self.desktop, self.root, self.user = desktop, root, user
        self.work = os.path.join(root, "home", user, "Documents", "Gridwright")

    def choose(self, title, *keys):
        before = self.desktop.windows()
        self.desktop.key("alt+" + title)
        until(lambda: self.desktop.windows() > before, "the menu is open")
        self.desktop.key(*keys)
        until(lambda: self.desktop.windows() == before, "the menu is gone")

    def enter(self, text):
        self.desktop.quietShot()
        self.desktop.type(text)
        self.desktop.key("Return")
        self.desktop.quietShot()

    def printed(self, number):
        page = os.path.join(self.work, f"gridwright-{number:04}.pdf")
        self.desktop.key("ctrl+p")
        until(lambda: os.path.exists(page), page + " is printed")
        said = subprocess.run(["pdfinfo", page], capture_output=True, text=True, check=True).stdout
        expect("Pages:           1" in said, "it is a page: " + said)

    # The walk

    def start(self):
        inside = ["env", "-i", "PATH=/usr/bin:/bin", "LC_ALL=C.UTF-8", "HOME=/home/" + self.user,
                  "DISPLAY=" + self.desktop.environment["DISPLAY"], "gridwright-start"]
        self.desktop.run(["chroot", "--userspec=" + self.user, self.root, *inside], "/")
        expect(os.path.exists(os.path.join(self.work, "balloon.bmp")), "the examples are laid out")
        self.desktop.key("alt+b")
        self.desktop.awaitCaption("drawing picture for 'Regular mazes'")
        self.desktop.quietShot()

    def firstMaze(self):
        self.choose("o", "Return")
        self.enter("balloon")
        self.choose("o", *["Down"] * 7, "Return")
        self.enter("8")
        self.choose("s", "Right", "Down", "Return")  # the computer creates mazes
        self.desktop.key("F5")
        self.desktop.awaitCaption("placing start and finish")
        self.choose("f", "g")  # White ground
        self.printed(1)

    def answer(self):
        self.desktop.key("F6")
        self.desktop.awaitCaption("solved")
        self.printed(2)

    def name(self):
        desktop = self.desktop
        desktop.key("F8")
        desktop.awaitCaption("drawing picture")
        desktop.quietShot()
        desktop.key("ctrl+d")
        desktop.quietShot()
        desktop.key("alt+n")  # a new sheet
        desktop.quietShot()
        desktop.key("ctrl+8")
        desktop.quietShot()
        desktop.type("MIA")
        desktop.key("alt+w")
        desktop.quietShot()
        desktop.key("ctrl+Return")
        desktop.quietShot()
        desktop.key("F5")
        desktop.awaitCaption("placing start and finish")
        self.printed(3)

    def quit(self):
        desktop = self.desktop
        desktop.key("ctrl+q")
        desktop.awaitCaption("by Orrin Vale")
        desktop.key("alt+q")
        until(lambda: desktop.program.poll() is not None, "the program ends")
        expect(desktop.program.returncode == 0, "it ends well")


def main(root, user):
    with tempfile.TemporaryDirectory(prefix="gridwright-installed-") as folder:

        def begin(desktop):
            walk = Installed(desktop, os.path.abspath(root), user)
            return walk.start, walk.firstMaze, walk.answer, walk.name, walk.quit

        return walkThrough("installed", folder, begin)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
