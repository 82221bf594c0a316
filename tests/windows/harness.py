"""A desktop program under a virtual display, driven by real pointer and keyboard events.

A test starts the program on a folder of its own, asks the program's geometry report where controls
and links are, clicks there with xdotool and looks at window titles, files and the exit code.
"""

import ctypes
import os
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from dataclasses import dataclass
from pathlib import Path

DEFAULT_WAIT = 20.0  # seconds until something that should show up counts as missing
POLL = 0.05
NEEDED = ("Xvfb", "xdotool")


def program():
    """The program under test."""
    return os.environ.get("BRINDLEMOOR_PROGRAM", "")


def missing_tools():
    return [tool for tool in NEEDED if shutil.which(tool) is None]


def wait_until(what, condition, seconds=DEFAULT_WAIT):
    """Returns the first true result of the condition; raises AssertionError after the time."""
    end = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise AssertionError(f"never came: {what}")
        time.sleep(POLL)


@dataclass(frozen=True)
class Place:
    """One line of the geometry report: something that is on the screen."""

    kind: str
    name: str
    x: int
    y: int
    width: int
    height: int
    text: str

    @property
    def center(self):
        return self.x + self.width // 2, self.y + self.height // 2


class Display:
    """A virtual display of its own."""

    def __init__(self, size="1280x800"):
        read_end, write_end = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{size}x24", "-nolisten", "tcp"],
            pass_fds=(write_end,), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as stream:
            number = stream.readline().strip()
        if not number:
            raise RuntimeError("the virtual display did not start")
        self.name = f":{number}"
        self.width, self.height = (int(part) for part in size.split("x"))

    def xdotool(self, *arguments):
        result = subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True,
                                env={**os.environ, "DISPLAY": self.name}, timeout=60, check=False)
        return result.stdout.split()

    def move(self, x, y):
        self.xdotool("mousemove", x, y)

    def click(self, x, y, button=1):
        self.xdotool("mousemove", x, y, "sleep", 0.1, "click", button)

    def drag(self, start, end):
        """Presses at one point, moves in steps and lets go at another."""
        self.xdotool("mousemove", *start, "mousedown", 1)
        for step in range(1, 9):
            self.xdotool("mousemove", *(a + (b - a) * step // 8 for a, b in zip(start, end)),
                         "sleep", 0.03)
        self.xdotool("mouseup", 1)

    def focus_top_window(self):
        """There is no window manager: the keyboard goes to the window that came up last."""
        windows = self.xdotool("search", "--onlyvisible", "--name", ".")
        if windows:
            self.xdotool("windowfocus", "--sync", windows[-1])

    def key(self, *keys):
        self.focus_top_window()
        self.xdotool("key", "--clearmodifiers", *keys)

    def type(self, text):
        self.focus_top_window()
        self.xdotool("type", "--delay", 20, text)

    def screenshot(self, path):
        """Keeps a picture of the screen, where ImageMagick is installed."""
        if shutil.which("import"):
            subprocess.run(["import", "-display", self.name, "-window", "root", str(path)],
                           timeout=60, check=False)

    def window_titles(self):
        titles = set()
        for window in self.xdotool("search", "--onlyvisible", "--name", "."):
            titles.add(" ".join(self.xdotool("getwindowname", window)))
        return titles

    def fill_screen(self, title):
        """Does what a window manager does for a maximised window."""
        windows = self.xdotool("search", "--onlyvisible", "--name", f"^{title}$")
        self.xdotool("windowmove", windows[-1], 0, 0, "windowsize", windows[-1], self.width,
                     self.height)

    def ask_to_close(self, title):
        """Sends a window what a window manager sends when its close button is pressed."""
        windows = self.xdotool("search", "--onlyvisible", "--name", f"^{title}$")
        if not windows:
            raise AssertionError(f"no window \"{title}\" to close")
        _send_delete_window(self.name, int(windows[-1]))

    def window_states(self, title):
        """What a window asks of a window manager, or was given by it."""
        windows = self.xdotool("search", "--onlyvisible", "--name", f"^{title}$")
        return _window_states(self.name, int(windows[-1]))

    def stop(self):
        self._server.terminate()
        self._server.wait(timeout=10)


def _send_delete_window(display_name, window):
    class ClientMessage(ctypes.Structure):
        _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong),
                    ("send_event", ctypes.c_int), ("display", ctypes.c_void_p),
                    ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                    ("format", ctypes.c_int), ("data", ctypes.c_long * 5),
                    ("room", ctypes.c_long * 24)]

    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XInternAtom.restype = ctypes.c_ulong
    x11.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    x11.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long,
                               ctypes.c_void_p]
    x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
    display = x11.XOpenDisplay(display_name.encode())
    client_message = 33
    event = ClientMessage(type=client_message, window=window, format=32)
    event.message_type = x11.XInternAtom(display, b"WM_PROTOCOLS", 0)
    event.data[0] = x11.XInternAtom(display, b"WM_DELETE_WINDOW", 0)
    x11.XSendEvent(display, window, 0, 0, ctypes.byref(event))
    x11.XCloseDisplay(display)  # flushes


