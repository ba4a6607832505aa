"""Measures tarrowc as a whole process beside the programs that a user would take instead.

Each work is first checked: Tarrow and its rival must come to the same result where theirs can be compared.
Then both run in turn. A figure is the processor time of the process (user and system) in its quickest run:
all of these are bound by it, and it does not depend on what else the machine is doing. Prints the rows that
./bench gathers: work, Tarrow's figure, rival, its figure, unit, least wanted factor.
"""

import argparse
import itertools
import multiprocessing
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import typing

from workshop import BUILD, ROOT, Failure, main as run_main

TARROWC = BUILD / "native" / "console" / "tarrowc"
MEMORY_LIMIT_MB = 64
ENOUGH_SECONDS = 3  # of runs of one program
MOST_RUNS = 7
ENVIRONMENT = dict(os.environ, LC_ALL="C")

# Each search as Tarrow, GNU grep and ripgrep write it, with the least wanted factors over the two.
LITERAL, ANY = (1, 1 / 1.5), (1, 0)
SEARCHES = [
    ("rare literal", ["kMostDormantPoints"], [r"kMostDormantPoints"], [r"kMostDormantPoints"], LITERAL),
    ("common literal", ["return"], ["return"], ["return"], LITERAL),
    ("absent literal", ["xyzzy_nowhere"], ["xyzzy_nowhere"], ["xyzzy_nowhere"], LITERAL),
    ("literal, either case", ["-i", "bytesource"], ["-i", "bytesource"], ["-i", "bytesource"], LITERAL),
    ("whole word", ["-w", "line"], ["-w", "line"], ["-w", "line"], ANY),
    ("line start", ["^#include"], ["^#include"], ["^#include"], ANY),
    ("classes", ["[A-Z][a-z]*File("], ["[A-Z][a-z]*File("], [r"[A-Z][a-z]*File\("], ANY),
    ("dot star", ["if .*return"], ["if .*return"], ["if .*return"], ANY),
]


class Run(typing.NamedTuple):
    """One run of a program."""
    seconds: float  # of processor time
    megabytes: float  # of memory at its peak
    code: int


def measure(command, folder, output):
    with open(output, "wb") as out:
        process = subprocess.Popen(command, cwd=folder, stdout=out, env=ENVIRONMENT)
        _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    return Run(usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024, process.returncode)


class Runner:
    """Runs programs from a process that stays small: the memory of whoever starts a program counts as its own."""

    def __init__(self):
        self.connection, end = multiprocessing.Pipe()
        multiprocessing.Process(target=self.serve, args=(end,), daemon=True).start()

    @staticmethod
    def serve(connection):
        while True:
            connection.send(measure(*connection.recv()))

    def run(self, command, folder, output):
        self.connection.send(([str(word) for word in command], folder, output))
        return self.connection.recv()


def best_of(commands, folder, output="timed.out"):
    """The quickest run of each of some programs, run in turn until each has run long enough."""
    runs = [[] for _ in commands]
    for _ in range(MOST_RUNS):
        for command, done in zip(commands, runs):
            if sum(run.seconds for run in done) < ENOUGH_SECONDS:
                done.append(RUNNER.run(command, folder, folder / output))
    return [min(done, key=lambda run: run.seconds) for done in runs]


def row(work, own, rival, others, unit, goal):
    print(work, f"{own:.6f}", rival, f"{others:.6f}", unit, f"{goal:.3f}", sep="\t", flush=True)


def check(is_right, what):
    if not is_right:
        raise Failure(f"wrong result: {what}")


def output_of(command, folder):
    """What a program prints; any exit code but trouble is right."""
    run = RUNNER.run(command, folder, folder / "checked.out")
    check(run.code in (0, 1), f"{command} ended with exit code {run.code}")
    return (folder / "checked.out").read_bytes()


# The rivals and the packages that bring them.
PACKAGES = {"diff": "diffutils", "grep": "grep", "patch": "patch", "rg": "ripgrep", "strings": "binutils",
            "wc": "coreutils", "xxd": "xxd"}


def require(*programs):
    """A table without its rivals would look like a good one."""
    if missing := [PACKAGES[program] for program in programs if not shutil.which(program)]:
        raise Failure(f"cannot be measured without the packages: {', '.join(missing)}")


# The works' data. Texts come from the project's own sources, with numbers in some lines so that they differ.

def source_lines():
    names = sorted(path for pattern in ("*.cpp", "*.h") for folder in
                   ("base", "framework", "edit", "search", "tools", "viewer", "ui", "console")
                   for path in (ROOT / folder).glob(pattern))
    lines = [line for name in names for line in name.read_bytes().splitlines()]
    return [line for line in lines if len(line) < 120 and line.isascii()]


