"""A desktop of one's own for a test: an X server without a screen, a window manager, and the program.

What the program does is learnt as a person learns it: from the window's caption, from what is on the
screen, and from the files it leaves. Nothing sleeps for a fixed time; every step waits until what it
waits for is there.
"""
import os
import re
import shutil
import subprocess
import sys
import time

PATIENCE = 60  # seconds; far more than a loaded machine takes for one step
TOOLS = ("Xvfb", "openbox", "xdotool", "xprop", "xwininfo", "import")


class Failed(Exception):
    pass


def until(condition, what):
    """Waits until the condition gives something true, and returns that."""
    end = time.monotonic() + PATIENCE
    pause = 0.01
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > end:
            raise Failed("waited in vain until " + what)
        time.sleep(pause)
        pause = min(0.1, pause * 1.5)


class Shot:
    """The screen at a moment."""

    def __init__(self, width, height, data):
        self.width, self.height, self.data = width, height, data

    def at(self, x, y):
        start = 3 * (y * self.width + x)
        return tuple(self.data[start:start + 3])

    def part(self, left, top, right, bottom):
        """The rows of a box, right and bottom excluded."""
        return [self.data[3 * (y * self.width + left):3 * (y * self.width + right)] for y in range(top, bottom)]

    def holds(self, colour, left, top, right, bottom):
        return any(self.at(x, y) == colour for y in range(top, bottom) for x in range(left, right))


class Desktop:
    WIDTH, HEIGHT = 900, 740

    def __init__(self, folder):
        missing = [tool for tool in TOOLS if shutil.which(tool) is None]
        if missing:
            raise Failed("missing: " + ", ".join(missing) + " (./test installs them)")
        self.folder = folder
        self.started = []
        self.environment = {key: value for key, value in os.environ.items()
                            if not key.startswith(("QT_", "XDG_", "WAYLAND", "PRINTER", "LPDEST"))}
        runtime = os.path.join(folder, "runtime")
        home = os.path.join(folder, "home")
        for path in (runtime, home):
            os.makedirs(path, mode=0o700)
        self.environment.update(HOME=home, XDG_RUNTIME_DIR=runtime, QT_QPA_PLATFORM="xcb", LC_ALL="C.UTF-8",
                                CUPS_SERVER=os.path.join(runtime, "no-printers"))
        self.environment.setdefault("ASAN_OPTIONS", "detect_leaks=0")  # a desktop's libraries keep what they take
        self.environment["DISPLAY"] = self._server()
        self._start(["openbox"])
        until(lambda: "window id" in self.say("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
              "the window manager is there")

    def _start(self, command, **more):
        process = subprocess.Popen(command, env=self.environment, stdout=subprocess.DEVNULL,
                                   stderr=open(os.path.join(self.folder, "said"), "a"), **more)
        self.started.append(process)
        return process

    def _server(self):
        reading, writing = os.pipe()
        # Without -noreset it would start over, and drop who is just coming, each time its last guest leaves.
        self._start(["Xvfb", "-displayfd", str(writing), "-noreset", "-nolisten", "tcp", "-screen", "0",
                     f"{self.WIDTH}x{self.HEIGHT}x24"], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as told:
            number = told.readline().strip()
        if not number:
            raise Failed("Xvfb does not start")
        return ":" + number

    def say(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True).stdout

    def run(self, command, folder):
        self.program = self._start(command, cwd=folder)
        self.window = until(self._mainWindow, "the window is there")
        until(lambda: self.say("xdotool", "getwindowfocus").strip() == self.window, "the window has the keyboard")

    def _mainWindow(self):
        if self.program.poll() is not None:
            raise Failed("the program has ended with %d" % self.program.returncode)
        for window in self.say("xdotool", "search", "--onlyvisible", "--name", "^Gridwright-").split():
            return window
        return None

    def windows(self):
        """How many windows the program has on the screen: itself, menus, tips, messages."""
        return len(self.say("xdotool", "search", "--onlyvisible", "--pid", str(self.program.pid)).split())

    def caption(self):
        return self.say("xdotool", "getwindowname", self.window).strip()

    def awaitCaption(self, words):
        until(lambda: words in self.caption(), "the caption says " + words)

    def key(self, *keys):
        subprocess.run(["xdotool", "key", "--delay", "20", *keys], env=self.environment, check=True)

    def hold(self, key, condition, what):
        """Holds a key down until the condition is true."""
        subprocess.run(["xdotool", "keydown", key], env=self.environment, check=True)
        try:
            until(condition, what)
        finally:
            subprocess.run(["xdotool", "keyup", key], env=self.environment, check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "10", text], env=self.environment, check=True)

    def click(self, x, y):
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "1"], env=self.environment, check=True)

    def shot(self):
        data = subprocess.run(["import", "-silent", "-window", "root", "-depth", "8", "rgb:-"],
                              env=self.environment, capture_output=True, check=True).stdout
        return Shot(self.WIDTH, self.HEIGHT, data)

    def quietShot(self):
        """The screen once nothing moves on it."""
        before = self.shot()
        while True:
            after = self.shot()
            if after.data == before.data:
                return after
            before = after

    def client(self):
        """Left, top, right and bottom of the window's inside, right and bottom excluded."""
        told = self.say("xwininfo", "-id", self.window)
        left, top, width, height = (int(re.search(name + r":\s+(-?\d+)", told)[1]) for name in
                                    ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
        return left, top, left + width, top + height

    def end(self):
        for process in reversed(self.started):
            if process.poll() is None:
                process.terminate()
        for process in self.started:
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()


def walkThrough(name, folder, begin):
    """Takes the steps that `begin` gives for a new desktop, one after the other, and says how long each took.
    Returns 0; or 1 when one failed, with the screen kept as window-NAME-failed.png."""
    desktop = step = None
    try:
        desktop = Desktop(folder)
        for step in begin(desktop):
            began = time.monotonic()
            step()
            print(f"{step.__name__}: {time.monotonic() - began:.1f} s", flush=True)
    except Failed as reason:
        print(f"{step.__name__ if step else 'start'}: {reason}", file=sys.stderr)
        if desktop is not None:
            kept = os.path.abspath(f"window-{name}-failed.png")
            desktop.say("import", "-silent", "-window", "root", kept)
            print("the screen then: " + kept, file=sys.stderr)
            print(open(os.path.join(folder, "said")).read(), file=sys.stderr)
        return 1
    finally:
        if desktop is not None:
            desktop.end()
    return 0
