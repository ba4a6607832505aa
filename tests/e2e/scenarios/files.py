"""Files come in and go out to the byte, and every trouble with one has its message."""

import os
import stat

import tarrow
from loading import NON_ANSI, TERMINATORS, questions
from tarrow import Scenario, shown_path

CB_SETCURSEL = 0x14E

# Contents that must survive an edit that is taken back.
CONTENTS = [
    ("dos.txt", b"one\r\ntwo\r\n"),
    ("unix.txt", b"one\ntwo\n"),
    ("mac.txt", b"one\rtwo\r"),
    ("empty.txt", b""),
    ("no_end.txt", b"abc"),
    ("mixed.txt", b"one\ntwo\r\nthree\r"),
    ("late_lf.txt", b"one\r\ntwo\nthree\rfour\r\n"),
    ("zeros.bin", b"a\0b\r\nc\0\0d\r\n"),
    ("late_zeros.bin", b"x" * 300 + b"\0\x1a\r\n"),
    ("utf8.txt", "ä€ Ж 漢 🎈\r\n".encode()),
    ("invalid.txt", b"a\xc3(\xff\xfe\x80\r\n"),
    ("control_z.txt", b"a\x1ab\nc\n"),
    ("both.bin", b"\x01abc"),
]


class Opening(Scenario):
    def open_answering(self, name, content):
        path = self.write(name, content)
        program = self.start(name)
        for question in questions(content):
            self.assertIn(shown_path(path), program.answer(question, "Yes").lower())
        program.wait_file(path)
        return program, path

    def test_an_edit_taken_back_leaves_every_byte(self):
        for name, content in CONTENTS:
            with self.case(name):
                program, path = self.open_answering(name, content)
                # A text that was not saved would ask its question at the end. All of it goes by the keyboard: what
                # is sent as a message would overtake the keys.
                self.stage.keys("x", "Backspace", "Ctrl+s", "Alt+F4")
                self.assertEqual(program.wait_end(), 0)
                self.assertEqual(path.read_bytes(), content)

    def test_no_to_a_question_opens_nothing(self):
        for name, content, question in (("zeros.bin", b"\0\r\n", NON_ANSI), ("no_end.txt", b"abc", TERMINATORS)):
            with self.case(name):
                self.write(name, content)
                program = self.start(name)
                program.answer(question, "No")
                program.wait_titles([])
                self.assertEqual(program.close_and_end(), 0)

    def test_the_questioned_byte_is_shown(self):
        self.write("a.bin", b"ab\x1a\r\n")
        program = self.start("a.bin")
        self.assertIn("(0x1a)", program.answer(NON_ANSI, "No"))

    def test_a_new_file_is_made_on_yes(self):
        program = self.start("new.txt")
        program.answer("OK to create new", "Yes")
        path = self.folder / "new.txt"
        program.wait_file(path)
        self.assertEqual(path.read_bytes(), b"")
        self.stage.type("first\n")
        program.save()
        self.wait_content(path, b"first\r\n")

    def test_a_new_file_is_not_made_on_no(self):
        program = self.start("new.txt")
        program.answer("OK to create new", "No")
        program.wait_titles([])
        self.assertFalse((self.folder / "new.txt").exists())

    def test_a_name_with_blanks(self):
        program, path = self.open("a name with blanks.txt", b"a\r\n")
        self.assertEqual(program.titles(), [shown_path(path)])

    def test_names_beyond_the_code_page(self):
        program, path = self.open("Жук 漢字.txt", b"a\r\n")
        self.stage.type("b")
        program.save()
        self.wait_content(path, b"ba\r\n")

    def test_several_files_and_a_pattern(self):
        paths = [self.write(name, b"a\r\n") for name in ("a.c", "b.c", "c.h")]
        program = self.start("*.c", "c.h")
        program.wait_titles([shown_path(path) for path in paths])

    def test_a_directory_opens_nothing(self):
        (self.folder / "directory").mkdir()
        program = self.start("directory")
        self.assertIn("directory' is a directory", program.answer("name files in it", "OK"))
        program.wait_titles([])
        self.assertEqual(program.close_and_end(), 0)

    def test_a_pattern_that_finds_nothing_is_not_made(self):
        for pattern in ("*.xyz", "no?file.c"):
            with self.case(pattern):
                program = self.start(pattern)
                self.assertIn("The file could not be located", program.answer("Error accessing", "OK"))
                program.wait_titles([])
                self.assertEqual(program.close_and_end(), 0)

    def test_the_same_file_opens_once(self):
        program, path = self.open("a.txt", b"a\r\n")
        self.stage.keys("Ctrl+o")
        program.fill_file_dialog(path)
        program.wait_file(path)
        self.assertEqual(program.titles(), [shown_path(path)])

    def test_open_by_the_dialog(self):
        path = self.write("by dialog.txt", b"a\n")
        program = self.start()
        self.stage.keys("Ctrl+o")
        program.fill_file_dialog(path)
        program.wait_file(path)


