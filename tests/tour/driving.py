"""What the tours do over and over: menus, boxes, lists."""

import re

import desk
from screen import WINDOW, Announcements
from waiting import Mismatch, check, wait_for


class Driver:
    """A person at the program's main window."""

    def __init__(self, screen):
        self.screen = screen
        self.announcements = Announcements()
        self.window = screen.find(WINDOW, "Tavel")
        self.categories = screen.find("tree", "Library categories")
        self.items = screen.find("tree", "Items")
        self.transfers = screen.find("tree", "Transfer list")

    def devices(self):
        return self.screen.find("tree", "PSP categories")

    def menu(self, *path):
        """Clicks its way down the menu bar."""
        for entry in path:
            self.screen.find("menu item", entry).click()

    def menu_of(self, row, *path):
        """Right click on a row of the item list, then arrow keys and Enter."""
        self.announcements.forget()
        self.cell(self.items, row).click(button=3)
        for entry in path[:-1]:
            self._highlight(entry, "Down")
            desk.key("Right")
        self._highlight(path[-1], "Down" if len(path) == 1 else None)
        desk.key("Return")

    def _highlight(self, entry, first_key):
        """Goes down the open menu; a submenu has its first entry highlighted already."""
        if first_key:
            desk.key(first_key)
        heard = [self.announcements.next()]
        while heard[-1] != entry:
            if heard[-1] in heard[:-1]:
                raise Mismatch(f"no {entry!r} in the menu, only {heard}")
            desk.key("Down")
            heard.append(self.announcements.next())

    def cell(self, table, name):
        return self.screen.find("table cell", name, inside=table)

    def pick(self, tree, name):
        """Clicks a category and waits until the tree has it selected."""
        self.cell(tree, name).click()

    def unfold(self, tree, name, child):
        """Opens a branch with a double click on its name, unless it is open."""
        if not self.screen.has("table cell", child, inside=tree):
            self.cell(tree, name).click(times=2)
            self.cell(tree, child)

    def select(self, first, *more):
        """Selects these rows of the item list."""
        self.cell(self.items, first).click()
        for name in more:
            desk.click_with("ctrl", *self.cell(self.items, name).centre())

    def rows(self, table, columns):
        return self.screen.rows(table, columns)

    def expect_rows(self, what, table, columns, expected):
        """Rows as texts, shown in whatever order the platform lists files in."""
        wanted = sorted(expected)

        def shown():
            return sorted(row[:len(wanted[0])] for row in self.rows(table, columns)) == wanted
        try:
            wait_for(what, shown)
        finally:
            if not shown():
                print(f"  {what}: {self.rows(table, columns)}")

    def answer(self, title, button):
        """Clicks a button of a box, and waits until the box has gone."""
        box = self.screen.find(WINDOW, title)
        self.screen.find("push button", re.compile(f"^&?{button}$"), inside=box).click()
        self.screen.wait_gone(WINDOW, title)

    def name_group(self, name):
        box = self.screen.find(WINDOW, "Name Group")
        entry = self.screen.find("text", inside=box)
        check("the proposed name", entry.text(), "New Group")
        desk.key("ctrl+a")
        desk.write(name)
        desk.key("Return")
        self.screen.wait_gone(WINDOW, "Name Group")

    def rename(self, row, name):
        self.menu_of(row, "Rename")
        desk.key("ctrl+a")
        desk.write(name)
        desk.key("Return")
        self.cell(self.items, name)

    def drag(self, row, target):
        """Drags a row of the item list into the middle of another control. It is taken at its left end: a press
        where the row was just clicked would make a double click."""
        x, y, _, height = self.cell(self.items, row).box()
        desk.drag((x + 6, y + height // 2), target.centre())
