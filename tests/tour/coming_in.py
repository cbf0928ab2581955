"""What comes in after the first start: an archive, a thumbnail, new files in a watched folder."""

import re
import subprocess

import desk
import media
from screen import WINDOW
from session import Session
from waiting import check, wait_for

ARCHIVE = "The Old Harbour.zip"
PAGES = ["Page 1.jpg", "Page 2.jpg", "Page 3.jpg"]
HOLIDAY = ["Cliff.jpg", "Dunes.jpg"]
SLOT = 4  # the thumbnail mode that shows it below the transfer list


class ComingIn(Session):
    """Goes on with a library of the sample media, whose folder is watched, and a known stick that is plugged in.
    The next number of a video on it is given."""

    def come_in(self, video):
        self.set_options()
        self.program.set_option("iVidThumbMode", SLOT)
        self.start()
        self.import_archive()
        self.assign_thumbnail("Harbour")
        sent = self.send_with_thumbnail("Harbour", video)
        self.scan()
        self.quit()
        self.check_what_came_in()
        self.find_it_all_at_the_next_start()
        return sent

    def set_options(self):
        """They are in db.txt at once; that of archives counts from the next start on."""
        self.start()
        self.user.menu("Tools", "Options...")
        box = self.screen.find(WINDOW, "Options")
        self.screen.find("check box", "Create a group when adding a zip file", inside=box).click()
        self.picture("options-general", "archives are to become magazines")
        desk.key("ctrl+Tab")
        self.screen.find("check box", "Create groups from the scanned folder structure", inside=box)
        self.picture("options-scan", "folders that are found by a scan are to become groups")
        self.user.answer("Options", "OK")
        options = self.program.profile()["options"]
        check("the options", [options[key] for key in ("bgroupzip", "bautogroup", "bscanonappstart", "baddhiddenfiles")],
              ["1", "1", "0", "0"])
        self.quit()

    def import_archive(self):
        archive = self.home / ARCHIVE
        media.make_archive(archive, self.media / "Pictures" / "Beach.jpg", PAGES)
        before = archive.read_bytes()
        self.user.menu("File", "Add to DB", "Add Zip File...")
        self.screen.find(WINDOW, "Select file(s) to add")
        desk.write(str(archive))
        desk.key("Return")
        listed = self.screen.find(WINDOW, "Invalid Files")
        self.screen.find("table cell", re.compile(r"about\.txt$"), inside=listed)
        self.picture("not-added", "what an archive holds besides pictures")
        self.user.answer("Invalid Files", "OK")
        self.user.unfold(self.user.categories, "Magazines", archive.stem)
        self.user.pick(self.user.categories, archive.stem)
        self.user.expect_rows("the pages of the archive", self.user.items, 5,
                              [[page.removesuffix(".jpg"), "640 X 480", "jpg"] for page in PAGES])
        self.picture("archive", "an archive has become a magazine")
        magazine = self.program.own_media / "Photos" / "Magazines" / archive.stem
        check("the pages' files", sorted(path.name for path in magazine.iterdir()), PAGES)
        check("the archive is as it was", archive.read_bytes() == before, True)

    def assign_thumbnail(self, video):
        self.user.pick(self.user.categories, "Videos")
        self.user.select(video)
        self.user.menu_of(video, "Assign Thumbnail")
        box = self.screen.find(WINDOW, "Assign Thumbnail")
        path = self.screen.find("text", "Thumbnail Path", inside=box)
        self.screen.find("push button", "Browse...", inside=box).click()
        self.screen.find(WINDOW, "Select thumbnail file")
        desk.write(str(self.media / "Pictures" / "Beach.jpg"))
        desk.key("Return")
        self.screen.wait_gone(WINDOW, "Select thumbnail file")
        wait_for("the picture's path", lambda: path.text().endswith("Beach.jpg"))
        self.picture("assign-thumbnail", "a picture for a video")
        self.user.answer("Assign Thumbnail", "OK")
        self.screen.find("image", "Thumbnail")
        self.picture("thumbnail", "the video with its thumbnail")

    def send_with_thumbnail(self, video, number):
        """Returns {path on the stick: the file it must equal}."""
        self.user.menu_of(video, "Add to Transfer List")
        self.user.cell(self.user.transfers, video)
        self.screen.find("push button", "Send To PSP").click()
        self.screen.find("label", "Finished!")
        self.user.answer("Copying", "OK")
        target = f"MP_ROOT/100MNV01/{number}"
        sent = {f"{target}.mp4": self.media / "Films" / f"{video}.mp4",
                f"{target}.THM": self.program.own_media / "Videos" / "Thumbnails" / "1.THM"}
        for name, source in sent.items():
            check(f"{name} is on the stick", self.on_stick(name).exists(), True)
            check(f"the bytes of {name}", self.on_stick(name).read_bytes() == source.read_bytes(), True)
        told = subprocess.run(["identify", "-format", "%m %wx%h", str(self.on_stick(f"{target}.THM"))],
                              stdout=subprocess.PIPE, text=True, check=True)
        check("the thumbnail on the stick", told.stdout, "JPEG 160x120")
        return sent

    def scan(self):
        """Twice: the second finds nothing new."""
        folder = self.media / "Holiday"
        folder.mkdir()
        for number, name in enumerate(HOLIDAY):
            media.make_variant(self.media / "Pictures" / "Forest.jpg", folder / name, 80 + 40 * number)
        self.user.menu("Tools", "Scan for Media")
        self.user.unfold(self.user.categories, "Magazines", "Holiday")
        self.user.pick(self.user.categories, "Holiday")
        self.expect_holiday("480 X 640")
        self.picture("scan", "new pictures in a watched folder have been found")
        log = self.open_log()
        check("the first line of the log", log.all("table cell")[0].name.split("\t")[1:],
              ["VERSION", self.program.version()])
        wait_for("the end of the scan", lambda: len(self.logged(log, "Background scan finished")) == 1)
        self.user.menu("Tools", "Scan for Media")
        wait_for("the end of the other scan", lambda: len(self.logged(log, "Background scan finished")) == 2)
        check("the new files in the log", [line.rsplit("\\", 1)[1] for line in self.logged(log, "New File Found")],
              HOLIDAY)
        self.open_log()
        self.picture("log", "what Tavel has done")

    def open_log(self):
        """Or brings it to the front."""
        self.user.menu("View", "Show Log Window")
        return self.screen.find(WINDOW, "Log")

    @staticmethod
    def logged(log, text):
        return [cell.name for cell in log.all("table cell") if text in cell.name]

    def expect_holiday(self, size):
        self.user.expect_rows("the new pictures", self.user.items, 5,
                              [[name.removesuffix(".jpg"), size, "jpg"] for name in HOLIDAY])

    def check_what_came_in(self):
        library = self.program.library()
        by_name = {entry["name"]: entry for entry in library}
        check("the names in db.txt are all different", len(by_name), len(library))
        for group, members in ((ARCHIVE.removesuffix(".zip"), PAGES), ("Holiday", HOLIDAY)):
            check(f"the pages of {group}", [by_name[group][str(page)] for page in range(len(members))],
                  [by_name[member.removesuffix(".jpg")]["id"] for member in members])
        check("the place of a page", by_name["Page 1"]["path"], r"Media\Photos\Magazines\The Old Harbour\Page 1.jpg")
        check("the video's thumbnail", by_name["Harbour"]["thumbpath"], r"Media\Videos\Thumbnails\1.THM")

    def find_it_all_at_the_next_start(self):
        kept = self.program.database.read_bytes()
        self.start()
        self.user.unfold(self.user.categories, "Magazines", ARCHIVE.removesuffix(".zip"))
        self.user.pick(self.user.categories, "Holiday")
        # The two sides of a picture change places at every load.
        self.expect_holiday("640 X 480")
        self.user.pick(self.user.categories, "Videos")
        self.user.select("Harbour")
        self.screen.find("image", "Thumbnail")
        self.picture("next-start", "all of it is there at the next start")
        self.quit()
        check("db.txt after a session without a change", self.program.database.read_bytes(), kept)
