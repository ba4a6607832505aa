"""Builds the help book: one page of HTML from the chapters in help/ and the tables of the program."""

import argparse
import pathlib
import sys

from help_book.book import Book
from help_book.markup import MarkupError
from help_book.tables import MissingTable, Sources

ROOT = pathlib.Path(__file__).resolve().parent.parent


def build(sources):
    """The page of the book for a tree."""
    return Book(sources).page(sources.root / "help")


def for_make(path):
    return str(path).replace(" ", "\\ ")


def main():
    parser = argparse.ArgumentParser(prog="scripts/build_help.py", description=__doc__)
    parser.add_argument("output", type=pathlib.Path, help="the page to write")
    parser.add_argument("--depfile", type=pathlib.Path, help="where to tell the build what was read")
    arguments = parser.parse_args()
    sources, output = Sources(ROOT), arguments.output
    try:
        page = build(sources)
    except (MarkupError, MissingTable) as error:
        print(f"build_help: {error}", file=sys.stderr)
        return 1
    output.parent.mkdir(parents=True, exist_ok=True)
    output.write_text(page, encoding="utf-8", newline="\n")
    if arguments.depfile:
        arguments.depfile.write_text(f"{for_make(output.resolve())}: {' '.join(map(for_make, sources.read))}\n",
                                     encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
