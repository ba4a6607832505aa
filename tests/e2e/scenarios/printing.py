"""Documents on paper: what stands where on the pages, to a fifth of a millimetre."""

import datetime

import printer
from driver import BM_CLICK
from tarrow import Scenario, shown_path
from workshop import windows_path

# The printer's font: ten points at 600 dots an inch. In millimetres: the width and height of its cell, and
# where in it the base line lies.
FONT = "DejaVu Sans Mono,-83,400,0"
CELL, HEIGHT = 50 / 600 * 25.4, 97 / 600 * 25.4
ASCENT = 0.928 * 83 / 600 * 25.4

PAPER_WIDTH, PAPER_HEIGHT = 595 / 72 * 25.4, 842 / 72 * 25.4
NEAR = 0.2  # millimetres

# Lines on a page with the usual margins: header and footer take four.
LINES = int((PAPER_HEIGHT - 40.0) / HEIGHT) - 4

# The system's print dialog.
SELECTION, PAGES, FIRST_PAGE, LAST_PAGE = 1057, 1058, 1152, 1153


def numbered(count):
    return "".join(f"line{i}\r\n" for i in range(1, count + 1)).encode()


def texts(page):
    return [word.text for word in page]


class Printing(Scenario):
    """The queue is empty at the beginning of each play, and its jobs are looked at one by one."""

    settings = {"PrinterFont": FONT}

    def setUp(self):
        super().setUp()
        self.stage.printer.clear()

    def job(self, count=1):
        """The files of the jobs, once so many have come out."""
        queue = self.stage.printer
        self.stage.wait(lambda: len(queue.jobs()) >= count and queue.is_idle(), f"{count} print jobs")
        jobs = queue.jobs()
        self.assertEqual(len(jobs), count)
        return jobs[0] if count == 1 else jobs

    def print_files(self, *names, exit_code=0):
        """Prints files by the command line; gives the program once it has ended."""
        program = self.launch("-p", *names)
        self.assertEqual(program.wait_end(), exit_code)

    def pages_of(self, content, name="a.txt"):
        self.write(name, content)
        self.print_files(name)
        return printer.pages(self.job())

    def assert_near(self, value, wanted, what):
        self.assertLess(abs(value - wanted), NEAR, f"{what}: {value:.2f} mm, not {wanted:.2f}")

    def assert_stands(self, page, word, left, top):
        """That a word begins at `left` on the line whose upper edge is at `top`."""
        self.assert_near(word.left, left, f"left edge of {word}")
        self.assert_near(page.base_line(word), top + ASCENT, f"base line of {word}")


