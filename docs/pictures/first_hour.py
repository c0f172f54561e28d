#!/usr/bin/env python3
"""Makes the ten pictures of first-hour/ by taking the steps of a person's first hour in the real window.

    docs/pictures/first_hour.py build/release
"""
import os
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.join(HERE, "..", "..")
sys.path[:0] = [os.path.join(ROOT, "tests", "window")]
from desktop import Desktop, Failed, until  # noqa: E402

PICTURES = os.path.join(HERE, "first-hour")


class FirstHour(Desktop):
    WIDTH, HEIGHT = 1024, 768

    def keep(self, name):
        """The screen once it is quiet, in few colours, since it has few."""
        self.quietShot()
        self.keepNow(name)

    def keepNow(self, name):
        self.say("import", "-silent", "-window", "root", "+dither", "-colors", "48", "-define", "png:compression-level=9",
                 os.path.join(PICTURES, name + ".png"))

    def menu(self, letter, *keys):
        before = self.windows()
        self.key("alt+" + letter)
        until(lambda: self.windows() > before, "the menu is open")
        if keys:
            self.key(*keys)

    def choose(self, letter, *keys):
        self.menu(letter, *keys)


def first_hour(desktop, program, work):
    desktop.run([program], work)
    desktop.keep("01-title")
    desktop.key("alt+b")
    desktop.awaitCaption("drawing picture for 'Regular mazes'")
    desktop.keep("02-begun")
    desktop.key("F1")
    desktop.keep("03-keys")
    desktop.key("Escape")
    desktop.menu("f")
    desktop.keep("04-menu")
    desktop.key("Escape", "Escape")
    desktop.key("ctrl+d")
    desktop.quietShot()
    desktop.key("ctrl+8")
    desktop.quietShot()
    desktop.type("MIA")
    desktop.key("alt+w")
    desktop.keep("05-workshop")
    desktop.key("Escape")
    desktop.choose("o", "Return")
    desktop.quietShot()
    desktop.type("balloon")
    desktop.key("Return")
    desktop.quietShot()
    desktop.choose("f", "m")
    desktop.keep("06-letters")
    desktop.choose("o", *["Down"] * 7, "Return")  # Change wall size
    desktop.quietShot()
    desktop.type("5")
    desktop.key("Return")
    desktop.quietShot()
    desktop.key("F5")
    desktop.quietShot()
    desktop.key(*["Right", "Down", "Left", "Down", "Right"] * 40)
    desktop.keep("07-by-hand")
    desktop.hold("j", lambda: "placing" in desktop.caption(), "the computer has made the rest")
    desktop.awaitCaption("placing start and finish")
    desktop.key("F6")
    desktop.awaitCaption("solved")
    desktop.keep("08-solved")
    desktop.choose("f", "s")
    desktop.quietShot()
    desktop.type("The balloon")
    desktop.keep("09-page")
    desktop.key("Return")
    desktop.quietShot()
    desktop.choose("f", "g")  # White ground
    desktop.quietShot()
    desktop.choose("f", "i")
    desktop.keep("10-preview")


def main(build):
    os.makedirs(PICTURES, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="gridwright-hour-") as folder:
        desktop = FirstHour(folder)
        try:
            work = os.path.join(desktop.environment["HOME"], "drawings")
            os.makedirs(work)
            subprocess.run([sys.executable, os.path.join(ROOT, "examples", "make_pictures.py"), work], check=True)
            first_hour(desktop, os.path.abspath(os.path.join(build, "src", "platform", "qt", "gridwright")), work)
        except Failed as reason:
            desktop.say("import", "-silent", "-window", "root", "failed.png")
            raise SystemExit(f"{reason}: see failed.png")
        finally:
            desktop.end()


if __name__ == "__main__":
    main(sys.argv[1])
