"""Commands by their keys, as a user's hands give them."""

from tarrow import Scenario


class EditingKeys(Scenario):
    """What each sequence of keys makes of a text; the caret begins at its start."""

    CASES = [
        ("overtype", b"abc\r\n", ["Insert", "x", "y"], b"xyc\r\n"),
        ("delete and backspace", b"abc\r\n", ["Delete", "End", "Backspace"], b"b\r\n"),
        ("a word backwards", b"one two three\r\n", ["End", "Ctrl+Backspace", "Ctrl+Backspace", "x"], b"one x\r\n"),
        ("upper case of one character", b"abc\r\n", ["Ctrl+u", "Ctrl+u"], b"ABc\r\n"),
        ("lower case of a selection", b"ABC\r\n", ["Shift+End", "Ctrl+l"], b"abc\r\n"),
        ("transpose", b"abc\r\n", ["Right", "Ctrl+t"], b"bac\r\n"),
        ("shift right and left", b"a\r\nb\r\n", ["Shift+Down", "Ctrl+Tab", "Ctrl+Tab", "Shift+Tab"],
         b"    a\r\n    b\r\n"),
        ("word movement", b"one two\r\n", ["Ctrl+f", "x"], b"one xtwo\r\n"),
        ("cut and paste", b"one\r\ntwo\r\n", ["Shift+Down", "Ctrl+x", "Ctrl+End", "Ctrl+v"], b"two\r\none\r\n"),
        ("append to the clipboard", b"a\r\nb\r\n",
         ["Shift+Down", "Ctrl+c", "Ctrl+Home", "Down", "Shift+Down", "Ctrl+Shift+c", "Ctrl+End", "Ctrl+v"],
         b"a\r\nb\r\na\r\nb\r\n"),
        ("undo and its undo", b"a\r\n", ["x", "y", "Ctrl+z", "Ctrl+z"], b"xya\r\n"),
        ("home stops at the first letter", b"  a\r\n", ["End", "Home", "x"], b"  xa\r\n"),
        ("maintained indentation", b"\tif {\r\n", ["End", "Enter", "x"], b"\tif {\r\n\tx\r\n"),
        ("match brace", b"f(a[1])\r\n", ["Right", "F9", "x"], b"f(a[1]x\r\n"),
        ("nothing between CR and LF", b"a\r\nb\r\n", ["End", "Right", "x"], b"a\r\nxb\r\n"),
        ("whole characters of UTF-8", "ä€b\r\n".encode(), ["Right", "Delete", "End", "Left", "Backspace"],
         b"b\r\n"),
    ]

    def test_sequences(self):
        for number, (name, before, keys, after) in enumerate(self.CASES):
            with self.case(name):
                program, path = self.open(f"{number}.txt", before)
                self.stage.keys(*keys)
                program.save()
                self.wait_content(path, after)
                self.assertEqual(program.close_and_end(), 0)

    def test_select_everything_is_replaced_by_typing(self):
        program, path = self.open("a.txt", b"one\r\ntwo\r\n")
        self.stage.keys("Ctrl+Shift+End", "x")
        program.save()
        self.wait_content(path, b"x")

    def test_the_clipboard_speaks_with_other_programs(self):
        program, path = self.open("a.txt", "ä€\r\n".encode())
        self.stage.keys("Shift+End", "Ctrl+c")
        self.stage.wait(lambda: self.stage.clipboard() == "ä€", "the selection in the clipboard")
        self.stage.set_clipboard("Ж\r\n")
        self.stage.keys("Ctrl+v")
        program.save()
        self.wait_content(path, "Ж\r\n\r\n".encode())


class GotoLine(Scenario):
    def test_to_a_line(self):
        program, path = self.open("a.txt", b"1\r\n2\r\n3\r\n")
        self.stage.keys("Ctrl+g")
        dialog = program.dialog()
        self.stage.type("3\n")
        program.wait_gone(dialog)
        self.stage.type("x")
        program.save()
        self.wait_content(path, b"1\r\n2\r\nx3\r\n")


