"""What is on a stick when something goes wrong. Each entry of CASES is a test: (what to do, with what)."""

import re

from lab import EXFAT, FLUSHED, PLAIN, check_same, check_sound, make_folders, make_psp, prepare, put_in, take_out
from library import Library
from sending import NAME, Sending, identity
from waiting import check, wait_for

TAVEL = "/Tavel/tavel"
GONE = "Run-time error '76': Path not found"
DISK_FULL = "Run-time error '61': Disk full"
PERMISSION_DENIED = "Run-time error '70': Permission denied"
IDENTITY_FILE = "TavelDataFile.tavel"
FIRST_VIDEO = "MP_ROOT/100MNV01/M4V10001.mp4"
# Clusters that belonged to a file when the stick was pulled, before the file's end was known.
LOST_CLUSTERS = re.compile(r"Reclaimed \d+ unused clusters? \(\d+ bytes\)\.")


def power_cut_after_setup(lab, kind, options):
    """A new PSP's identity file is whole when "Setup New PSP" closes."""
    stick = lab.stick(kind)
    with lab.machine(Library()) as machine:
        prepare(machine, stick, options)
        machine.run(TAVEL, "setup", "d:", NAME)
    lab.check_files(stick, {IDENTITY_FILE: identity()})
    check_sound(stick)


def power_cut_at_finished(lab, kind, options):
    """All that was sent is whole, and the identity file with it."""
    sending = Sending()
    stick = lab.stick(kind)
    with lab.machine(sending.library) as machine:
        make_psp(machine, stick, options, older=sending.older)
        machine.start(TAVEL, "send", *sending.ids)
        machine.wait_for_line("Finished!")
    lab.check_files(stick, sending.files())
    check_sound(stick)


def power_cut_after_a_move(lab, kind, options):
    """A file that has moved on the stick, or to it, is whole in its new place and nowhere else."""
    library = Library()
    beach = library.item("photo", "Beach", 200_000)
    sunset = library.item("photo", "Sunset", 300_000)
    stick = lab.stick(kind)
    with lab.machine(library) as machine:
        make_psp(machine, stick, options)
        machine.run(TAVEL, "send", beach)
        machine.run(TAVEL, "move", r"d:\PSP\PHOTO\Beach.jpg", r"d:\OWN1\The beach of the old town.jpg")
        machine.run(TAVEL, "move", library.path_of(sunset), r"d:\OWN1\Sunset.jpg")
    lab.check_files(stick, {IDENTITY_FILE: identity(), "OWN1/The beach of the old town.jpg": library.bytes_of(beach),
                            "OWN1/Sunset.jpg": library.bytes_of(sunset)})
    check_sound(stick)


class Film:
    """A library with a film and a magazine that take a while to copy."""

    def __init__(self):
        self.library = Library()
        self.before = self.library.item("photo", "Before", 100_000)
        self.after = self.library.item("photo", "After", 100_000)
        self.film = self.library.item("video", "Film", 24_000_000)
        self.poster = self.library.item("photo", "Poster", 24_000_000)
        self.magazine = self.library.group("magazine", "Films", [self.before, self.poster, self.after])

    def files(self, *names):
        of = self.library.bytes_of
        known = {
            FIRST_VIDEO: of(self.film),
            "PSP/PHOTO/Before.jpg": of(self.before),
            "PSP/PHOTO/After.jpg": of(self.after),
            "PSP/PHOTO/Films/Before.jpg": of(self.before),
            "PSP/PHOTO/Films/Poster.jpg": of(self.poster),
            "PSP/PHOTO/Films/After.jpg": of(self.after),
        }
        return {name: known[name] for name in names or known}


def pull_while_sending(machine, stick, ids, desktop_unmounts):
    """The lines and the status of a run whose stick is pulled in the middle of a large file. With a desktop the
    stick is unmounted before the program notices anything, without one it stays mounted to the program's end. What the
    stick leaves are folders in which every file would find its place."""
    enough = 4_000_000
    make_folders(machine, stick)
    put_in(machine, stick, PLAIN, bytes_per_second=2_000_000)
    if desktop_unmounts:
        machine.start(TAVEL, "send", *ids, beside=["hold_when_written", stick.folder, str(enough)])
        machine.wait_for_line("Held")
    else:
        machine.start(TAVEL, "send", *ids)
        wait_for("part of a file on the stick", lambda: machine.written(stick) > enough)
    machine.pull(stick)
    lines, status = machine.finish()
    if not desktop_unmounts:
        machine.run("umount", "-l", stick.folder)
    check("what was written into the mount folder", machine.run("find", stick.folder, "-type", "f"), [])
    check("the program's status", status, 1)
    return lines


def send_again(machine, lab, stick, film):
    """The stick is put back, and takes all that it is sent."""
    put_in(machine, stick, PLAIN)
    machine.start(TAVEL, "send", film.before, film.film, film.after, film.magazine)
    machine.wait_for_line("Finished!")
    machine.cut_power()
    lab.check_files(stick, {IDENTITY_FILE: identity(["Film"]), **film.files()})
    check_sound(stick, allowed=[LOST_CLUSTERS])


