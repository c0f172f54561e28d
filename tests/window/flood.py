#!/usr/bin/env python3
"""Floods the window with keys, clicks, drags, drops and pastes in every phase, while it is resized and minimised, and
closes it at any moment: it neither dies nor loses the keyboard, its menus open afterwards, and the drawing is kept.

    flood.py GRIDWRIGHT DRAG_SOURCE [SEED [INPUTS [CLOSES]]]

INPUTS are those of one flood, in each of nine states. A failure says the seed; the same seed gives the same inputs.
"""
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

import desktop as desktops
from arrivals import GREEN, NAVY, PAPER, Arrivals, paint
from desktop import Failed, until, walkThrough

# What a person's hands may hit.
LETTERS = list("abcdefghijklmnopqrstuvwxyz0123456789") + ["period", "comma", "slash", "space", "Return", "Escape", "Tab",
                                                          "Left", "Right", "Up", "Down", "BackSpace", "Menu", "F1", "F2"]
CHORDS = ["ctrl+z", "ctrl+y", "ctrl+shift+z", "ctrl+v", "ctrl+d", "ctrl+n", "F5", "F6", "F7", "F8", "alt+o", "alt+m",
          "alt+s", "alt+t", "alt+p", "alt+f", "shift+space"]


YELLOW = (255, 255, 0)


