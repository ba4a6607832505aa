"""What the program remembers, and what the command line asks of it."""

import re

import tarrow
from tarrow import Scenario, shown_path
from vocabulary import FIRST_RECENT_FILE
from workshop import windows_path


class Session(Scenario):
    def test_the_windows_come_back_in_order(self):
        names = ["a.txt", "b.txt", "c.txt"]
        paths = [self.write(name, b"\r\n") for name in names]
        program = self.start(*names)
        program.wait_file(paths[2])
        before = program.titles()
        self.assertEqual(program.close_and_end(), 0)
        self.assertEqual(self.read_settings()["session"]["editcount"], "3")
        program = self.start()
        program.wait_titles([shown_path(path) for path in paths])
        self.assertEqual(sorted(program.titles()), sorted(before))

    def test_a_name_with_a_comma_and_a_blank_comes_back(self):
        program, path = self.open("a, b.txt", b"\r\n")
        self.assertEqual(program.close_and_end(), 0)
        program = self.start()
        program.wait_file(path)

    def test_the_read_only_mark_comes_back(self):
        path = self.write("a.txt", b"old\r\n")
        self.write_settings({"Session": {"EditCount": "1", "Edit01": f"{windows_path(path)},13"}})
        program = self.start()
        program.wait_file(path)
        self.stage.type("x")
        program.save()
        self.stays(lambda: path.read_bytes() == b"old\r\n", "a read-only text was changed")
        self.assertEqual(program.close_and_end(), 0)
        self.assertEqual(self.read_settings()["session"]["edit01"], f"{shown_path(path)},13")

    def test_a_missing_entry_ends_the_list(self):
        path = self.write("a.txt", b"\r\n")
        self.write_settings({"Session": {"EditCount": "3", "Edit01": windows_path(path),
                                         "Edit03": windows_path(self.write("c.txt", b"\r\n"))}})
        program = self.start()
        program.wait_titles([shown_path(path)])

    def test_a_named_file_takes_the_place_of_the_session(self):
        path = self.write("a.txt", b"\r\n")
        self.write("b.txt", b"\r\n")
        self.write_settings({"Session": {"EditCount": "1", "Edit01": windows_path(self.folder / "b.txt")}})
        program = self.start("a.txt")
        program.wait_titles([shown_path(path)])

    def test_an_empty_session_is_remembered_as_empty(self):
        program, _ = self.open("a.txt", b"\r\n")
        program.command("Window:CloseAll")
        program.wait_titles([])
        self.assertEqual(program.close_and_end(), 0)
        program = self.start()
        program.wait_titles([])
        self.assertNotIn("editcount", self.read_settings().get("session", {}))


class RecentFiles(Scenario):
    def test_they_are_listed_and_reopened(self):
        names = ["a.txt", "b.txt"]
        paths = [self.write(name, b"\r\n") for name in names]
        program = self.start(*names)
        program.wait_file(paths[1])
        program.command("Window:CloseAll")
        program.wait_titles([])
        program.command(FIRST_RECENT_FILE + 1)
        program.wait_titles([shown_path(paths[0])])
        self.assertEqual(program.close_and_end(), 0)
        session = self.read_settings()["session"]
        # Opening the second entry changed places with the first.
        self.assertEqual([session["file 1"], session["file 2"]], [shown_path(path) for path in paths])

    def test_seven_files_keep_six_names(self):
        names = [f"{number}.txt" for number in range(7)]
        paths = [self.write(name, b"\r\n") for name in names]
        program = self.start(*names)
        program.wait_file(paths[6])
        self.assertEqual(program.close_and_end(), 0)
        session = self.read_settings()["session"]
        self.assertEqual([session[f"file {place}"] for place in range(1, 7)],
                         [shown_path(path) for path in reversed(paths[1:])])


