"""A library with something of every kind, and what is on a stick once all of it has been sent."""

from library import Library

NAME = "My PSP"


def identity(titles=()):
    """The identity file with the titles of the first videos."""
    text = f"[Data]\r\nPSPName={NAME}\r\n" + ("[video]\r\n" if titles else "")
    return (text + "".join(f"M4V1{number:04}={title}\r\n" for number, title in enumerate(titles, 1))).encode()


class Sending:
    """Names are long and files many: their entries go beyond a sector, and folders beyond a cluster."""

    # These are on the stick already, with other bytes.
    older = ["PSP/PHOTO/Sunset.jpg", "PSP/MUSIC/Evening.mp3"]

    def __init__(self):
        self.library = library = Library()
        self.ferry = library.item("video", "Ferry", 9_000_000, thumbnail=9_000)
        self.harbour = library.item("video", "Harbour", 300_000)
        self.sunset = library.item("photo", "Sunset", 3_500_000)
        self.beach = library.item("photo", "The beach of the old town, seen from the ferry in the evening", 200_000)
        self.evening = library.item("track", "Evening", 700_000)
        self.pages = {f"Page {number} of the summer magazine about the sea": 3_000 * number for number in range(60)}
        self.tracks = {f"Track {number}": 100_000 + number for number in range(4)}
        self.page_ids = [library.item("photo", name, size) for name, size in self.pages.items()]
        self.track_ids = [library.item("track", name, size) for name, size in self.tracks.items()]
        self.episode_ids = [library.item("video", "Arrival", 400_000), library.item("video", "Departure", 200_000)]
        self.ids = [self.ferry, self.sunset, self.beach, self.evening,
                    library.group("magazine", "Summer", self.page_ids),
                    library.group("playlist", "On the way", self.track_ids), self.harbour,
                    library.group("series", "By the sea", self.episode_ids)]

    def files(self):
        of = self.library.bytes_of
        videos = [self.ferry, self.harbour, *self.episode_ids]
        return {
            "TavelDataFile.tavel": identity(["Ferry", "Harbour"]),
            "MP_ROOT/100MNV01/M4V10001.THM": of(self.ferry, "ThumbPath"),
            **{f"MP_ROOT/100MNV01/M4V1{number:04}.mp4": of(video) for number, video in enumerate(videos, 1)},
            "PSP/PHOTO/Sunset.jpg": of(self.sunset),
            "PSP/PHOTO/The beach of the old town, seen from the ferry in the evening.jpg": of(self.beach),
            "PSP/MUSIC/Evening.mp3": of(self.evening),
            **{f"PSP/PHOTO/Summer/{name}.jpg": of(page) for name, page in zip(self.pages, self.page_ids)},
            **{f"PSP/MUSIC/On the way/{name}.mp3": of(track) for name, track in zip(self.tracks, self.track_ids)},
        }
