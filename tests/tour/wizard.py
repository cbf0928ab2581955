"""The wizard of the first start, as a new user goes through it."""

import re

import desk
from screen import WINDOW
from waiting import wait_for

TITLE = "Tavel Setup Wizard"


class Wizard:
    """A person at the wizard, which is on its first page."""

    def __init__(self, screen):
        self.screen = screen
        self.window = screen.find(WINDOW, TITLE)
        self.next_is(1)

    def next_is(self, page):
        self.screen.find("text", f"Page {page}", inside=self.window)

    def next(self, page):
        """Goes on to a page."""
        self.press("Next >>")
        self.next_is(page)

    def press(self, button):
        self.screen.find("push button", button, inside=self.window).click()

    def check(self, box):
        self.screen.find("check box", box, inside=self.window).click()

    def write(self, box, text):
        """Over what stands in a text box."""
        self.screen.find("text", box, inside=self.window).click()
        desk.key("ctrl+a")
        desk.write(text)

    def text(self, box):
        return self.screen.find("text", box, inside=self.window).text()

    def pick_folder(self, name):
        """Out of the home folder, which the picker starts in."""
        picker = self.screen.find("dialog", "Browse for Folder")
        self.screen.find("table cell", name, inside=picker).click()
        self.answer("Browse for Folder", "OK")

    def answer(self, title, button):
        """Clicks a button of a box, and waits until the box has gone."""
        box = self.screen.find(WINDOW, title)
        self.screen.find("push button", re.compile(f"^&?{button}$"), inside=box).click()
        self.screen.wait_gone(WINDOW, title)

    def close(self):
        """By the close box, as far as the window manager is concerned."""
        wait_for("the wizard in front", lambda: desk.stacking()[-1:] == [TITLE])
        desk.key("alt+F4")