def pulled_in_a_copy(lab):
    """A pulled stick is passed over until the run's end, which is the program's."""
    film = Film()
    stick = lab.stick("FAT32")
    with lab.machine(film.library) as machine:
        make_psp(machine, stick, PLAIN)
        take_out(machine, stick)
        for desktop_unmounts in (True, False):
            lines = pull_while_sending(machine, stick, [film.before, film.film, film.after], desktop_unmounts)
            check("what the program says", lines[-3:], ["Copying: After", "Finished!", GONE])
            lab.check_files(stick, {IDENTITY_FILE: identity(), **film.files("PSP/PHOTO/Before.jpg")})
            check_sound(stick, allowed=[LOST_CLUSTERS])
        send_again(machine, lab, stick, film)


def pulled_in_a_page(lab):
    """A pulled stick ends the program at once."""
    film = Film()
    stick = lab.stick("FAT32")
    with lab.machine(film.library) as machine:
        make_psp(machine, stick, PLAIN)
        take_out(machine, stick)
        for desktop_unmounts in (True, False):
            lines = pull_while_sending(machine, stick, [film.magazine, film.after], desktop_unmounts)
            check("what the program says last", lines[-1].split("'")[0], "Run-time error ")
            check("whether it went on", "Copying: After" in lines, False)
            lab.check_files(stick, {IDENTITY_FILE: identity(), **film.files("PSP/PHOTO/Films/Before.jpg")})
            check_sound(stick, allowed=[LOST_CLUSTERS])
        send_again(machine, lab, stick, film)


def full_stick(lab, kind, options):
    """A page that does not fit ends the program and leaves nothing of itself. What goes by the chunked copy is cut
    short without a word, and the title still finds its place."""
    library = Library()
    pages = {f"PSP/PHOTO/Large/Page {number}.jpg": library.item("photo", f"Page {number}", 1_600_000)
             for number in range(12)}
    magazine = library.group("magazine", "Large", pages.values())
    film = library.item("video", "Film", 3_000_000)
    stick = lab.stick(kind, mebibytes=16)
    with lab.machine(library) as machine:
        make_psp(machine, stick, options)
        machine.start(TAVEL, "send", magazine)
        check("what the program says", machine.finish(), ([f"{NAME} Connected", "Copying: Large", DISK_FULL], 1))
        machine.start(TAVEL, "send", film)
        machine.wait_for_line("Finished!")
    found = lab.files_on(stick)
    cut_short = found[FIRST_VIDEO]
    fitted = list(pages.items())[:len(found) - 2]
    check_same(found, {IDENTITY_FILE: identity(["Film"]), FIRST_VIDEO: cut_short,
                       **{path: library.bytes_of(page) for path, page in fitted}})
    check("whether the film begins as it should", library.bytes_of(film).startswith(cut_short), True)
    check("whether a part of it fitted, and of the pages", (0 < len(cut_short) < 1_600_000, 0 < len(fitted) < 12),
          (True, True))
    check_sound(stick)


def read_only_stick(lab):
    """A write-protected stick takes nothing, and nothing on it changes."""
    film = Film()
    stick = lab.stick("FAT32")
    with lab.machine(film.library) as machine:
        make_psp(machine, stick, PLAIN)
        take_out(machine, stick)
        before = stick.image.read_bytes()
        put_in(machine, stick, PLAIN, is_read_only=True)
        machine.start(TAVEL, "send", film.before, film.film)
        check("what the program says", machine.finish(),
              ([f"{NAME} Connected", "Copying: Before", "Copying: Film", "Finished!"], 0))
        machine.start(TAVEL, "send", film.magazine)
        check("what the program says", machine.finish(),
              ([f"{NAME} Connected", "Copying: Films", PERMISSION_DENIED], 1))
        take_out(machine, stick)
        check("whether the stick is as it was", stick.image.read_bytes() == before, True)


CASES = {
    "power_cut_after_setup_on_vfat": (power_cut_after_setup, ["FAT32", PLAIN]),
    "power_cut_after_setup_on_exfat": (power_cut_after_setup, ["exFAT", EXFAT]),
    "power_cut_at_finished_on_vfat": (power_cut_at_finished, ["FAT32", PLAIN]),
    "power_cut_at_finished_on_vfat_with_flush": (power_cut_at_finished, ["FAT32", FLUSHED]),
    "power_cut_at_finished_on_exfat": (power_cut_at_finished, ["exFAT", EXFAT]),
    "power_cut_after_a_move_on_vfat": (power_cut_after_a_move, ["FAT32", PLAIN]),
    "power_cut_after_a_move_on_exfat": (power_cut_after_a_move, ["exFAT", EXFAT]),
    "stick_pulled_in_a_copy": (pulled_in_a_copy, []),
    "stick_pulled_in_a_page": (pulled_in_a_page, []),
    "full_stick_of_vfat": (full_stick, ["FAT16", PLAIN]),
    "full_stick_of_exfat": (full_stick, ["exFAT", EXFAT]),
    "read_only_stick": (read_only_stick, []),
}