class FindAndReplace(Scenario):
    def test_find_next_by_the_selection(self):
        program, path = self.open("a.txt", b"a.b axb a.b\r\n")
        self.stage.keys("Shift+Right", "Shift+Right", "Shift+Right", "Ctrl+F5", "x")
        program.save()
        self.wait_content(path, b"a.b x a.b\r\n")

    def find(self, program, key, pattern):
        self.stage.keys(key)
        dialog = program.dialog()
        self.stage.wait(lambda: self.stage.probe.ask("focus")["focusClass"] == "Edit", "the field of the pattern")
        self.stage.keys("Home", "Shift+End")
        self.stage.type(pattern)
        return dialog

    def test_find_by_the_dialog(self):
        program, path = self.open("a.txt", b"one two\r\nthree 42\r\n")
        dialog = self.find(program, "F5", "[0-9]+\n")
        self.stage.keys("Escape")
        program.wait_gone(dialog)
        program.wait_focus_back()
        self.stage.type("x")
        program.save()
        self.wait_content(path, b"one two\r\nthree x\r\n")

    def test_what_is_not_there_is_told(self):
        program, _ = self.open("a.txt", b"one two\r\n")
        self.find(program, "F5", "zzz\n")
        self.assertIn("zzz", program.answer("Cannot find", "OK"))

    def test_a_bad_pattern_is_told(self):
        program, _ = self.open("a.txt", b"one two\r\n")
        before = len(program.dialogs())
        self.find(program, "F5", "\\(a\n")
        self.stage.wait(lambda: len(program.dialogs()) == before + 2, "a message about the pattern")

    def test_replace_all_with_registers_is_one_undo(self):
        program, path = self.open("a.txt", b"a1 b2 c3\r\n")
        dialog = self.find(program, "F8", "\\([a-z]\\)\\([0-9]\\)")
        self.stage.keys("Tab")
        self.stage.type("\\2\\u\\1")
        self.stage.keys("Alt+a")
        program.wait_text("1A 2B 3C\r\n")
        self.stage.keys("Escape")
        program.wait_gone(dialog)
        program.wait_focus_back()
        program.save()
        self.wait_content(path, b"1A 2B 3C\r\n")
        self.stage.keys("Ctrl+z")
        program.save()
        self.wait_content(path, b"a1 b2 c3\r\n")


class KeyBindings(Scenario):
    def test_a_key_of_the_settings_runs_the_command(self):
        self.write_settings({"Key Bindings": {"edit:upper": "85,25", "Edit:Lower": "0,0"}})
        program, path = self.open("a.txt", b"abC\r\n")
        self.stage.keys("Ctrl+Alt+u", "Right", "Ctrl+l")
        program.save()
        self.wait_content(path, b"AbC\r\n")

    def test_nonsense_is_ignored(self):
        self.write_settings({"Key Bindings": {"Edit:Upper": "85", "No:Such": "85,9", "Edit:Undo": "85,9"}})
        program, path = self.open("a.txt", b"abc\r\n")
        self.stage.keys("Ctrl+u")
        program.save()
        self.wait_content(path, b"Abc\r\n")


class Mouse(Scenario):
    def test_click_and_drag_select(self):
        program, path = self.open("a.txt", b"one two three\r\n")
        left, top, right, bottom = program.active_edit().facts["rect"]
        self.stage.click(left + 2, top + 8, "double")
        self.stage.type("x")
        program.save()
        self.wait_content(path, b"x two three\r\n")

    def test_ctrl_click_in_the_margin_selects_all(self):
        program, path = self.open("a.txt", b"one\r\ntwo\r\n")
        left, top, right, bottom = program.active_edit().facts["rect"]
        self.stage.click(left - 4, top + 8, "left", "Ctrl")
        self.stage.type("x")
        program.save()
        self.wait_content(path, b"x")
