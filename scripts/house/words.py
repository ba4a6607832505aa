"""What the tree must not say: paths of one machine, and documents that its reader does not have."""

import re

ANYWHERE = {
    re.compile(r"(?<![\w.}*])/(?:work|root|home)/\w"): "a path of one machine",
    re.compile(r"(?<![\w.}*])/tmp/\w"): "a path of one machine",
}
# In code these may be names; what a person reads must stand by itself.
IN_PROSE = {
    re.compile(r"\b(?:TODO|FIXME|XXX)\b"): "something left undone",
    re.compile(r"\bspecs?\b|\bas specified\b|\bspecification\b", re.IGNORECASE): "speaks of a document outside",
    re.compile(r"\bParts? \d+\.\d+\b|\bissue #?\d+\b", re.IGNORECASE): "speaks of a document outside",
}
# This module has to name what it forbids, and the self-test plants it.
EXEMPT = ("scripts/house/words.py", "scripts/house/self_test.py")
TEXT = (".h", ".cpp", ".inc", ".rc", ".py", ".md", ".txt", ".cmake", ".json", ".sh", "test", "run", "bench",
        "install_packages", ".clang-format", ".clang-tidy")


def prose_of(name, line):
    """What of a line is written for people: all of it, or the comment of a C++ line."""
    return line.partition("//")[2] if name.endswith((".h", ".cpp", ".inc")) else line


def forbidden(tree):
    for name in tree.files:
        if not name.endswith(TEXT) or name in EXEMPT or name.startswith("tests/cases/"):
            continue
        for number, line in enumerate(tree.lines(name), 1):
            places = [(pattern, what, line) for pattern, what in ANYWHERE.items()]
            places += [(pattern, what, prose_of(name, line)) for pattern, what in IN_PROSE.items()]
            for pattern, what, text in places:
                if found := pattern.search(text):
                    yield f"{name}:{number}: '{found[0]}' {what}"
