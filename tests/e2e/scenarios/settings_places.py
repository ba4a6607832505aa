"""Where the settings lie: beside the program, in its parent's folder, or with the user."""

import shutil

from tarrow import Scenario
from workshop import BUILD


class Home(Scenario):
    """A copy of the program in a folder of the scenario's own."""

    def install(self, place):
        """Copies the program; gives its path."""
        program = self.folder / place / "tarrow.exe"
        program.parent.mkdir(parents=True)
        shutil.copy(BUILD / self.stage.width / "tarrow.exe", program)
        return program

    def run_once(self, program):
        self.assertEqual(self.start(initialisation=None, program=program).close_and_end(), 0)

    def test_beside_the_program(self):
        self.run_once(self.install("home"))
        self.assertIn(b"[Settings]", (self.folder / "home" / "tarrow.ini").read_bytes())

    def test_a_program_in_nt_has_its_files_above(self):
        self.run_once(self.install("home/nt"))
        self.assertTrue((self.folder / "home" / "tarrow.ini").exists())
        self.assertFalse((self.folder / "home" / "nt" / "tarrow.ini").exists())

    def test_the_current_directory_comes_first(self):
        (self.folder / "tarrow.ini").write_bytes(b"")
        self.run_once(self.install("home"))
        self.assertIn(b"[Settings]", (self.folder / "tarrow.ini").read_bytes())
        self.assertFalse((self.folder / "home" / "tarrow.ini").exists())

    def test_where_nothing_can_be_written_the_user_keeps_them(self):
        program = self.install("home")
        users = self.stage.wine.prefix / "drive_c" / "users"
        places = [user / "AppData" / "Roaming" / "Tarrow" for user in users.iterdir()]

        def forget():
            for place in places:
                shutil.rmtree(place, ignore_errors=True)
        forget()
        self.addCleanup(forget)
        beside = self.folder / "home" / "tarrow.ini"
        beside.write_bytes(b"[Settings]\r\nTabSize=3\r\n")
        beside.chmod(0o444)

        first = self.start(initialisation=None, program=program)
        first.close()
        said = first.answer("Settings cannot be saved in", "OK")
        self.assertIn("appdata", said.lower())
        first.wait_end()
        self.assertEqual(beside.read_bytes(), b"[Settings]\r\nTabSize=3\r\n")
        kept = [place / "tarrow.ini" for place in places if place.exists()]
        self.assertEqual(len(kept), 1)
        self.assertIn(b"TabSize=3", kept[0].read_bytes())

        kept[0].write_bytes(b"[Settings]\r\nTabSize=5\r\n")
        self.run_once(program)  # says nothing more, and reads what the user has
        text = kept[0].read_bytes()
        self.assertIn(b"TabSize=5", text)
        self.assertIn(b"Window=", text)