class Saving(Scenario):
    def test_type_save_and_reopen(self):
        path = self.folder / "typed.txt"
        program = self.start()
        self.stage.keys("Ctrl+n")
        program.wait_title("File1")
        self.stage.type("int main() {\n\treturn 0;\n}\n")
        program.save()
        program.fill_file_dialog(path)
        first = b"int main() {\r\n\treturn 0;\r\n\t}\r\n\t"
        self.wait_content(path, first)
        program.wait_file(path)
        self.assertEqual(program.close_and_end(), 0)
        program = self.start("typed.txt")
        program.wait_file(path)
        self.stage.keys("Ctrl+End")
        self.stage.type("// ä€")
        program.save()
        self.wait_content(path, first + "// ä€".encode())

    def test_save_as_in_each_format(self):
        for number, (name, end) in enumerate((("DOS", b"\r\n"), ("Unix", b"\n"), ("Mac", b"\r"))):
            with self.case(name):
                program, _ = self.open(f"from{number}.txt", b"one\r\ntwo\r\n")
                target = self.folder / f"to{number}.txt"
                self.stage.keys("F12")
                dialog = program.file_dialog()
                self.choose_format(dialog, name)
                program.fill_file_dialog(target)
                self.wait_content(target, b"one" + end + b"two" + end)
                self.assertEqual(program.close_and_end(), 0)

    def choose_format(self, dialog, name):
        names = ("DOS", "Unix", "Mac")
        combo = next((part for part in dialog.walk() if part.kind == "ComboBox" and part.text in names), None)
        self.assertTrue(combo, f"no choice of the file format in\n{dialog.outline()}")
        self.assertEqual(self.stage.probe.ask("send", combo.handle, CB_SETCURSEL, names.index(name), 0),
                         names.index(name))

    def test_a_unix_file_stays_unix(self):
        program, path = self.open("unix.txt", b"one\ntwo\n")
        self.stage.keys("Ctrl+End")
        self.stage.type("three\n")
        program.save()
        self.wait_content(path, b"one\ntwo\nthree\n")

    def test_the_name_on_disk_keeps_its_case(self):
        program, path = self.open("MixedCase.TXT", b"a\r\n")
        self.stage.type("b")
        program.save()
        self.wait_content(path, b"ba\r\n")
        self.wait_files(["MixedCase.TXT"])

    def test_save_as_keeps_the_case_that_was_typed(self):
        program, _ = self.open("a.txt", b"a\r\n")
        self.stage.keys("F12")
        program.fill_file_dialog(self.folder / "NewName.Txt")
        self.wait_content(self.folder / "NewName.Txt", b"a\r\n")

    def test_a_clean_text_is_not_written(self):
        program, path = self.open("a.txt", b"a\r\n")
        before = path.stat().st_mtime_ns
        program.save()
        self.stays(lambda: path.stat().st_mtime_ns == before, "a clean text was written")

    def test_links_stay_links(self):
        target = self.write("target.txt", b"a\r\n")
        (self.folder / "link.txt").symlink_to("target.txt")
        os.link(target, self.folder / "other.txt")
        program = self.start("link.txt")
        program.wait_focus_back()
        self.stage.type("b")
        program.save()
        self.wait_content(target, b"ba\r\n")
        self.assertTrue((self.folder / "link.txt").is_symlink())
        self.assertEqual((self.folder / "other.txt").read_bytes(), b"ba\r\n")

    def test_permissions_survive(self):
        path = self.write("script.sh", b"#!/bin/sh\n")
        path.chmod(0o751)
        program = self.start("script.sh")
        program.wait_file(path)
        self.stage.type("x")
        program.save()
        self.wait_content(path, b"x#!/bin/sh\n")
        self.assertEqual(stat.S_IMODE(path.stat().st_mode), 0o751)

    def test_no_temporary_file_stays(self):
        program, path = self.open("a.txt", b"a\r\n")
        self.stage.type("b")
        program.save()
        self.wait_content(path, b"ba\r\n")
        self.assertEqual(program.close_and_end(), 0)
        self.wait_files(["a.txt"])

    def test_a_read_only_file_is_not_written(self):
        path = self.write("read_only.txt", b"a\r\n")
        path.chmod(0o444)
        program = self.start("read_only.txt")
        program.wait_file(path)
        self.stage.type("b")
        program.save()
        said = program.answer("Error accessing", "OK")
        self.assertIn("Access denied to this file", said)
        self.assertEqual(path.read_bytes(), b"a\r\n")
        program.close()
        program.answer("Save changes to", "No")
        program.wait_end()

    def test_save_as_over_an_open_file_is_refused(self):
        first, second = self.write("a.txt", b"a\r\n"), self.write("b.txt", b"b\r\n")
        program = self.start("a.txt", "b.txt")
        program.wait_titles([shown_path(first), shown_path(second)])
        program.wait_file(second)
        self.stage.keys("F12")
        program.fill_file_dialog(first)
        program.answer("already exists", "Yes")
        program.answer("whilst open in another window", "OK")
        self.assertEqual(first.read_bytes(), b"a\r\n")

    def test_save_as_cancelled_changes_nothing(self):
        program, path = self.open("a.txt", b"a\r\n")
        self.stage.keys("F12")
        program.press(program.file_dialog(), "Cancel")
        program.wait_file(path)
        self.assertEqual(program.close_and_end(), 0)


