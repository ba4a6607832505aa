"""The tables of the program that the help book repeats, read from the sources where they stand.

Sources are known by the ends of their paths, wherever in the program they stand. Each function fails loudly when it finds nothing: a table that was moved or written another way must not leave a
hole in the book.
"""

import functools
import pathlib
import re

from house.tree import PROGRAM

# A C string literal, its text as group "text".
LITERAL = r'"(?P<text>(?:[^"\\]|\\.)*)"'
STRINGS = re.compile(LITERAL)
ESCAPES = {"\\t": "\t", "\\n": "\n", '\\"': '"', "\\\\": "\\"}


class MissingTable(Exception):
    """A table is not where the book expects it."""


def unescape(text):
    return re.sub(r'\\[tn"\\]', lambda found: ESCAPES[found[0]], text)


class Command:
    """A command: number, constant, name (empty: cannot be bound), menu text, default key and prompt."""

    def __init__(self, number, constant, name, menu, prompt):
        self.number, self.constant, self.name, self.prompt = int(number), constant, name, prompt
        text = menu.partition("\t")[0]
        self.mnemonic = text
        self.title = text.replace("&", "").removesuffix("...")
        self.dialog = text.endswith("...")
        self.key = ""


class Sources:
    """The program's sources under a root, and the tables in them."""

    def __init__(self, root):
        self.root = pathlib.Path(root)
        self.read = []  # the files that tables were read from

    @functools.cache
    def text(self, name):
        paths = [path for folder in [*PROGRAM, "resources"] for path in (self.root / folder).rglob("*")
                 if path.as_posix().endswith(f"/{name}")]
        if len(paths) != 1:
            raise MissingTable(f"the program has {len(paths)} files {name}")
        self.read += paths
        code = re.sub(r"^\s*//.*$", "", paths[0].read_text(encoding="utf-8"), flags=re.MULTILINE)
        return re.sub(r'" TARROW_VERSION\b', lambda _: f'{self.version}"', code)

    @functools.cached_property
    def version(self):
        """The version of the program, such as "1.0"."""
        (major,), (minor,) = (self.rows("base/version.h", rf"^#define TARROW_{part} (\d+)$", "version", re.MULTILINE)[0]
                              for part in ("MAJOR", "MINOR"))
        return f"{major}.{minor}"

    def rows(self, name, pattern, what, flags=0):
        found = [row.groups() for row in re.finditer(pattern, self.text(name), flags)]
        if not found:
            raise MissingTable(f"{name} holds no {what}")
        return found

    def body(self, name, begin, what):
        """What stands between the braces behind `begin`."""
        found = re.search(begin + r"[^{;]*\{(.*?)\n?\};", self.text(name), re.DOTALL)
        if not found:
            raise MissingTable(f"{name} holds no {what}")
        return found[1]

    @functools.cached_property
    def commands(self):
        """Every command, named ones first in the order in which the program lists them."""
        commands = []
        pattern = re.compile(r'^TARROW_(UNNAMED_)?COMMAND\((\d+),\s*(\w+),((?:\s*' + LITERAL + r',?)+)\s*\)',
                             re.MULTILINE)
        for row in pattern.finditer(self.text("commands.inc")):
            texts = [unescape(found["text"]) for found in STRINGS.finditer(row[4])]
            commands.append(Command(row[2], row[3], *([""] if row[1] else []), *texts))
        if not commands:
            raise MissingTable("commands.inc holds no commands")
        by_constant = {command.constant: command for command in commands}
        for key, constant in self.default_keys:
            by_constant[constant].key = key
        return commands

    @functools.cached_property
    def default_keys(self):
        """The default bindings as pairs of a key's text and a command's constant."""
        modifiers = {"kBare": "", "kCtrl": "Ctrl+", "kShift": "Shift+", "kCtrlShift": "Ctrl+Shift+"}
        rows = self.rows("key_bindings.cpp",
                         r"\{\{(k\w+), (?:'(\w)'|F\((\d+)\)|k(\w+))\}, (k\w+)\}", "default keys")
        return [(modifiers[flags] + (letter or (f"F{number}" if number else name)), constant)
                for flags, letter, number, name, constant in rows]

    @functools.cached_property
    def key_names(self):
        """Names of keys with their codes, without the first, which is no key."""
        rows = self.rows("key_names.cpp", r"\{0x(\w\w),\s*" + LITERAL + r"\}", "key names")
        return [(name, int(code, 16)) for code, name in rows if int(code, 16)]

    @functools.cached_property
    def styles(self):
        """The keys of the styles of a text."""
        return [key for key, in self.rows("palette.cpp", r'\{Style::k\w+, "(\w+)",', "styles")]

    @functools.cached_property
    def strings(self):
        """The texts of the program by their numbers."""
        rows = self.rows("strings.inc",
                         r"^TARROW_(?:UNNAMED_)?STRING\((\d+),(?:\s*\w+,)?\s*" + LITERAL + r"\)", "texts",
                         re.MULTILINE)
        return {int(number): unescape(text) for number, text in rows}

    @functools.cached_property
    def string_numbers(self):
        """The numbers of the texts by their constants."""
        return {constant: int(number) for number, constant in self.rows(
            "strings.inc", r"^TARROW_STRING\((\d+),\s*(\w+),", "texts", re.MULTILINE)}

    def string(self, constant):
        return self.strings[self.string_numbers[constant]]

    @property
    def sections(self):
        """The names of the sections that are no build environment."""
        return self.string("kTextSections").strip("|").split("|")

    @property
    def environments(self):
        return self.string("kTextEnvironments").strip("|").split("|")

    @functools.cached_property
    def options(self):
        """The options of a build environment with their presets: {name: [preset of each environment but the last]}."""
        first, last = self.string_numbers["kTextFirstOption"], self.string_numbers["kTextLastOption"]
        count = last - first + 1
        return {self.strings[number]: [self.strings[number + count * (e + 1)].strip()
                                       for e in range(len(self.environments) - 1)]
                for number in range(first, last + 1)}

    @functools.cached_property
    def number_keys(self):
        """The numbers in the section Settings: {key: (base, least, most or None, default)}."""
        defaults = dict(self.rows("global_settings.h", r"^  [\w:]+ (\w+) = ([^;]+);", "defaults",
                                  re.MULTILINE))
        rows = self.rows("settings.cpp",
                         r'\{"(\w+)", (\d+), (\d+), (\w+), \[\]\(const GlobalSettings& s\)[^{]*\{ return [^;]*?s\.(\w+)',
                         "keys with numbers")
        return {key: (int(base), int(least), None if most == "kAny" else int(most), self.number(defaults[field]))
                for key, base, least, most, field in rows}

    def number(self, text):
        """A default as a number: a literal, a flag of the settings, or a value of the arrangement."""
        if text in ("true", "false"):
            return int(text == "true")
        if text == "kDefaultFlags":
            found = re.search(r"kDefaultFlags = ([^;]+);", self.text("global_settings.h"))
            return sum(self.flags[name] for name in found[1].split(" | "))
        if found := re.fullmatch(r"ArrangeMode::(\w+)", text):
            return int(re.search(found[1] + r" = (\d)", self.text("global_settings.h"))[1])
        return int(text, 0)

    @functools.cached_property
    def flags(self):
        """The bits of Flags by their constants."""
        return {name: int(mask, 16) for name, mask in re.findall(
            r"(k\w+) = (0x\w+)", self.body("global_settings.h", "enum GlobalFlag", "flags"))}

    @functools.cached_property
    def flag_boxes(self):
        """The bits of Flags in order: (bit, label of its check box, whether the bit is set when that is clear)."""
        boxes = [(kind == "Off", name) for kind, name in re.findall(
            r"\b(On|Off|)(?:Bit|Key)\((?:&GlobalSettings::)?(\w+)\)",
            self.body("global_settings_form.cpp", r"kBoxes\[\] =", "boxes"))]
        dialog = re.search(r"IDD_GLOBAL_SETTINGS.*?\nEND", self.text("dialogs.inc"), re.DOTALL)
        labels = re.findall(r'AUTOCHECKBOX "([^"]+)"', dialog[0]) if dialog else []
        if len(labels) != len(boxes):
            raise MissingTable("the boxes of Global Settings are not as many as their labels")
        rows = [(self.flags[name].bit_length() - 1, label.replace("&", ""), inverted)
                for (inverted, name), label in zip(boxes, labels) if name in self.flags]
        return sorted(rows)

    @functools.cached_property
    def menus(self):
        """The two menu bars: {constant of the bar: [(title, [constants of commands])]}, "" for a separator."""
        name = "menus.cpp"
        lists = {constant: [item if item != "kMenuSeparator" else "" for item in re.findall(r"k\w+", items)]
                 for constant, items in self.rows(name, r"CommandId (k\w+)\[\] = \{(.*?)\};", "menus", re.DOTALL)}
        bars = {}
        for constant, body in self.rows(name, r"MenuPopup (k\w+)\[\] = \{(.*?)\};", "menu bars", re.DOTALL):
            popups = re.findall(r'\{"([^"]+)",\s*(k\w+)\}', body)
            bars[constant] = [(title.replace("&", ""), lists[items]) for title, items in popups]
        bars["kContext"] = [("", lists["kContext"])]
        return bars

    @functools.cached_property
    def console_commands(self):
        """The commands of tarrowc: {name: (operands, summary, exit codes, [(letter, name, value, help)])}."""
        name = "console/commands.cpp"
        options = {constant: [(row[0], *map(unescape, row[1:])) for row in re.findall(
            r"\{'(\w)'" + r',\s*"((?:[^"\\]|\\.)*)"' * 3 + r"\}", body)]
            for constant, body in self.rows(name, r"Option (k\w+)\[\] = \{(.*?)\};", "options", re.DOTALL)}
        rows = self.rows(name, r'\{"(\w+)", "([^"]+)", \w+, \w+, "([^"]+)",\s*"([^"]+)", \d,\s*(k\w+),\s*\w+\}',
                         "commands")
        return {row[0]: (*row[1:4], options[row[4]]) for row in rows}
