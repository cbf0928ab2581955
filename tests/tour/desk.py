"""A desk of our own: a virtual display, a window manager, a bus, a mouse and a keyboard."""

import os
import re
import signal
import subprocess

from waiting import Mismatch, wait_for

WIDTH, HEIGHT = 1280, 800
HOME = "anna"  # the home folder of the person at the desk


class Desk:
    """Sets this process's environment, so that what it starts from then on appears on this desk."""

    def __init__(self, place):
        self.processes = []
        self.log = open(place / "desk.log", "wb")
        runtime = place / "runtime"
        runtime.mkdir(mode=0o700)
        home = place / HOME
        home.mkdir()
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_STYLE_OVERRIDE", "XAUTHORITY", "XDG_DATA_HOME"):
            os.environ.pop(name, None)
        os.environ.update(HOME=str(home), XDG_RUNTIME_DIR=str(runtime), XDG_CONFIG_HOME=str(home / ".config"),
                          LC_ALL="C.UTF-8", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_SCALE_FACTOR="1")
        os.environ["DISPLAY"] = ":" + self._answer(
            ["Xvfb", "-displayfd", "{}", "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-dpi", "96", "-nolisten", "tcp", "-noreset"])
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._answer(
            ["dbus-daemon", "--session", "--nofork", "--nopidfile", f"--address=unix:dir={runtime}", "--print-address={}"])
        self._start(["openbox"])
        wait_for("the window manager", self._is_managed)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.send_signal(signal.SIGTERM)
            process.wait()
        self.log.close()

    def _start(self, command, **options):
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=self.log, stderr=self.log, **options)
        self.processes.append(process)
        return process

    def _answer(self, command):
        """Starts a server that writes its address to the descriptor at {}, and returns the address."""
        reader, writer = os.pipe()
        self._start([part.format(writer) for part in command], pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as answer:
            line = answer.readline().strip()
        if not line:
            raise Mismatch(f"{command[0]} did not start, see {self.log.name}")
        return line

    @staticmethod
    def _is_managed():
        told = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], stdout=subprocess.PIPE, text=True)
        return "window id" in told.stdout

    @staticmethod
    def screenshot(path):
        subprocess.run(["import", "-window", "root", str(path)], check=True)


def _xdotool(*words):
    subprocess.run(["xdotool", *[str(word) for word in words]], check=True)


def click(x, y, button=1, times=1):
    _xdotool("mousemove", x, y, "click", "--repeat", times, "--delay", 60, button)


def move(x, y):
    _xdotool("mousemove", x, y)


def click_with(modifier, x, y):
    _xdotool("keydown", modifier, "mousemove", x, y, "click", 1, "keyup", modifier)


def drag(start, end):
    """Press, a few steps on the way as a hand makes them, release."""
    (x1, y1), (x2, y2) = start, end
    steps = [(x1 + (x2 - x1) * i // 8, y1 + (y2 - y1) * i // 8) for i in range(1, 9)]
    words = ["mousemove", x1, y1, "mousedown", 1]
    for x, y in steps:
        words += ["mousemove", "--sync", x, y]
    _xdotool(*words)
    _xdotool("mousemove", x2 + 1, y2 + 1, "mouseup", 1)


def key(*names):
    _xdotool("key", *names)


def write(text):
    _xdotool("type", "--delay", 8, text)


def _property(window, name):
    """What xprop tells of a window ("-root" or an id)."""
    where = ["-root"] if window == "-root" else ["-id", window]
    told = subprocess.run(["xprop", *where, name], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    return told.stdout.strip()


def stacking():
    """The titles of the windows that the window manager keeps, the lowest first."""
    ids = re.findall(r"0x[0-9a-f]+", _property("-root", "_NET_CLIENT_LIST_STACKING"))
    titles = (re.search(r'= "(.*)"', _property(window, "_NET_WM_NAME")) for window in ids)
    return [title[1] for title in titles if title]


def differing(picture, other):
    """How many pixels of two pictures are not the same, give or take what a rounding of colours makes."""
    told = subprocess.run(["compare", "-metric", "AE", "-fuzz", "2%", str(picture), str(other), "null:"],
                          stderr=subprocess.PIPE, text=True)
    if told.returncode > 1:
        raise Mismatch(f"compare: {told.stderr}")
    return float(told.stderr)


def middle(width, height, path):
    """Saves what is seen in the middle of the screen."""
    place = f"{width}x{height}+{(WIDTH - width) // 2}+{(HEIGHT - height) // 2}"
    subprocess.run(["import", "-window", "root", "-crop", place, "+repage", str(path)], check=True)
    return path