def text_lines(size):
    lines, total = [], 0
    for number in itertools.count():
        for index, line in enumerate(SOURCE):
            lines.append(line + b" // %d" % number if index % 7 == number % 7 else line)
            total += len(lines[-1]) + 1
            if total >= size:
                return lines


def write_lines(path, lines):
    path.write_bytes(b"\n".join(lines) + b"\n")


def libraries(path, size):
    """Writes `size` bytes of the system's shared libraries."""
    names = sorted(pathlib.Path("/usr/lib").rglob("*.so*"))
    with open(path, "wb") as out:
        for name in itertools.cycle(name for name in names if name.is_file() and not name.is_symlink()):
            if (left := size - out.tell()) <= 0:
                return
            out.write(name.read_bytes()[:left])


# The works.

def found_by_tarrow(output):
    return [(int(number), text) for number, text in re.findall(rb"^[^(\n]*\((\d+)\): (.*)$", output, re.M)]


def found_by_grep(output):
    return [(int(number), text) for number, text in re.findall(rb"^(\d+):(.*)$", output, re.M)]


def search_one_file(folder, size):
    require("grep", "rg")
    write_lines(folder / "text", text_lines(size))
    for name, own, grep, rg, (grep_goal, rg_goal) in SEARCHES:
        commands = [[TARROWC, "search", *own, "text"], ["grep", "-n", *grep, "text"],
                    ["rg", "-j1", "-n", "--no-heading", *rg, "text"]]
        found = [read(output_of(command, folder)) for command, read in
                 zip(commands, (found_by_tarrow, found_by_grep, found_by_grep))]
        check(found[0] == found[1] == found[2], f"search for {name}")
        own_run, grep_run, rg_run = best_of(commands, folder)
        row(f"search {size >> 20} MB, {name}", own_run.seconds, "grep -n", grep_run.seconds, "s", grep_goal)
        row(f"search {size >> 20} MB, {name}", own_run.seconds, "rg -j1", rg_run.seconds, "s", rg_goal)


def search_many_files(folder, count):
    require("grep", "rg")
    lines = text_lines(count * 4000)
    names = []
    for index in range(count):
        names.append(f"{index % 100:02}/{index}.c")
        (folder / names[-1]).parent.mkdir(exist_ok=True)
        write_lines(folder / names[-1], lines[index * 100:index * 100 + 100])
    pattern = "kMostDormantPoints"
    commands = [[TARROWC, "search", pattern, *names], ["grep", "-Hn", pattern, *names],
                ["rg", "-j1", "-Hn", "--no-heading", pattern, *names]]
    own, grep, rg = (output_of(command, folder) for command in commands)
    own = re.sub(rb"^([^(\n]*)\((\d+)\): ", rb"\1:\2:", own, flags=re.M)
    check(sorted(own.splitlines()) == sorted(grep.splitlines()) == sorted(rg.splitlines()), "many files")
    own_run, grep_run, rg_run = best_of(commands, folder)
    row(f"search {count} files", own_run.seconds, "grep -n", grep_run.seconds, "s", 1)
    row(f"search {count} files", own_run.seconds, "rg -j1", rg_run.seconds, "s", 1 / 1.5)


