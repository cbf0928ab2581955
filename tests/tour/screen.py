"""What the program shows, read as a screen reader reads it: roles, names, places on the screen."""

import re

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

import desk  # noqa: E402
from waiting import Mismatch, wait_for  # noqa: E402

WINDOW = "window"  # stands for all kinds of windows
WINDOWS = ["frame", "dialog", "alert", "filler"]  # the last for windows that are plain widgets


class Node:
    """One thing on the screen."""

    def __init__(self, accessible):
        self.accessible = accessible
        self.role = accessible.get_role_name()
        self.name = accessible.get_name()

    def __repr__(self):
        return f"{self.role} {self.name!r}"

    def children(self):
        for index in range(self.accessible.get_child_count()):
            child = self.accessible.get_child_at_index(index)
            if child is not None:
                yield Node(child)

    def is_in_state(self, state):
        return self.accessible.get_state_set().contains(state)

    def is_showing(self):
        return self.is_in_state(Atspi.StateType.SHOWING)

    def is_enabled(self):
        return self.is_in_state(Atspi.StateType.ENABLED)

    def box(self):
        box = self.accessible.get_extents(Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    def centre(self):
        x, y, width, height = self.box()
        return x + width // 2, y + height // 2

    def click(self, button=1, times=1):
        desk.click(*self.centre(), button=button, times=times)

    def text(self):
        """What stands in a text box."""
        text = self.accessible.get_text_iface()
        return text.get_text(0, text.get_character_count())

    def everything(self):
        """This and what shows below it."""
        yield self
        for child in self.children():
            if child.is_showing():
                yield from child.everything()

    def is_called(self, name):
        """name: a text, a pattern for a part of the name, or None for any name."""
        if isinstance(name, re.Pattern):
            return bool(name.search(self.name))
        return name in (None, self.name)

    def all(self, role, name=None):
        roles = WINDOWS if role == WINDOW else [role]
        return [node for node in self.everything() if node.role in roles and node.is_called(name)]


class Announcements:
    """The menu entries that get the highlight, one after the other, as a screen reader reads them out. Pop-up menus
    are not among a process's windows, so this is the way to see into them."""

    def __init__(self):
        self.names = []
        self.listener = Atspi.EventListener.new(self._hear)
        self.listener.register("object:state-changed:focused")

    def _hear(self, event):
        try:
            if event.detail1 and event.source.get_role_name() == "menu item":
                self.names.append(event.source.get_name())
        except GLib.Error:
            pass  # gone again before it could be asked

    def _next(self):
        while GLib.MainContext.default().iteration(False):
            pass
        return self.names.pop(0) if self.names else None

    def forget(self):
        while self._next():
            pass

    def next(self):
        return wait_for("a highlighted menu entry", self._next)


class Screen:
    """The windows of one process."""

    def __init__(self, process):
        Atspi.init()
        self.process = process

    def _application(self):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application is not None and application.get_process_id() == self.process.pid:
                application.set_cache_mask(Atspi.Cache.NONE)
                return Node(application)
        return None

    def _look(self, role, name, inside):
        if self.process.poll() is not None:
            raise Mismatch(f"the program ended with status {self.process.returncode} "
                           f"while {role} {name!r} was expected")
        try:
            top = inside or self._application()
            return top.all(role, name) if top else []
        except GLib.Error:
            return []  # something went off the screen during the look

    def has(self, role, name=None, inside=None):
        return bool(self._look(role, name, inside))

    def find(self, role, name=None, inside=None):
        """The first one that shows, as soon as it shows."""
        return wait_for(f"{role} {name!r}", lambda: self._look(role, name, inside))[0]

    def find_window_of_busy(self, title):
        """A window of a program that takes its time for each thing it is asked: nothing but windows is looked at,
        once the window manager has placed it."""
        wait_for(f"window {title!r}", lambda: title in desk.stacking())
        windows = self._application().children
        return wait_for(f"window {title!r}", lambda: [node for node in windows() if node.name == title])[0]

    def wait_gone(self, role, name, inside=None):
        wait_for(f"the end of {role} {name!r}", lambda: not self._look(role, name, inside))

    def rows(self, table, columns):
        """The cells of a list as a person reads them, one list of texts a row."""
        texts = [cell.name for cell in table.all("table cell")]
        return [texts[i:i + columns] for i in range(0, len(texts), columns)]
