"""Tavel's folder for Windows on a Wine of its own."""

import os
import shutil
import subprocess
from pathlib import Path

from program import Program
from waiting import PATIENCE, wait_for

TOOLS = Path("/usr/lib/wine")
FONTS = Path("/usr/share/wine/fonts")
NOTHING_BESIDE = "winedbg.exe=d;winemenubuilder.exe=d"  # a crash is told by the status, not in a box


class WineProgram(Program):
    """What is in the folder of the Linux program is looked at in the same way here."""

    def __init__(self, place, folder):
        self.prefix = place / "wine"
        os.environ.update(WINEPREFIX=str(self.prefix), WINEDEBUG="-all", WINEDLLOVERRIDES=NOTHING_BESIDE)
        self._keep(place, self.drive_c / "Tavel", [str(TOOLS / "wine64"), str(self.drive_c / "Tavel" / "Tavel.exe")])
        self._wine("wineboot", "--init")
        for font in FONTS.glob("tahoma*.ttf"):
            shutil.copy(font, self.drive_c / "windows" / "Fonts")
        self._wine("reg", "add", r"HKLM\Software\Wine\Drives", "/v", "e:", "/d", "floppy", "/f")
        self.restart()
        shutil.copytree(folder, self.folder)

    @property
    def drive_c(self):
        return self.prefix / "drive_c"

    def drive(self, letter):
        """Where a folder is linked as a drive."""
        return self.prefix / "dosdevices" / f"{letter.lower()}:"

    def _wine(self, *command, check=True):
        with open(self.log, "ab") as log:
            return subprocess.run([TOOLS / "wine64", *command], check=check, stdin=subprocess.DEVNULL, stdout=log,
                                  stderr=log)

    def restart(self):
        """What the registry tells of drives and of the desktop counts from then on. A drive whose link is there now
        comes and goes with it later."""
        self._shut_down()
        link = self.drive("E")
        link.symlink_to(self.prefix)
        subprocess.run([TOOLS / "wineserver64", "--persistent"], check=True)
        self._wine("wineboot")
        link.unlink()

    @staticmethod
    def _shut_down():
        subprocess.run([TOOLS / "wineserver64", "--kill"], check=False)
        subprocess.run([TOOLS / "wineserver64", "--wait"], check=True)

    def set_dots_per_inch(self, dots):
        self._wine("reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD", "/d", str(dots),
                   "/f")
        self.restart()

    def end_session(self):
        """As a person logs off: every program is asked. False when one has refused."""
        return self._wine("wineboot", "--end-session", check=False).returncode == 0

    def launch(self):
        """From a folder of no meaning: the program finds its own by itself."""
        with open(self.log, "ab") as log:
            return subprocess.Popen(self.command, cwd="/", stdin=subprocess.DEVNULL, stdout=log, stderr=log)

    def start(self):
        self.process = self.launch()
        return self.process

    def wait_for_end(self):
        wait_for("the program's end", lambda: self.process.poll() is not None, 2 * PATIENCE)
        return self.process.returncode

    def kill(self):
        super().kill()
        self._shut_down()
