"""A machine with Debian's own kernel, in QEMU: a shell on its serial line, USB ports that take sticks."""

import shlex
import subprocess

from lines import Lines, Monitor
from waiting import Mismatch, wait_for

QEMU = "qemu-system-x86_64"
# The kernel's check that its timer ticks fails, and ends it, where this computer is busy at that moment.
KERNEL_WORDS = "console=ttyS0 quiet panic=-1 no_timer_check"


class Machine:
    """Runs as long as its with block, whose end is a power cut."""

    def __init__(self, place, kernel, initrd):
        self._log = place / "console.log"
        for name in ("monitor", "shell"):
            (place / name).unlink(missing_ok=True)
        self._process = subprocess.Popen(
            [QEMU, "-accel", "tcg,thread=multi", "-m", "384", "-nodefaults", "-display", "none", "-no-reboot",
             "-kernel", str(kernel), "-initrd", str(initrd), "-append", KERNEL_WORDS,
             "-serial", f"file:{self._log}", "-serial", f"unix:{place / 'shell'},server=on,wait=off",
             "-qmp", f"unix:{place / 'monitor'},server=on,wait=off", "-device", "qemu-xhci,id=usb"],
            stdin=subprocess.DEVNULL)
        try:
            self._monitor = Monitor(place / "monitor")
            self._shell = Lines(place / "shell")
            self.finish()
        except BaseException:
            self.cut_power()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.cut_power()

    def cut_power(self):
        """Before the end of the block. What the kernel has not written by now is lost."""
        self._process.kill()
        self._process.wait()

    def start(self, *words, beside=()):
        """Starts a command, with another beside it; one at a time."""
        self._shell.send((f"{shlex.join(beside)} & " if beside else "") + shlex.join(words))

    def wait_for_line(self, text):
        """The lines of the running command up to that one."""
        return self._lines_until(lambda line: line == text, repr(text))

    def finish(self):
        """The further lines of the running command, and its status."""
        lines = self._lines_until(lambda line: line.startswith("status "), "the end of a command")
        return lines[:-1], int(lines[-1].removeprefix("status "))

    def run(self, *words):
        """The lines of a command that must not fail."""
        self.start(*words)
        lines, status = self.finish()
        if status != 0:
            raise Mismatch("\n".join([f"{shlex.join(words)} ended with {status}:", *lines]))
        return lines

    def _lines_until(self, is_last, what):
        lines = []
        while not lines or not is_last(lines[-1]):
            try:
                lines.append(self._shell.receive(what))
            except Mismatch as mismatch:
                kernel = self._log.read_text(errors="replace") if self._log.exists() else ""
                raise Mismatch("\n".join([f"{mismatch}, after:", *lines, "The kernel's messages:", kernel])) from None
        return lines

    def plug_in(self, stick, is_read_only=False, bytes_per_second=0):
        """The stick takes writes as slowly as told, by default as fast as the machine can send them."""
        pace = f"{stick.name}-pace"
        self._monitor.ask("object-add", **{"qom-type": "throttle-group", "id": pace,
                                           "x-bps-write": bytes_per_second, "x-bps-write-max": bytes_per_second})
        # The power that fails is the machine's: this computer's memory keeps what the machine has written.
        medium = {"driver": "file", "filename": str(stick.image), "read-only": is_read_only,
                  "cache": {"no-flush": True}}
        self._monitor.ask("blockdev-add", **{"driver": "throttle", "node-name": stick.name, "throttle-group": pace,
                                             "read-only": is_read_only, "file": medium})
        self._monitor.ask("device_add", driver="usb-storage", bus="usb.0", id=f"{stick.name}-device",
                          drive=stick.name, removable=True)

    def pull(self, stick):
        self._monitor.ask("device_del", id=f"{stick.name}-device")
        self._monitor.wait_for_event("DEVICE_DELETED")
        # QEMU lets go of the image a little later.
        wait_for("the stick's image", lambda: self._monitor.does("blockdev-del", **{"node-name": stick.name}))
        self._monitor.ask("object-del", id=f"{stick.name}-pace")

    def written(self, stick):
        """The bytes that the stick has been given to write since it was plugged in."""
        return next(block["stats"]["wr_bytes"] for block in self._monitor.ask("query-blockstats")
                    if f"/{stick.name}-device/" in block.get("qdev", ""))

    def mount(self, stick, options):
        """In its folder below /media, as soon as the kernel knows it."""
        self.run("mount_stick", stick.name, stick.file_system, options, stick.folder)
