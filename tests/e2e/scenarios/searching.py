"""Global Search, Compare Files and Extract Strings: what they find, and the way from there to the files."""

import subprocess

import tarrow
from driver import BUILD
from tarrow import Scenario, shown_path
from workshop import windows_path

FIELDS = {"Search For": 201, "In Files": 202, "In Directory": 203,
          "First File": 201, "Second File": 202, "Binary Files": 201, "Filter Pattern": 202}


class Tool(Scenario):
    """A program whose tools' dialogs are filled in by the labels of their fields."""

    def fill(self, dialog, **fields):
        for label, text in fields.items():
            field = dialog.find("Edit", identifier=FIELDS[label.replace("_", " ")])
            self.stage.probe.ask("settext", field.handle, text)

    def wait_result(self, program, title, text=None):
        """The text of the result window of that title, once it is in front and shows `text`."""
        def shown():
            documents = program.documents()
            if not documents or documents[0].text != title:
                return None
            found = documents[0].find("TarrowEdit").text.replace("\r\n", "\n")
            return [found] if text is None or found == text else None
        return self.stage.wait(shown, f"'{title}' with {text!r}")[0]

    def saved_result(self, program, title):
        """The whole text of a result window, as Save As writes it."""
        self.wait_result(program, title)
        path = self.folder / "result.txt"
        path.unlink(missing_ok=True)
        program.command("File:SaveAs")
        program.fill_file_dialog(path)
        self.stage.wait(lambda: path.exists() and not program.dialogs(), "the result to be saved")
        return path.read_bytes()

    def goto(self, program, title, line):
        """From a line (one-based) of the result window in front to the place that it names."""
        self.wait_result(program, title)
        self.stage.wait(lambda: self.stage.probe.ask("focus")["focusClass"] == "TarrowEdit", "the text in front")
        self.stage.keys("Ctrl+Home", *["Down"] * (line - 1), "Ctrl+g")

    def tarrowc(self, *words):
        program = BUILD / self.stage.width / "console" / "tarrowc.exe"
        run = self.stage.wine.start([program, *words], cwd=self.folder, stdout=subprocess.PIPE,
                                    stderr=subprocess.PIPE)
        out, _ = run.communicate(timeout=60)
        return out

    def directory(self):
        return windows_path(self.folder)


class GlobalSearch(Tool):
    def search(self, program, pattern, files="*.c *.h", directory=None):
        program.command("Search:Grep")
        dialog = program.dialog("Global Search")
        self.fill(dialog, Search_For=pattern, In_Files=files, In_Directory=directory or self.directory())
        program.push(dialog, "OK")
        return dialog

    def test_lists_lines_and_goes_to_one(self):
        self.write("one.c", b"int a;\r\nint foo(void);\r\n")
        two = self.write("two.h", b"\r\n\r\n  foo();\r\n")
        program = self.start()
        dialog = self.search(program, "foo")
        title = "GREP foo"
        self.wait_result(program, title, "one.c(2): int foo(void);\ntwo.h(3):   foo();\n")
        program.press(dialog, "Cancel")
        program.wait_focus_back()
        self.goto(program, title, 2)
        program.wait_file(two)
        self.assertEqual(program.close_and_end(), 0)

    def test_tells_what_is_wrong_and_stays_open(self):
        self.write("one.c", b"int a;\r\n")
        self.write("two.h", b"")
        program = self.start()
        dialog = self.search(program, "[a")
        program.answer("Invalid regular expression", "OK")
        self.search(program, "a", directory="Q:\\nowhere")
        program.answer("All or part of the path is invalid", "OK")
        self.search(program, "zebra")
        program.answer("Cannot find 'zebra'", "OK")
        program.wait_titles([])
        self.assertTrue(any(window.handle == dialog.handle for window in program.dialogs()))

    def test_files_that_cannot_be_read_are_named_and_then_left_out(self):
        self.write("one.c", b"foo\r\n")
        program = self.start()
        self.search(program, "foo", files="one.c no1.c no2.c no3.c no4.c")
        self.assertIn("no1.c", program.answer("Error accessing", "OK"))
        self.assertIn("no2.c", program.answer("Leave out", "Yes"))
        self.assertIn("2 further files", program.answer("could not be read", "OK"))
        self.wait_result(program, "GREP foo", "one.c(1): foo\n")

    def test_finds_what_tarrowc_finds_in_a_tree(self):
        source = tarrow.workshop.ROOT / "base"
        for path in source.glob("*.cpp"):
            self.write(path.name, path.read_bytes())
        for pattern, words in {"std::[a-z]*": [], "return": []}.items():
            expected = self.tarrowc("search", *words, pattern, "*.cpp")
            self.assertTrue(expected)
            program = self.start()
            dialog = self.search(program, pattern, files="*.cpp")
            self.wait_result(program, f"GREP {pattern}")
            program.press(dialog, "Cancel")
            self.assertEqual(self.saved_result(program, f"GREP {pattern}"), expected)
            self.stop_programs()