class CommandLine(Printing):
    def test_each_file_is_a_job_of_its_name(self):
        for name in ("One.txt", "Two.txt"):
            self.write(name, b"text\r\n")
        self.print_files("One.txt", "Two.txt")
        self.assertEqual([printer.title(job) for job in self.job(2)], ["One.txt", "Two.txt"])

    def test_nothing_is_seen_of_the_main_window(self):
        self.write("a.txt", numbered(600))
        program = self.launch("-p", "a.txt")
        seen = set()

        def ended():
            seen.update(window.kind for window in self.stage.everything() if "Tarrow" in window.kind)
            return program.process.poll() is not None
        self.stage.wait(ended, "the end of the program", seconds=60)
        self.assertNotIn("TarrowFrame", seen)
        self.assertEqual(len(printer.pages(self.job())), -(-600 // LINES))

    def test_a_file_that_is_not_there_is_a_failure(self):
        self.write("b.txt", b"text\r\n")
        program = self.launch("-p", "nowhere\\a.txt", "b.txt")
        no = self.stage.wait(lambda: next(filter(None, (window.find("Button", "No")
                                                        for window in self.stage.everything())), None), "a question")
        self.stage.probe.ask("post", no.handle, BM_CLICK, 0, 0)
        self.assertEqual(program.wait_end(), 1)
        self.assertEqual(printer.title(self.job()), "b.txt")

    def test_without_a_file_nothing_happens(self):
        self.print_files()
        self.assertEqual(self.stage.printer.jobs(), [])


class Pages(Printing):
    def test_the_text_stands_within_the_margins(self):
        page, = self.pages_of(b"first\r\n\tsecond\r\n")
        header, first, second, *footer = page
        self.assertEqual(texts(page), ["a.txt", "first", "second", "Page", "1"])
        self.assert_stands(page, first, 25.0, 20.0 + 2 * HEIGHT)
        self.assert_stands(page, second, 25.0 + 8 * CELL, 20.0 + 3 * HEIGHT)
        middle = 25.0 + (PAPER_WIDTH - 50.0) / 2
        self.assert_near((header.left + header.right) / 2, middle, "middle of the header")
        self.assert_near((footer[0].left + footer[1].right) / 2, middle, "middle of the footer")
        self.assert_stands(page, header, header.left, 20.0)
        self.assert_stands(page, footer[1], footer[1].left, PAPER_HEIGHT - 20.0 - HEIGHT)

    def test_margins_header_and_footer_are_those_of_the_page_setup(self):
        self.write_settings(PageMargins="300,150,100,400", PageHeader="&l&f&r&p", PageFooter="&x&lleft", TabSize=4)
        page, = self.pages_of(b"\tx\r\n")
        self.assertEqual(sorted(texts(page)), ["&x", "1", "a.txt", "left", "x"])
        name, number, text = sorted(page, key=lambda word: (round(word.bottom), word.left))[:3]
        self.assertEqual(texts([name, number, text]), ["a.txt", "1", "x"])
        self.assert_stands(page, name, 30.0, 15.0)
        self.assert_near(number.right, PAPER_WIDTH - 10.0, "right edge of the page number")
        self.assert_stands(page, text, 30.0 + 4 * CELL, 15.0 + 2 * HEIGHT)
        footer = next(word for word in page if word.text == "left")
        self.assert_stands(page, footer, 30.0, PAPER_HEIGHT - 40.0 - HEIGHT)

    def test_the_header_names_the_file_as_the_disk_does(self):
        self.write_settings(PageHeader="&l&F", PageFooter="&l&f", PrinterFont="DejaVu Sans Mono,-30,400,0")
        page, = self.pages_of(b"text\r\n", "Some Name.TXT")
        path = windows_path(self.folder / "Some Name.TXT")
        self.assertEqual(" ".join(texts(page)), f"{path} text Some Name.TXT")

    def test_dates_and_times_are_those_of_the_region(self):
        self.write_settings(PageHeader="&d", PageFooter="&D|&t")
        page, = self.pages_of(b"text\r\n")
        shown = " ".join(texts(page))
        day = datetime.date.today()
        self.assertRegex(shown, rf"^{day.month}/{day.day}/({day.year}|{day:%y}) text ")
        self.assertIn(f"{day:%B} ", shown)
        self.assertRegex(shown, r"\|\d+:\d\d( [AP]M)?$")

    def test_without_header_and_footer_the_text_has_the_whole_area(self):
        self.write_settings(PageHeader="", PageFooter="", PageMargins="0,0,0,0")
        pages = self.pages_of(b"x" * 300 + b"\r\n" + numbered(80))
        left, _, right, top = (side / 72 * 25.4 for side in printer.PRINTABLE)
        first = pages[0][0]
        self.assert_stands(pages[0], first, left, PAPER_HEIGHT - top)
        self.assertEqual(len(first.text), int((right - left) / CELL))

    def test_a_long_line_is_broken_after_what_fits(self):
        page, = self.pages_of(b"".join(b"%10d" % i for i in range(1, 21)).replace(b" ", b".") + b"\r\nend\r\n")
        self.assertEqual([len(text) for text in texts(page)[1:4]], [75, 75, 50])
        self.assertEqual("".join(texts(page)[1:4]), "".join(f"{i:.>10}" for i in range(1, 21)))
        self.assertEqual(texts(page)[4], "end")

    def test_pages_are_filled_and_counted(self):
        pages = self.pages_of(numbered(150))
        self.assertEqual([text for page in pages for text in texts(page)[1:-2]],
                         numbered(150).decode().split())
        self.assertEqual([texts(page)[-2:] for page in pages], [["Page", str(i)] for i in range(1, 4)])
        # The last line ends above the footer's two, and another one would not have fitted.
        end = pages[0].base_line(pages[0][-3]) - ASCENT + HEIGHT
        limit = PAPER_HEIGHT - 20.0 - 2 * HEIGHT
        self.assertLess(end, limit + NEAR)
        self.assertGreater(end + HEIGHT, limit - NEAR)

    def test_a_form_feed_starts_a_page_and_an_empty_file_is_one(self):
        self.write("empty.txt", b"")
        self.write("feeds.txt", b"a\r\n\fb\r\n\f\r\n")
        self.print_files("empty.txt", "feeds.txt")
        empty, feeds = map(printer.pages, self.job(2))
        self.assertEqual([texts(page) for page in empty], [["empty.txt", "Page", "1"]])
        self.assertEqual([texts(page)[1] for page in feeds], ["a", "b"])

    def test_characters_of_many_scripts_are_printed(self):
        words = ["Gr\u00fc\u00dfe", "\u0395\u03bb\u03bb\u03b7\u03bd\u03b9\u03ba\u03ac",
                 "\u0420\u0443\u0441\u0441\u043a\u0438\u0439", "\u2264\u221e\u2192"]
        page, = self.pages_of("\r\n".join(words).encode() + b"\r\n")
        self.assertEqual(texts(page)[1:-2], words)

    def test_bytes_that_are_no_utf8_are_in_the_ansi_code_page(self):
        page, = self.pages_of(b"Gr\xfc\xdfe\r\n")
        self.assertEqual(texts(page)[1], "Gr\u00fc\u00dfe")


class Command(Printing):
    """Printing by the command and its dialog."""

    def print_with(self, program, change=lambda dialog: None):
        program.command("File:Print")
        dialog = program.dialog("Print range")
        change(dialog)
        program.press(dialog, "OK")

    def choose(self, dialog, control):
        self.stage.probe.ask("send", dialog.find("Button", identifier=control).handle, BM_CLICK, 0, 0)


class PrintCommand(Command):
    def test_the_whole_document_in_front(self):
        program, _ = self.open("a.txt", b"old\r\n")
        self.stage.type("new ")
        program.wait_text("new old\r\n")
        self.print_with(program)
        self.assertEqual(texts(printer.pages(self.job())[0])[1:3], ["new", "old"])
        program.wait_focus_back()

    def test_an_untitled_window_prints_under_its_title(self):
        program = self.start()
        program.command("File:New")
        program.wait_title("File1")
        self.print_with(program)
        job = self.job()
        self.assertEqual(printer.title(job), "File1")
        self.assertEqual(texts(printer.pages(job)[0]), ["File1", "Page", "1"])

    def test_a_range_of_pages(self):
        program, _ = self.open("a.txt", numbered(250))

        def choose(dialog):
            self.choose(dialog, PAGES)
            for field, page in ((FIRST_PAGE, 2), (LAST_PAGE, 3)):
                self.stage.probe.ask("settext", dialog.find("Edit", identifier=field).handle, page)
        self.print_with(program, choose)
        pages = printer.pages(self.job())
        self.assertEqual([texts(page)[-1] for page in pages], ["2", "3"])
        self.assertEqual(texts(pages[0])[1], f"line{LINES + 1}")

    def test_pages_that_there_are_not(self):
        program, _ = self.open("a.txt", numbered(100))

        def choose(dialog):
            self.choose(dialog, PAGES)
            for field, page in ((FIRST_PAGE, 7), (LAST_PAGE, 9)):
                self.stage.probe.ask("settext", dialog.find("Edit", identifier=field).handle, page)
        self.print_with(program, choose)
        self.assertIn("a.txt ends with page 2", program.answer("ends with page", "OK"))
        self.assertEqual(self.stage.printer.jobs(), [])
        self.assertTrue(self.stage.printer.is_idle())

    def test_the_selection(self):
        program, _ = self.open("a.txt", b"one two\r\nthree\r\nfour\r\n")
        self.stage.keys("Ctrl+Right", "Shift+Down")
        self.stage.wait(lambda: self.stage.probe.ask("send", program.active_edit().handle, 0xB0, 0, 0) == 4 + (13 << 16),
                        "the selection")
        self.print_with(program, lambda dialog: self.choose(dialog, SELECTION))
        self.assertEqual(texts(printer.pages(self.job())[0])[1:-2], ["two", "thre"])

    def test_cancel_leaves_nothing_in_the_queue(self):
        program, path = self.open("a.txt", numbered(400000))
        program.command("File:Print")
        program.press(program.dialog("Print range"), "OK")
        dialog = program.dialog("on the")
        shown = "\n".join(part.text for part in dialog.walk())
        for text in ("Printing", "a.txt", printer.NAME, f"CUPS:{printer.NAME}"):
            self.assertIn(text, shown)
        self.stage.wait(lambda: any(part.text.startswith("Page ") for part in program.window(dialog).walk()),
                        "the number of a page")
        program.press(dialog, "Cancel")
        program.wait_file(path)
        self.stays(lambda: self.stage.printer.is_idle() and not self.stage.printer.jobs(), "a cancelled job came out")
        self.stage.type("x")
        self.stage.wait(lambda: program.main().find(text="Modified") or program.active_edit().text.startswith("x"),
                        "the keyboard in the text")

    def test_print_setup_opens_the_dialog_of_the_system(self):
        program = self.start()
        program.command("File:PrintSetup")
        dialog = program.dialog("Print Setup")
        program.press(dialog, "Cancel")


class Views(Command):
    """Files in the viewer print their rows as they are shown."""

    READ_ONLY, HEX = 1, 2

    def open_view(self, content, flags):
        path = self.write("a.bin", content)
        self.write_settings({"Session": {"EditCount": "1", "Edit01": f"{windows_path(path)},{flags}"}})
        program = self.start()
        program.wait_titles([shown_path(path)])
        return program

    def test_the_rows_of_the_hex_view(self):
        program = self.open_view(bytes(range(0x40, 0x61)), self.READ_ONLY | self.HEX)
        self.print_with(program)
        job = self.job()
        self.assertEqual(printer.title(job), "a.bin")
        page, = printer.pages(job)
        rows = [["0:", "40414243", "44454647", "48494A4B", "4C4D4E4F", "@ABCDEFGHIJKLMNO"],
                ["10:", "50515253", "54555657", "58595A5B", "5C5D5E5F", "PQRSTUVWXYZ[\\]^_"],
                ["20:", "60", "`"]]
        self.assertEqual(sorted(texts(page)), sorted(sum(rows, ["a.bin", "Page", "1"])))
        for i, row in enumerate(rows):
            words = {word.text: word for word in page}
            self.assert_stands(page, words[row[1]], 25.0 + 10 * CELL, 20.0 + (2 + i) * HEIGHT)
            self.assert_near(words[row[-1]].left, 25.0 + 47 * CELL, "left edge of the characters")


class PageSetup(Printing):
    def page_setup(self, program):
        program.command("Set:Global")
        settings = program.dialog("Spacing")
        program.push(settings, "Page Setup...")
        return settings, program.dialog("Header:")

    def field(self, dialog, number):
        return dialog.find("Edit", identifier=number)

    def test_what_is_chosen_is_stored_and_used(self):
        program, _ = self.open("a.txt", b"text\r\n")
        settings, dialog = self.page_setup(program)
        self.assertEqual([self.field(dialog, number).text for number in range(201, 207)],
                         ["&f", "Page &p", "0.98", "0.98", "0.79", "0.79"])
        self.assertTrue(dialog.find("Button", "Margins (inches)"))
        self.stage.probe.ask("settext", self.field(dialog, 203).handle, "1.5x")
        program.push(dialog, "OK")
        program.answer("Invalid setting for margin", "OK")
        for number, text in ((201, "&lmine"), (203, "1.5"), (204, "1"), (205, "0.5"), (206, "2")):
            self.stage.probe.ask("settext", self.field(dialog, number).handle, text)
        program.press(dialog, "OK")
        program.press(settings, "Apply")
        program.command("File:Print")
        program.press(program.dialog("Print range"), "OK")
        page, = printer.pages(self.job())
        header, text = page[:2]
        self.assertEqual(header.text, "mine")
        self.assert_stands(page, header, 38.1, 12.7)
        self.assert_stands(page, text, 38.1, 12.7 + 2 * HEIGHT)
        self.assertEqual(program.close_and_end(), 0)
        stored = self.read_settings()["settings"]
        self.assertEqual(stored["pagemargins"], "381,127,254,508")
        self.assertEqual(stored["pageheader"], "&lmine")

    def test_what_is_cancelled_is_not_stored(self):
        program = self.start()
        settings, dialog = self.page_setup(program)
        self.stage.probe.ask("settext", self.field(dialog, 201).handle, "mine")
        program.press(dialog, "OK")
        program.press(settings, "Cancel")
        self.assertEqual(program.close_and_end(), 0)
        self.assertNotIn("pageheader", self.read_settings()["settings"])


class PrinterFont(Printing):
    def test_the_chosen_font_has_its_size_on_paper(self):
        self.write_settings(PrinterFont="DejaVu Sans Mono,-100,400,0")
        program = self.start()
        program.command("Set:Global")
        settings = program.dialog("Spacing")
        program.push(settings, "Printer Font...")
        font = program.dialog("Size:")
        # Twelve points are a hundred dots; ten are eighty-three.
        self.stage.wait(lambda: program.window(font).find(text="12"), "the size of the stored font")
        program.press(font, "OK")
        program.press(settings, "Apply")
        self.assertEqual(program.close_and_end(), 0)
        self.assertEqual(self.read_settings()["settings"]["printerfont"], "DejaVu Sans Mono,-100,400,0")

    def test_without_one_the_text_has_ten_points(self):
        self.write_settings({"Settings": {"Flags": f"{self.flags:b}"}})
        page, = self.pages_of(b"line\r\nline\r\n")
        first, second = (word for word in page if word.text == "line")
        self.assert_near(page.base_line(second) - page.base_line(first), HEIGHT, "height of a line")


class NoPrinter(Printing):
    def test_a_job_that_the_spooler_refuses_is_reported(self):
        program, path = self.open("a.txt", b"text\r\n")
        program.command("File:Print")
        dialog = program.dialog("Print range")
        self.stage.printer.stop_serving()
        try:
            program.press(dialog, "OK")
            program.answer("Cannot print a.txt!", "OK")
            program.wait_file(path)
        finally:
            self.stage.printer.serve()

    def test_a_printer_that_is_not_there_is_named(self):
        self.stage.printer.stop_serving()
        try:
            program, _ = self.open("a.txt", b"text\r\n")
            program.command("File:Print")
            self.assertIn("Default, ?, ?", program.answer("Cannot access printer", "OK"))
        finally:
            self.stage.printer.serve()
