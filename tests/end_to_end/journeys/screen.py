"""A screen of its own, with the real programs on it, worked by keys and mouse as a person works them.

Nothing here looks into a program: windows are told apart by their titles, as a person does, and what came of the work
is read in the database.
"""

import os
import pathlib
import re
import shutil
import signal
import sqlite3
import subprocess
import tempfile
import time

from keyboard import Keyboard
from systems import system

LAUNCHER = "Consola Orvel de Presentaciones"
MODULE = "0518 Agentes de Percepción Ventas Internas - v 1.5"
DECLARATION = "0518 Agentes de Percepción Ventas Internas v1.5"
BASE = "XA000.DB"
BOX = 800  # narrower than any main window

PATIENCE = 30.0
GLANCE = 0.02


class Lost(Exception):
    """What a person would have waited for in vain."""


class Screen:
    """An X server, a window manager and a fresh installation with the sample company, until the block ends."""

    def __init__(self, programs, environment=None, folder=None, whose=""):
        self._whose = whose  # of several screens
        self._running = []
        self._keyboard = None
        self._stack = []  # the windows in front of one another, the active one last
        self.folder = pathlib.Path(folder or tempfile.mkdtemp(prefix="journey"))
        self.folder.mkdir(0o700, exist_ok=folder is None)
        self._system = system(programs, self.folder)
        self.data = self._system.data
        self.loses_keyboard = self._system.loses_keyboard
        self._environment = os.environ | self._system.environment | (environment or {})

    def __enter__(self):
        try:
            self._start_server()
            self._start("openbox", "--sm-disable", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            self.until(lambda: self._ask("xdotool", "get_desktop"), "the window manager")
            self._installs()
        except BaseException:
            self._end()
            raise
        return self

    def _installs(self):
        self.runs("consola", "--instalar", "--carpeta", self.data, "--ejemplo")
        if not (self.data / BASE).exists():
            raise Lost("the installation made no base")

    def __exit__(self, kind, fault, trace):
        if kind:
            picture = pathlib.Path.cwd() / f"journey_fault{self._whose}.png"
            self.picture(picture, whole=True)
            print("The screen at that moment:", picture, flush=True)
        self._end()
        return False

    def _start_server(self):
        reader, writer = os.pipe()
        # Without -noreset it starts over when its last client goes, and refuses whoever comes at that moment.
        command = ["Xvfb", "-displayfd", writer, "-screen", "0", "1280x900x24", "-noreset"]
        self._start(*command, pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as number:
            self._environment["DISPLAY"] = ":" + number.readline().strip()
        self._keyboard = Keyboard(self._environment["DISPLAY"])

    def _start(self, *command, **how):
        arguments = [str(word) for word in command]
        self._running.append(subprocess.Popen(arguments, env=self._environment, start_new_session=True, **how))

    def _end(self):
        self._system.ends()
        for process in reversed(self._running):  # the server last; with it ends the module, which the launcher started
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def runs(self, program, *arguments):
        """A program without a window, to its end, which may be that it refused some lines."""
        told = [self.path(word) if isinstance(word, pathlib.Path) else word for word in arguments]
        done = subprocess.run(self._system.command(program) + told, env=self._environment, stdout=subprocess.DEVNULL,
                              check=False)
        if done.returncode > 1:
            raise Lost(f"{program} {told} ended with {done.returncode}")

    def path(self, path):
        """How a person names a file to the programs."""
        return self._system.path(path)

    def _ask(self, *command):
        arguments = [str(word) for word in command]
        answer = subprocess.run(arguments, env=self._environment, capture_output=True, text=True, check=False)
        return answer.stdout

    def until(self, holds, what):
        deadline = time.monotonic() + PATIENCE
        while not holds():
            if time.monotonic() > deadline:
                raise Lost(f"waited in vain for {what}; in front stands {self.title()!r}")
            time.sleep(GLANCE)

    # Windows

    def active(self):
        return self._ask("xdotool", "getactivewindow").strip()

    def title(self):
        return self._ask("xdotool", "getactivewindow", "getwindowname").strip()

    def launch(self, program):
        self._start(*self._system.command(program))

    def ends(self, code=0):
        """Waits until the program that was launched last, whose window is in front, has ended with that code."""
        self.until(lambda: self._running[-1].poll() is not None, "the program's end")
        self._stack.pop()
        found = self._running.pop().returncode
        if found != code:
            raise Lost(f"the program ended with {found}")

    def kills(self):
        """The program whose window is in front, at once, as a power cut ends it."""
        os.kill(int(self._ask("xdotool", "getactivewindow", "getwindowpid")), signal.SIGKILL)

    def takes_keys(self):
        """The window in front has the keyboard, which the window manager gives it a moment after it shows."""
        return self._ask("xdotool", "getwindowfocus").strip() == self.active()

    def opens(self, title):
        """Waits until a window with that title has come in front of those that were there, with the keyboard."""
        self.until(
            lambda: self.title() == title and self.active() not in self._stack and self.takes_keys(),
            f"the window {title!r}",
        )
        self._stack.append(self.active())

    def opens_asking(self, title):
        """Waits for a window over which a box with the same title has come at once; the box is still to be answered."""

        def both():
            return self._ask("xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$").split()

        self.until(lambda: len(both()) == 2 and self.title() == title and self.takes_keys(), f"{title!r} and its box")
        self._stack += [window for window in both() if window != self.active()]

    def closes(self, windows=1):
        """Waits until the window in front has gone and the one behind it has the keyboard again."""
        del self._stack[-windows:]
        self.until(self._is_behind, "the window behind")

    def settles(self):
        """Waits until no work shows over the window in front, which it may a moment after that has come: what is typed
        then counts for nothing."""
        time.sleep(1)
        self.until(self._is_behind, "the end of the work")

    def _is_behind(self):
        if self.loses_keyboard and not self.title():
            self._ask("xdotool", "windowactivate", self._stack[-1])
        return self.active() == self._stack[-1]

    def answers(self, title, key="Return"):
        """A message box above the form with that title: waits for it, presses that button, waits until it has gone. The
        window behind it has the keyboard then, or one that has opened at once in the box's place."""
        self.opens(title)
        box = self._stack.pop()
        self.keys(key)
        self.until(lambda: self.active() not in ("", box), "the box to go")

    def asks_at_start(self, title):
        """Waits for the box that a program puts in front of its own window, of the same title, before anybody sees that
        one alone."""
        self.until(lambda: self.title() == title and self._breadth() < BOX and self.takes_keys(), f"the box of {title!r}")
        self._stack = [self.active()]

    def _breadth(self):
        lines = self._ask("xdotool", "getactivewindow", "getwindowgeometry", "--shell").split()
        return int(dict(line.split("=") for line in lines).get("WIDTH", BOX))

    def goes(self, key):
        """Presses that button of the box in front, and waits until it has gone."""
        box = self._stack.pop()
        self.keys(key)
        self.until(lambda: self.active() not in ("", box), "the box to go")

    def switches(self, title):
        """Goes over to the other program."""
        self._ask("xdotool", "keydown", "alt", "key", "Tab", "sleep", "0.1", "keyup", "alt")
        self.comes_back(title)

    def comes_back(self, title):
        """Waits for a window that was there before, of whichever program."""
        self.until(lambda: self.title() == title, f"the window {title!r}")
        self._stack = [self.active()]

    # Keys and mouse

    def keys(self, *names):
        self._keyboard.presses(*names)

    def holds(self, name):
        """One key, until it has come several times over."""
        self._ask("xdotool", "keydown", name)
        time.sleep(1.2)
        self._ask("xdotool", "keyup", name)

    def types(self, text):
        self._ask("xdotool", "type", "--delay", "2", text)

    def picks(self, opening, *names):
        """In a list that drops down: the key that opens it, then those that choose and close it again."""

        def windows():
            return len(self._ask("xdotool", "search", "--onlyvisible", "--class", "xa518").split())

        closed = windows()
        self.keys(opening)
        self.until(lambda: windows() > closed, "the list to drop down")
        self.keys(*names)
        self.until(lambda: windows() == closed, "the list to close")

    def fills(self, *texts):
        """Fields one after the other, each left with Enter."""
        for text in texts:
            self.types(text)
            self.keys("Return")

    def clicks(self, right, down, times=1):
        """At a place measured from the active window's corner; below 0, from its opposite one."""
        lines = self._ask("xdotool", "getactivewindow", "getwindowgeometry", "--shell").split()
        frame = dict(line.split("=") for line in lines)
        across = right if right >= 0 else int(frame["WIDTH"]) + right
        along = down if down >= 0 else int(frame["HEIGHT"]) + down
        self._ask("xdotool", "mousemove", "--window", self.active(), across, along)
        self._ask("xdotool", "click", "--repeat", times, "--delay", "30", "1")

    # What came of it

    def rows(self, question, *values):
        with sqlite3.connect(f"{(self.data / BASE).as_uri()}?mode=ro", uri=True) as base:
            return base.execute(question, values).fetchall()

    def shows(self, question, *wanted):
        """Waits until the database answers so: a list of rows, or of values when there is one column."""
        expected = list(wanted)

        def answer():
            found = self.rows(question)
            return [row[0] if len(row) == 1 else row for row in found]

        try:
            self.until(lambda: answer() == expected, question)
        except Lost as lost:
            raise Lost(f"{lost}: wanted {expected}, found {answer()}") from None

    def pixels(self):
        grab = ["import", "-window", self.active(), "rgb:-"]
        return subprocess.run(grab, env=self._environment, capture_output=True, check=False).stdout

    def picture(self, path, whole=False):
        window = ["root"] if whole else [self.active(), "-frame"]
        self._ask("import", "-window", *window, path)