class Flood:
    def __init__(self, desktop, folder, program, source, seed, inputs, closes):
        self.desktop, self.inputs, self.closes, self.program = desktop, inputs, closes, program
        self.random = random.Random(seed)
        self.hand = Arrivals(desktop, folder, program, source)
        self.folder = folder
        self.quits = 0

    # What is always so

    def lives(self, what):
        """Who floods a window by chance finds its way to "Quit Program" too: it is started again then."""
        ended = self.desktop.program.poll()
        if ended == 0:
            self.quits += 1
            self.open()
        elif ended is not None:
            raise Failed(f"{what}: the program has ended with {ended}")

    def open(self):
        self.hand.start(self.hand.path("navy.png"))
        self.desktop.awaitCaption("drawing picture")

    def leavesAll(self):
        """Whatever is open is left, by a person's key."""
        for _ in range(12):
            self.desktop.key("Escape")
            if self.desktop.windows() == 1:
                return
        until(lambda: self.desktop.key("Escape") or self.desktop.windows() <= 1, "Escape leaves what is open")

    def answers(self, what):
        """It lives, has the keyboard, and a menu opens and goes."""
        desktop = self.desktop
        self.lives(what)
        desktop.say("xdotool", "windowmap", desktop.window)
        desktop.say("xdotool", "windowactivate", "--sync", desktop.window)
        self.leavesAll()
        until(lambda: desktop.say("xdotool", "getwindowfocus").strip() == desktop.window, what + ": it has the keyboard")
        for letter in "of":
            if "by Orrin Vale" in desktop.caption():
                break  # the title has no menus
            desktop.key("alt+" + letter)
            until(lambda: desktop.windows() > 1, f"{what}: the menu of {letter} opens")
            self.leavesAll()
        self.lives(what)

    # The flood

    def somewhere(self):
        left, top, right, bottom = self.desktop.client()
        return str(self.random.randrange(left, max(right, left + 1))), str(self.random.randrange(top, max(bottom, top + 1)))

    def presses(self):
        keys = self.random.choices(LETTERS, k=20) + self.random.choices(CHORDS, k=3)
        self.random.shuffle(keys)
        self.desktop.say("xdotool", "key", "--delay", "1", *keys)
        return len(keys)

    def clicks(self):
        words = []
        for _ in range(6):
            words += ["mousemove", *self.somewhere(), "click", self.random.choice("1113")]
        self.desktop.say("xdotool", *words)
        return 6

    def drags(self):
        self.desktop.say("xdotool", "mousemove", *self.somewhere(), "mousedown", "1", "mousemove", *self.somewhere(),
                         "mousemove", *self.somewhere(), "mouseup", "1")
        return 1

    def drops(self):
        self.hand.drag(self.hand.path("green.png"))
        return 1

    def pastes(self):
        self.desktop.say("xdotool", "key", "--delay", "1", *["ctrl+v"] * 4)
        return 4

    def resizes(self):
        size = self.random.randrange(120, 900), self.random.randrange(120, 700)
        self.desktop.say("xdotool", "windowsize", self.desktop.window, *map(str, size))
        return 1

    def minimises(self):
        desktop = self.desktop
        desktop.say("xdotool", "windowminimize", desktop.window)
        desktop.say("xdotool", "windowmap", desktop.window, "windowactivate", "--sync", desktop.window)
        return 1

    def pour(self, what):
        ways = [self.presses] * 6 + [self.clicks] * 3 + [self.drags, self.pastes, self.resizes, self.resizes, self.minimises]
        done = 0
        if self.random.random() < 0.3:
            done += self.drops()
        while done < self.inputs:
            done += self.random.choice(ways)()
            self.lives(what)

    # The states it is poured over

    def toTheDrawing(self):
        desktop = self.desktop
        self.answers("on the way back")

        def isThere():
            caption = desktop.caption()
            if "drawing picture" in caption:
                return True
            if "by Orrin Vale" in caption:
                desktop.key("Escape", "alt+b")
            elif "Editing" in caption:
                desktop.key("Escape", "alt+t", "Up", "Return")  # Exit pattern editor
            else:
                desktop.key("Escape", "Escape", "F8")
            return False
        until(isThere, "the drawing is there")

    def makes(self):
        desktop = self.desktop
        desktop.key("alt+s", "Right", "Down", "Return")  # the computer creates mazes
        desktop.key("F5")

    def statesOf(self):
        desktop = self.desktop
        return {
            "title": lambda: desktop.key("ctrl+q"),
            "drawing": lambda: None,
            "carving by hand": lambda: desktop.key("F5"),
            "making": self.makes,
            "ends": lambda: (self.makes(), desktop.key("F7")),
            "solving": lambda: (self.makes(), desktop.key("F6")),
            "patterns": lambda: desktop.key("alt+t", "Return"),
            "workshop": lambda: desktop.key("ctrl+d"),
            "a panel": lambda: desktop.key("alt+o", "Return"),
        }

    def floods(self):
        self.open()
        self.hand.copy("green.png")
        for what, enter in self.statesOf().items():
            self.toTheDrawing()
            enter()
            self.pour(what)
            self.answers("after a flood of " + what)
        self.toTheDrawing()
        self.desktop.program.send_signal(signal.SIGTERM)
        until(lambda: self.desktop.program.poll() is not None, "it ends")
        if self.desktop.program.returncode < 0:
            raise Failed(f"it ended with {self.desktop.program.returncode}")
        print(f"quit and started again {self.quits} times", flush=True)

    # Closing at any moment

    def begun(self, number):
        """A program of its own folder, with a picture and two strokes that lie in no file."""
        desktop = self.desktop
        work = os.path.join(self.folder, f"close-{number}")
        os.makedirs(work)
        desktop.run([self.program, self.hand.path("navy.png")], work)
        desktop.awaitCaption("drawing picture")
        self.hand.await_(NAVY, "the picture is there")
        left, top, _, _ = desktop.client()

        def isPainted(cells):
            shot = desktop.shot()  # below the menus, whose height nobody tells
            return sum(shot.at(left + 25, y) == YELLOW for y in range(top + 15, top + 90)) > 10 * cells - 6
        for cells, key in enumerate("lk", 1):  # the second key of a pump would be dropped
            desktop.key(key)
            until(lambda: isPainted(cells), f"stroke {cells} is painted")
        return work

    def close(self):
        desktop = self.desktop
        if self.random.random() < 0.3:
            desktop.program.send_signal(signal.SIGTERM)
        for _ in range(20):
            if desktop.program.poll() is not None:
                return
            desktop.say("xdotool", "key", "Escape", "alt+F4")
            time.sleep(0.2)
        until(lambda: desktop.program.poll() is not None, "the closed window is gone")

    @staticmethod
    def fileOf(work, name):
        try:
            with open(os.path.join(work, name), "rb") as file:
                return file.read()
        except FileNotFoundError:
            return b""

    def keeps(self, work, drawing):
        """Whether last-drawing.bmp holds the drawing, with what has grown of a maze on its navy ground; the drawing that
        was left for a maze lies in drawing1.bmp without it."""
        kept = self.fileOf(work, "last-drawing.bmp")
        if kept == drawing:
            return True
        navy = bytes(reversed(NAVY))
        begin = 54  # the head of a file with 24 bits a pixel
        return (len(kept) == len(drawing) and self.fileOf(work, "drawing1.bmp") == drawing and
                all(kept[at:at + 3] == drawing[at:at + 3] or drawing[at:at + 3] == navy
                    for at in range(begin, len(drawing), 3)))

    def closings(self):
        moments = [[], ["F5"], ["alt+s", "Right", "Down", "Return", "F5"], ["alt+s", "Right", "Down", "Return", "F5", "F7"],
                   ["alt+s", "Right", "Down", "Return", "F5", "F6"], ["alt+o"], ["alt+o", "Return"], ["ctrl+d"],
                   ["alt+t", "Return"]]
        drawing = b""
        for number in range(self.closes + 1):
            work = self.begun(number)
            if number > 0:
                self.desktop.key(*(self.random.choice(moments) or ["Shift_L"]))
                time.sleep(self.random.random())
            self.close()
            if self.desktop.program.returncode != 0:
                raise Failed(f"close {number}: it ended with {self.desktop.program.returncode}")
            drawing = drawing or self.fileOf(work, "last-drawing.bmp")
            if not drawing or not self.keeps(work, drawing):
                shutil.copytree(work, os.path.abspath(f"window-flood-close-{number}"), dirs_exist_ok=True)
                raise Failed(f"close {number}: the drawing is lost")
            leftOver = [name for name in os.listdir(work) if name.endswith(".building")]
            if leftOver:
                raise Failed(f"close {number}: left behind: {leftOver}")
            shutil.rmtree(work)
            if number % 20 == 0:
                print(f"{number} closed", flush=True)


def main(program, source, seed="1", inputs="60", closes="2"):
    print(f"seed {seed}, {inputs} inputs a flood, {closes} closings, scale {os.environ.get('QT_SCALE_FACTOR', '1')}", flush=True)
    scale = os.environ.get("QT_SCALE_FACTOR", "1")
    desktops.Desktop.WIDTH, desktops.Desktop.HEIGHT = round(900 * float(scale)), round(740 * float(scale))
    with tempfile.TemporaryDirectory(prefix="gridwright-flood-") as folder:
        paint(os.path.join(folder, "navy.png"), PAPER, NAVY)
        paint(os.path.join(folder, "green.png"), PAPER, GREEN)

        def begin(desktop):
            desktop.environment["QT_SCALE_FACTOR"] = scale
            flood = Flood(desktop, folder, os.path.abspath(program), os.path.abspath(source), int(seed), int(inputs),
                          int(closes))
            return (flood.floods, flood.closings) if flood.closes else (flood.floods,)

        return walkThrough("flood", folder, begin)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
