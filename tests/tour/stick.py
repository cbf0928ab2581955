"""The memory stick: a real exFAT file system in a loop device where the machine allows it, else a folder."""

import os
import shutil
import subprocess

SIZE = "96M"
# What a PSP makes by itself on a stick that it formats.
FOLDERS = ["psp/music", "psp/photo", "MP_ROOT/100MNV01"]


def _run(*command):
    done = subprocess.run([str(part) for part in command], stdin=subprocess.DEVNULL, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if done.returncode != 0:
        raise OSError(f"{command[0]}: {done.stderr.strip() or done.returncode}")
    return done.stdout.strip()


def _as_root():
    """What to put before a command that only root may run, or None where nobody may."""
    if os.geteuid() == 0:
        return []
    if shutil.which("sudo") and subprocess.run(["sudo", "-n", "true"], stderr=subprocess.DEVNULL).returncode == 0:
        return ["sudo", "-n"]
    return None


class LinkedFolder:
    """Plugging in is making the link drives/X; pulling is removing it."""

    kind = "a folder linked as a drive"

    def __init__(self, place, link):
        self.folder = place / "stick"
        self.link = link
        self.folder.mkdir()
        self._format()

    def _format(self):
        for folder in FOLDERS:
            (self.folder / folder).mkdir(parents=True)

    def plug_in(self):
        self.link.symlink_to(self.folder)

    def pull(self):
        self.link.unlink(missing_ok=True)

    def inspect(self):
        """The stick's folder, to look at while it is pulled; forget() afterwards."""
        return self.folder

    def forget(self):
        pass

    def check(self):
        """Fails where the file system was left damaged."""


class ExFat(LinkedFolder):
    kind = "an exFAT file system in a loop device"

    def __init__(self, place, link, as_root):
        self.as_root = as_root
        self.image = place / "stick.img"
        self.device = None
        _run("truncate", "--size", SIZE, self.image)
        _run(self._tool("mkfs.exfat"), "-L", "TOUR", self.image)
        super().__init__(place, link)

    @staticmethod
    def _tool(name):
        return shutil.which(name, path=os.environ.get("PATH", "") + ":/usr/sbin:/sbin") or name

    def _attach(self):
        self.device = _run(*self.as_root, self._tool("losetup"), "--find", "--show", self.image)
        try:
            _run(*self.as_root, self._tool("mount.exfat-fuse"), "-o",
                 f"noatime,uid={os.getuid()},gid={os.getgid()}", self.device, self.folder)
        except OSError:
            self._detach()
            raise

    def _detach(self):
        if self.device and os.path.ismount(self.folder):
            _run(*self.as_root, "umount", self.folder)
        if self.device:
            _run(*self.as_root, self._tool("losetup"), "--detach", self.device)
        self.device = None

    def _format(self):
        self._attach()
        try:
            super()._format()
        finally:
            self._detach()

    def plug_in(self):
        self._attach()
        super().plug_in()

    def pull(self):
        super().pull()
        self._detach()

    def inspect(self):
        self._attach()
        return self.folder

    def forget(self):
        self._detach()

    def check(self):
        _run(self._tool("fsck.exfat"), "-n", self.image)


def make(place, link):
    """A stick in place (a folder of ours), not plugged in; link is the program's drives/X."""
    as_root = _as_root()
    if as_root is None:
        return LinkedFolder(place, link)
    try:
        return ExFat(place, link, as_root)
    except OSError as refusal:
        print(f"  no loop device here ({refusal})")
        shutil.rmtree(place / "stick", ignore_errors=True)
        return LinkedFolder(place, link)
