#!/usr/bin/env python3
"""Sessions on disks that give up, and programs that are killed: what was saved is there whole afterwards.

faults.py --headless PROGRAM --book PROGRAM --disk LIBRARY [--points N] [--kills N] [--seed N]

A session saves, replaces, prints and keeps. It is run once as it is, which tells how often it changes anything on
the disk, and what each file holds after each save. Then again and again, and from the n-th change on the disk is
full, or read-only; or the n-th alone fails; or the program is killed there; or all files of its folder vanish. After
each the program is started once more on a sound disk, and then:

  what was saved before is there whole, or what was saved over it, and of a pair both;
  nothing is there that a session without a fault would not have left;
  each picture, step file and document is whole.

--points N   at N moments of each kind of fault, drawn by the seed; all of them without it
--kills N    kills at N moments of sessions that only save, print, save patterns, keep or make a book: every other one by the
             clock, the rest amid a change of the disk
"""
import argparse
import itertools
import json
import os
import random
import re
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import typing
from pathlib import Path

NAVY, BLUE = 0x800000, 0xFF0000  # as a file has them: blue first
SETS = {"alpha": "13", "beta": "31"}
DATA = "data/gridwright"
PICTURES_IN_HAND = {"title.bmp", "drawing1.bmp", "drawing1b.bmp", "drawing2.bmp", "drawing3.bmp", "drawing4.bmp"}
KEPT = {"last-drawing.bmp", "last-drawing.bmp~", "last-sheet.bmp", "last-sheet.bmp~"}


def bitmap(frame, width=120, height=80):
    """Ground for a maze in a frame of so many pixels, as a 24-bit file."""
    rows = []
    for y in range(height):
        row = b"".join((NAVY if frame <= x < width - frame and frame <= y < height - frame else BLUE).to_bytes(3, "big")
                       for x in range(width))
        rows.append(row + bytes(-len(row) % 4))
    pixels = b"".join(rows)
    return (b"BM" + struct.pack("<IHHI", 54 + len(pixels), 0, 0, 54) +
            struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(pixels), 2835, 2835, 0, 0) + pixels)


def pattern_set(steps):
    return "".join("".join(f"{step}\r\n" for step in steps) + "9999,88\r\n" for _ in range(4)).encode()


class Words:
    """A script; with references, a copy is made of each file as soon as it is saved."""

    def __init__(self, references=False):
        self.lines = ["seed 1", "click Command2", "until phase 0"]
        self.references = references
        self.saves = 0

    def say(self, *lines):
        self.lines += lines
        return self

    def saved(self, *names):
        self.saves += 1
        if self.references:
            self.lines += [f"copyfile {name} {name}.ref{self.saves}" for name in names]
        return self

    def take(self, name):
        return self.say("menu importdrawing", f'type Text8 "{name}"', "enter Text8")

    def save(self, name):
        return self.say("menu sdrawing", f'type text1 "{name}"', "enter text1").saved(f"{name}.maze", f"{name}.bmp")

    def save_set(self, name):
        return self.say("menu savepatterns", f'type Text5 "{name}"', "enter Text5").saved(f"{name}.pat")

    def load_set(self, name):
        return self.say("menu loadpatterns", f'type Text6 "{name}"', "enter Text6")

    def job(self):
        return self.say("menu cgenerate", "menu printnosolutions", 'type Text3 "2"', "enter Text3", "menu newmaze",
                        "until printMode 0", "menu backtodrawing", "until phase 0")

    def sheet(self, colour):
        return self.say("menu workshop", "newsheet", f"tool rectangle size=4 colour={colour}", "press 20 20",
                        "release 90 60", "cancel")

    def before_the_drawing(self):
        return "\n".join(itertools.takewhile(lambda line: line != "menu importdrawing", self.lines)) + "\n"

    def text(self):
        return "\n".join(self.lines) + "\n"


def yesterday(words):
    words.take("room").save("cat").take("two").save("cat")
    words.load_set("alpha").save_set("wave").load_set("beta").save_set("wave").load_set("alpha")
    return words.say("tick autosave").sheet(3).say('export "tide.png"')


def today(words):
    words.take("room").say("tick autosave").save("cat").take("two").save("dog")
    words.load_set("beta").save_set("wave").save_set("tide").sheet(5).job().say('export "tide.png"')
    return words.say("key 76", "key 76", "tick autosave").save("cat").say("close")


def only_saves(words):
    for _ in range(6):
        words.take("room").save("cat").take("two").save("cat")
    return words


def only_prints(words):
    return words.take("two").job().job()


def only_patterns(words):
    for _ in range(6):
        words.load_set("beta").save_set("wave").load_set("alpha").save_set("wave").save_set("tide")
    return words


