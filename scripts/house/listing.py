"""Every C++ source is named in the CMakeLists.txt of its folder, or nobody builds it."""

import pathlib
import re

from .includes import without_comments


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