class Backups(Scenario):
    flags = 0x408 | tarrow.FLAG_BACKUP

    def test_the_old_text_becomes_the_backup(self):
        program, path = self.open("a.txt", b"old\r\n")
        self.stage.type("new ")
        program.save()
        self.wait_content(path, b"new old\r\n")
        backup = next(p for p in self.folder.iterdir() if p.name.lower() == "a.bak")
        self.wait_content(backup, b"old\r\n")

    def test_a_backup_has_no_backup(self):
        program, path = self.open("a.bak", b"old\r\n")
        self.stage.type("new ")
        program.save()
        self.wait_content(path, b"new old\r\n")
        self.wait_files(["a.bak"])

    def test_a_new_backup_replaces_the_old_one(self):
        self.write("a.BAK", b"older\r\n")
        program, path = self.open("a.txt", b"old\r\n")
        self.stage.type("x")
        program.save()
        self.wait_content(path, b"xold\r\n")
        backups = [p for p in self.folder.iterdir() if p.name.lower() == "a.bak"]
        self.assertEqual([p.read_bytes() for p in backups], [b"old\r\n"])


class PasteFile(Scenario):
    def test_a_file_is_pasted_at_the_caret(self):
        other = self.write("other.txt", b"two\nthree\n")
        program, path = self.open("a.txt", b"one\r\nfour\r\n")
        self.stage.keys("Down")
        program.command("Edit:Merge")
        program.fill_file_dialog(other)
        program.wait_focus_back()
        program.save()
        self.wait_content(path, b"one\r\ntwo\r\nthree\r\nfour\r\n")
        self.stage.keys("Ctrl+z")
        program.save()
        self.wait_content(path, b"one\r\nfour\r\n")


class Charsets(Scenario):
    """Characters that a text's character set lacks."""

    def test_typed_into_an_ansi_text(self):
        for answer, after in [("Yes", "caféЖ\r\n".encode()), ("No", b"?caf\xe9\r\n")]:
            with self.case(answer):
                program, path = self.open(f"{answer}.txt", b"caf\xe9\r\n")
                if answer == "Yes":
                    self.stage.keys("End")
                self.stage.set_clipboard("Ж")
                self.stage.keys("Ctrl+v")
                program.answer("Convert the text to UTF-8?", answer)
                program.wait_focus_back()
                program.save()
                self.wait_content(path, after)

    def test_a_file_is_pasted_as_characters(self):
        other = self.write("other.txt", b"caf\xe9\r\n")
        program, path = self.open("a.txt", "Ж\r\n".encode())
        program.command("Edit:Merge")
        program.fill_file_dialog(other)
        program.wait_focus_back()
        merged = "café\r\nЖ\r\n".encode()
        program.wait_text(merged.decode("cp1252"))  # its bytes, as another program reads them
        program.save()
        self.wait_content(path, merged)


class NamesThatDifferInCase(Scenario):
    """On a disk that tells them apart, each is opened and saved by itself."""

    def test_both_are_edited(self):
        lower, upper = self.write("a.txt", b"lower\r\n"), self.write("A.txt", b"upper\r\n")
        program = self.start("A.txt")
        title = shown_path(upper)[:-len("A.txt")] + "A.txt"
        program.wait_title(title)
        self.stage.type("1")
        program.save()
        self.wait_content(upper, b"1upper\r\n")
        self.assertEqual(lower.read_bytes(), b"lower\r\n")

        program.command("File:Open")
        program.fill_file_dialog(lower)
        program.wait_title(shown_path(lower))
        self.stage.type("2")
        program.save()
        self.wait_content(lower, b"2lower\r\n")
        self.assertEqual(upper.read_bytes(), b"1upper\r\n")
        self.assertEqual(program.close_and_end(), 0)
        program = self.start()
        program.wait_titles([title, shown_path(lower)])
