"""Plays the end-to-end scenarios: the real program under Wine, by its keys, mouse, dialogs and files.

Words select scenarios by parts of their names; without any, all are played.
"""

import argparse
import pathlib
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parents[1] / "scripts")]

import workshop
from driver import Stage
from printer import Printer
from tarrow import Scenario


class Result(unittest.TestResult):
    """Says each scenario's end at once."""

    def __init__(self, say):
        super().__init__()
        self.say = say
        self.passed = 0

    def addSuccess(self, test):
        super().addSuccess(test)
        self.passed += 1
        self.say(f"  ok      {name_of(test)}")

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self.say(f"  FAILED  {name_of(test)}")

    def addError(self, test, err):
        super().addError(test, err)
        self.say(f"  FAILED  {name_of(test)}: {err[0].__name__}")

    def addSubTest(self, test, subtest, err):
        super().addSubTest(test, subtest, err)
        if err:
            self.say(f"  FAILED  {name_of(test)} {subtest._subDescription()}")


def name_of(test):
    return test.id().removeprefix("scenarios.")


def scenarios(words):
    found = unittest.defaultTestLoader.discover(HERE / "scenarios", pattern="*.py", top_level_dir=HERE)

    def flat(suite):
        for item in suite:
            yield from flat(item) if isinstance(item, unittest.TestSuite) else (item,)
    return unittest.TestSuite(test for test in flat(found)
                              if not words or any(word in test.id() for word in words))


def play(wine, width, words=(), say=print, program=None):
    """Plays the scenarios that `words` select, with a `program` elsewhere than in the build.

    Gives how many passed, and the texts of those that failed.
    """
    result = Result(say)
    with Printer().running() as printer:
        wine.environment |= printer.environment
        Scenario.stage = Stage(wine, width, printer, program)
        try:
            scenarios(words).run(result)
        finally:
            Scenario.stage.close()
    return result.passed, [f"{name_of(test)}\n{text}" for test, text in result.failures + result.errors]


def main():
    parser = argparse.ArgumentParser(prog="tests/e2e/play.py", description=__doc__)
    parser.add_argument("words", nargs="*", metavar="WORD", help="only scenarios with a WORD in their names")
    parser.add_argument("--width", default="i686", help="the build that is played: i686 (the default) or x86_64")
    options = parser.parse_args()
    workshop.build(options.width, "tarrow", "window_probe", "command_child")
    with workshop.virtual_display() as display, workshop.Wine(display).running() as wine:
        passed, failures = play(wine, options.width, options.words)
    for failure in failures:
        print(f"\nFAILED: {failure}")
    print(f"{passed} passed, {len(failures)} failed")
    return 1 if failures else 0


if __name__ == "__main__":
    workshop.main(main)
