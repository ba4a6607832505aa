"""A printer of our own: a queue that keeps every job as PostScript, and what stands on its pages.

A print server runs for us alone, on a socket in a folder under build/; nothing of the system's printing is
touched. Its one printer has 600 dots an inch, A4 paper, and strips along the edges that it cannot print on.
"""

import contextlib
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import sys
import xml.etree.ElementTree

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import workshop
from workshop import BUILD, Failure

NAME = "Tarrow_Test"
PAPER = (595, 842)  # points
PRINTABLE = (18, 24, 577, 830)  # left, bottom, right, top, in points
MM_PER_POINT = 25.4 / 72

FILES_CONF = """\
{identity}ServerRoot {folder}/etc
CacheDir {folder}/cache
StateDir {folder}/state
RequestRoot {folder}/spool
TempDir {folder}/tmp
ServerBin {folder}/bin
AccessLog {folder}/log/access
ErrorLog {folder}/log/error
PageLog {folder}/log/pages
FatalErrors none
FileDevice Yes
"""

SERVER_CONF = """\
LogLevel warn
Listen {socket}
Browsing Off
WebInterface No
DefaultAuthType None
MaxLogSize 0
PreserveJobFiles No
PreserveJobHistory No
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  <Limit All>
    Order deny,allow
    Allow all
  </Limit>
</Policy>
"""

PRINTERS_CONF = """\
<DefaultPrinter {name}>
Info Tarrow's test printer
DeviceURI folder:{folder}/out
State Idle
Accepting Yes
Shared No
ErrorPolicy abort-job
OpPolicy default
</DefaultPrinter>
"""

# The name of the queue's job is its number; a job that is cancelled while it arrives leaves nothing.
BACKEND = """\
#!/bin/sh
[ $# -lt 5 ] && { echo 'direct folder "Unknown" "Folder"'; exit 0; }
cat "${6:--}" >"${DEVICE_URI#folder:}/$1.part" && mv "${DEVICE_URI#folder:}/$1.part" "${DEVICE_URI#folder:}/$1.ps"
"""

PRINTER_DESCRIPTION = """\
*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "TARROW.PPD"
*Manufacturer: "Tarrow"
*Product: "(Test)"
*ModelName: "Tarrow Test"
*ShortNickName: "Tarrow Test"
*NickName: "Tarrow Test"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: False
*DefaultColorSpace: Gray
*FileSystem: False
*TTRasterizer: Type42
*cupsFilter: "application/postscript 0 -"
*DefaultResolution: 600dpi
*OpenUI *PageSize/Page Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "{area}"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*DefaultFont: Courier
"""


class Word:
    """A word on a page; its box in millimetres from the upper left corner of the paper."""

    def __init__(self, element):
        self.text = element.text
        self.left, self.top, self.right, self.bottom = (
            float(element.get(name)) * MM_PER_POINT for name in ("xMin", "yMin", "xMax", "yMax"))

    def __repr__(self):
        return f"'{self.text}' at {self.left:.2f},{self.top:.2f}-{self.right:.2f},{self.bottom:.2f}"


class Printer:
    """The running print server with its queue."""

    def __init__(self, folder=None):
        self.folder = pathlib.Path(folder or BUILD / "printer")
        # The path of a socket is short, whatever the path of the tree.
        self.socket = pathlib.Path(tempfile.gettempdir(), f"tarrow-printer-{os.getpid()}.sock")
        self.server = None

    @contextlib.contextmanager
    def running(self):
        self._write_files()
        try:
            self.serve()
            yield self
        finally:
            self.stop_serving()

    def serve(self):
        """Starts the print server."""
        program = shutil.which("cupsd") or shutil.which("cupsd", path="/usr/sbin")
        if not program:
            raise Failure("cupsd is missing: scripts/install_packages installs it")
        etc, log = self.folder / "etc", self.folder / "log" / "server"
        with log.open("a") as out:
            self.server = subprocess.Popen(
                [program, "-f", "-c", etc / "cupsd.conf", "-s", etc / "cups-files.conf"],
                stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT)
        workshop.wait_until(lambda: self.socket.exists() or self.server.poll() is not None, 20, "the print server")
        if self.server.poll() is not None:
            raise Failure(f"the print server ended: {workshop.last_lines(log, 5)}")

    def stop_serving(self):
        if self.server:
            workshop.stop_process(self.server)
        self.socket.unlink(missing_ok=True)

    @property
    def environment(self):
        """What a process needs to find the queue; set before the first program of a Wine prefix that prints."""
        return {"CUPS_SERVER": str(self.socket)}

    def _write_files(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        for name in ("etc/ppd", "cache", "state", "spool", "tmp", "log", "out", "bin/backend", "bin/filter", "bin/daemon"):
            (self.folder / name).mkdir(parents=True)
        facts = {"folder": self.folder, "socket": self.socket, "name": NAME,
                 "area": " ".join(map(str, PRINTABLE)),
                 "identity": "User lp\nGroup lp\n" if os.geteuid() == 0 else ""}
        for name, text in (("cups-files.conf", FILES_CONF), ("cupsd.conf", SERVER_CONF),
                           ("printers.conf", PRINTERS_CONF), (f"ppd/{NAME}.ppd", PRINTER_DESCRIPTION)):
            (self.folder / "etc" / name).write_text(text.format(**facts))
        (self.folder / "bin" / "daemon" / "cups-exec").symlink_to("/usr/lib/cups/daemon/cups-exec")
        backend = self.folder / "bin" / "backend" / "folder"
        backend.write_text(BACKEND)
        backend.chmod(0o755)
        if os.geteuid() == 0:
            for name in ("spool", "tmp", "out", "cache", "state"):
                shutil.chown(self.folder / name, "lp", "lp")

    def jobs(self):
        """The files of the jobs that are done, the oldest first."""
        return sorted((self.folder / "out").glob("*.ps"), key=lambda path: int(path.stem))

    def is_idle(self):
        """Whether nothing waits in the queue: every job has come out, or has been given up."""
        return not any((self.folder / "spool").glob("d*")) and not any((self.folder / "out").glob("*.part"))

    def clear(self):
        for job in self.jobs():
            job.unlink()


def title(job):
    """The title that the program gave its job."""
    found = re.search(rb"^%%Title: (.*)$", job.read_bytes(), re.MULTILINE)
    return found.group(1).decode(errors="replace").strip() if found else ""


def to_pdf(job):
    pdf = job.with_suffix(".pdf")
    subprocess.run(["ps2pdf", "-sPAPERSIZE=a4", job, pdf], check=True, capture_output=True)
    return pdf


def pages(job):
    """The pages of a job, each as its words."""
    text = subprocess.run(["pdftotext", "-bbox", to_pdf(job), "-"], check=True, capture_output=True).stdout
    root = xml.etree.ElementTree.fromstring(text)
    space = root.tag.removesuffix("html")
    return [[Word(word) for word in page.iter(f"{space}word")] for page in root.iter(f"{space}page")]


def page_texts(job):
    """The pages of a job as text, each line where it stands."""
    text = subprocess.run(["pdftotext", "-layout", to_pdf(job), "-"], check=True, capture_output=True).stdout.decode()
    return text.split("\f")[:-1]
