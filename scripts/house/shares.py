"""How the tree is made up: nothing here fails, it is printed to be looked at."""

import statistics

from .sizes import functions_in
from .tree import PROGRAM, folder_of


def lines_of(tree, wanted):
    return sum(len(tree.lines(name)) for name in tree.sources if wanted(folder_of(name)))


def summary(tree):
    program = lines_of(tree, lambda folder: folder in PROGRAM)
    tests = lines_of(tree, lambda folder: folder in ("tests", "fuzz", "benchmarks"))
    lengths = [last - first + 1 for name in tree.sources if folder_of(name) in PROGRAM and name.endswith((".h", ".cpp"))
               for first, last, _ in functions_in(tree, name)]
    comments = sum(line.lstrip().startswith("//") for name in tree.sources if folder_of(name) in PROGRAM
                   for line in tree.lines(name))
    if not program or not lengths:
        return []
    return [f"{program} lines of program, {tests} of tests, fuzzers and benchmarks ({tests / (program + tests):.0%}); "
            f"{comments / program:.0%} comments; {len(lengths)} functions, half below "
            f"{statistics.median(lengths):.0f} lines, the longest {max(lengths)}"]