def _window_states(display_name, window):
    """The names of the atoms in a window's list of states."""
    x11 = ctypes.CDLL("libX11.so.6")
    pointer, number = ctypes.c_void_p, ctypes.c_ulong
    x11.XOpenDisplay.restype = pointer
    x11.XInternAtom.restype = number
    x11.XInternAtom.argtypes = [pointer, ctypes.c_char_p, ctypes.c_int]
    x11.XGetAtomName.restype = ctypes.c_char_p
    x11.XGetAtomName.argtypes = [pointer, number]
    x11.XGetWindowProperty.argtypes = [pointer, number, number, ctypes.c_long, ctypes.c_long,
                                       ctypes.c_int, number] + [pointer] * 5
    x11.XCloseDisplay.argtypes = [pointer]
    display = x11.XOpenDisplay(display_name.encode())
    atoms = ctypes.POINTER(number)()
    kind, form, count, rest = number(), ctypes.c_int(), number(), number()
    x11.XGetWindowProperty(display, window, x11.XInternAtom(display, b"_NET_WM_STATE", 0), 0, 64, 0,
                           4, *map(ctypes.byref, (kind, form, count, rest, atoms)))
    names = {x11.XGetAtomName(display, atoms[at]).decode() for at in range(count.value)}
    x11.XCloseDisplay(display)
    return names


