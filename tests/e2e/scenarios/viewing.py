"""Files that are viewed: in hex and as text, of any size, with what the user does in them."""

from tarrow import Scenario, shown_path

HEX, BARS, AS_TEXT = 0x2, 0xC, 0x20


class Viewing(Scenario):
    def view(self, name, content, flags):
        """Starts Tarrow with a session of one view; gives program and path."""
        path = self.write(name, content)
        self.write_settings({"Session": {"EditCount": 1, "Edit01": f"{shown_path(path)},{flags}"}})
        program = self.start()
        program.wait_titles([shown_path(path)])
        self.stage.wait(lambda: self.stage.probe.ask("focus")["focusClass"] == "TarrowFileView", "the focus in the view")
        return program, path

    def wait_copied(self, text):
        self.stage.keys("Ctrl+c")
        self.stage.wait(lambda: self.stage.clipboard() == text, f"{text!r} in the clipboard")

    def test_keys_select_bytes_and_copy_them_as_seen(self):
        self.view("a.bin", bytes(range(256)) * 20, HEX | BARS)
        self.stage.keys("PageDown", "Ctrl+Home", "Down", "Ctrl+Right", "Shift+Right", "Shift+Right", "Shift+Right")
        self.wait_copied("1213")

    def test_goto_address_insists_on_digits(self):
        self.view("a.bin", bytes(range(256)) * 20, HEX | BARS)
        self.stage.keys("Ctrl+g")
        self.stage.type("1G")
        self.stage.keys("Enter")
        self.stage.type("3")  # over the wrong character, which is selected
        self.stage.keys("Enter", "Shift+Right", "Shift+Right")
        self.wait_copied("13")

    def test_a_find_goes_on_in_a_view(self):
        program, _ = self.view("a.txt", "caf\u00e9 1\n\tcaf\u00e9 2\n".encode(), AS_TEXT | BARS)
        self.stage.keys("F5")
        self.stage.type("caf. [0-9]")
        self.stage.keys("Enter", "Enter", "Escape")
        program.wait_titles(program.titles())
        self.wait_copied("caf\u00e9 2")

    def test_views_come_back_as_they_were(self):
        path = self.write("b.log", b"one\n")
        program, first = self.view("a.bin", b"abc", HEX | BARS)
        self.assertEqual(program.close_and_end(), 0)
        session = self.read_settings()["session"]
        self.assertEqual(session["edit01"], f"{shown_path(first)},{HEX | BARS}")
        self.write_settings({"Session": {"EditCount": 1, "Edit01": f"{shown_path(path)},{AS_TEXT | BARS}"}})
        program = self.start()
        program.wait_titles([shown_path(path)])
        self.assertEqual(program.close_and_end(), 0)
        self.assertEqual(self.read_settings()["session"]["edit01"], f"{shown_path(path)},{AS_TEXT | BARS}")

    def test_a_sparse_file_of_gigabytes_opens_at_once(self):
        path = self.folder / "sparse.bin"
        with open(path, "wb") as file:
            file.truncate((4 << 30) - 16)
            file.seek((4 << 30) - 22)
            file.write(b"at end")
        self.write_settings({"Session": {"EditCount": 1, "Edit01": f"{shown_path(path)},{HEX | BARS}"}})
        program = self.start()
        program.wait_titles([shown_path(path)])
        self.stage.wait(lambda: self.stage.probe.ask("focus")["focusClass"] == "TarrowFileView", "the focus in the view")
        self.stage.keys("Ctrl+End", *["Shift+Left"] * 6)
        self.wait_copied("at end")
        self.assertEqual(program.close_and_end(), 0)
