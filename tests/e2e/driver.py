"""Starts Tarrow under Wine, presses its keys and mouse, and looks at its windows.

Nothing here waits for a time: every step waits for a condition, with a limit, and what fails tells what it
saw instead.
"""

import json
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import workshop
from workshop import BUILD, Failure, windows_path

PATIENCE = 60  # seconds; a condition that takes longer is a failure

WM_NULL, WM_CLOSE, WM_COMMAND, BM_CLICK = 0, 0x10, 0x111, 0xF5


class Probe:
    """The helper under Wine that sees windows and works the keyboard (window_probe.cpp)."""

    def __init__(self, wine, width):
        program = BUILD / width / "tests" / "e2e" / "window_probe.exe"
        self.process = wine.start([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL)

    def ask(self, *fields):
        line = "\t".join(str(field).replace("\\", "\\\\").replace("\t", "\\t").replace("\n", "\\n")
                         .replace("\r", "\\r")
                         for field in fields)
        self.process.stdin.write(line.encode() + b"\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline()
        if not answer:
            raise Failure(f"the window probe ended at '{line}'")
        result = json.loads(answer)
        if isinstance(result, dict) and "error" in result:
            raise Failure(result["error"])
        return result

    def close(self):
        self.process.stdin.close()
        self.process.stdout.close()
        workshop.stop_process(self.process)


class Window:
    """One window as it was when it was looked at."""

    def __init__(self, facts):
        self.facts = facts
        self.handle, self.text, self.kind = facts["handle"], facts["text"], facts["class"]
        self.children = [Window(child) for child in facts.get("children", ())]

    def walk(self):
        yield self
        for child in self.children:
            yield from child.walk()

    def find(self, kind=None, text=None, identifier=None):
        """The first window of the tree that fits, or None."""
        for window in self.walk():
            if (kind in (None, window.kind) and text in (None, window.text, plain(window.text))
                    and identifier in (None, window.facts["id"])):
                return window
        return None

    def middle(self):
        left, top, right, bottom = self.facts["rect"]
        return (left + right) // 2, (top + bottom) // 2

    def outline(self, depth=0):
        lines = [f"{'  ' * depth}{self.kind} id={self.facts['id']} '{self.text[:200]}' {self.facts['rect']}"
                 + ("" if self.facts["enabled"] else " disabled")]
        return "\n".join(lines + [child.outline(depth + 1) for child in self.children])


def plain(text):
    """A label without its mnemonic's mark."""
    return text.replace("&", "")


class Stage:
    """A display with Wine's desktop and the probe on it, and a printer, where one program after another plays."""

    def __init__(self, wine, width, printer, program=None):
        """`program` is played instead of the one that stands in the build of that width."""
        self.wine, self.width, self.printer = wine, width, printer
        self.program = program or BUILD / width / "tarrow.exe"
        self.probe = Probe(wine, width)

    def close(self):
        self.probe.close()

    def wait(self, condition, what, seconds=PATIENCE):
        try:
            return workshop.wait_until(condition, seconds, what)
        except Failure as failure:
            raise AssertionError(f"{failure}\n{self.outline()}") from None

    def everything(self):
        return [Window(facts) for facts in self.probe.ask("everything")]

    def outline(self):
        return "\n".join(window.outline() for window in self.everything())

    def keys(self, *chords):
        for chord in chords:
            if not self.probe.ask("keys", chord):
                raise Failure(f"there is no key '{chord}'")

    def type(self, text):
        self.probe.ask("type", text)

    def click(self, x, y, how="left", modifiers=""):
        if not self.probe.ask("click", x, y, how, modifiers):
            raise Failure(f"no click at {x}, {y}")

    def clipboard(self):
        return self.probe.ask("clipboard")

    def set_clipboard(self, text):
        self.probe.ask("setclipboard", text)


class Program:
    """One running program with its top-level windows."""

    def __init__(self, stage, command, directory):
        self.stage = stage
        self.process = stage.wine.start(command, cwd=directory, stdin=subprocess.DEVNULL,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.handle = self.main_process = None

    def is_main(self, window):
        raise NotImplementedError

    def wait_for_main(self):
        """Waits until the main window stands."""
        def found():
            if self.process.poll() is not None:
                raise AssertionError(f"the program ended with {self.process.returncode} before it showed its window")
            return next(filter(self.is_main, self.stage.everything()), None)
        main = self.stage.wait(found, "the main window")
        self.handle, self.main_process = main.handle, main.facts["process"]
        return self

    def windows(self):
        return [window for window in self.stage.everything() if window.facts["process"] == self.main_process]

    def main(self):
        for window in self.windows():
            if window.handle == self.handle:
                return window
        raise AssertionError(f"the main window is gone\n{self.stage.outline()}")

    def dialogs(self):
        return [window for window in self.windows() if window.kind == "#32770"]

    def dialog(self, text=None):
        """The dialog in front, once there is one: with a title or a label that contains `text`."""
        def found():
            for window in self.dialogs():
                if text is None or any(text in plain(part.text) for part in window.walk()):
                    return window
            return None
        return self.stage.wait(found, f"a dialog with '{text}'")

    def wait_gone(self, window, what="the dialog to close"):
        self.stage.wait(lambda: all(other.handle != window.handle for other in self.windows()), what)

    def press(self, dialog, label):
        """Presses a button of a dialog and waits until the dialog has gone."""
        self.push(dialog, label)
        self.wait_gone(dialog, f"the dialog to close after '{label}'")

    def push(self, dialog, label):
        button = dialog.find("Button", label)
        if not button:
            raise AssertionError(f"no button '{label}' in\n{dialog.outline()}")
        self.stage.probe.ask("post", button.handle, BM_CLICK, 0, 0)

    def close(self):
        self.stage.probe.ask("post", self.handle, WM_CLOSE, 0, 0)

    def wait_end(self):
        """The exit code, once the program has ended."""
        try:
            return self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            raise AssertionError(f"the program does not end\n{self.stage.outline()}") from None

    def stop(self):
        workshop.stop_process(self.process)
