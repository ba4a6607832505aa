"""Full disks, locked files, sudden ends: whatever happens, the old text or the new one is there."""

import os
import signal
import subprocess

from tarrow import Scenario, shown_path
from workshop import windows_path

WM_QUERYENDSESSION, WM_ENDSESSION = 0x11, 0x16


class FullDisk(Scenario):
    """A small disk of its own, which can be filled up, with bytes or with files."""

    inodes = 100

    def setUp(self):
        super().setUp()
        if os.geteuid() != 0:
            self.skipTest("only root can mount a small disk")
        self.disk = self.folder / "disk"
        self.disk.mkdir()
        subprocess.run(["mount", "-t", "tmpfs", "-o", f"size=256k,nr_inodes={self.inodes}", "tmpfs", self.disk], check=True)
        self.addCleanup(subprocess.run, ["umount", "-l", self.disk], check=True)

    def test_the_old_file_survives(self):
        old = b"old line\r\n" * 1000
        path = self.write("disk/a.txt", old)
        program = self.start("disk/a.txt")
        program.wait_file(path)
        filler = self.disk / "filler"
        with filler.open("wb", buffering=0) as out:
            self.assertRaises(OSError, lambda: [out.write(b"x" * 4096) for _ in range(100)])
        self.stage.type("new ")
        program.save()
        self.assertIn("The disk is full", program.answer("Error accessing", "OK"))
        self.assertEqual(path.read_bytes(), old)
        filler.unlink()
        program.wait_focus_back()
        program.save()
        self.wait_content(path, b"new " + old)
        self.wait_files(["a.txt"], self.disk)


    def test_a_directory_that_takes_no_new_file(self):
        path = self.write("disk/a.txt", b"old\r\n")
        free = int(subprocess.check_output(["stat", "-f", "-c", "%d", self.disk]))
        subprocess.run(["mount", "-o", f"remount,nr_inodes={self.inodes - free}", self.disk], check=True)
        self.assertRaises(OSError, (self.disk / "b.txt").write_bytes, b"")
        program = self.start("disk/a.txt")
        program.wait_file(path)
        self.stage.type("new ")
        program.save()
        self.wait_content(path, b"new old\r\n")
        self.wait_files(["a.txt"], self.disk)


class LockedFiles(Scenario):
    def test_a_failing_save_under_a_new_name_tells_the_name_as_windows_show_it(self):
        target = self.write("TakenName.Txt", b"b\r\n")
        self.stage.probe.ask("hold", windows_path(target))
        self.addCleanup(self.stage.probe.ask, "release")
        program, path = self.open("a.txt", b"a\r\n")
        self.stage.keys("F12")
        program.fill_file_dialog(target)
        program.answer("already exists", "Yes")
        self.assertIn(shown_path(target), program.answer("Error accessing", "OK"))
        self.assertEqual(target.read_bytes(), b"b\r\n")
        program.wait_titles([shown_path(path)])

    def test_a_file_that_another_program_writes_is_not_opened(self):
        path = self.write("a.txt", b"a\r\n")
        self.stage.probe.ask("hold", windows_path(path))
        self.addCleanup(self.stage.probe.ask, "release")
        program = self.start("a.txt")
        self.assertIn("SHARE.EXE not loaded or shared region is locked", program.answer("Error accessing", "OK"))
        program.wait_titles([])

    def test_saving_into_a_locked_file_keeps_both_texts(self):
        program, path = self.open("a.txt", b"a\r\n")
        self.stage.probe.ask("hold", windows_path(path))
        self.addCleanup(self.stage.probe.ask, "release")
        self.stage.type("b")
        program.save()
        program.answer("Error accessing", "OK")
        self.assertEqual(path.read_bytes(), b"a\r\n")
        self.stage.probe.ask("release")
        program.wait_focus_back()
        program.save()
        self.wait_content(path, b"ba\r\n")


