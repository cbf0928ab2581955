"""What the tours share: a desk, a program folder, a stick, numbered screenshots."""

import argparse
import shutil
import sys
import tempfile
from contextlib import nullcontext
from pathlib import Path

import stick as sticks
from desk import HOME, Desk
from driving import Driver
from program import Program
from waiting import Mismatch, check

ROOT = Path(__file__).resolve().parents[2]


class Session:
    """Derive from it and give it a go()."""

    program_kind = Program

    def __init__(self, place, binary, pictures):
        self.place = place
        self.home = place / HOME
        self.pictures = pictures
        self.stage = 0
        self.program = self.program_kind(place, binary)
        self.stick = sticks.make(place, self.program.drive("E"))
        print(f"The stick is {self.stick.kind}.", flush=True)

    def picture(self, name, text):
        self.stage += 1
        print(f"{self.stage:02}  {text}", flush=True)
        Desk.screenshot(self.pictures / f"{self.stage:02}-{name}.png")

    def start(self):
        self.screen = self.program.start()
        self.user = Driver(self.screen)

    def quit(self):
        self.user.menu("File", "Exit")
        check("the program's status", self.program.wait_for_end(), 0)

    def on_stick(self, path):
        return self.program.drive("E") / path

    def clean_up(self):
        self.program.kill()
        self.stick.pull()


def run(description, kind, pictures_folder):
    """The command line of a tour: runs it, and tells a mismatch by text, a last screenshot and the status."""
    arguments = argparse.ArgumentParser(description=description, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("program", type=Path)
    arguments.add_argument("pictures", type=Path, nargs="?", default=ROOT / pictures_folder)
    arguments.add_argument("--place", type=Path, help="an empty folder to work in (default: a temporary one)")
    given = arguments.parse_args()
    pictures = given.pictures.resolve()
    shutil.rmtree(pictures, ignore_errors=True)
    pictures.mkdir(parents=True)
    working = nullcontext(given.place) if given.place else tempfile.TemporaryDirectory(prefix="tavel-tour.")
    with working as place, Desk(Path(place)):
        session = kind(Path(place), given.program, pictures)
        try:
            session.go()
        except Mismatch as mismatch:
            Desk.screenshot(pictures / "99-mismatch.png")
            print(f"MISMATCH: {mismatch}\n{session.program.output()}", file=sys.stderr)
            return 1
        finally:
            session.clean_up()
    print(f"The screenshots are in {pictures}")
    return 0