class Program:
    """The running program and what of it can be seen."""

    def __init__(self, display, folder, *arguments, environment=None, file_size=None,
                 program_file=None):
        """The program under test, or a copy of it. file_size is the most bytes that its files may have, None for no bound."""
        self.display = display
        self.folder = Path(folder)
        self._scratch = Path(tempfile.mkdtemp(prefix="brindlemoor-run-"))
        self._report = self._scratch / "geometry"
        self._errors = open(self._scratch / "errors", "w+", encoding="utf-8")
        variables = {**os.environ, "DISPLAY": display.name, "QT_QPA_PLATFORM": "xcb",
                     "BRINDLEMOOR_TEST_GEOMETRY": str(self._report), **(environment or {})}
        self.process = subprocess.Popen([program_file or program(), *map(str, arguments)], env=variables,
                                        stdout=subprocess.DEVNULL, stderr=self._errors,
                                        start_new_session=True,
                                        preexec_fn=file_size and (lambda: resource.setrlimit(
                                            resource.RLIMIT_FSIZE, (file_size, file_size))))

    def errors(self):
        self._errors.flush()
        return (self._scratch / "errors").read_text(encoding="utf-8", errors="replace")

    def places(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the program ended with {self.process.returncode}:\n{self.errors()}")
        try:
            report = self._report.read_bytes().decode("utf-8")
        except FileNotFoundError:
            return []
        places = []
        for line in report.split("\n")[:-1]:  # what is shown may hold other line ends
            kind, name, x, y, width, height, text = line.split("\t")
            places.append(Place(kind, name, int(x), int(y), int(width), int(height), text))
        return places

    def find(self, kind, name=None, text=None):
        """What the report lists of a kind, with that name or text where given; or nothing."""
        for place in self.places():
            if place.kind == kind and name in (None, place.name) and text in (None, place.text):
                return place
        return None

    def wait_for(self, kind, name=None, text=None, seconds=DEFAULT_WAIT):
        return wait_until(f"{kind} {name or ''} {text or ''}",
                          lambda: self.find(kind, name, text), seconds)

    def wait_gone(self, kind, name=None, text=None, seconds=DEFAULT_WAIT):
        wait_until(f"the end of {kind} {name or ''}",
                   lambda: not self.find(kind, name, text), seconds)

    def at_rest(self, kind, name=None, text=None):
        """Something as soon as it is there and has stopped moving; a busy program reports late."""
        place = self.wait_for(kind, name, text)
        if kind == "link":
            self.wait_gone("work")
        while True:
            before = self._report.stat().st_mtime_ns
            time.sleep(0.15)
            wait_until("a new report", lambda old=before: self._report.stat().st_mtime_ns != old)
            again = self.wait_for(kind, name, text)
            if again == place:
                return place
            place = again

    def click(self, kind, name=None, text=None, button=1):
        """Clicks on something as soon as it is there and has stopped moving."""
        self.display.click(*self.at_rest(kind, name, text).center, button)

    def dismiss(self, text):
        """Closes the message box that says this."""
        wait_until(f"the message {text}",
                   lambda: any(p.kind == "dialog" and text in p.text for p in self.places()))
        self.click("button", "OK")
        wait_until("the end of the message",
                   lambda: not any(p.kind == "dialog" and text in p.text for p in self.places()))

    def choose(self, title, entry):
        """Picks a menu entry by the captions."""
        self.click("menu", text=title)
        self.click("menu", text=entry)

    def answer(self, text):
        """Types into the open input box and accepts it."""
        self.click("field")
        self.display.type(text)
        self.click("button", "OK")

    def fill_screen(self, title):
        """Makes a window as large as the screen and waits until its controls have moved."""
        place = (0, 0, self.display.width, self.display.height)
        self.display.fill_screen(title)
        wait_until(f"{title} on the whole screen", lambda: any(
            p.kind == "window" and (p.x, p.y, p.width, p.height) == place for p in self.places()))
        places = []
        while places != self.places():  # the layout follows the window
            places = self.places()
            before = self._report.stat().st_mtime_ns
            time.sleep(0.3)
            wait_until("a new report", lambda old=before: self._report.stat().st_mtime_ns != old)

    def page(self, name="Display.html"):
        path = self.folder / name
        return path.read_text(encoding="utf-8") if path.exists() else ""

    def wait_for_end(self, seconds=DEFAULT_WAIT):
        """The exit code."""
        return self.process.wait(timeout=seconds)

    def stop(self):
        if self.process.poll() is None:
            os.killpg(self.process.pid, signal.SIGKILL)
            self.process.wait(timeout=10)
        self._errors.close()
        shutil.rmtree(self._scratch, ignore_errors=True)


class WindowTest(unittest.TestCase):
    """A fresh display and program folder for each test; a screenshot is kept when it fails."""

    screen = "1280x800"

    def setUp(self):
        self.display = Display(self.screen)
        self.addCleanup(self.display.stop)
        self.folder = Path(tempfile.mkdtemp(prefix="brindlemoor-test-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.started = None

    def start(self, *arguments, environment=None):
        """Starts the program, on the test's folder if no arguments are given."""
        self.started = Program(self.display, self.folder, *(arguments or (self.folder,)),
                               environment=environment)
        self.addCleanup(self.started.stop)
        self.addCleanup(self._keep_screenshot)
        return self.started

    def write(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def close_and_check(self, title, gives_up_match=False):
        """Closing the window must end the process in order."""
        self.display.ask_to_close(title)
        if gives_up_match:
            self.started.click("button", "Give Up")
        self.assertEqual(self.started.wait_for_end(), 0, self.started.errors())

    def _keep_screenshot(self):
        outcome = self._outcome.result
        failed = any(test is self for test, _ in outcome.failures + outcome.errors)
        target = os.environ.get("BRINDLEMOOR_SCREENSHOTS", "")
        if failed and target:
            self.display.screenshot(Path(target) / f"{self.id()}.png")


def main():
    """Runs the tests of the calling file; 77 tells CTest that they were skipped."""
    if missing_tools() or not program():
        print("skipped: needs", ", ".join(missing_tools()) or "BRINDLEMOOR_PROGRAM")
        sys.exit(77)
    unittest.main(verbosity=2)
