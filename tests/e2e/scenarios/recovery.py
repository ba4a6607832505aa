"""What was typed comes back after a kill: by the dialog at the next start, under its name or as a new text."""

import os
import signal
import time
import zlib

from tarrow import Scenario, shown_path

LATER, RECOVER, DISCARD = "Later", "Recover", "Discard"
OFFER = "Tarrow has ended without saving these texts"

# What may be lost is five seconds of typing.
MOST_LOST = 5


class Recovery(Scenario):
    def wait_journal(self, text, count=1):
        """Waits until the journals hold a piece of text; within what may be lost."""
        def written():
            return sum(text in path.read_bytes() for path in self.journals()) >= count
        self.stage.wait(written, f"{text} in a journal", seconds=MOST_LOST)

    def kill(self, program):
        """The end without any warning."""
        os.kill(program.process.pid, signal.SIGKILL)
        program.process.wait()
        self.stage.wait(lambda: not any(window.facts["process"] == program.main_process
                                        for window in self.stage.everything()), "the killed program's windows to go")

    def modified(self, typed="new "):
        program, path = self.open("a.txt", b"old\r\n")
        self.stage.type(typed)
        program.wait_text(f"{typed}old\r\n")
        return program, path

    def killed(self):
        """The path of a text whose program was killed while it was modified."""
        program, path = self.modified()
        self.wait_journal(b"new ")
        self.kill(program)
        return path

    def test_a_killed_text_is_recovered_under_its_name(self):
        path = self.killed()
        program = self.start()
        program.press(program.dialog(OFFER), RECOVER)
        program.wait_file(path)
        program.wait_text("new old\r\n")
        self.assertEqual(path.read_bytes(), b"old\r\n")
        program.save()
        self.wait_content(path, b"new old\r\n")
        self.stage.wait(lambda: not self.journals(), "the journal to go with the saving")

    def test_many_texts_with_names_and_without(self):
        program, path = self.modified()
        for number in range(3):
            program.command("File:New")
            program.wait_title(f"File{number + 1}")
            program.wait_text("")
            self.stage.type(f"typed {number}")
            program.wait_text(f"typed {number}")
        self.wait_journal(b"typed 2")
        self.wait_journal(b"new ")
        self.kill(program)
        program = self.start()
        program.press(program.dialog(OFFER), RECOVER)
        program.wait_titles([shown_path(path)] + [f"File{number} (recovered)" for number in (1, 2, 3)])

    def test_a_second_kill_loses_nothing_either(self):
        path = self.killed()
        program = self.start()
        program.press(program.dialog(OFFER), RECOVER)
        program.wait_file(path)
        self.kill(program)
        program = self.start()
        program.press(program.dialog(OFFER), RECOVER)
        program.wait_file(path)
        program.wait_text("new old\r\n")

    def test_a_file_that_has_changed_since_is_left_alone(self):
        path = self.killed()
        path.write_bytes(b"by another program\r\n")
        program = self.start("a.txt")
        program.press(program.dialog(OFFER), RECOVER)
        program.wait_titles([shown_path(path), f"{shown_path(path)} (recovered, the file has changed since)"])
        self.assertEqual(path.read_bytes(), b"by another program\r\n")

    def test_later_offers_again_and_discard_asks_once(self):
        self.killed()
        program = self.start()
        program.press(program.dialog(OFFER), LATER)
        self.assertEqual(program.close_and_end(), 0)
        program = self.start()
        offer = program.dialog(OFFER)
        program.push(offer, DISCARD)
        program.answer("for good?", "Yes")
        program.wait_gone(offer)
        self.assertEqual(self.journals(), [])
        self.assertEqual(program.close_and_end(), 0)

    def test_what_was_closed_properly_leaves_nothing(self):
        program, path = self.modified()
        self.wait_journal(b"new ")
        program.close()
        program.answer("Save changes to", "No")
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(self.journals(), [])

    def test_a_running_program_keeps_its_texts_to_itself(self):
        first, path = self.modified()
        self.wait_journal(b"new ")
        self.write("b.txt", b"b\r\n")
        second = self.launch("b.txt")

        def others():
            return [window for window in self.stage.everything() if window.facts["process"] != first.main_process
                    and (window.kind == "TarrowFrame" or window.find(text="Recover"))]
        frames = self.stage.wait(others, "the window of the second program")
        second.handle, second.main_process = frames[0].handle, frames[0].facts["process"]
        second.wait_titles([shown_path(self.folder / "b.txt")])
        self.assertEqual(second.dialogs(), [], "the other program's text was offered")
        self.assertEqual(len(self.journals()), 1)

    def test_kills_at_random_moments_of_a_play(self):
        """Real keys, a kill, the dialog: what comes back is a beginning of what was typed."""
        for delay in (0.3, 1.4, 2.7, 4.2):
            with self.case(f"killed after {delay} seconds"):
                self.forget_journals()
                program, path = self.open("a.txt", b"\r\n")
                typed, start = [], time.monotonic()
                while time.monotonic() < start + delay:
                    self.stage.type(f"{len(typed)} ")
                    typed.append((f"{len(typed)} ", time.monotonic()))
                    program.wait_text("".join(word for word, _ in typed) + "\r\n")
                self.kill(program)
                end = time.monotonic()
                back = self.recovered_text(path)
                everything = "".join(word for word, _ in typed)
                self.assertTrue(everything.startswith(back), f"{back!r} of {everything!r}")
                kept = back.count(" ")
                lost = end - typed[kept][1] if kept < len(typed) else 0
                self.assertLess(lost, MOST_LOST)
                self.assertTrue(kept or delay < 2, "nothing has come back")

    def recovered_text(self, path):
        if not self.journals():
            return ""
        program = self.start()
        offers = self.stage.wait(lambda: program.dialogs() or not self.journals(), "the offer, or nothing to offer")
        if offers is True:
            return ""
        program.press(program.dialog(OFFER), RECOVER)
        program.wait_file(path)
        return program.active_edit().text.removesuffix("\r\n")


class BrokenOffSaves(Scenario):
    def test_the_whole_text_beside_a_half_written_file_is_offered(self):
        path = self.write("a.txt", b"half")
        text = b"the whole text\r\n"
        leftover = self.write("a.txt.0123abcd.tarrow", text + seal(text))
        program = self.launch("a.txt")
        program.wait_for_main()
        program.answer("broken off", "Yes")
        program.wait_file(path)
        program.wait_text(text.decode())
        self.assertTrue(leftover.exists(), "it was removed before the text was saved")
        program.save()
        self.wait_content(path, text)
        self.wait_files(["a.txt"])

    def test_leftovers_of_a_whole_file_are_removed(self):
        path = self.write("a.txt", b"whole\r\n")
        self.write("a.txt.0123abcd.tarrow", b"not who")
        self.write("a.txt.0123abce.tarrow", b"whole\r\n" + seal(b"whole\r\n"))
        self.write("other.txt.0123abce.tarrow", b"not ours")
        program = self.start("a.txt")
        program.wait_file(path)
        self.wait_files(["a.txt", "other.txt.0123abce.tarrow"])


def seal(text):
    """What stands behind the text of a temporary file once that is whole."""
    body = b"\r\n[Tarrow: whole]\r\n" + len(text).to_bytes(8, "little")
    return body + zlib.crc32(body).to_bytes(4, "little")
