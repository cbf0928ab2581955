"""Where the cases work: machines with a library, sticks, and what is on them."""

import initrd
from library import Library
from machine import Machine
from sending import NAME
from stick import Stick
from waiting import Mismatch, check

# As desktops mount sticks. With "flush" the kernel writes what a closed file holds soon after.
PLAIN = "utf8=1,shortname=mixed"
FLUSHED = "flush,utf8=1,shortname=mixed"
EXFAT = "iocharset=utf8,errors=remount-ro"
# What a PSP makes by itself on a stick that it formats, and as many folders of its owner's as let the identity file's
# entry end with the first sector of the root: the entry of its successor is in the next one then.
FOLDERS = ["PSP/MUSIC", "PSP/PHOTO", "MP_ROOT/100MNV01", *(f"OWN{number}" for number in range(10))]


class Lab:
    def __init__(self, place, kernel, driver):
        self._place = place
        self._kernel = kernel
        self._driver = driver

    def machine(self, library):
        archive = initrd.make(self._place, self._kernel, self._driver, library)
        return Machine(self._place, next(self._kernel.glob("boot/vmlinuz-*")), archive)

    def stick(self, kind, name="PSP", mebibytes=300):
        return Stick(self._place, name, kind, mebibytes)

    def files_on(self, stick):
        """{path: bytes} of a stick that is in no machine. Only the kernel reads exFAT; it copies what is there to FAT."""
        if stick.file_system == "vfat":
            return stick.files()
        copy = self.stick("FAT32", "COPY")
        with self.machine(Library()) as machine:
            put_in(machine, stick, f"ro,{EXFAT}")
            put_in(machine, copy, PLAIN)
            machine.run("cp", "-r", f"{stick.folder}/.", copy.folder)
            machine.run("umount", copy.folder)
        return copy.files()

    def check_files(self, stick, expected):
        check_same(self.files_on(stick), expected)


def check_same(found, expected):
    """Both are all {path: bytes} of a stick."""
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


def make_folders(machine, stick):
    """On the stick, or in its mount folder while it is not mounted."""
    machine.run("mkdir", "-p", *(f"{stick.folder}/{folder}" for folder in FOLDERS))


def prepare(machine, stick, options):
    """A stick that a PSP has formatted is put in; nothing of that is unwritten."""
    put_in(machine, stick, options)
    make_folders(machine, stick)
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
