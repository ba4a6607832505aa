"""Checks the rules of the house over the whole tree, each in a module of scripts/house/."""

import argparse
import sys

from house import includes, listing, shares, sizes, words
from house.tree import Tree

RULES = {
    "direction of includes": includes.direction,
    "direction within a folder": includes.inner_direction,
    "cycles of files": includes.file_cycles,
    "cycles of folders": includes.folder_cycles,
    "engines free of Windows": includes.engines_free_of_windows,
    "file sizes": sizes.files,
    "function sizes": sizes.functions,
    "words": words.forbidden,
    "every source is built": listing.unlisted,
    "root": listing.strangers,
}


def problems(tree):
    """Every broken rule, as lines for a reader: 'file:line: what'."""
    return [f"{problem}  [{name}]" for name, rule in RULES.items() for problem in rule(tree)]


def main():
    parser = argparse.ArgumentParser(prog="scripts/check_house.py", description=__doc__)
    parser.add_argument("root", nargs="?", default=".", help="the tree to check (here)")
    tree = Tree(parser.parse_args().root)
    found = problems(tree)
    print("\n".join(found + shares.summary(tree)))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