def only_keeps(words):
    for _ in range(6):
        words.take("room").say("key 76", "key 76", "tick autosave").sheet(2)
        words.take("two").say("key 76", "tick autosave").sheet(4)
    return words


SESSIONS = {"day": today, "save": only_saves, "job": only_prints, "pattern": only_patterns, "autosave": only_keeps}


class Broken(Exception):
    pass


def hold(condition, words):
    if not condition:
        raise Broken(words)


def is_whole_bitmap(data):
    if len(data) < 54 or data[:2] != b"BM":
        return False
    size, = struct.unpack_from("<I", data, 2)
    width, height = struct.unpack_from("<ii", data, 18)
    return size == len(data) == 54 + (3 * width + 3) // 4 * 4 * height


def is_whole_png(data):
    return data.startswith(b"\x89PNG\r\n\x1a\n") and data.endswith(b"IEND\xaeB`\x82")


def is_whole_document(data):
    return data.startswith(b"%PDF-") and data.rstrip().endswith(b"%%EOF") and b"startxref" in data[-100:]


class Reference(typing.NamedTuple):
    count: int          # changes of the disk
    spent: float        # seconds
    generations: dict   # what each saved name held, the oldest first
    plain: set          # the names in the folder afterwards
    begun: int          # changes before there was a drawing


