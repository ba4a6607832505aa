"""Everything has its place: sources are named in a CMakeLists.txt, and the root holds only what belongs there."""

import pathlib
import re

from .includes import without_comments
from .tree import ROOT_FILES, ROOT_FOLDERS


def unlisted(tree):
    lists = {}
    for name in tree.files:
        path = pathlib.PurePath(name)
        if path.name == "CMakeLists.txt":
            lists[str(path.parent)] = set(re.findall(r"[\w./-]+\.(?:cpp|rc)", without_comments(tree.text(name))))
    for name in tree.files:
        path = pathlib.PurePath(name)
        if path.suffix not in (".cpp", ".rc") or path.name.startswith("."):
            continue
        if not any(str(path.relative_to(folder)) in lists.get(str(folder), ()) for folder in path.parents):
            yield f"{name}: is in no CMakeLists.txt"


def strangers(tree):
    for name in tree.files:
        first = name.split("/")[0]
        if first not in (ROOT_FOLDERS if "/" in name else ROOT_FILES):
            yield f"{name}: is not known in the root"
