"""What the commands share: building a preset, a virtual display, Wine with a prefix of its own, screenshots.

Everything made here lies under build/. Processes that are started are stopped again when the command ends.
"""

import contextlib
import fcntl
import os
import pathlib
import signal
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build"
LOGS = BUILD / "logs"
SCREEN_SIZE = "1280x1024"  # of virtual displays


class Failure(Exception):
    """A step failed; the text says which and why, for the user."""


def end_on_signals():
    """Turns a polite kill into an exception, so that whatever was started is stopped."""
    def stop(number, _frame):
        raise KeyboardInterrupt(f"signal {number}")
    signal.signal(signal.SIGTERM, stop)
    signal.signal(signal.SIGHUP, stop)


def last_lines(path, count):
    return "\n".join(path.read_text(errors="replace").splitlines()[-count:])


def build(preset, *targets):
    """Configures (when that was not done yet) and builds a preset; raises Failure with the errors."""
    LOGS.mkdir(parents=True, exist_ok=True)
    log = LOGS / f"build-{preset}.log"
    configure = ["cmake", "--preset", preset]
    make = ["cmake", "--build", "--preset", preset]
    if targets:
        make += ["--target", *targets]
    steps = [make] if (BUILD / preset / "build.ninja").exists() else [configure, make]
    with log.open("w") as out:
        for step in steps:
            if subprocess.run(step, cwd=ROOT, stdout=out, stderr=subprocess.STDOUT).returncode != 0:
                out.flush()
                raise Failure(f"building {preset} failed (all of it in {log}):\n{last_lines(log, 40)}")


def windows_path(path):
    """The name by which Wine's programs know a file of this machine."""
    return "Z:" + str(pathlib.Path(path).absolute()).replace("/", "\\")


def stop_process(process):
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()


@contextlib.contextmanager
def virtual_display():
    """A display that no one sees, as long as the block lasts; gives its name."""
    if not shutil.which("Xvfb"):
        raise Failure("Xvfb is missing: scripts/install_packages installs it")
    reading, writing = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{SCREEN_SIZE}x24", "-nolisten", "tcp"],
        pass_fds=[writing], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(writing)
    try:
        with os.fdopen(reading) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise Failure("the virtual display did not start")
        yield f":{number}"
    finally:
        stop_process(server)


class Wine:
    """Wine with a prefix of its own under build/, on a given display."""

    def __init__(self, display, desktop=True, name=None):
        """On a display without a window manager, Wine's own `desktop` frames the windows and gives them the keys.

        `name` is the folder of another prefix than the one that all tests share.
        """
        self.display = display
        self.desktop = desktop
        self.prefix = BUILD / (name or ("wine" if desktop else "wine-plain"))
        # Mono and Gecko would be offered for download; nothing here uses them.
        self.environment = os.environ | {
            "WINEPREFIX": str(self.prefix), "DISPLAY": display, "WINEDEBUG": "-all",
            "WINEDLLOVERRIDES": "mscoree=;mshtml=;winemenubuilder.exe="}
        self.lock = self._lock()
        self._create_prefix()

    def _lock(self):
        """One command at a time: each ends every program of the prefix when it ends."""
        BUILD.mkdir(exist_ok=True)
        lock = self.prefix.with_suffix(".lock").open("w")
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            print(f"Waiting for another command that uses {self.prefix} ...", flush=True)
            fcntl.flock(lock, fcntl.LOCK_EX)
        return lock

    def _create_prefix(self):
        ready = self.prefix / "ready"
        if ready.exists():
            return
        if not shutil.which("wine"):
            raise Failure("wine is missing: scripts/install_packages installs it")
        shutil.rmtree(self.prefix, ignore_errors=True)
        self.prefix.mkdir(parents=True)
        self.run(["wineboot", "--init"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=300)
        # A crash is an exit code here, not a dialog that waits for someone.
        self._set_registry(r"HKCU\Software\Wine\WineDbg", "ShowCrashDialog", "REG_DWORD", "0")
        if self.desktop:
            self._set_registry(r"HKCU\Software\Wine\Explorer", "Desktop", "REG_SZ", "Tarrow")
            self._set_registry(r"HKCU\Software\Wine\Explorer\Desktops", "Tarrow", "REG_SZ", SCREEN_SIZE)
        ready.touch()

    def _set_registry(self, key, name, kind, value):
        self.run(["reg", "add", key, "/v", name, "/t", kind, "/d", value, "/f"],
                 stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True, timeout=120)

    def run(self, command, environment=None, **options):
        return subprocess.run(["wine", *map(str, command)],
                              env=self.environment | (environment or {}), **options)

    def start(self, command, environment=None, **options):
        return subprocess.Popen(["wine", *map(str, command)],
                                env=self.environment | (environment or {}), **options)

    @contextlib.contextmanager
    def running(self):
        """Ends every program of this prefix when the block ends."""
        try:
            yield self
        finally:
            self.stop()
            self.lock.close()

    def stop(self):
        """Ends every program of this prefix."""
        server = shutil.which("wineserver") or next(iter(pathlib.Path("/usr/lib/wine").glob("wineserver")), None)
        if server and self.prefix.exists():
            subprocess.run([server, "-k"], env=self.environment, stderr=subprocess.DEVNULL)


def screenshot(display, path):
    _import(display, f"png:{path}")


def screen_hash(display):
    """A number that changes when anything on the screen does."""
    return hash(_import(display, "rgb:-"))


def _import(display, target):
    result = subprocess.run(["import", "-silent", "-window", "root", target], capture_output=True,
                            env=os.environ | {"DISPLAY": display})
    if result.returncode != 0:
        raise Failure(f"no picture of the screen {display}: {result.stderr.decode(errors='replace').strip()}")
    return result.stdout


def wait_until(condition, seconds, what, interval=0.02):
    """Polls `condition` until it gives something true, which is returned; Failure after `seconds`."""
    limit = time.monotonic() + seconds
    while time.monotonic() < limit:
        result = condition()
        if result:
            return result
        time.sleep(interval)
    raise Failure(f"waited {seconds} s in vain for {what}")


def main(function):
    """Runs a command's main function: failures become one message and exit code 1."""
    end_on_signals()
    try:
        sys.exit(function())
    except Failure as failure:
        print(f"{pathlib.Path(sys.argv[0]).stem}: {failure}", file=sys.stderr)
        sys.exit(1)
    except KeyboardInterrupt:
        print("interrupted", file=sys.stderr)
        sys.exit(130)
