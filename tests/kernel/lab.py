"""Where the cases work: machines with a library, sticks, and what is on them."""

import initrd
from library import Library
from machine import Machine
from sending import NAME
from stick import Stick, digests
from waiting import Mismatch, check

# As desktops mount sticks. With "flush" the kernel writes what a closed file holds soon after.
PLAIN = "utf8=1,shortname=mixed"
FLUSHED = "flush,utf8=1,shortname=mixed"
EXFAT = "iocharset=utf8,errors=remount-ro"
# What a PSP makes by itself on a stick that it formats.
FOLDERS = ["PSP/MUSIC", "PSP/PHOTO", "MP_ROOT/100MNV01"]


class Lab:
    def __init__(self, place, kernel, driver):
        self._place = place
        self._kernel = kernel
        self._driver = driver

    def machine(self, library):
        archive = initrd.make(self._place, self._kernel, self._driver, library)
        return Machine(self._place, next(self._kernel.glob("boot/vmlinuz-*")), archive)

    def stick(self, kind, mebibytes=300):
        return Stick(self._place, "PSP", kind, mebibytes)

    def _digests_on(self, stick):
        """The only reader of exFAT is the kernel."""
        if stick.file_system == "vfat":
            return digests(stick.files())
        with self.machine(Library()) as machine:
            put_in(machine, stick, f"ro,{EXFAT}")
            return machine.digests_in(stick.folder)

    def check_files(self, stick, expected):
        """A stick that is in no machine holds these {path: bytes} and no others."""
        found, expected = self._digests_on(stick), digests(expected)
        wrong = [f"  {path}: {'missing' if path not in found else 'damaged' if path in expected else 'not expected'}"
                 for path in sorted({*found, *expected}) if found.get(path) != expected.get(path)]
        if wrong:
            raise Mismatch("\n".join(["the files on the stick:", *wrong]))


def put_in(machine, stick, options, **how):
    machine.plug_in(stick, **how)
    machine.mount(stick, options)


def take_out(machine, stick):
    machine.run("umount", stick.folder)
    machine.pull(stick)


def prepare(machine, stick, options):
    """A stick as a PSP formats it is put in; nothing of that is unwritten."""
    put_in(machine, stick, options)
    machine.run("mkdir", "-p", *(f"{stick.folder}/{folder}" for folder in FOLDERS))
    machine.run("sync")


def make_psp(machine, stick, options, older=()):
    """The same with the program's identity file, and with older files of these names."""
    prepare(machine, stick, options)
    machine.run("/Tavel/tavel", "setup", "d:", NAME)
    for path in older:
        machine.run("cp", "/bin/busybox", f"{stick.folder}/{path}")
    machine.run("sync")


def check_sound(stick, allowed=()):
    faults = [line for line in stick.faults() if not any(pattern.fullmatch(line) for pattern in allowed)]
    check("the file system's faults", faults, [])
