"""The program's command vocabulary, from the table that the program itself is built from."""

import functools
import re

from workshop import ROOT

# A command that the table gives no name.
FILE_CLOSE = 1010
FIRST_RECENT_FILE = 1021


@functools.cache
def _commands():
    table = (ROOT / "ui" / "commands" / "commands.inc").read_text()
    return {name: int(number)
            for number, name in re.findall(r'^TARROW_COMMAND\((\d+), \w+, "([^"]+)"', table, re.MULTILINE)}


def command_number(command):
    """The number of a command given by its name ("File:SaveAll") or by its number."""
    return command if isinstance(command, int) else _commands()[command]