class Comparison(Tool):
    def compare(self, program, first, second):
        program.command("Tool:Compare")
        dialog = program.dialog("Compare Files")
        self.fill(dialog, First_File=first, Second_File=second)
        program.push(dialog, "OK")
        return dialog

    def title(self, first, second):
        return f"COMPARE {shown_path(first)} {shown_path(second)}"

    def test_lists_differences_and_goes_to_a_line(self):
        lines = [f"line {i}".encode() for i in range(1, 30)]
        one = self.write("one.txt", b"\r\n".join(lines) + b"\r\n")
        lines[9] = b"another"
        two = self.write("two.txt", b"\r\n".join(lines) + b"\r\n")
        program = self.start()
        self.compare(program, "one.txt", "two.txt")
        title = self.title(one, two)
        self.wait_result(program, title, "10c10\n< line 10\n---\n> another\n")
        self.goto(program, title, 4)
        program.wait_file(two)
        expected = two.read_bytes().replace(b"another", b"Xanother")
        self.stage.type("X")
        program.save()
        self.wait_content(two, expected)

    def test_refuses_what_cannot_be_compared(self):
        self.write("one.txt", b"1\r\n")
        program = self.start()
        dialog = self.compare(program, "one.txt", "none.txt")
        program.answer("Cannot open", "OK")
        self.fill(dialog, Second_File="ONE.TXT")
        program.push(dialog, "OK")
        program.answer("pointless", "OK")
        program.press(dialog, "Cancel")
        program.wait_titles([])

    def test_asks_about_changes_first(self):
        program, path = self.open("one.txt", b"1\r\n")
        self.stage.type("x")
        program.wait_text("x1\r\n")
        program.command("Tool:Compare")
        program.answer("before continuing", "Cancel")
        self.stays(lambda: not program.dialogs(), "the dialog came in spite of Cancel")
        program.command("Tool:Compare")
        program.answer("before continuing", "Yes")
        self.wait_content(path, b"x1\r\n")
        program.press(program.dialog("Compare Files"), "Cancel")

    def test_finds_what_tarrowc_finds(self):
        text = (tarrow.workshop.ROOT / "base" / "byte_scan.cpp").read_bytes()
        one = self.write("one.cpp", text)
        two = self.write("two.cpp", text.replace(b"std::size_t", b"unsigned").replace(b"}\n\n", b"}\n"))
        expected = self.tarrowc("compare", "one.cpp", "two.cpp")
        self.assertTrue(expected)
        program = self.start()
        self.compare(program, "one.cpp", "two.cpp")
        self.assertEqual(self.saved_result(program, self.title(one, two)), expected)


class Extraction(Tool):
    default = "[ -~][ -~][ -~][ -~]+"

    def wait_address(self, digits):
        """Waits for the hex view; its caret stands where these hexadecimal digits begin."""
        self.stage.wait(lambda: self.stage.probe.ask("focus")["focusClass"] == "TarrowFileView", "the focus in the view")
        self.stage.keys(*["Shift+Right"] * len(digits), "Ctrl+c")
        self.stage.wait(lambda: self.stage.clipboard() == digits, f"{digits} to be chosen")

    def extract(self, program, files, pattern=None):
        program.command("Tool:ExtractStrings")
        dialog = program.dialog("Extract Strings")
        self.fill(dialog, Binary_Files=files, **({"Filter_Pattern": pattern} if pattern else {}))
        program.push(dialog, "OK")
        return dialog

    def test_a_wrong_pattern_brings_the_dialog_back(self):
        self.write("a.bin", b"\0abcd\0xy\0")
        program = self.start()
        self.extract(program, "a.bin", "\\(a")
        program.answer("Unmatched", "OK")
        dialog = program.dialog("Extract Strings")
        self.assertEqual(dialog.find("Edit", identifier=201).text, "a.bin")
        self.fill(dialog, Filter_Pattern=self.default)
        program.push(dialog, "OK")
        self.wait_result(program, f"Extract Strings: {self.default}", "a.bin(0x0001): abcd\n")

    def test_a_line_leads_to_its_address(self):
        path = self.write("a.bin", bytes(0x10) + b"first" + bytes(0x1230) + b"second")
        program = self.start()
        self.extract(program, "a.bin")
        title = f"Extract Strings: {self.default}"
        self.wait_result(program, title, "a.bin(0x0010): first\na.bin(0x1245): second\n")
        self.goto(program, title, 2)
        self.wait_address(b"sec".hex())
        self.assertEqual(program.titles()[0], shown_path(path))
        self.stage.keys("Ctrl+F6")
        program.wait_title(title)
        left, top, _, _ = program.documents()[0].find("TarrowEdit").facts["rect"]
        self.stage.click(left + 2, top + 8, "double")
        self.wait_address(b"firs".hex())

    def test_finds_what_tarrowc_finds(self):
        binary = (BUILD / self.stage.width / "console" / "tarrowc.exe").read_bytes()[:400_000]
        self.write("a.bin", binary)
        expected = self.tarrowc("strings", "a.bin")
        self.assertTrue(expected)
        program = self.start()
        self.extract(program, "a.bin")
        self.assertEqual(self.saved_result(program, f"Extract Strings: {self.default}"), expected)
