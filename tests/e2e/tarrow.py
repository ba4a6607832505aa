"""Tarrow as the scenarios see it: its windows by name, its files, its questions."""

import contextlib
import shutil
import time
import unittest

import workshop
from driver import BM_CLICK, BUILD, WM_COMMAND, WM_NULL, Program, Window, plain
from vocabulary import command_number
from workshop import LOGS, windows_path

# The system's file dialogs: the fields of the file name, one for opening and one for saving, and the button.
FILE_NAME_FIELDS, OK_BUTTON = (1148, 1152), 1

FLAG_AUTO_SAVE, FLAG_BACKUP, FLAG_EDITOR_ONLY = 0x20, 0x40, 0x200


def shown_path(path):
    """A file's name as titles and lists show it."""
    return windows_path(path).lower()


class Tarrow(Program):
    """The running program."""

    def __init__(self, stage, directory, words, initialisation, program=None):
        options = ["-i", windows_path(initialisation)] if initialisation else []
        names = [word if word.startswith("-") else windows_path(directory / word) for word in words]
        super().__init__(stage, [windows_path(program or stage.program), *options, *names], directory)

    def is_main(self, window):
        return window.kind == "TarrowFrame"

    def client(self):
        """The area of the documents; None while it is hidden for bulk work."""
        return next((child for child in self.main().children if child.kind.lower() == "mdiclient"), None)

    def documents(self):
        """The windows inside the frame, from the top."""
        client = self.client()
        return [child for child in client.children if child.kind != "#32772"] if client else []

    def titles(self):
        return [document.text for document in self.documents()]

    def active_edit(self):
        documents = self.documents()
        return documents[0].find("TarrowEdit") if documents else None

    def wait_title(self, title):
        """Waits until the window on top has this title and the keyboard, and stands where it is to stay."""
        def ready():
            documents = self.documents()
            if not documents or documents[0].text != title:
                return False
            return self.stage.probe.ask("focus")["focusClass"] == "TarrowEdit" and documents[0]
        return self.wait_still(self.stage.wait(ready, f"a window with the title '{title}' in front"))

    def wait_still(self, window):
        """A window has the keyboard before it is maximised; gives it as it stands then."""
        seen = [None, window]

        def still():
            # The program answers when it comes to wait.
            self.stage.probe.ask("send", self.handle, WM_NULL, 0, 0)
            seen[:] = seen[1], self.window(window)
            return seen[0].facts["rect"] == seen[1].facts["rect"]
        self.stage.wait(still, "the window to stay where it is")
        return seen[1]

    def wait_file(self, path):
        return self.wait_title(shown_path(path))

    def wait_text(self, text):
        """Waits until what was typed has arrived: a message from elsewhere would overtake it."""
        def arrived():
            edit = self.active_edit()
            return edit and edit.text == text
        self.stage.wait(arrived, f"the text {text!r} in the window")

    def wait_focus_back(self):
        self.stage.wait(lambda: self.stage.probe.ask("focus")["focusClass"] == "TarrowEdit", "the focus in the text")

    def wait_titles(self, titles):
        self.stage.wait(lambda: sorted(self.titles()) == sorted(titles), f"exactly the windows {titles}")

    def file_dialog(self):
        """One of the system's file dialogs, once it stands."""
        def found():
            return next((dialog for dialog in self.dialogs() if self.name_field(dialog)), None)
        return self.stage.wait(found, "a file dialog")

    def name_field(self, dialog):
        return next(filter(None, (dialog.find("Edit", identifier=field) for field in FILE_NAME_FIELDS)), None)

    def fill_file_dialog(self, path):
        """Enters a name in a file dialog and confirms it."""
        dialog = self.file_dialog()
        self.stage.probe.ask("settext", self.name_field(dialog).handle, windows_path(path))
        button = dialog.find("Button", identifier=OK_BUTTON)
        self.stage.probe.ask("post", button.handle, BM_CLICK, 0, 0)

    def window(self, window):
        """The same window as it is now."""
        return Window(self.stage.probe.ask("tree", window.handle))

    def answer(self, text, label):
        """Answers a message box that contains `text` by one of its buttons; gives what it said."""
        box = self.dialog(text)
        said = "\n".join(plain(part.text) for part in box.walk() if part.kind == "Static" and part.text)
        self.press(box, label)
        return said

    def command(self, command):
        """Runs a command, by its name or number, as its menu item would."""
        self.stage.probe.ask("post", self.handle, WM_COMMAND, command_number(command), 0)

    def save(self):
        self.stage.keys("Ctrl+s")

    def close_and_end(self):
        self.close()
        return self.wait_end()


