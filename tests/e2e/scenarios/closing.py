"""Closing never loses a text that nobody decided about."""

import tarrow
from tarrow import Scenario, shown_path
from vocabulary import FILE_CLOSE

QUESTION = "Save changes to"


class Closing(Scenario):
    def modified(self):
        program, path = self.open("a.txt", b"old\r\n")
        self.stage.type("new ")
        program.wait_text("new old\r\n")
        return program, path

    def test_yes_saves(self):
        program, path = self.modified()
        program.close()
        self.assertIn(shown_path(path), program.answer(QUESTION, "Yes"))
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(path.read_bytes(), b"new old\r\n")

    def test_no_closes_and_leaves_the_file(self):
        program, path = self.modified()
        program.close()
        program.answer(QUESTION, "No")
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(path.read_bytes(), b"old\r\n")

    def test_cancel_keeps_everything_open(self):
        program, path = self.modified()
        program.close()
        program.answer(QUESTION, "Cancel")
        program.wait_file(path)
        self.assertEqual(path.read_bytes(), b"old\r\n")
        program.save()
        self.wait_content(path, b"new old\r\n")

    def test_closing_one_window_asks_too(self):
        program, path = self.modified()
        program.command(FILE_CLOSE)
        program.answer(QUESTION, "Yes")
        program.wait_titles([])
        self.assertEqual(path.read_bytes(), b"new old\r\n")

    def test_closing_stops_at_the_first_cancel(self):
        names = ["a.txt", "b.txt"]
        paths = [self.write(name, b"\r\n") for name in names]
        program = self.start(*names)
        program.wait_file(paths[1])
        self.stage.type("x")
        self.stage.keys("Ctrl+F6")
        program.wait_file(paths[0])
        self.stage.type("y")
        program.wait_text("y\r\n")
        program.command("Window:CloseAll")
        program.answer(QUESTION, "No")
        program.answer(QUESTION, "Cancel")
        program.wait_titles([shown_path(path) for path in paths])

    def test_the_window_of_the_question_is_in_front(self):
        names = ["a.txt", "b.txt"]
        paths = [self.write(name, b"\r\n") for name in names]
        program = self.start(*names)
        program.wait_file(paths[1])
        self.stage.type("x")
        self.stage.keys("Ctrl+F6")
        program.wait_file(paths[0])
        program.close()
        program.dialog(QUESTION)
        self.assertEqual(program.titles()[0], shown_path(paths[1]))
        program.answer(QUESTION, "No")
        self.assertEqual(program.wait_end(), 0)
        session = self.read_settings()["session"]
        self.assertTrue(session["edit01"].startswith(shown_path(paths[0])), session)

    def test_an_untitled_text_asks_for_its_name(self):
        program = self.start()
        self.stage.keys("Ctrl+n")
        program.wait_title("File1")
        self.stage.type("text")
        program.wait_text("text")
        program.close()
        program.answer(QUESTION, "Yes")
        path = self.folder / "named.txt"
        program.fill_file_dialog(path)
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(path.read_bytes(), b"text")

    def test_cancelling_the_name_keeps_the_text(self):
        program = self.start()
        self.stage.keys("Ctrl+n")
        program.wait_title("File1")
        self.stage.type("text")
        program.wait_text("text")
        program.close()
        program.answer(QUESTION, "Yes")
        program.press(program.file_dialog(), "Cancel")
        program.wait_title("File1")

    def test_save_all_saves_without_a_question(self):
        names = ["a.txt", "b.txt"]
        paths = [self.write(name, b"\r\n") for name in names]
        program = self.start(*names)
        program.wait_file(paths[1])
        self.stage.type("x")
        self.stage.keys("Ctrl+F6")
        program.wait_file(paths[0])
        self.stage.type("y")
        self.stage.keys("Ctrl+Shift+s")
        self.wait_content(paths[0], b"y\r\n")
        self.wait_content(paths[1], b"x\r\n")

    def test_untitled_numbers_are_never_used_again(self):
        program = self.start()
        for number in (1, 2):
            self.stage.keys("Ctrl+n")
            program.wait_title(f"File{number}")
            program.command(FILE_CLOSE)
            program.wait_titles([])


class AutomaticSaving(Scenario):
    flags = 0x408 | tarrow.FLAG_AUTO_SAVE

    def test_closing_saves_without_asking(self):
        program, path = self.open("a.txt", b"old\r\n")
        self.stage.type("new ")
        program.wait_text("new old\r\n")
        program.close()
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(path.read_bytes(), b"new old\r\n")
