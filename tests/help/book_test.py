"""The help book holds what the program needs of it, leads nowhere that is not there, and is one whole page.

Each check is also shown a page with a fault that it has to find.
"""

import html.parser
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))

import build_help
from help_book.book import Book
from help_book.markup import MarkupError, Renderer
from help_book.tables import MissingTable, Sources
from house.tree import PROGRAM

VOID = {"meta", "input", "br", "link", "img", "hr"}
SOURCES = Sources(ROOT)

# Keys of tarrow.ini that code names in other ways than by reading or writing them directly.
INI_KEYS = {
    ("Settings", "Window"), ("Settings", "ScreenFont"), ("Settings", "PrinterFont"), ("Settings", "PageMargins"),
    ("Settings", "PageHeader"), ("Settings", "PageFooter"), ("Session", "EditCount"), ("Session", "Edit01"),
    ("Session", "File 1"), ("Project", "Project 1")}


class Page(html.parser.HTMLParser):
    """A page's anchors, links and what is wrong with its form."""

    def __init__(self, text):
        super().__init__(convert_charrefs=False)
        self.ids, self.links, self.faults, self.open = [], [], [], []
        self.feed(text)
        self.close()
        self.faults += [f"<{tag}> is not closed" for tag in self.open]
        self.faults += [f"id {id_} stands twice" for id_ in set(self.ids) if self.ids.count(id_) > 1]

    def handle_starttag(self, tag, attributes):
        names = [name for name, _ in attributes]
        self.faults += [f"<{tag}> has {name} twice" for name in set(names) if names.count(name) > 1]
        for name, value in attributes:
            if name == "id":
                self.ids.append(value)
            if name in ("href", "src", "data", "action"):
                self.links.append(value)
        if tag not in VOID:
            self.open.append(tag)

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f"</{tag}> at {self.getpos()} closes nothing")

    def handle_data(self, data):
        if self.open and self.open[-1] not in ("script", "style") and re.search(r"[<&]", data):
            self.faults.append(f"a bare sign at {self.getpos()}: {data!r:.60}")


def dead_links(page):
    return {link for link in page.links if link != "#" and link[1:] not in page.ids}


def resources_outside(text):
    return re.findall(r'(?:href|src)="(?!#)[^"]*"|url\([^)]*\)|@import[^;]*', text)


def program_sources():
    for folder in PROGRAM:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in (".cpp", ".h"):
                yield path.read_text(encoding="utf-8")


def topics_in(source):
    """The numbers of help topics in a source: constants that are named for them, and literal arguments."""
    named = re.findall(r"\bk\w*(?:Help|Topic)\w* = (\d+)\b", source)
    literal = re.findall(r"\bShowHelp\([^;]*?,\s*(\d+)\)", source)
    return {int(number) for number in named + literal if int(number) < 1000}


def ini_keys_in(source):
    direct = re.findall(r'(?:Read|Write)(?:String|Number)\(k(Settings|Session|Project)Section,\s*"(\w+)"', source)
    tools = re.findall(r'\{kTool\w+, "(\w+)", "', source)
    return set(direct) | {("Settings", key) for key in tools}


def needed_topics():
    return set().union(*map(topics_in, program_sources()))


def needed_ini_keys():
    keys = INI_KEYS.union(*map(ini_keys_in, program_sources()))
    keys |= {("Settings", key) for key in SOURCES.number_keys}
    keys |= {("Colors", key) for key in SOURCES.styles}
    return keys | {("Project", SOURCES.strings[number]) for number in range(302, 307)}


def missing(page):
    """What the program needs and the page lacks, by the names of the anchors."""
    anchors = {f"t{number}" for number in needed_topics()}
    anchors |= {f"c{command.number}" for command in SOURCES.commands}
    anchors |= {f"option-{name}" for name in SOURCES.options}
    anchors |= {f"ini-{section}-{key.replace(' ', '-')}" for section, key in needed_ini_keys()}
    return anchors - set(page.ids)


class HelpBook(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.text = build_help.build(SOURCES)
        cls.page = Page(cls.text)

    def without(self, anchor):
        self.assertIn(f'id="{anchor}"', self.text)
        return Page(self.text.replace(f'id="{anchor}"', 'id="other"'))

    def test_everything_needed_is_there(self):
        self.assertEqual(missing(self.page), set())

    def test_what_is_missing_is_found(self):
        for anchor in ("t1", "t60", "c1001", "c8008", "option-HelpEnv", "ini-Settings-TabSize", "ini-Session-File-1",
                       "ini-Colors-Comment"):
            with self.subTest(anchor=anchor):
                self.assertEqual(missing(self.without(anchor)), {anchor})

    def test_topics_are_found_in_code(self):
        self.assertLessEqual({1, 2, 3, 5, 6, 40, 50, 60}, needed_topics())
        self.assertEqual(topics_in("constexpr unsigned kFindHelp = 1, kReplaceHelp = 2;\n"
                                   "help_.ShowHelp(Handle(), 77);\nvoid ShowHelp(HWND owner, unsigned topic);\n"),
                         {1, 2, 77})

    def test_settings_are_found_in_code(self):
        self.assertIn(("Settings", "Calculator"), needed_ini_keys())
        self.assertEqual(ini_keys_in('store.WriteString(kSessionSection, "Place", text);'), {("Session", "Place")})

    def test_no_link_is_dead(self):
        self.assertGreater(len(self.page.links), 300)
        self.assertEqual(dead_links(self.page), set())
        self.assertEqual(dead_links(self.without("backups")), {"#backups"})

    def test_nothing_comes_from_outside(self):
        self.assertEqual(resources_outside(self.text), [])
        self.assertTrue(resources_outside('<img src="https://example.org/a.png">'))

    def test_the_page_is_well_formed(self):
        self.assertEqual(self.page.faults, [])
        for planted in ("<p><b>a</p>", "<p>a & b</p>", '<p id="a"></p><p id="a"></p>', "<div>"):
            with self.subTest(planted=planted):
                self.assertTrue(Page(planted).faults)

    def test_faults_of_a_chapter_are_told_with_their_place(self):
        for planted in ("@command File:Lost", "@lost word", "[[File:Lost]]", "{{File:Lost}}", "@option Lost",
                        "@message kTextLost", "| a | b |\n| c |", "```\nno end", "#no title"):
            with self.subTest(planted=planted), self.assertRaisesRegex(MarkupError, r"^a\.md:2: "):
                Renderer(Book(SOURCES), "a.md", f"\n{planted}\n").render()

    def test_a_table_that_is_not_there_is_told(self):
        with self.assertRaises(MissingTable):
            Sources(ROOT / "tests").commands

    def test_no_markup_is_left_over(self):
        body = self.text[self.text.index("<main"):self.text.index("</main>")]
        prose = re.sub(r"<(pre|code)>.*?</\1>", "", body, flags=re.DOTALL)
        self.assertEqual(re.findall(r"\*\*|\[\[|\]\(|\{\{|^@\w+|`", prose, re.MULTILINE), [])


if __name__ == "__main__":
    unittest.main()