class Options(Scenario):
    def test_arrange(self):
        names = ["a.txt", "b.txt"]
        for letter, place in (("v", "0"), ("h", "3"), ("c", "1"), ("m", "2")):
            with self.case(letter):
                paths = [self.write(name, b"\r\n") for name in names]
                self.write_settings()
                program = self.start(f"-a{letter}", *names)
                program.wait_titles([shown_path(path) for path in paths])
                self.stage.wait(lambda: self.arrangement(program) == place, f"the arrangement {place}")
                self.assertEqual(program.close_and_end(), 0)
                self.assertEqual(self.read_settings()["settings"]["arrange"], place)

    def arrangement(self, program):
        """The number of the arrangement in which the two windows of the program stand."""
        first, second = (document.facts for document in program.documents())
        if first["zoomed"] or second["zoomed"]:
            return "2"
        (left1, top1, right1, bottom1), (left2, top2, right2, bottom2) = first["rect"], second["rect"]
        if top1 == top2 and (right1 <= left2 or right2 <= left1):
            return "0"
        if left1 == left2 and (bottom1 <= top2 or bottom2 <= top1):
            return "3"
        return "1"

    def test_editor_only_is_kept(self):
        program = self.start("-e")
        self.assertEqual(program.close_and_end(), 0)
        self.assertTrue(int(self.read_settings()["settings"]["flags"], 2) & tarrow.FLAG_EDITOR_ONLY)

    def test_unknown_options_are_ignored(self):
        program, _ = self.open("a.txt", b"\r\n", "-x", "-q")
        self.assertEqual(program.close_and_end(), 0)

    def test_print_without_a_file_ends_at_once(self):
        program = self.launch("-p")
        self.assertIsNotNone(program.wait_end())

    def test_a_directory_for_the_settings(self):
        program = self.start(initialisation=self.initialisation.parent)
        self.assertEqual(program.close_and_end(), 0)
        self.assertIn("window", self.read_settings()["settings"])


class Placement(Scenario):
    settings = {"Window": "100,120,900,700,0"}

    def test_the_frame_stands_where_it_stood(self):
        program = self.start()
        self.assertEqual(program.main().facts["rect"], [100, 120, 900, 700])
        self.assertEqual(program.close_and_end(), 0)
        self.assertEqual(self.read_settings()["settings"]["window"], "100,120,900,700,0")

    def test_what_is_not_given_is_where_the_system_puts_it(self):
        self.write_settings(Window="")
        program = self.start()
        _, _, right, bottom = program.main().facts["rect"]
        program.close_and_end()
        self.write_settings(Window="30,40")
        self.assertEqual(self.start().main().facts["rect"], [30, 40, right, bottom])

    def test_a_frame_off_the_screen_comes_back(self):
        self.write_settings(Window="5000,5000,5600,5400,0")
        left, top, right, bottom = self.start().main().facts["rect"]
        self.assertLess(left, 1280)
        self.assertLess(top, 1024)
        self.assertGreater(right - left, 100)
        self.assertGreater(bottom - top, 100)


class BadSettings(Scenario):
    def test_strange_files_start_with_defaults(self):
        contents = [b"", b"\0" * 5000, bytes(range(256)) * 40, b"[Settings\r\nFlags=", b"[" * 100000,
                    b"[Settings]\r\nFlags=" + b"1" * 100000 + b"\r\nTabSize=-7\r\nWindow=a,b,,\r\nArrange=99\r\n"]
        for number, content in enumerate(contents):
            with self.case(number):
                self.initialisation.write_bytes(content)
                program, _ = self.open("a.txt", b"text\r\n")
                self.assertEqual(program.close_and_end(), 0)

    def test_a_missing_file_is_made(self):
        self.initialisation.unlink()
        program = self.start(initialisation=self.initialisation.parent)
        self.assertEqual(program.close_and_end(), 0)
        self.assertTrue((self.folder / "settings").exists())

    def test_other_sections_keys_and_comments_survive(self):
        self.initialisation.write_bytes(b"; mine\r\n[Other Program]\r\nkey = value ; kept\r\n\r\n[Settings]\r\n"
                                        b"Flags=10000001000\r\nUnknown=1\r\n")
        program = self.start()
        self.assertEqual(program.close_and_end(), 0)
        text = self.initialisation.read_text()
        for line in ("; mine", "[Other Program]", "key = value ; kept", "Unknown=1"):
            self.assertTrue(re.search(f"^{re.escape(line)}\r?$", text, re.MULTILINE), f"{line} is gone:\n{text}")
