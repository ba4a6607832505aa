"""Asking for help: the book at the right place in the browser, and what happens where there is none."""

import re
import shutil
import subprocess
import urllib.parse

from tarrow import Scenario
from workshop import windows_path

GLOBAL_SETTINGS, KEY_BINDINGS, CONTENTS, SEARCH, WINDOW_CONTEXT = 4008, 254, 8001, 8002, 8003
BROWSER_KEY = r"HKCR\http\shell\open\command"
BOOK = b"<html>the book</html>\n"
BM_CLICK = 0xF5


class Help(Scenario):
    """A copy of the program in a folder with a blank in its name, and a browser that copies what it is given."""

    def setUp(self):
        super().setUp()
        self.home = self.folder / "our home"
        self.home.mkdir()
        self.program = self.home / "tarrow.exe"
        shutil.copy(self.stage.program, self.program)
        self.shown = self.folder / "shown.html"
        before = self.registry("query", "/ve").stdout
        self.addCleanup(self.register, re.search(r"REG_(?:EXPAND_)?SZ\s+(.*?)\r?\n", before)[1])
        self.register(f'cmd /c copy /y "%1" {windows_path(self.shown)}')

    def registry(self, verb, *words):
        return self.stage.wine.run(["reg", verb, BROWSER_KEY, *words], stdout=subprocess.PIPE, text=True,
                                   stderr=subprocess.DEVNULL, check=True, timeout=60)

    def register(self, command):
        self.registry("add", "/ve", "/d", command, "/f")

    def start_with_book(self):
        (self.home / "tarrow.html").write_bytes(BOOK)
        return self.start(program=self.program)

    def wait_shown(self):
        """What the browser was given, once it has all of it."""
        def arrived():
            text = self.shown.read_bytes() if self.shown.exists() else b""
            return text.endswith(b"</html>\n") and text
        text = self.stage.wait(arrived, "the browser to be given a page")
        self.shown.unlink()
        return text

    def wait_place(self, place):
        leading = self.wait_shown().decode()
        address = "file://" + urllib.parse.quote(str(self.home / "tarrow.html")) + "#" + place
        self.assertIn(f'content="0; url={address}"', leading)

    def test_contents_and_search(self):
        program = self.start_with_book()
        program.command(CONTENTS)
        self.assertEqual(self.wait_shown(), BOOK)
        program.command(SEARCH)
        self.wait_place("search")
        program.command(WINDOW_CONTEXT)  # without a window
        self.assertEqual(self.wait_shown(), BOOK)

    def test_topics_of_dialogs(self):
        program = self.start_with_book()
        program.command(GLOBAL_SETTINGS)
        settings = program.dialog("Global Settings")
        program.push(settings, "Help")
        self.wait_place("t40")
        self.stage.probe.ask("post", settings.find("Button", identifier=KEY_BINDINGS).handle, BM_CLICK, 0, 0)
        bindings = program.dialog("Key Bindings")
        program.push(program.dialog("Virtual Key:"), "Help")
        self.wait_place("t50")
        program.press(bindings, "Cancel")

    def test_without_a_book(self):
        program = self.start(program=self.program)
        program.command(CONTENTS)
        said = program.answer("There is neither", "OK")
        self.assertIn(windows_path(self.home / "tarrow.hlp").lower(), said.lower())
        self.assertFalse(self.shown.exists())

    def test_a_help_file_goes_to_the_viewer_of_the_system(self):
        (self.home / "tarrow.hlp").write_bytes(b"no help file")
        program = self.start_with_book()
        program.command(CONTENTS)
        # What the viewer says of the file shows that it was asked.
        box = self.stage.wait(self.viewer_box, "the help viewer to read the file")
        self.assertFalse(self.shown.exists())
        self.stage.probe.ask("post", box.find("Button", "OK").handle, BM_CLICK, 0, 0)
        self.stage.wait(lambda: not self.viewer_box(), "the help viewer to end")

    def viewer_box(self):
        return next((window for window in self.stage.everything()
                     if window.find("Button", "OK") and any("tarrow.hlp" in part.text for part in window.walk())), None)
