"""Measures Tarrow beside its rivals, on the same work in the same run, and prints one table.

The engines are measured natively, the windows under Wine, `tarrowc` and the start of the program as whole
processes. Smaller figures are better; the factor says how many times smaller Tarrow's is.
"""

import argparse
import os
import subprocess
import sys

import workshop
from workshop import BUILD, ROOT, Failure

# Programs of this folder that measure whole processes, and whether they need Windows.
SCRIPTS = {"bench_programs.py": False}
HEADINGS = ("work", "Tarrow", "rival", "its", "factor", "goal")


def row_of(line):
    """The cells of a printed result (see benchmarks/report.h), or None for any other line."""
    fields = line.rstrip("\r\n").split("\t")
    if len(fields) != 6:
        return None
    work, own, rival, others, unit, goal = fields
    try:
        own, others, goal = float(own), float(others), float(goal)
    except ValueError:
        return None
    factor = others / own if own else float("inf")
    wanted = f"{goal:g}" + ("" if factor >= goal else "  MISSED") if goal else ""
    return work, figure(own, unit), rival, figure(others, unit), f"{factor:.2f}", wanted


def figure(value, unit):
    if unit != "s":
        return f"{value:.1f} {unit}"
    for scale, name in ((1, "s"), (1e-3, "ms"), (1e-6, "us")):
        if value >= scale:
            return f"{value / scale:.3g} {name}"
    return f"{value * 1e9:.3g} ns"


def print_table(rows):
    widths = [max(len(row[column]) for row in [HEADINGS, *rows]) for column in range(len(HEADINGS))]
    for row in [HEADINGS, *rows]:
        print("  ".join(cell.ljust(width) if column in (0, 2, 5) else cell.rjust(width)
                        for column, (cell, width) in enumerate(zip(row, widths))).rstrip())


def programs(preset, ending):
    folder = BUILD / preset / "benchmarks"
    return sorted(path for path in folder.glob(f"*{ending}") if path.is_file() and os.access(path, os.X_OK)
                  and path.suffix == ending)


def measure(name, command, rows, environment=None):
    """Runs one benchmark; its rows are gathered, whatever else it says is passed on. False when it failed."""
    print(f"{name} ...", flush=True)
    result = subprocess.run(list(map(str, command)), cwd=ROOT, text=True, errors="replace", env=environment,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    for line in result.stdout.splitlines():
        if row := row_of(line):
            rows.append(row)
        else:
            print(f"  {line}")
    if result.returncode != 0:
        print(f"FAILED: {name} ended with exit code {result.returncode}", flush=True)
    return result.returncode == 0


def commands(wine, quick):
    """(name, command, environment) of every benchmark there is."""
    for program in programs("native", ""):
        yield f"{program.name} (native)", [program, *quick], None
    for program in programs("i686", ".exe"):
        yield f"{program.stem} (i686)", ["wine", program, *quick], wine.environment
    for script, needs_windows in SCRIPTS.items():
        if (path := ROOT / "scripts" / script).exists():
            yield script, [sys.executable, path, *quick], wine.environment if needs_windows else None


def main():
    parser = argparse.ArgumentParser(prog="./bench", description=__doc__)
    parser.add_argument("--quick", action="store_true", help="small sizes: shows that everything works")
    parser.add_argument("--only", metavar="WORD", default="", help="only benchmarks with WORD in their name")
    options = parser.parse_args()
    for preset in ("native", "i686"):
        print(f"Building {preset} ...", flush=True)
        workshop.build(preset)
    rows, failed = [], 0
    with workshop.virtual_display() as display, workshop.Wine(display).running() as wine:
        for name, command, environment in commands(wine, ["--quick"] if options.quick else []):
            if options.only in name:
                failed += not measure(name, command, rows, environment)
    if not rows and not failed:
        raise Failure(f"there is no benchmark with '{options.only}' in its name")
    print()
    print_table(rows)
    return 1 if failed else 0


if __name__ == "__main__":
    workshop.main(main)
