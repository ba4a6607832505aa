"""Builds the program from the commit that is checked out, tests what it has built, and packs it: a zip for each
width of Windows, tarrowc for Linux, and the SHA-256 sums of all. The same commit gives the same bytes.
"""

import argparse
import contextlib
import gzip
import hashlib
import io
import shutil
import subprocess
import sys
import tarfile
import time
import zipfile

import workshop
from help_book.tables import Sources
from workshop import BUILD, ROOT, Failure

sys.path.append(str(ROOT / "tests" / "e2e"))

import play

RELEASE = BUILD / "release"
WIDTHS = {"i686": "win32", "x86_64": "win64"}
# Where each packed file stands in a build.
WINDOWS_FILES = {"tarrow.exe": "tarrow.exe", "nt/projexec.exe": "nt/projexec.exe",
                 "tarrowc.exe": "console/tarrowc.exe", "tarrow.html": "tarrow.html"}
NOTE = "readme.txt"


def git(*words):
    return subprocess.run(["git", *words], cwd=ROOT, check=True, capture_output=True, text=True).stdout.strip()


def note(version, line_end):
    text = (ROOT / "doc" / "release.txt").read_text(encoding="utf-8").replace("@VERSION@", version)
    return text.replace("\n", line_end).encode()


def pack_zip(path, files, moment):
    """Writes {name: bytes} as an archive that depends on nothing else but `moment`, in seconds since 1970."""
    date = time.gmtime(moment)[:6]
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for name in sorted(files):
            entry = zipfile.ZipInfo(name, date)
            entry.create_system, entry.external_attr = 0, 0
            entry.compress_type = zipfile.ZIP_DEFLATED
            archive.writestr(entry, files[name])


def pack_tar(path, files, moment):
    """The same for Linux: {name: (bytes, mode)}."""
    plain = io.BytesIO()
    with tarfile.open(fileobj=plain, mode="w", format=tarfile.USTAR_FORMAT) as archive:
        for name in sorted(files):
            content, mode = files[name]
            entry = tarfile.TarInfo(name)
            entry.size, entry.mode, entry.mtime = len(content), mode, moment
            archive.addfile(entry, io.BytesIO(content))
    with path.open("wb") as out, gzip.GzipFile("", "wb", 9, out, mtime=moment) as packed:
        packed.write(plain.getvalue())


def pack(version, moment):
    """Packs what stands in the builds; gives the archives."""
    shutil.rmtree(RELEASE, ignore_errors=True)
    RELEASE.mkdir(parents=True)
    archives = []
    for preset, width in WIDTHS.items():
        folder = f"tarrow-{version}"
        files = {f"{folder}/{name}": (BUILD / preset / source).read_bytes() for name, source in WINDOWS_FILES.items()}
        files[f"{folder}/{NOTE}"] = note(version, "\r\n")
        archives.append(RELEASE / f"{folder}-{width}.zip")
        pack_zip(archives[-1], files, moment)
    tarrowc = BUILD / "native" / "console" / "tarrowc"
    stripped = RELEASE / "tarrowc"
    subprocess.run(["strip", "-o", stripped, tarrowc], check=True)
    archives.append(RELEASE / f"tarrowc-{version}-linux-x86_64.tar.gz")
    pack_tar(archives[-1], {f"tarrowc-{version}/tarrowc": (stripped.read_bytes(), 0o755)}, moment)
    stripped.unlink()
    return archives


def check_version(command, version, environment=None):
    said = subprocess.run(list(map(str, command)), env=environment, capture_output=True, text=True, timeout=60)
    if said.stdout.strip() != f"tarrowc {version}":
        raise Failure(f"{command[-2]} says {said.stdout.strip()!r} of its version, and not {version}")


@contextlib.contextmanager
def unpacked(archive):
    folder = RELEASE / "unpacked"
    shutil.rmtree(folder, ignore_errors=True)
    shutil.unpack_archive(archive, folder)
    yield next(folder.iterdir())
    shutil.rmtree(folder)


def test_packed(archives, version, words):
    """Plays the scenarios with the programs as they come out of the archives, in a fresh prefix of Wine."""
    with unpacked(archives[-1]) as folder:
        check_version([folder / "tarrowc", "--version"], version)
    for preset, archive in zip(WIDTHS, archives):
        with unpacked(archive) as folder, workshop.virtual_display() as display, \
                workshop.Wine(display, name="wine-release").running() as wine:
            check_version(["wine", folder / "tarrowc.exe", "--version"], version, wine.environment)
            passed, failures = play.play(wine, preset, words, program=folder / "tarrow.exe")
        if failures:
            raise Failure(f"{archive.name}: {len(failures)} of {passed + len(failures)} scenarios failed:\n"
                          + "\n".join(failures))
        print(f"{archive.name}: {passed} scenarios passed", flush=True)
        shutil.rmtree(BUILD / "wine-release")


def main():
    parser = argparse.ArgumentParser(prog="scripts/release", description=__doc__)
    parser.add_argument("--scenarios", nargs="*", default=[], metavar="WORD",
                        help="play only scenarios with a WORD in their names (to try this command itself)")
    options = parser.parse_args()
    if changed := git("status", "--porcelain"):
        raise Failure(f"a release is made of a commit, and these files are not in it:\n{changed}")
    version = Sources(ROOT).version
    if f"\n## {version}\n" not in (ROOT / "CHANGES.md").read_text(encoding="utf-8"):
        raise Failure(f"CHANGES.md tells nothing of {version}")
    for preset in ("native", *WIDTHS):
        print(f"Building {preset} ...", flush=True)
        workshop.build(preset)
    if subprocess.run([sys.executable, ROOT / "scripts" / "test.py", "sanitize", "windows"]).returncode != 0:
        raise Failure("the tests failed")
    archives = pack(version, int(git("log", "-1", "--format=%ct")))
    test_packed(archives, version, options.scenarios)
    sums = "".join(f"{hashlib.sha256(archive.read_bytes()).hexdigest()}  {archive.name}\n" for archive in archives)
    (RELEASE / "SHA256SUMS").write_text(sums)
    print(f"{sums}in {RELEASE.relative_to(ROOT)}")
    return 0


if __name__ == "__main__":
    workshop.main(main)
