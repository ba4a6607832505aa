"""Longer plays in which several commands meet: a function typed and shifted, matches replaced one by one."""

from tarrow import Scenario


class EditingSession(Scenario):
    flags = 0x408 | 0x800  # block indent

    def test_a_function_is_typed_shifted_and_brought_back(self):
        program, path = self.open("a.c", b"\r\n")
        for line in ("int f(int a) {", "if (a) {", "return 1;"):
            self.stage.type(line)
            self.stage.keys("Enter")
        typed = b"int f(int a) {\r\n    if (a) {\r\n\treturn 1;\r\n\t\r\n"
        program.save()
        self.wait_content(path, typed)
        self.stage.keys("Ctrl+Home", "Shift+Down", "Shift+Down", "Ctrl+Tab")
        program.save()
        self.wait_content(path, b"    int f(int a) {\r\n\tif (a) {\r\n\t    return 1;\r\n\t\r\n")
        self.stage.keys("Ctrl+z")
        program.save()
        self.wait_content(path, typed)

    def test_matches_are_replaced_one_after_another(self):
        program, path = self.open("a.c", b"one two one\r\n")
        self.stage.keys("F8")
        dialog = program.dialog("Replace With")
        self.stage.type("one")
        self.stage.keys("Tab")
        self.stage.type("1")
        self.stage.keys("Alt+r", "Alt+f", "Alt+r", "Escape")
        program.wait_gone(dialog)
        program.wait_focus_back()
        program.save()
        self.wait_content(path, b"1 two 1\r\n")

    def test_find_next_asks_before_it_restarts(self):
        program, path = self.open("a.c", b"ab cd ab\r\n")
        self.stage.keys("Shift+Right", "Shift+Right", "Ctrl+F5", "x")
        program.save()
        self.wait_content(path, b"ab cd x\r\n")
        self.stage.keys("Ctrl+F5")
        program.answer("Restart from start?", "OK")
        self.stage.keys("y")
        program.save()
        self.wait_content(path, b"y cd x\r\n")
