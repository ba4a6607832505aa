"""Where the settings lie: beside the program, in its parent's folder, or with the user."""

import os
import shutil
import subprocess

from tarrow import Scenario

WM_ENDSESSION = 0x16


class Installed(Scenario):
    """A copy of the program in a folder of the scenario's own."""

    def install(self, place):
        """Copies the program; gives its path."""
        program = self.folder / place / "tarrow.exe"
        program.parent.mkdir(parents=True)
        shutil.copy(self.stage.program, program)
        return program

    def run_once(self, program):
        self.assertEqual(self.start(initialisation=None, program=program).close_and_end(), 0)


class Home(Installed):
    def test_beside_the_program(self):
        self.run_once(self.install("home"))
        self.assertIn(b"[Settings]", (self.folder / "home" / "tarrow.ini").read_bytes())

    def test_a_program_in_nt_has_its_files_above(self):
        self.run_once(self.install("home/nt"))
        self.assertTrue((self.folder / "home" / "tarrow.ini").exists())
        self.assertFalse((self.folder / "home" / "nt" / "tarrow.ini").exists())

    def test_the_last_letters_of_print_are_cut_too(self):
        self.run_once(self.install("print"))
        self.assertIn(b"[Settings]", (self.folder / "pritarrow.ini").read_bytes())
        self.assertFalse((self.folder / "pri").exists())

    def test_the_current_directory_comes_first(self):
        (self.folder / "tarrow.ini").write_bytes(b"")
        self.run_once(self.install("home"))
        self.assertIn(b"[Settings]", (self.folder / "tarrow.ini").read_bytes())
        self.assertFalse((self.folder / "home" / "tarrow.ini").exists())



class WithTheUser(Installed):
    """Settings that go to the user's folder, because where they belong nothing can be written."""

    def setUp(self):
        super().setUp()
        users = self.stage.wine.prefix / "drive_c" / "users"
        self.places = [user / "AppData" / "Roaming" / "Tarrow" for user in users.iterdir()]
        self.forget()
        self.addCleanup(self.forget)

    def forget(self):
        for place in self.places:
            shutil.rmtree(place, ignore_errors=True)

    def kept(self):
        """The file that stands with the user now."""
        found = [place / "tarrow.ini" for place in self.places if place.exists()]
        self.assertEqual(len(found), 1)
        return found[0]

    def run_and_be_told(self, **options):
        """Runs the program once, which says where the settings go; gives the file."""
        program = self.start(**options)
        program.close()
        said = program.answer("Settings cannot be saved in", "OK")
        self.assertIn("appdata", said.lower())
        program.wait_end()
        return self.kept()

    def test_a_file_that_cannot_be_written(self):
        program = self.install("home")
        beside = self.folder / "home" / "tarrow.ini"
        beside.write_bytes(b"[Settings]\r\nTabSize=3\r\n")
        beside.chmod(0o444)
        kept = self.run_and_be_told(initialisation=None, program=program)
        self.assertEqual(beside.read_bytes(), b"[Settings]\r\nTabSize=3\r\n")
        self.assertIn(b"TabSize=3", kept.read_bytes())

        kept.write_bytes(b"[Settings]\r\nTabSize=5\r\n")
        self.run_once(program)  # says nothing more, and reads what the user has
        text = kept.read_bytes()
        self.assertIn(b"TabSize=5", text)
        self.assertIn(b"Window=", text)

    def test_a_directory_that_cannot_be_written(self):
        if os.geteuid() != 0:
            self.skipTest("only root can mount a disk that is read-only")
        disk = self.folder / "disk"
        disk.mkdir()
        subprocess.run(["mount", "-t", "tmpfs", "tmpfs", disk], check=True)
        self.addCleanup(subprocess.run, ["umount", "-l", disk], check=True)
        program = self.install("disk/home")
        subprocess.run(["mount", "-o", "remount,ro", disk], check=True)
        kept = self.run_and_be_told(initialisation=None, program=program)
        self.assertIn(b"Window=", kept.read_bytes())

    def test_the_end_of_the_session_waits_for_nobody(self):
        beside = self.folder / "home" / "tarrow.ini"
        for named in (False, True):
            with self.case("named" if named else "beside"):
                self.forget()
                shutil.rmtree(self.folder / "home", ignore_errors=True)
                program = self.install("home")
                beside.write_bytes(b"[Settings]\r\n")
                beside.chmod(0o444)
                running = self.start(initialisation=beside if named else None, program=program)
                self.stage.probe.ask("send", running.handle, WM_ENDSESSION, 1, 0)
                self.assertEqual(running.dialogs(), [])
                self.assertEqual(beside.read_bytes(), b"[Settings]\r\n")
                self.assertIn(b"Window=", self.kept().read_bytes())

    def test_a_directory_in_place_of_the_file(self):
        (self.folder / "elsewhere").mkdir()
        missing = self.folder / "elsewhere" / "none.ini"  # stands for its directory
        kept = self.run_and_be_told(initialisation=missing)
        self.assertIn(b"Window=", kept.read_bytes())
        self.assertEqual(list((self.folder / "elsewhere").iterdir()), [])
        self.assertEqual(self.start(initialisation=missing).close_and_end(), 0)
