"""Reads the cases of the editing commands (tests/cases), which the engine's own tests read too."""

import dataclasses
import pathlib
import re

from workshop import ROOT

CASES = ROOT / "tests" / "cases"


@dataclasses.dataclass
class Case:
    path: pathlib.Path
    command: str
    settings: tuple  # tab size, shift width, whether spaces stand for tabs
    flags: list
    before: bytes
    selection: tuple
    after: bytes
    selection_after: tuple

    @property
    def name(self):
        return f"{self.path.parent.name}/{self.path.stem}"


def marked(text):
    """A text with its marks: (bytes, (start, end) of the selection)."""
    result, start, end = b"", 0, 0
    for token in re.findall(r"\\x[0-9A-Fa-f]{2}|\\.|.|\n", text):
        if token == "‸":
            start = end = len(result)
        elif token == "«":
            start = len(result)
        elif token == "»":
            end = len(result)
        elif token.startswith("\\x"):
            result += bytes([int(token[2:], 16)])
        elif token.startswith("\\"):
            result += {"\\r": b"\r", "\\n": b"\n", "\\\\": b"\\"}[token]
        else:
            result += b"\r\n" if token == "\n" else token.encode()
    return result, (start, end)


def read(path):
    """The case of a file; None for one that only the engine can play: bytes that the program would take for
    UTF-8 but which the case wants in the ANSI code page."""
    parts = re.split(r"^-- (before|after)\n", path.read_bytes().decode(), flags=re.MULTILINE)
    fields = dict(line.split(": ", 1) for line in parts[0].splitlines() if not line.startswith("#"))
    texts = dict(zip(parts[1::2], parts[2::2]))
    before, selection = marked(texts["before"].removesuffix("\n"))
    after, selection_after = marked(texts["after"].removesuffix("\n")) if "after" in texts else (before, selection)
    if fields.get("characters") == "ansi" and (before.isascii() or is_utf8(before)):
        return None
    settings = tuple(int(fields.get(name, usual))
                     for name, usual in (("tab size", 8), ("shift width", 4), ("expand tabs", 0)))
    return Case(path, fields["command"], settings, fields.get("flags", "").split(), before, selection, after,
                selection_after)


def is_utf8(content):
    try:
        content.decode()
    except UnicodeDecodeError:
        return False
    return True


def cases():
    return [case for path in sorted(CASES.glob("*/*.txt")) if (case := read(path))]