def edited(lines, chance):
    result = lines[:]
    for index in sorted(chance.sample(range(len(lines)), len(lines) // 500), reverse=True):
        kind = chance.randrange(3)
        if kind == 0:
            result[index] += b" // edited"
        elif kind == 1:
            del result[index]
        else:
            result.insert(index, b"inserted %d" % index)
    return result


def with_moved_blocks(lines, chance):
    result, block = lines[:], len(lines) // 200
    for _ in range(12):
        begin = chance.randrange(len(result) - block)
        moved = result[begin:begin + block]
        del result[begin:begin + block]
        target = chance.randrange(len(result))
        result[target:target] = moved
    return result


def compare(folder, size):
    require("diff", "patch")
    chance = random.Random(1)
    lines = text_lines(size)
    # Every line a little different, as in a real file of such a size.
    lines = [line + b" %d" % (index // 3) if line else line for index, line in enumerate(lines)]
    write_lines(folder / "old", lines)
    for name, change, goal in (("scattered edits", edited, 1), ("moved blocks", with_moved_blocks, 10)):
        write_lines(folder / "new", change(lines, chance))
        (folder / "patch").write_bytes(output_of([TARROWC, "compare", "--patch", "old", "new"], folder))
        subprocess.run(["patch", "-s", "-o", "patched", "old", "patch"], cwd=folder, check=True)
        check((folder / "patched").read_bytes() == (folder / "new").read_bytes(), f"patch of {name}")
        own, diff = best_of([[TARROWC, "compare", "old", "new"], ["diff", "old", "new"]], folder)
        check(own.megabytes < MEMORY_LIMIT_MB, f"{name} take {own.megabytes:.0f} MB")
        row(f"compare {size >> 20} MB, {name}", own.seconds, "diff", diff.seconds, "s", goal)
        row(f"compare {size >> 20} MB, {name}: memory", own.megabytes, "diff", diff.megabytes, "MB", 0)


def runs_by_tarrow(output):
    """(offset, bytes) of each run, its pieces joined again."""
    runs = []
    for offset, text in re.findall(rb"\(0x([0-9a-f]+)\): (.*)\n", output):
        offset = int(offset, 16)
        if runs and runs[-1][0] + len(runs[-1][1]) == offset:
            runs[-1] = (runs[-1][0], runs[-1][1] + text)
        else:
            runs.append((offset, text))
    return runs


def strings(folder, size):
    require("strings", "rg")
    libraries(folder / "libraries", size)
    own = [TARROWC, "strings", "libraries"]
    rg = ["rg", "-abo", "-N", "--no-filename", "[ -~][ -~][ -~][ -~]+", "libraries"]
    found = [(int(offset), text) for offset, text in
             re.findall(rb"^(\d+):(.*)$", output_of(rg, folder), re.M)]
    check(runs_by_tarrow(output_of(own, folder)) == found, "strings")
    own_run, gnu_run, rg_run = best_of([own, ["strings", "-n", "4", "-t", "x", "libraries"], rg], folder)
    row(f"strings of {size >> 20} MB", own_run.seconds, "strings -n 4 -t x", gnu_run.seconds, "s", 5)
    row(f"strings of {size >> 20} MB", own_run.seconds, "rg -abo", rg_run.seconds, "s", 1)


def line_index(folder, size):
    require("wc")
    portion = b"\n".join(text_lines(min(size, 50 << 20))) + b"\n"
    with open(folder / "long", "wb") as out:
        while out.tell() < size:
            out.write(portion)
    own, wc = [TARROWC, "lines", "--statistics", "long"], ["wc", "-l", "long"]
    counts = [re.search(pattern, output_of(command, folder))[1] for command, pattern in
              ((own, rb"(\d+) Lines"), (wc, rb"^(\d+) "))]
    check(counts[0] == counts[1], "count of lines")
    own_run, wc_run = best_of([own, wc], folder)
    check(own_run.megabytes < 4.2 * int(counts[0]) / (1 << 20) + 16, "memory of the line index")
    row(f"line index of {size >> 20} MB", own_run.seconds, "wc -l", wc_run.seconds, "s", 1 / 3)


def hex_rows(folder, size):
    require("xxd")
    write_lines(folder / "text", text_lines(size))
    own, xxd = [TARROWC, "hex", "text"], ["xxd", "-u", "-g4", "text"]
    rows = [[line[9:] for line in output_of(command, folder).splitlines()] for command in (own, xxd)]
    check(rows[0] == rows[1], "hex rows")
    # Writing five times as much to a file would take both longer than making it.
    own_run, xxd_run = best_of([own, xxd], folder, os.devnull)
    row(f"hex of {size >> 20} MB", own_run.seconds, "xxd", xxd_run.seconds, "s", 10)


# Each work with its size and the small one of --quick.
WORKS = [
    (search_one_file, 100 << 20, 4 << 20),
    (search_many_files, 20_000, 500),
    (compare, 100 << 20, 4 << 20),
    (strings, 200 << 20, 8 << 20),
    (line_index, 1 << 30, 16 << 20),
    (hex_rows, 50 << 20, 2 << 20),
]


def main():
    parser = argparse.ArgumentParser(prog="scripts/bench_programs.py", description=__doc__)
    parser.add_argument("--quick", action="store_true", help="small sizes: shows that everything works")
    parser.add_argument("--only", metavar="WORD", default="", help="only works with WORD in their name")
    options = parser.parse_args()
    if not TARROWC.exists():
        raise Failure("build the native preset first: cmake --build --preset native")
    for work, size, quick_size in WORKS:
        if options.only in work.__name__:
            with tempfile.TemporaryDirectory(prefix="tarrowc-bench-") as folder:
                work(pathlib.Path(folder), quick_size if options.quick else size)
    return 0


RUNNER = Runner()
SOURCE = source_lines()

if __name__ == "__main__":
    run_main(main)
