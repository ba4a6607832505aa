"""Builds Tarrow for 32-bit Windows and opens files in it under Wine.

Words that begin with '-' are options of Tarrow itself (-e, -ac, -i FILE, -d DIRECTORY, -p); the others are
files. Without a display a virtual one is used, which shows Tarrow to nobody but --screenshot.
"""

import argparse
import contextlib
import os
import shutil
import subprocess
import sys

import workshop
from workshop import BUILD, Failure


def windows_words(words):
    """The words of Tarrow's command line, with files by the names that Wine's programs know."""
    result = []
    for word in words:
        if word.startswith("-"):
            name = word[2:] if word[1:2].lower() in ("d", "i") else ""
            result.append(word[:2] + workshop.windows_path(name) if name else word)
        else:
            result.append(workshop.windows_path(word))
    return result


def take_screenshot(wine, empty_screen, path):
    """Waits until something stands on the screen and has come to rest."""
    previous = empty_screen

    def at_rest():
        nonlocal previous
        shown = workshop.screen_hash(wine.display)
        same, previous = shown == previous and shown != empty_screen, shown
        return same
    workshop.wait_until(at_rest, 60, "Tarrow's window to stand still", interval=1.5)
    workshop.screenshot(wine.display, path)
    print(f"Screenshot in {path}")


def main():
    parser = argparse.ArgumentParser(prog="./run", description=__doc__, allow_abbrev=False)
    parser.add_argument("--screenshot", metavar="FILE", help="save a PNG of what Tarrow shows, and end it")
    options, words = parser.parse_known_args()
    print("Building ...", flush=True)
    workshop.build("i686", "tarrow")
    with contextlib.ExitStack() as stack:
        display = os.environ.get("DISPLAY")
        virtual = not display or options.screenshot
        if virtual:
            display = stack.enter_context(workshop.virtual_display())
            if not options.screenshot:
                print(f"There is no display (DISPLAY is not set): Tarrow runs on the virtual display {display}, "
                      "which nobody sees. Ctrl+C ends it.", flush=True)
        wine = stack.enter_context(workshop.Wine(display, desktop=virtual).running())
        empty_screen = workshop.screen_hash(display) if virtual else None
        process = wine.start([workshop.windows_path(BUILD / "i686" / "tarrow.exe"), *windows_words(words)])
        if options.screenshot:
            take_screenshot(wine, empty_screen, options.screenshot)
            return 0
        return process.wait()


if __name__ == "__main__":
    workshop.main(main)
