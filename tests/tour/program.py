"""The program in a folder of its own, as an installation lays it out, and what it leaves in db.txt."""

import os
import re
import shutil
import subprocess
from pathlib import Path

from screen import Screen
from waiting import PATIENCE, wait_for

DATA = Path(__file__).resolve().parents[2] / "data"
MEDIA_FOLDERS = ["Photos/Magazines", "Photos/PhotoAlbums", "Music/Playlists", "Videos/VidSeries", "Videos/Thumbnails"]


class Profile(dict):
    """A profile text as {section: {key: value}}, names in lower case, the first of equals."""

    def __init__(self, path):
        section = None
        for line in path.read_text(encoding="utf-8").splitlines():
            if header := re.match(r"\[(.*?)\]", line):
                section = self.setdefault(header[1].lower(), {})
            elif "=" in line and section is not None and not line.startswith(";"):
                key, value = line.split("=", 1)
                section.setdefault(key.strip().lower(), value.strip())


class Program:
    def __init__(self, place, binary):
        self._keep(place, place / "Tavel", [str(place / "Tavel" / "tavel")])
        self.folder.mkdir()
        shutil.copy(binary, self.folder / "tavel")
        for name in ("UI", "text"):
            shutil.copytree(DATA / name, self.folder / name)
        (self.folder / "drives").mkdir()
        for name in MEDIA_FOLDERS:
            (self.own_media / name).mkdir(parents=True)
        shutil.copy(DATA / "db.txt", self.database)

    def _keep(self, place, folder, command):
        self.folder = folder
        self.command = command
        self.own_media = folder / "Media"
        self.database = folder / "db.txt"
        self.log = place / "tavel.log"
        self.process = None
        self.screen = None

    def version(self):
        """As the program tells it, without any display."""
        environment = {name: value for name, value in os.environ.items() if name != "DISPLAY"}
        told = subprocess.run([*self.command, "--version"], env=environment, stdout=subprocess.PIPE, text=True, check=True)
        return told.stdout.removesuffix("\n")

    def skip_the_wizard(self):
        """As though it had been finished at an earlier start."""
        self.set_option("bFirstTime", 0)

    def set_option(self, name, value):
        """By hand in db.txt, between two sessions."""
        text = self.database.read_bytes().decode("utf-8")
        changed = re.sub(rf"(?im)^{name}=.*?(\r?)$", rf"{name}={value}\1", text)
        self.database.write_bytes(changed.encode("utf-8"))

    def drive(self, letter):
        """Where a folder is linked as a removable drive."""
        return self.folder / "drives" / letter

    def launch(self):
        with open(self.log, "ab") as log:
            # From a folder of no meaning: the program finds its own by itself. It has no such options,
            # so what would leave it without a display does nothing.
            return Screen(subprocess.Popen([*self.command, "-platform", "none"], cwd="/",
                                           stdin=subprocess.DEVNULL, stdout=log, stderr=log))

    def start(self):
        self.screen = self.launch()
        self.process = self.screen.process
        return self.screen

    def wait_for_end(self):
        wait_for("the program's end", lambda: self.process.poll() is not None, 2 * PATIENCE)
        return self.process.returncode

    def kill(self):
        if self.process and self.process.poll() is None:
            self.process.kill()
            self.process.wait()

    def output(self):
        """What the program wrote to its terminal."""
        return self.log.read_text(errors="replace") if self.log.exists() else ""

    def add_to_library(self, entries):
        """Writes library entries ({key: value} each) into the installed db.txt, before a start."""
        lines = []
        for number, entry in enumerate(entries, 1):
            lines += [f"[{number}]", *(f"{key}={value}" for key, value in entry.items())]
        installed = self.database.read_bytes()
        counted = installed.replace(b"NoOfItems=0", f"NoOfItems={len(entries)}".encode())
        self.database.write_bytes(counted + "".join(line + "\r\n" for line in lines).encode())

    def profile(self):
        return Profile(self.database)

    def library(self):
        """The live numbered sections, in order."""
        profile = self.profile()
        return [profile[str(i + 1)] for i in range(int(profile["db"]["noofitems"]))]