class SuddenEnds(Scenario):
    def test_killed_while_writing_settings(self):
        """Killed as soon as the folder of the settings changes: the file is the old or the new one, whole."""
        self.write_settings({"Other": {f"Key{number}": "x" * 50 for number in range(500)}})
        old = self.initialisation.read_bytes()
        folder = self.initialisation.parent

        def state():
            return sorted((entry.name, entry.stat().st_mtime_ns) for entry in os.scandir(folder))
        program = self.start()
        before = state()
        program.close()
        while state() == before and program.process.poll() is None:
            pass
        os.kill(program.process.pid, signal.SIGKILL)
        program.process.wait()
        now = self.initialisation.read_bytes()
        self.assertTrue(now == old or (b"Key499=" in now and b"Window=" in now and now.endswith(b"\n")), now[-300:])

    def test_the_end_of_the_session_asks_and_saves(self):
        program, path = self.open("a.txt", b"a\r\n")
        self.stage.type("b")
        program.wait_text("ba\r\n")
        self.stage.probe.ask("post", program.handle, WM_QUERYENDSESSION, 0, 0)
        program.answer("Save changes to", "Yes")
        self.wait_content(path, b"ba\r\n")
        self.assertEqual(self.stage.probe.ask("send", program.handle, WM_QUERYENDSESSION, 0, 0), 1)
        self.stage.probe.ask("send", program.handle, WM_ENDSESSION, 1, 0)
        self.stage.wait(lambda: self.read_settings().get("session", {}).get("edit01", "").startswith(shown_path(path)),
                        "the session in the settings")


class Sizes(Scenario):
    def test_a_hundred_megabytes(self):
        line = b"the quick brown fox jumps over the lazy dog, and over it, and over it again\r\n"
        content = line * (100_000_000 // len(line))
        program, path = self.open("large.txt", content)
        self.stage.keys("Ctrl+End", "x", "Ctrl+Home", "y")
        program.save()
        wanted = b"y" + content + b"x"
        self.stage.wait(lambda: path.stat().st_size == len(wanted) and path.read_bytes() == wanted,
                        "the text to be saved", seconds=60)
        path.unlink()

    def test_one_line_of_five_megabytes(self):
        content = b"0123456789" * 500_000 + b"\r\n"
        program, path = self.open("line.txt", content)
        self.stage.keys("End", "x", "Home", "y")
        program.save()
        self.wait_content(path, b"y" + content[:-2] + b"x\r\n")

    def test_a_session_of_a_hundred_windows(self):
        paths = [self.write(f"{number:03}.txt", b"\r\n") for number in range(100)]
        entries = {f"Edit{place:02}": f"{windows_path(path)},{place % 2 * 16 + 12}"
                   for place, path in enumerate(paths, 1)}
        self.write_settings({"Session": {"EditCount": "100"} | entries})
        program = self.start()
        program.wait_titles([shown_path(path) for path in paths])
        self.assertEqual(program.close_and_end(), 0)
        session = self.read_settings()["session"]
        self.assertEqual(session["editcount"], "100")
        saved = {session[f"edit{place:02}"] for place in range(1, 101)}
        self.assertEqual(saved, {value.replace(windows_path(path), shown_path(path))
                                 for value, path in zip(entries.values(), paths)})


class RealKeyboard(Scenario):
    """The way of a key through the display's server, once; the other scenarios feed Windows' own queue."""

    def x(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.stage.wine.environment, check=True)

    def test_keys_and_mouse(self):
        program, path = self.open("a.txt", b"one two\r\n")
        self.x("key", "ctrl+f")
        self.x("type", "X_(y) ")
        left, top, _, _ = program.active_edit().facts["rect"]
        self.x("mousemove", left + 2, top + 6, "click", "1")
        self.x("type", "z")
        self.x("key", "ctrl+s")
        self.wait_content(path, b"zone X_(y) two\r\n")

    def test_the_popup_menu(self):
        program, path = self.open("a.txt", b"one two\r\n")
        x, y = program.active_edit().middle()
        self.x("mousemove", x, y, "click", "3")
        self.stage.wait(lambda: any(window.kind == "#32768" for window in self.stage.everything()), "the popup menu")
        self.x("key", "Escape")
        self.stage.wait(lambda: all(window.kind != "#32768" for window in self.stage.everything()), "it to close")
