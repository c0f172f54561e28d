"""The road of the README's first maze and of a drawing by keys, by ear: the program is found, driven and followed by
what Debian's screen reader says of it, from its title to its end. No picture is looked at.

  ears.py PROGRAM FOLDER_WITH_BALLOON FILE

What was pressed and heard goes to the file: keys and items in brackets, and under them what was said.
"""
import os
import shutil
import sys
import tempfile
import time

from desktop import Desktop, Failed, until, walkThrough

HERE = os.path.dirname(os.path.abspath(__file__))
MOST_ENTRIES = 40  # of a menu
MOST_NAMES = 150  # of labels and the like, on the whole road; a maze once sent hundreds
SILENCE = 0.5  # seconds after which what an item has to say is said


class Reader:
    """The screen reader, and what it has been heard to say."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.log = os.path.join(desktop.folder, "reader.log")
        self.voice = os.path.join(desktop.folder, "spoken")
        self.at = 0  # how many lines were listened to
        self.kept = []  # what was done, and what was heard of it
        self.heard = []
        open(self.voice, "w").close()
        desktop.environment.update(GRIDWRIGHT_SPOKEN=self.voice, PYTHONPATH=os.path.join(HERE, "voiceless"),
                                   DBUS_SESSION_BUS_ADDRESS=self._bus())
        self.process = desktop._start(["orca", "--debug-file", self.log])
        try:
            self.hear("Screen reader on", keep=False)
        except Failed:
            raise Failed("orca does not start; does another one run?")

    def _bus(self):
        reading, writing = os.pipe()
        self.desktop._start(["dbus-daemon", "--session", "--nofork", f"--print-address={writing}"], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as told:
            return told.readline().strip()

    def lines(self):
        with open(self.voice, encoding="utf-8") as spoken:
            return [line.rstrip("\n") for line in spoken.read().split("\n")[:-1]]

    def hear(self, words, keep=True):
        """Waits for a line that begins so, after the one before. Returns the line."""
        def found():
            for place, line in enumerate(self.lines()[self.at:], self.at):
                if line.startswith(words):
                    self.at = place + 1
                    return line
            return None
        try:
            line = until(found, "it is said: " + words)
        except Failed as reason:
            raise Failed(f"{reason}; it was said: {self.lines()[self.at:]}")
        if keep:
            self.heard.append(line)
            self.kept.append("  " + line.replace(self.desktop.folder, ""))
        return line

    def quiet(self):
        """Waits until nothing is being said. Returns what was said since."""
        until(lambda: self.lines(), "something is said")
        while True:
            count = len(self.lines())
            time.sleep(SILENCE)
            if len(self.lines()) == count:
                break
        said, self.at = self.lines()[self.at:], count
        return said

    def close(self):
        """Ends the reader, whose log comes in blocks, and holds the log against what was heard."""
        self.process.terminate()
        self.process.wait()
        with open(self.log, encoding="utf-8", errors="replace") as log:
            lines = log.read().split("\n")
        spoken = iter(line for line in lines if " - SPEECH OUTPUT: '" in line)
        for heard in self.heard:
            if not any(f"SPEECH OUTPUT: '{heard}'" in line for line in spoken):
                raise Failed("the reader's log does not hold, in its place: " + heard)
        if any("AttributeError" in line for line in lines):
            raise Failed("the reader could not make sense of an event; see its log")
        names = sum("EVENT MANAGER: object:property-change:accessible-name" in line for line in lines)
        if names > MOST_NAMES:
            raise Failed(f"{names} names were sent")
        print(f"{len(self.heard)} lines heard as awaited; {names} names were sent")

    def do(self, *keys):
        self.kept.append("[" + " ".join(keys) + "]")
        self.desktop.key(*keys)

    def say(self, text):
        """Types it over what is offered, letter by letter as it is read back."""
        self.kept.append(f"[{text}]")
        self.quiet()
        for letter in text:
            self.desktop.key(letter)
            self.hear(letter, keep=False)
        self.quiet()

    def choose(self, letter, *captions):
        """Opens a menu by its letter and goes down, into submenus and to the item, by what is read of them."""
        self.kept.append("[" + " › ".join(captions) + "]")
        said = self._open(letter)
        for caption in captions[1:-1]:
            self._goTo(caption, said)
            self.desktop.key("Right")
            said = self.quiet()
        self._goTo(captions[-1], said)
        self.desktop.key("Return")

    def _open(self, letter):
        """Opens a menu. Each key goes to the screen reader first, and where that is slow the release of Alt may come
        after the menu and close it again: then it is opened once more. Returns what is read of its first item."""
        for _ in range(6):
            self.quiet()
            before = self.desktop.windows()
            self.desktop.key("alt+" + letter)
            said = self.quiet()
            if self.desktop.windows() > before:
                return said
        raise Failed("the menu does not stay open: " + letter)

    def _goTo(self, caption, said):
        for _ in range(MOST_ENTRIES):
            if any(line.startswith(caption) for line in said):
                return
            self.desktop.key("Down")
            said = self.quiet()
        raise Failed("no item is read as " + caption + " in " + str(self.lines()[-MOST_ENTRIES:]))


class Road:
    def __init__(self, desktop, reader):
        self.desktop, self.reader = desktop, reader

    def begin(self):
        r = self.reader
        r.hear("Gridwright-by Orrin Vale; title; Tab leads through its buttons; Click to Begin")
        r.do("Tab")
        r.hear("Click to Begin push button")
        r.do("space")
        r.hear("drawing picture for 'Regular mazes'; yellow; 1 cell; row 1, column 1; drawing on")
        self.desktop.quietShot()  # the window is being maximised, which would close a menu

    def firstMaze(self):
        r = self.reader
        r.choose("o", "Options", "Import Bitmap")
        r.hear("Please choose the name of the drawing to import: text")
        r.say("balloon")
        r.do("Return")
        r.hear("Picture canvas")
        r.choose("o", "Options", "Change wall size")
        r.hear("Please type in a wall size (5 to 50): text")
        r.say("8")
        r.do("Return")
        r.hear("walls 8")
        r.choose("s", "Maze Settings", "Maze creation", "(2)-Computer creates maze")
        r.choose("o", "Options", "Create regular 2-d mazes inside drawing")
        r.hear("placing start and finish; start at row ")
        r.choose("p", "Print-Options", "print the window")
        r.hear("the window is printed to ")
        r.do("F6")
        r.hear("computer has solved maze; the way has ")
        r.do("F2")
        r.hear("computer has solved maze; walls 8; the way has ")

    def drawing(self):
        r = self.reader
        r.do("F8")
        r.hear("drawing picture for 'Regular mazes'; yellow; 1 cell; row 1, column 1; drawing on")
        r.choose("o", "Options", "New Gridwright Drawing", "regular 2-d mazes")
        r.hear("Picture canvas")
        r.do("slash")
        r.hear("drawing off")
        r.do("period")
        r.hear("navy")
        r.do("l")
        r.hear("row 1, column 2")
        r.do("k")
        r.hear("row 2, column 2")
        r.do("slash")
        r.hear("drawing on")
        r.do("d")
        r.hear("2 x 1 cells; row 2, column 2")
        r.do("s")
        r.hear("2 x 2 cells; row 2, column 2")
        r.do("Right")
        r.hear("row 2, column 4")

    def colours(self):
        r = self.reader
        r.choose("o", "Options", "Edit Colors")
        r.hear('Click the left button to change a color from "border" to "background" (right click changes "maze" '
               "colors); Background: black, navy, green, teal, maroon, purple, olive and silver; Border Color: gray, ")
        r.do("Right")
        r.hear("navy, Background check box checked")
        r.do("Right")
        r.hear("green, Background check box checked")
        r.do("space")
        r.hear("green, Border Color")
        r.do("Escape")
        r.hear("navy; 2 x 2 cells; row 2, column 4; drawing on")

    def carving(self):
        r = self.reader
        r.choose("s", "Maze Settings", "Maze creation", "(1)-User creates maze")
        r.do("F5")
        r.hear("creating 2d-maze; you carve; row 2, column ")
        r.do("Right")
        r.hear("row 2, column 3; open ")
        r.do("Up")
        r.hear("bump up; open ")
        r.do("j")
        r.hear("placing start and finish; start at row 2, column 2; finish at row ")
        r.do("l")
        r.hear("start at row 2, column 3")
        r.do("j")
        r.hear("start at row 2, column 2")

    def playing(self):
        r = self.reader
        r.choose("s", "Maze Settings", "Play options", "(1)-easy")
        r.do("F6")
        line = r.hear("user is solving maze; row 2, column 2; open ")
        way = next(way for way in ("right", "down") if way in line)
        wall = next(wall for wall in ("Left", "Up") if wall.lower() not in line)
        r.do(way.capitalize())
        r.hear("row 2, column 3; open left" if way == "right" else "row 3, column 2; open ")
        r.do("Left" if way == "right" else "Up")
        r.hear("row 2, column 2; open " + way)
        r.do(wall)
        r.hear(f"bump {wall.lower()}; open ")
        r.do("F2")
        r.hear("user is solving maze; walls 8; row 2, column 2; open ")

    def quit(self):
        r = self.reader
        r.do("ctrl+q")
        r.hear("Gridwright-by Orrin Vale; title")
        r.close()


def main(program, pictures, file):
    with tempfile.TemporaryDirectory(prefix="gridwright-ears-") as folder:
        work = os.path.join(folder, "work")
        os.makedirs(work)
        shutil.copy(os.path.join(pictures, "balloon.bmp"), work)
        readers = []

        def begin(desktop):
            reader = Reader(desktop)
            readers.append(reader)
            desktop.run([os.path.abspath(program)], work)
            road = Road(desktop, reader)
            return (road.begin, road.firstMaze, road.drawing, road.colours, road.carving, road.playing, road.quit)

        status = walkThrough("ears", folder, begin)
        for reader in readers:
            with open(file, "w", encoding="utf-8") as kept:
                kept.write("\n".join(reader.kept) + "\n")
            if status != 0 and os.path.exists(reader.log):
                shutil.copy(reader.log, file + ".log")
        return status


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
