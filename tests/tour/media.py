"""Sample media, made by ImageMagick and ffmpeg: what the world writes, not our own writers."""

import subprocess
import zipfile

PHOTOS = {  # file: (width, height)
    "Beach.jpg": (640, 480),
    "Forest.jpg": (480, 640),
    "Sunset.png": (800, 450),
}
TRACKS = {  # file: (title, artist, album)
    "01-morning.mp3": ("Morning", "The Samples", "A Day Out"),
    "02-evening.mp3": ("Evening", "The Samples", "A Day Out"),
}
VIDEOS = ["Ferry.mp4", "Harbour.mp4", "Lighthouse.mp4"]

_SCENES = {
    "Beach.jpg": ("#8ecdf2", "#f3dfa6", "#f6c445", "fill #2a8fb8 rectangle 0,260 640,340"),
    "Forest.jpg": ("#cfe8c5", "#2f6b3c", "#f3e9a0",
                   "fill #1d4a2a polygon 60,560 140,220 220,560 polygon 240,600 330,180 420,600"),
    "Sunset.png": ("#f58a4b", "#4a2a68", "#ffe08a", "fill #241738 polygon 0,450 250,300 480,380 800,280 800,450"),
}


def _run(*command):
    subprocess.run([str(part) for part in command], check=True, stdin=subprocess.DEVNULL,
                   stdout=subprocess.DEVNULL)


def make_photo(path):
    width, height = PHOTOS[path.name]
    top, bottom, sun, land = _SCENES[path.name]
    x, y = width * 3 // 4, height // 4
    _run("convert", "-size", f"{width}x{height}", f"gradient:{top}-{bottom}",
         "-fill", sun, "-draw", f"circle {x},{y} {x + 40},{y}", "-draw", land, path)


def make_variant(photo, path, hue):
    """The same scene in other colours; hue in percent of a turn, 100 leaves it."""
    _run("convert", photo, "-modulate", f"100,100,{hue}", path)


def make_archive(path, photo, pages):
    """A zip of pages in a folder, with a text behind them that is no picture."""
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
        for number, page in enumerate(pages):
            drawn = path.with_name(page)
            make_variant(photo, drawn, 60 + 40 * number)
            archive.write(drawn, f"{path.stem}/{page}")
            drawn.unlink()
        archive.writestr(f"{path.stem}/about.txt", "Drawn for the tour.\r\n")


def _track(path, tone):
    title, artist, album = TRACKS[path.name]
    _run("ffmpeg", "-loglevel", "error", "-f", "lavfi", "-i", f"sine=frequency={tone}:duration=3",
         "-id3v2_version", "3", "-metadata", f"title={title}", "-metadata", f"artist={artist}",
         "-metadata", f"album={album}", path)


def _video(path, hue):
    _run("ffmpeg", "-loglevel", "error", "-f", "lavfi", "-i", "testsrc2=size=480x272:rate=15:duration=3",
         "-vf", f"hue=h={hue},noise=alls=30:allf=t", "-pix_fmt", "yuv420p", "-b:v", "8M", path)


def make(folder):
    """Fills folder with Pictures, Songs and Films."""
    for kind in ("Pictures", "Songs", "Films"):
        (folder / kind).mkdir(parents=True)
    for name in PHOTOS:
        make_photo(folder / "Pictures" / name)
    for number, name in enumerate(TRACKS):
        _track(folder / "Songs" / name, 440 + 110 * number)
    for number, name in enumerate(VIDEOS):
        _video(folder / "Films" / name, 90 * number)
