"""The library in the machine: items of random bytes below its /Tavel, and the db.txt that lists them."""

import random
from pathlib import Path

DATA = Path(__file__).resolve().parents[2] / "data"
# What an id begins with, and the number in db.txt.
KINDS = {"photo": ("ph", 0), "magazine": ("ma", 1), "video": ("vd", 3), "series": ("vs", 4), "track": ("mu", 5),
         "playlist": ("pl", 8)}
FORMATS = {"photo": "jpg", "video": "mp4", "track": "mp3"}
COUNTS = {"magazine": "NoOfPages", "series": "NoOfEpisodes", "playlist": "NoOfTracks"}


class Library:
    def __init__(self):
        self._entries = []
        self._files = {}

    def item(self, kind, name, size, thumbnail=0):
        """Adds an item with a file of that size, a video with a thumbnail if that has a size; returns its id."""
        entry = self._add(kind, name, Path=self._file(name, size), Format=FORMATS[kind], Size=size, NoOfGroups=0)
        if kind == "photo":
            entry.update(SizeW=640, SizeH=480)
        if thumbnail:
            entry.update(ThumbPath=self._file(f"{name} THM", thumbnail))
        return entry["ID"]

    def group(self, kind, name, members):
        entry = self._add(kind, name, **{COUNTS[kind]: len(members)})
        entry.update((str(number), member) for number, member in enumerate(members))
        return entry["ID"]

    def bytes_of(self, item, key="Path"):
        return self._files[self.path_of(item, key).rpartition("\\")[2]]

    def path_of(self, item, key="Path"):
        return next(entry for entry in self._entries if entry["ID"] == item)[key]

    def _add(self, kind, name, **keys):
        prefix, number = KINDS[kind]
        self._entries.append({"ID": f"{prefix}_{len(self._entries)}", "Name": name, "Type": number, **keys})
        return self._entries[-1]

    def _file(self, name, size):
        file = f"{len(self._files)}.bin"
        self._files[file] = random.Random(name).randbytes(size)
        return f"c:\\Tavel\\{file}"

    def install(self, root):
        for name, content in self._files.items():
            (root / "Tavel" / name).write_bytes(content)
        text = (DATA / "db.txt").read_text().replace("NoOfItems=0", f"NoOfItems={len(self._entries)}")
        for number, entry in enumerate(self._entries, 1):
            text += f"[{number}]\n" + "".join(f"{key}={value}\n" for key, value in entry.items())
        (root / "Tavel/db.txt").write_text(text)
