"""A memory stick: the image of a disk with one partition, and what is on it when nobody uses it."""

import re
import shutil
import struct
import subprocess

MEBIBYTE = 1 << 20
SECTOR = 512
# The file system's name in the kernel, its partition's type, how it is made and checked.
FORMATS = {
    "FAT16": ("vfat", 0x06, ["mkfs.vfat", "-F", "16", "-n"], "fsck.vfat"),
    "FAT32": ("vfat", 0x0C, ["mkfs.vfat", "-F", "32", "-n"], "fsck.vfat"),
    "exFAT": ("exfat", 0x07, ["mkfs.exfat", "-L"], "fsck.exfat"),
}
# What the checkers say of any stick, and of any that was not unmounted.
NO_FAULT = re.compile(
    r"fsck\.fat |exfatprogs version|There are differences between boot sector and its backup\.|"
    r"This is mostly harmless\.|  65:01/00|  Not automatically fixing this\.|"
    r"Dirty bit is set\.| Automatically removing dirty bit\.|"
    r"Free cluster summary wrong|  Auto-correcting\.|Leaving filesystem unchanged\.|"
    r".*: \d+ files, \d+/\d+ clusters|.*: clean\. directories \d+, files \d+|$")


def _run(*command, **options):
    words = [shutil.which(command[0]) or shutil.which(command[0], path="/usr/sbin:/sbin") or command[0], *command[1:]]
    return subprocess.run([str(word) for word in words], text=True, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options)


class Stick:
    def __init__(self, place, name, kind, mebibytes):
        self.name = name
        self.folder = f"/media/{name}"
        self.image = place / f"{name}.img"
        self._partition = place / f"{name}.partition"
        self.file_system, number, formatter, self._checker = FORMATS[kind]
        self._partition.unlink(missing_ok=True)
        _run("truncate", "--size", mebibytes * MEBIBYTE, self._partition, check=True)
        _run(*formatter, name, self._partition, check=True)
        self._write_image(number, mebibytes)

    def _write_image(self, number, mebibytes):
        self.image.unlink(missing_ok=True)
        _run("dd", f"if={self._partition}", f"of={self.image}", "bs=1M", "seek=1", "conv=sparse", check=True)
        entry = struct.pack("<B3sB3sII", 0, b"", number, b"", MEBIBYTE // SECTOR, mebibytes * MEBIBYTE // SECTOR)
        with open(self.image, "r+b") as image:
            image.seek(446)
            image.write(entry.ljust(64, b"\0") + b"\x55\xaa")

    def _take_partition(self):
        """The file with the partition as it now is on the stick."""
        self._partition.unlink()
        _run("dd", f"if={self.image}", f"of={self._partition}", "bs=1M", "skip=1", "conv=sparse", check=True)
        return self._partition

    def faults(self):
        """What the file system's checker complains of, beside that the stick was not unmounted."""
        lines = _run(self._checker, "-n", self._take_partition()).stdout.splitlines()
        return [line for line in lines if not NO_FAULT.match(line)]

    def files(self):
        """{path: bytes} of what is on a FAT stick, as mtools reads it."""
        folder = self._partition.with_suffix(".files")
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir()
        _run("mcopy", "-s", "-m", "-Q", "-i", self._take_partition(), "::", folder)
        return {str(path.relative_to(folder)): path.read_bytes() for path in folder.rglob("*") if path.is_file()}
