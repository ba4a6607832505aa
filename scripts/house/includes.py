"""Arrows between files and folders point down, and never round."""

import functools
import re

from .tree import GROUND, INNER_FLOORS, PROGRAM, ROOMS, SHARED_ROOMS, folder_of, subfolder_of

INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]')


def includes_of(tree, name):
    """(line number, opening character, included name) of each include."""
    for number, line in enumerate(tree.lines(name), 1):
        if found := INCLUDE.match(line):
            yield number, found[1], found[2]


def may_use(folder):
    """The folders that a folder may include from, besides itself."""
    if folder in GROUND:
        return GROUND[:GROUND.index(folder)]
    if folder in SHARED_ROOMS:
        return GROUND + SHARED_ROOMS + ["resources"]
    if folder in ROOMS:
        return GROUND + SHARED_ROOMS + ["resources"]
    # The top wires everything; its programs do not know one another.
    return GROUND + SHARED_ROOMS + ROOMS + ["resources"]


def direction(tree):
    for name in tree.sources:
        folder = folder_of(name)
        if folder not in PROGRAM:
            continue
        for number, _, included in includes_of(tree, name):
            target = folder_of(included)
            if target in PROGRAM and target != folder and target not in may_use(folder):
                yield f"{name}:{number}: {folder}/ must not include from {target}/"


def inner_direction(tree):
    """Within a folder the arrows point down, too, and every subfolder has its floor."""
    for name in tree.sources:
        folder, own = folder_of(name), subfolder_of(name)
        if folder not in PROGRAM or not own:
            continue
        level = inner_level(folder, own)
        if level is None:
            yield f"{name}:1: {folder}/{own}/ stands on no floor"
            continue
        for number, _, included in includes_of(tree, name):
            target = subfolder_of(included)
            if folder_of(included) != folder or target == own:
                continue
            if not target or inner_level(folder, target) is None or inner_level(folder, target) >= level:
                yield f"{name}:{number}: {folder}/{own}/ must not include from {folder}/{target}"


def inner_level(folder, subfolder):
    for level, names in enumerate(INNER_FLOORS.get(folder, [])):
        if subfolder in names:
            return level
    return None


@functools.cache
def file_graph(tree):
    known = set(tree.sources)
    return {name: sorted({included for _, _, included in includes_of(tree, name) if included in known})
            for name in tree.sources}


def file_cycles(tree):
    yield from cycles(file_graph(tree))


def folder_cycles(tree):
    graph = {}
    for name, targets in file_graph(tree).items():
        if folder_of(name) in PROGRAM:
            own = graph.setdefault(folder_of(name), set())
            own.update(folder_of(target) for target in targets if folder_of(target) in PROGRAM)
            own.discard(folder_of(name))
    yield from cycles({folder: sorted(targets) for folder, targets in graph.items()})


def cycles(graph):
    """One line for each edge that closes a cycle, found by depth-first search."""
    done, path = set(), []

    def visit(node):
        if node in path:
            yield " -> ".join([*path[path.index(node):], node]) + ": a cycle"
        elif node not in done:
            path.append(node)
            for target in graph.get(node, ()):
                yield from visit(target)
            path.pop()
            done.add(node)
    for node in graph:
        yield from visit(node)


def engines_free_of_windows(tree):
    """A source that is listed as an engine includes no header of Windows, directly or through another."""
    headers = {"windows.h", "windowsx.h", "commctrl.h", "commdlg.h", "shellapi.h", "winuser.h"}
    graph = file_graph(tree)
    for engine in engines(tree):
        reached, waiting = set(), [engine]
        while waiting:
            name = waiting.pop()
            if name in reached:
                continue
            reached.add(name)
            waiting.extend(graph.get(name, ()))
            for number, _, included in includes_of(tree, name):
                if included.lower() in headers and not guarded(tree, name, number):
                    yield f"{name}:{number}: <{included}> reaches the engine {engine}"


def guarded(tree, name, number):
    """Whether a line stands inside #ifdef _WIN32."""
    depth = []
    for line in tree.lines(name)[:number - 1]:
        word = line.strip()
        if word.startswith("#if"):
            depth.append("_WIN32" in word)
        elif word.startswith("#endif") and depth:
            depth.pop()
    return any(depth)


def engines(tree):
    for name in tree.files:
        if name.endswith("CMakeLists.txt"):
            folder = name.removesuffix("CMakeLists.txt")
            for call in re.findall(r"tarrow_engine\s*\(([^)]*)\)", built_everywhere(tree.text(name))):
                yield from (folder + source for source in call.split())


def built_everywhere(cmake):
    """A CMake text without what it only does for Windows."""
    return re.sub(r"if\s*\(WIN32\).*?(?:else\s*\(|endif\s*\()", "", without_comments(cmake), flags=re.DOTALL)


def without_comments(cmake):
    return re.sub(r"#.*", "", cmake)
