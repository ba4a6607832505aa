"""What other programs do to an open file is noticed, and asked about once."""

from tarrow import Scenario, shown_path

WM_ACTIVATEAPP = 0x1C
QUESTION, MODIFIED_QUESTION = "Another program has changed", "holds changes that are not saved"


class ChangedOutside(Scenario):
    settings = {"UndoLevels": 9}

    def come_back(self, program):
        """The user comes back from another program."""
        self.stage.probe.ask("post", program.handle, WM_ACTIVATEAPP, 1, 0)

    def test_reload_keep_and_overwrite(self):
        path, other = self.write("a.txt", b"old\r\n"), self.write("b.txt", b"\r\n")
        program = self.start("a.txt", "b.txt")
        program.wait_file(other)
        path.write_bytes(b"from outside\r\n")
        self.stage.keys("Ctrl+F6")
        self.assertIn(shown_path(path), program.answer(QUESTION, "Reload").lower())
        program.wait_text("from outside\r\n")

        path.write_bytes(b"a second time\r\n")
        self.come_back(program)
        program.answer(QUESTION, "Keep")
        program.wait_focus_back()
        self.come_back(program)
        self.stage.type("mine ")
        program.wait_text("mine from outside\r\n")
        program.save()
        self.wait_content(path, b"mine from outside\r\n")

        self.come_back(program)
        self.stage.type("still ")
        program.wait_text("mine still from outside\r\n")
        path.write_bytes(b"a third time\r\n")
        self.come_back(program)
        program.answer(MODIFIED_QUESTION, "Cancel")
        program.wait_focus_back()
        program.save()
        program.answer(MODIFIED_QUESTION, "Overwrite")
        self.wait_content(path, b"mine still from outside\r\n")
        self.assertEqual(program.close_and_end(), 0)

    def test_a_deleted_file_is_saved_again(self):
        program, path = self.open("a.txt", b"old\r\n")
        path.unlink()
        self.come_back(program)
        self.stage.wait(lambda: any("has been deleted" in part.text for window in self.stage.everything()
                                    for part in window.walk()), "the message in the status bar")
        program.save()
        self.wait_content(path, b"old\r\n")

    def test_several_levels_of_undo_and_repeat(self):
        program, path = self.open("a.txt", b"")
        self.stage.type("one\ntwo")
        self.stage.keys("Home", "x", "Ctrl+z", "Ctrl+z")
        program.wait_text("one\r\n")
        self.stage.keys("Ctrl+z")
        program.wait_text("")
        self.stage.keys("Ctrl+y", "Ctrl+y")
        program.wait_text("one\r\ntwo")
        program.save()
        self.wait_content(path, b"one\r\ntwo")
