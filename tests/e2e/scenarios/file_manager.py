"""Manage Files: lists, copies, moves, renames, deletes and touches, judged by the files on the disk."""

import os
import subprocess
import time

from tarrow import Scenario, shown_path
from workshop import windows_path

DIRECTORY, FILES, COUNTS = 201, 202, 222
TARGET, RENAME_FROM, RENAME_TO = 201, 201, 202
READ_ONLY, ARCHIVE, NOW = 261, 262, 261


class FileManager(Scenario):
    def manage(self, patterns="*.*", program=None):
        """Opens the file manager on the play's folder; gives program and dialog."""
        program = program or self.start()
        program.command("File:Manage")
        dialog = program.dialog("Manage Files")
        self.fill(dialog, DIRECTORY, windows_path(self.folder))
        self.fill(dialog, FILES, patterns)
        program.push(dialog, "List")
        return program, dialog

    def fill(self, dialog, field, text):
        self.stage.probe.ask("settext", dialog.find("Edit", identifier=field).handle, text)

    def wait_counts(self, program, dialog, text):
        def shown():
            return program.window(dialog).find(identifier=COUNTS).text == text
        self.stage.wait(shown, f"the counts '{text}'")

    def choose_all(self, program, dialog, count, size):
        """Chooses every file, by the keys."""
        self.wait_counts(program, dialog, f"{count} files, {size} bytes")
        self.focus_list(program, dialog)
        self.stage.keys("Ctrl+a")
        self.wait_counts(program, dialog, f"{count} of {count} files chosen, {size} bytes")

    def choose_first(self, program, dialog, count, total, size):
        self.wait_counts(program, dialog, f"{count} files, {total} bytes")
        self.focus_list(program, dialog)
        self.stage.keys("Home", "Space")
        self.wait_counts(program, dialog, f"1 of {count} files chosen, {size} bytes")

    def focus_list(self, program, dialog):
        def focused():
            return self.stage.probe.ask("focus")["focusClass"] == "SysListView32"
        if not focused():
            x, y = dialog.find("SysListView32").middle()
            self.stage.click(x, y)
        self.stage.wait(focused, "the focus in the list")

    def make(self, *names, content=b"text\r\n"):
        return [self.write(name, content) for name in names]

    def prompt(self, program, title):
        """The dialog of exactly that title: the file manager's own buttons have these words too."""
        def found():
            return next((window for window in program.dialogs() if window.text == title), None)
        return self.stage.wait(found, f"the dialog '{title}'")

    def enter_target(self, program, title, target):
        dialog = self.prompt(program, title)
        self.fill(dialog, TARGET, target)
        program.push(dialog, "OK")
        return dialog

    def test_copies_with_times_and_attributes(self):
        one, two = self.make("one.c", "Two.c")
        os.utime(one, (1_000_000_000, 1_000_000_000))
        os.chmod(two, 0o444)
        program, dialog = self.manage("*.c")
        self.choose_all(program, dialog, 2, 12)
        program.push(dialog, "Copy...")
        self.enter_target(program, "Copy", "copies")
        program.answer("does not exist. Create it?", "Yes")
        copies = self.folder / "copies"
        self.stage.wait(lambda: copies.is_dir() and sorted(os.listdir(copies)) == ["Two.c", "one.c"], "the copies")
        self.assertEqual(int((copies / "one.c").stat().st_mtime), 1_000_000_000)
        self.assertFalse((copies / "Two.c").stat().st_mode & 0o200)
        self.assertTrue((copies / "one.c").stat().st_mode & 0o200)
        self.assertEqual((copies / "Two.c").read_bytes(), b"text\r\n")

    def test_asks_before_it_replaces(self):
        self.make("a.c", "b.c", "c.c", "d.c", content=b"new")
        others = self.folder / "others"
        others.mkdir()
        for name in ("a.c", "b.c", "c.c", "d.c"):
            (others / name).write_bytes(b"old")
        program, dialog = self.manage("*.c")
        self.choose_all(program, dialog, 4, 12)
        program.push(dialog, "Move...")
        self.enter_target(program, "Move", "others")
        for label in ("No", "Yes", "Yes to All"):
            program.press(program.dialog("Replace it?"), label)
        self.stage.wait(lambda: (others / "d.c").read_bytes() == b"new", "the last file to be replaced")
        self.assertEqual([(others / name).read_bytes() for name in ("a.c", "b.c", "c.c")], [b"old", b"new", b"new"])
        self.wait_files(["a.c"])

    def test_renames_by_wildcards_and_the_window_follows(self):
        self.make("one.c", "two.c")
        program, path = self.open("three.c", b"3\r\n")
        program, dialog = self.manage("*.c", program)
        self.choose_all(program, dialog, 3, 15)
        self.stage.keys("F2")
        rename = self.prompt(program, "Rename")
        self.fill(rename, RENAME_FROM, "*.c")
        self.fill(rename, RENAME_TO, "*.bak")
        program.press(rename, "OK")
        self.wait_files(["one.bak", "three.bak", "two.bak"])
        program.press(dialog, "Close")
        program.wait_file(self.folder / "three.bak")
        self.stage.type("x")
        program.save()
        self.wait_content(self.folder / "three.bak", b"x3\r\n")
        self.assertFalse(path.exists())

    def test_refuses_names_that_are_none(self):
        self.make("one.c")
        program, dialog = self.manage("*.c")
        self.choose_all(program, dialog, 1, 6)
        program.push(dialog, "Rename...")
        rename = self.prompt(program, "Rename")
        for name, message in {"a:b": "is no name", "*": "more wildcards"}.items():
            self.fill(rename, RENAME_TO, name)
            program.push(rename, "OK")
            program.answer(message, "OK")
            rename = self.prompt(program, "Rename")
        program.press(rename, "Cancel")
        self.wait_files(["one.c"])

    def test_deletes_after_a_question(self):
        self.make("one.c", "two.c", "keep.h")
        program, dialog = self.manage("*.c")
        self.choose_all(program, dialog, 2, 12)
        self.stage.keys("Delete")
        program.answer("Delete 2 files for good?", "No")  # Wine's drives have no bin here
        self.wait_files(["keep.h", "one.c", "two.c"])
        program.push(dialog, "Delete")
        program.answer("Delete 2 files for good?", "Yes")
        self.wait_files(["keep.h"])
        self.wait_counts(program, dialog, "0 files, 0 bytes")

    def test_what_fails_is_named(self):
        one, two = self.make("one.c", "two.c")
        os.chmod(one, 0o444)
        program, dialog = self.manage("*.c")
        self.choose_all(program, dialog, 2, 12)
        self.stage.keys("Shift+Delete")
        program.answer("Delete 2 files for good?", "Yes")
        report = program.dialog("1 of 2 files could not be dealt with")
        program.press(report, "OK")
        self.wait_files(["one.c"])

    def test_touches_and_changes_attributes(self):
        one, two = self.make("one.c", "two.c")
        for path in (one, two):
            os.utime(path, (1_000_000_000, 1_000_000_000))
        program, dialog = self.manage("*.c")
        self.choose_all(program, dialog, 2, 12)
        program.push(dialog, "Touch...")
        program.press(self.prompt(program, "Touch"), "OK")
        self.stage.wait(lambda: min(one.stat().st_mtime, two.stat().st_mtime) > time.time() - 600, "the new times")
        program.push(dialog, "Attributes...")
        attributes = self.prompt(program, "Attributes")
        program.push(attributes, "Read-only")
        program.press(attributes, "OK")
        self.stage.wait(lambda: not (one.stat().st_mode | two.stat().st_mode) & 0o200, "read-only files")

    def test_enter_opens_and_the_dialog_stays(self):
        one, = self.make("one.c")
        program, dialog = self.manage("*.c")
        self.choose_first(program, dialog, 1, 6, 6)
        self.stage.keys("Enter")
        program.wait_file(one)
        self.assertTrue(any(window.handle == dialog.handle for window in program.dialogs()))

    def test_comes_back_where_it_stood(self):
        program, dialog = self.manage()
        left, top, _, _ = dialog.facts["rect"]
        self.stage.probe.ask("move", dialog.handle, left + 60, top + 40)
        self.stage.wait(lambda: program.window(dialog).facts["rect"] != dialog.facts["rect"], "the dialog to move")
        place = program.window(dialog).facts["rect"]
        program.press(dialog, "Close")
        program.command("File:Manage")
        again = program.dialog("Manage Files")
        self.stage.wait(lambda: program.window(again).facts["rect"] == place, f"the dialog at {place}")

    def test_a_modified_file_is_saved_first_as_the_user_says(self):
        program, path = self.open("one.c", b"1\r\n")
        self.stage.type("x")
        program.wait_text("x1\r\n")
        program, dialog = self.manage("*.c", program)
        self.choose_all(program, dialog, 1, 3)
        program.push(dialog, "Copy...")
        program.answer("before continuing", "Yes")
        self.enter_target(program, "Copy", "copy.c")
        self.wait_content(self.folder / "copy.c", b"x1\r\n")

    def test_a_full_disk_leaves_no_half_file(self):
        if os.geteuid() != 0:
            self.skipTest("only root can mount a small disk")
        disk = self.folder / "disk"
        disk.mkdir()
        subprocess.run(["mount", "-t", "tmpfs", "-o", "size=256k", "tmpfs", disk], check=True)
        self.addCleanup(subprocess.run, ["umount", "-l", disk], check=True)
        self.make("a.bin", "b.bin", "c.bin", content=b"x" * 100_000)
        program, dialog = self.manage("*.bin")
        self.choose_all(program, dialog, 3, "300,000")
        program.push(dialog, "Copy...")
        self.enter_target(program, "Copy", "disk")
        program.press(program.dialog("1 of 3 files could not be dealt with"), "OK")
        self.assertEqual({path.name: path.stat().st_size for path in disk.iterdir()},
                         {"a.bin": 100_000, "b.bin": 100_000})

    def test_a_locked_file_is_named_and_the_others_move(self):
        self.make("a.c", "b.c")
        self.stage.probe.ask("hold", windows_path(self.folder / "a.c"))
        self.addCleanup(self.stage.probe.ask, "release")
        (self.folder / "others").mkdir()
        program, dialog = self.manage("*.c")
        self.choose_all(program, dialog, 2, 12)
        program.push(dialog, "Move...")
        self.enter_target(program, "Move", "others\\")
        report = program.dialog("1 of 2 files could not be dealt with")
        program.press(report, "OK")
        self.wait_files(["a.c"])
        self.wait_files(["b.c"], self.folder / "others")

    def test_a_copy_cancelled_in_the_middle_leaves_no_half_file(self):
        self.make("a.bin")
        with open(self.folder / "b.bin", "wb") as file:
            file.truncate(64 << 30)  # no machine is through with it before the button is pressed
        others = self.folder / "others"
        others.mkdir()
        program, dialog = self.manage("*.bin")
        self.choose_all(program, dialog, 2, "68,719,476,742")
        program.push(dialog, "Copy...")
        self.enter_target(program, "Copy", "others\\")
        program.press(program.dialog("Copying Files"), "Cancel")
        self.wait_files(["a.bin"], others)
        self.wait_counts(program, dialog, "2 of 2 files chosen, 68,719,476,742 bytes")