class Machine:
    """The programs, and folders to run them in."""

    def __init__(self, options):
        self.options = options
        self.temp = Path(tempfile.mkdtemp(prefix="gridwright-faults-"))
        self.chance = random.Random(options.seed)
        self.pool = {}
        self.made = 0
        self.broken = []
        self.yesterday = self.day_before()

    def command(self, folder, script):
        path = folder / "script.txt"
        path.write_text(script)
        return [self.options.headless, "--work", str(folder / "work"), "--size", "130x90",
                "--pdf", str(folder / "out/mazes.pdf"), str(path)]

    def book_command(self, folder):
        return [self.options.book, str(folder / "work/two.bmp"), "-n", "2", "--seed", "1", "--jobs", "2", "--wall", "8",
                "-o", str(folder / "out/book.pdf"), "--list", str(folder / "out/book.json"), "--force", "--quiet"]

    def environment(self, folder, fault=None):
        variables = dict(os.environ, HOME=str(folder), XDG_DATA_HOME=str(folder / "data"),
                         XDG_CACHE_HOME=str(self.temp / "cache"), QT_QPA_PLATFORM="offscreen")
        if fault:
            # What the sanitizers' own library wants, to be loaded second.
            beside = variables.get("ASAN_OPTIONS", "")
            variables.update(LD_PRELOAD=self.options.disk, GRIDWRIGHT_FAULT=fault,
                             GRIDWRIGHT_FAULT_FOLDER=str(folder / "work"),
                             GRIDWRIGHT_FAULT_COUNT=str(folder / "count"),
                             ASAN_OPTIONS=(beside + ":" if beside else "") + "verify_asan_link_order=0")
        return variables

    def run(self, folder, command, fault=None):
        return subprocess.run(command, env=self.environment(folder, fault), cwd=folder, stdout=subprocess.DEVNULL,
                              stderr=subprocess.PIPE, timeout=300, check=False)

    def sound(self, folder, command):
        result = self.run(folder, command)
        hold(result.returncode == 0, f"a sound disk, and yet {result.returncode}: {result.stderr.decode()}")

    def day_before(self):
        folder = self.temp / "yesterday"
        (folder / "work").mkdir(parents=True)
        (folder / "out").mkdir()
        (folder / "work/room.bmp").write_bytes(bitmap(10))
        (folder / "work/two.bmp").write_bytes(bitmap(20))
        for name, steps in SETS.items():
            (folder / f"work/{name}.pat").write_bytes(pattern_set(steps))
        self.sound(folder, self.command(folder, yesterday(Words()).text()))
        (folder / "out/mazes.pdf").write_bytes(b"%PDF-the one before\nstartxref\n0\n%%EOF\n")
        self.sound(folder, self.book_command(folder))
        return folder

    def fresh(self):
        self.made += 1
        folder = self.temp / f"run{self.made}"
        shutil.copytree(self.yesterday, folder)
        return folder

    def counted(self, folder, command):
        """How often the command changes the disk, and how long it takes."""
        begin = time.monotonic()
        result = self.run(folder, command, "count:0")
        spent = time.monotonic() - begin
        hold(result.returncode == 0, f"{command}: {result.stderr.decode()}")
        return int((folder / "count").read_text()), spent

    def reference(self, name):
        """What the session does on a sound disk."""
        if name in self.pool:
            return self.pool[name]
        folder = self.fresh()
        if name == "book":
            known = Reference(*self.counted(folder, self.book_command(folder)), {}, set(), 0)
        else:
            words = SESSIONS[name](Words())
            count, spent = self.counted(folder, self.command(folder, words.text()))
            plain = {path.name for path in (folder / "work").iterdir()}
            hold(count > 0, f"{name} changes nothing")
            folder = self.again(folder)
            begun, _ = self.counted(folder, self.command(folder, words.before_the_drawing()))
            folder = self.again(folder)
            self.sound(folder, self.command(folder, SESSIONS[name](Words(references=True)).text()))
            known = Reference(count, spent, self.generations(folder / "work"), plain, begun)
        self.pool[name] = known
        shutil.rmtree(folder)
        return known

    def again(self, folder):
        shutil.rmtree(folder)
        shutil.copytree(self.yesterday, folder)
        return folder

    def generations(self, work):
        """For each saved name what it held, the oldest first: yesterday's one before, yesterday's, today's."""
        held = {}
        for base, endings in (("cat", (".maze", ".bmp")), ("dog", (".maze", ".bmp")), ("wave", (".pat",)),
                              ("tide", (".pat",))):
            old = [tuple(self.bytes_of(self.yesterday / "work" / (base + e + behind)) for e in endings)
                   for behind in ("~", "")]
            saves = sorted({int(path.suffix[4:]) for e in endings for path in work.glob(base + e + ".ref*")})
            held[base] = (endings, old + [tuple((work / f"{base}{e}.ref{n}").read_bytes() for e in endings)
                                          for n in saves])
        return held

    @staticmethod
    def bytes_of(path):
        return path.read_bytes() if path.exists() else None

    # What must hold -----------------------------------------------------------------------------------------------

    def check_saved(self, work, name, vanished):
        for base, (endings, generations) in self.reference(name).generations.items():
            present = tuple(self.bytes_of(work / (base + e)) for e in endings)
            before = tuple(self.bytes_of(work / (base + e + "~")) for e in endings)
            known = generations[1:]
            if base == "cat":
                hold(vanished or (work / "tide.png").exists(), "the export is lost")
            if vanished:
                # What is saved later is another drawing, of what was left: it is whole all the same.
                records = [data for e, data in zip(endings * 2, present + before) if e != ".bmp" and data is not None]
                hold(all(data.endswith(b"\r\n") for data in records), f"{base} is not whole")
                continue
            hold(present in known, f"{base} is none of what was saved: {[b and len(b) for b in present]}")
            at = max(i for i, generation in enumerate(generations) if generation == present)
            earlier = [g for g in generations[:at] if set(g) != {None}] or [generations[0]]
            hold(before in earlier or before == generations[0], f"{base}~ is none of what was saved before")

    def check_whole(self, folder):
        for path in [*folder.iterdir()]:
            data = path.read_bytes()
            name = path.name.rstrip("~")
            if name.endswith(".bmp"):
                hold(is_whole_bitmap(data), f"{path.name} is no whole picture: {len(data)} bytes")
            elif name.endswith(".png"):
                hold(is_whole_png(data), f"{path.name} is no whole picture: {len(data)} bytes")
            elif name.endswith(".pt"):
                hold(re.fullmatch(rb"(\d\r\n|\d,)+9999,88\r\n", data), f"{path.name} is no whole pattern: {data!r}")
            elif name.endswith(".pdf"):
                hold(is_whole_document(data), f"{path.name} is no whole document: {len(data)} bytes")
            elif name.endswith(".json"):
                hold(data.rstrip().endswith(b"}") and json.loads(data), f"{path.name} is no whole list")

    def check_names(self, folder, name):
        plain = self.reference(name).plain
        beside = plain | PICTURES_IN_HAND | KEPT | {n + "~" for n in plain if n[0] in "cdwt" and not n.endswith("~")}
        there = {path.name for path in (folder / "work").iterdir()}
        hold(there <= beside, f"left behind: {sorted(there - beside)}")
        outside = {path.name for path in (folder / "out").iterdir()}
        hold(outside <= {"mazes.pdf", "book.pdf", "book.json"}, f"left behind in out: {sorted(outside)}")
        data = folder / DATA
        if data.exists():
            hold({path.name for path in data.iterdir()} <= KEPT, "left behind in the data folder: " +
                 str(sorted(path.name for path in data.iterdir())))

    def check_day(self, folder, name, fault):
        """After a fault, and a start on a sound disk."""
        vanished = fault.startswith("vanish")
        # What vanished before there was a drawing, or after the program had closed, could not be kept anew.
        nothing_to_keep = vanished and (int(fault[7:]) <= self.reference(name).begun or
                                        not any((folder / "work").iterdir()))
        script = Words().say("tick autosave", "close").text()
        if name == "job" or (folder / "out").exists():
            script = Words().take("room").say("menu printfff", "close").text()
        self.sound(folder, self.command(folder, script))
        self.check_names(folder, name)
        self.check_saved(folder / "work", name, vanished)
        for place in (folder / "work", folder / "out", folder / DATA):
            if place.exists():
                self.check_whole(place)
        hold(nothing_to_keep or any((place / "last-drawing.bmp").exists() for place in (folder / "work", folder / DATA)),
             "the drawing is lost")

    def check_book(self, folder):
        for name in ("book.pdf", "book.json"):
            hold((folder / "out" / name).exists(), f"{name} is lost")
        self.check_whole(folder / "out")
        self.sound(folder, self.book_command(folder))
        names = {path.name for path in (folder / "out").iterdir()}
        hold(names == {"mazes.pdf", "book.pdf", "book.json"}, f"left behind: {sorted(names)}")

    # Faults -------------------------------------------------------------------------------------------------------

    def under_fault(self, name, fault):
        """Whether the fault was a kill that came before the end."""
        ended = False
        folder = self.fresh()
        is_book = name == "book"
        command = self.book_command(folder) if is_book else self.command(folder, SESSIONS[name](Words()).text())
        try:
            result = self.run(folder, command, fault)
            killed = fault.startswith("kill")
            ended = result.returncode == -signal.SIGKILL
            hold(result.returncode >= 0 or killed, f"it ended by signal {-result.returncode}: {result.stderr.decode()}")
            if is_book and not killed:
                wrong = fault.startswith(("full", "readonly")) and result.returncode == 0
                hold(not wrong, "the book is said to be whole")
            if fault.startswith("full"):
                # What is whole and only waits for its name gets it at the next start.
                left = [p.name for part in ("work", "out") for p in (folder / part).iterdir()
                        if p.name.endswith(".building") and not p.name.endswith("~.building")]
                hold(not left, f"left behind at the end: {left}")
            self.check_whole(folder / "out") if not killed and fault.startswith("full") else None
            self.check_book(folder) if is_book else self.check_day(folder, name, fault)
        except (Broken, subprocess.TimeoutExpired) as broken:
            self.broken.append(f"{name}, {fault}: {broken}\n  kept in {folder}")
            return ended
        shutil.rmtree(folder)
        return ended

    def kill_by_clock(self, name):
        folder = self.fresh()
        spent = self.reference(name).spent
        command = (self.book_command(folder) if name == "book" else
                   self.command(folder, SESSIONS[name](Words()).text()))
        wait = self.chance.random() * spent
        with subprocess.Popen(command, env=self.environment(folder), cwd=folder, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL) as program:
            time.sleep(wait)
            program.send_signal(signal.SIGKILL)
            program.wait()
            ended = program.returncode == 0
        try:
            self.check_book(folder) if name == "book" else self.check_day(folder, name, "kill")
            shutil.rmtree(folder)
        except Broken as broken:
            self.broken.append(f"{name}, killed after {wait:.4f} s: {broken}\n  kept in {folder}")
        return not ended

    def faults(self, points):
        done = {}
        for name in self.options.sessions.split(","):
            count = self.reference(name).count
            for kind in self.options.kinds.split(","):
                if name == "book" and kind in ("vanish", "once"):
                    continue
                moments = list(range(1, count + 1))
                if points and points < count:
                    moments = sorted(self.chance.sample(moments, points))
                for at in moments:
                    self.under_fault(name, f"{kind}:{at}")
                done[f"{name}, {kind}"] = len(moments)
        return done

    def kills(self, wanted):
        """So many programs are killed before their end."""
        names = ["save", "job", "pattern", "book", "autosave"]
        met = 0
        for number in itertools.count():
            if met == wanted or len(self.broken) > 20:
                return number
            name = names[number // 2 % len(names)]
            if number % 2:
                met += self.under_fault(name, f"kill:{self.chance.randint(1, self.reference(name).count)}")
            else:
                met += self.kill_by_clock(name)


def main():
    words = argparse.ArgumentParser()
    for name in ("headless", "book", "disk"):
        words.add_argument(f"--{name}", required=True, type=os.path.abspath)
    words.add_argument("--points", type=int, default=0)
    words.add_argument("--kills", type=int)
    words.add_argument("--sessions", default="day,book")
    words.add_argument("--kinds", default="full,readonly,once,kill,vanish")
    words.add_argument("--seed", type=int, default=1)
    options = words.parse_args()
    machine = Machine(options)
    if options.kills:
        print(f"{machine.kills(options.kills)} sessions, {options.kills} of them killed")
    else:
        for what, count in machine.faults(options.points).items():
            print(f"{what}: {count} moments")
    if machine.broken:
        print("\n".join(machine.broken), file=sys.stderr)
        return 1
    print("nothing that was saved is lost")
    shutil.rmtree(machine.temp)
    return 0


if __name__ == "__main__":
    sys.exit(main())