class Scenario(unittest.TestCase):
    """One play with a folder of its own, which starts empty but for an initialisation file."""

    stage = None  # set by the runner
    flags = 0x408
    settings = {}

    def setUp(self):
        self.folder = BUILD / "e2e" / self.id().split(".", 1)[1]
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir(parents=True)
        self.initialisation = self.folder / "settings" / "tarrow.ini"
        self.initialisation.parent.mkdir()
        self.write_settings()
        self.forget_journals()
        self.programs = []

    def journals(self):
        """The journals of texts that are not saved."""
        return list(self.stage.wine.prefix.glob("drive_c/users/*/AppData/Local/Tarrow/Recovery/*.journal"))

    def forget_journals(self):
        """What stopped programs have left would be offered to the next one."""
        for journal in self.journals():
            journal.unlink()

    def write_settings(self, sections=None, **values):
        """Writes the initialisation file: the Settings section, and other sections as dictionaries."""
        settings = {"Flags": f"{self.flags:b}"} | self.settings | values
        text = ""
        for name, keys in ({"Settings": settings} | (sections or {})).items():
            text += f"[{name}]\r\n" + "".join(f"{key}={value}\r\n" for key, value in keys.items())
        self.initialisation.write_bytes(text.encode())

    def read_settings(self):
        """The initialisation file as {section: {key: value}}, names in lower case."""
        sections, current = {}, {}
        for line in self.initialisation.read_text(errors="replace").splitlines():
            if line.startswith("["):
                current = sections.setdefault(line.strip("[]").lower(), {})
            elif "=" in line:
                key, _, value = line.partition("=")
                current[key.lower()] = value
        return sections

    @contextlib.contextmanager
    def case(self, name):
        """One case of several in a scenario: ends its programs, whatever becomes of it."""
        with self.subTest(name):
            try:
                yield
            finally:
                self.stop_programs()

    def tearDown(self):
        outcome = self._outcome.result
        if outcome and any(case is self for case, _ in outcome.failures + outcome.errors):
            self.keep_evidence()
        self.stop_programs()

    def stop_programs(self):
        for program in self.programs:
            program.stop()
        # What belongs to a stopped program leaves the desktop a moment later.
        processes = {program.main_process for program in self.programs} - {None}
        self.stage.wait(lambda: not any(window.facts["process"] in processes for window in self.stage.everything()),
                        "the windows of the last play to go")
        self.programs = []

    def keep_evidence(self):
        picture = LOGS / f"e2e-{self.id().split('.', 1)[1]}.png"
        workshop.screenshot(self.stage.wine.display, picture)
        print(f"What the screen showed: {picture}\n{self.stage.outline()}")

    def launch(self, *words, initialisation="own", program=None):
        """Starts Tarrow, or a copy of it that stands elsewhere, without waiting for it."""
        own = self.initialisation if initialisation == "own" else initialisation
        program = Tarrow(self.stage, self.folder, words, own, program)
        self.programs.append(program)
        return program

    def start(self, *words, **options):
        """Starts Tarrow and waits for its frame."""
        return self.launch(*words, **options).wait_for_main()

    def open(self, name, content, *options):
        """Starts Tarrow on a file of this content and waits for its window; gives program and path."""
        path = self.write(name, content)
        program = self.start(*options, name)
        program.wait_file(path)
        return program, path

    def write(self, name, content):
        path = self.folder / name
        path.write_bytes(content)
        return path

    def wait_content(self, path, content):
        """Waits until a file holds exactly these bytes."""
        last = None

        def holds():
            nonlocal last
            last = path.read_bytes() if path.is_file() else None
            return last == content
        try:
            self.stage.wait(holds, f"{path.name} to hold {content[:200]!r}")
        except AssertionError as error:
            raise AssertionError(f"{path.name} holds {last[:200] if last is not None else last!r}; {error}") from None

    def wait_files(self, names, folder=None):
        """Waits until exactly these files stand in a folder: a temporary one may live a moment longer."""
        def standing():
            return sorted(entry.name for entry in (folder or self.folder).iterdir() if entry.is_file())
        self.stage.wait(lambda: standing() == sorted(names), f"the files {names}, not {standing()}")

    def stays(self, condition, what, seconds=0.5):
        """For what must not happen: looks again and again for a while."""
        limit = time.monotonic() + seconds
        while time.monotonic() < limit:
            self.assertTrue(condition(), what)
            time.sleep(0.05)

