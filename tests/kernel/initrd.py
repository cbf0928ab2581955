"""What the machine starts with: a shell, the kernel's modules for sticks, the driver, a library."""

import re
import shutil
import subprocess
from pathlib import Path

HERE = Path(__file__).resolve().parent
MODULES = ["xhci-pci", "usb-storage", "sd_mod", "vfat", "exfat", "nls_cp437", "nls_ascii"]


def _in_loading_order(folder):
    """The modules' files below folder, each behind those that it needs."""
    needs = {}
    for line in (folder / "modules.dep").read_text().splitlines():
        file, needed = line.split(":")
        # The file lists the nearest first.
        needs[Path(file).stem] = [*reversed(needed.split()), file]
    return dict.fromkeys(file for module in MODULES for file in needs[module])


def _copy_modules(root, kernel):
    (root / "modules").mkdir()
    version = next((kernel / "lib/modules").iterdir())
    order = _in_loading_order(version)
    for file in order:
        shutil.copy(version / file, root / "modules")
    (root / "modules/order").write_text("".join(f"{Path(file).name}\n" for file in order))


def _copy_program(root, driver):
    """With the shared libraries that it is linked with, where it looks for them."""
    (root / "Tavel").mkdir()
    subprocess.run(["strip", "-o", root / "Tavel/tavel", driver], check=True)
    told = subprocess.run(["ldd", driver], check=True, text=True, stdout=subprocess.PIPE).stdout
    for library in re.findall(r"(/\S+) \(0x", told):
        (root / library[1:]).parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(library, root / library[1:])


def make(place, kernel, driver, library):
    """The archive, made in place; kernel is the folder of the unpacked kernel."""
    root = place / "root"
    shutil.rmtree(root, ignore_errors=True)
    (root / "bin").mkdir(parents=True)
    shutil.copy(shutil.which("busybox"), root / "bin/busybox")
    shutil.copy(HERE / "init", root / "init")
    _copy_modules(root, kernel)
    _copy_program(root, driver)
    library.install(root)
    names = "\n".join(str(path.relative_to(root)) for path in sorted(root.rglob("*")))
    archive = place / "initrd"
    with open(archive, "wb") as output:
        subprocess.run(["busybox", "cpio", "-o", "-H", "newc"], cwd=root, check=True, input=names.encode(),
                       stdout=output, stderr=subprocess.DEVNULL)
    shutil.rmtree(root)
    return archive
