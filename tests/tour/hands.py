"""A person at a program of which nothing is heard but its windows' titles: keys, clicks at known places, looks."""

import re
import subprocess
import tempfile
from contextlib import contextmanager

import desk
from waiting import Mismatch, wait_for

CURSOR = 40  # pixels of one in a text box


def _told(*command):
    return subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          text=True).stdout


class Window:
    """One that shows."""

    def __init__(self, number):
        self.number = number

    def __eq__(self, other):
        return isinstance(other, Window) and self.number == other.number

    def box(self):
        told = dict(re.findall(r"(\w+)=(\d+)", _told("xdotool", "getwindowgeometry", "--shell", self.number)))
        return tuple(int(told[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def title(self):
        return _told("xdotool", "getwindowname", self.number).strip()

    def owner(self):
        """The number of the window that this one stays above, or None."""
        found = re.search(r"0x[0-9a-f]+", _told("xprop", "-id", self.number, "WM_TRANSIENT_FOR"))
        return int(found[0], 16) if found else None

    def has_icon(self):
        return "Icon" in _told("xprop", "-id", self.number, "_NET_WM_ICON")

    def click(self, x, y, **how):
        """Pixels from the upper left of what is inside the frame."""
        left, top, _, _ = self.box()
        desk.click(left + x, top + y, **how)

    def is_in_front(self):
        return _told("xdotool", "getactivewindow").strip() == str(self.number)

    def colours(self, x, y, width, height):
        """How many there are in a part of the window: one where nothing is to be seen."""
        left, top, _, _ = self.box()
        place = f"{width}x{height}+{left + x}+{top + y}"
        return int(_told("import", "-window", "root", "-crop", place, "+repage", "-format", "%k", "info:"))


def windows(title):
    numbers = _told("xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$").split()
    return [Window(int(number)) for number in numbers]


def in_front(title, *others):
    """The window of this title that is none of the others, once it has the keys."""
    def found():
        return next((window for window in windows(title) if window not in others and window.is_in_front()), None)
    return wait_for(f"the window {title!r}", found)


def wait_gone(window):
    title = window.title()
    wait_for(f"{title!r} to go", lambda: window not in windows(title))


def expect_none(title):
    if windows(title):
        raise Mismatch(f"there is a window {title!r}")


def _look(window, path):
    left, top, width, height = window.box()
    _told("import", "-window", "root", "-crop", f"{width}x{height}+{left}+{top}", "+repage", path)
    return path


def settle(window):
    """Waits until the window looks the same for a while, but for a cursor that blinks."""
    with tempfile.TemporaryDirectory() as folder:
        def is_still():
            first, *others = (_look(window, f"{folder}/{number}.png") for number in range(3))
            return all(desk.differing(first, other) < CURSOR for other in others)
        wait_for(f"{window.title()!r} to come to rest", is_still)


@contextmanager
def change(window):
    """Waits for what is done within to show in the window."""
    with tempfile.TemporaryDirectory() as folder:
        before = _look(window, f"{folder}/before.png")
        yield
        wait_for(f"{window.title()!r} to change",
                 lambda: desk.differing(before, _look(window, f"{folder}/now.png")) >= CURSOR)
    settle(window)


def keys(*names):
    """"Tab*3" is three of them. Those who take them hear one after the other."""
    every = []
    for name in names:
        key, _, times = name.partition("*")
        every += [key] * int(times or 1)
    desk.key("--delay", "40", *every)
