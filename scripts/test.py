"""Builds everything and runs every test: engines under sanitizers and fuzzers, and as Windows programs of
both widths under Wine; windows under Wine; the whole program by its keys; and the house rules.

Each step reports cases that passed and failed; the last line sums them up.
"""

import argparse
import concurrent.futures
import json
import os
import subprocess
import sys
import time

import fuzz_coverage
import workshop
from workshop import BUILD, LOGS, ROOT, Failure

sys.path.append(str(ROOT / "tests" / "e2e"))

import play

FUZZ_SECONDS = 3
WIDTHS = ("i686", "x86_64")


class Outcome:
    """The cases of one step: how many passed, and the text of each that failed."""

    def __init__(self):
        self.passed = 0
        self.failures = []

    def check(self, name, command, **options):
        """One case: a command that succeeds."""
        result = subprocess.run(command, cwd=ROOT, text=True, errors="replace",
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options)
        if result.returncode == 0:
            self.passed += 1
        else:
            self.failures.append(f"{name} (exit code {result.returncode})\n{tail(result.stdout)}")
        return result

    def add_google_tests(self, name, report, run):
        """Counts the cases of a GoogleTest report, and a run that ended badly as one more failure."""
        log = LOGS / f"{name}.log"
        exit_code = run(log)
        if not report.exists():
            self.failures.append(f"{name} ended with {exit_code} and without a report ({log})\n"
                                 f"{workshop.last_lines(log, 30)}")
            return
        for suite in json.loads(report.read_text(errors="replace"))["testsuites"]:
            for case in suite["testsuite"]:
                if case.get("failures"):
                    texts = "\n".join(failure["failure"] for failure in case["failures"])
                    self.failures.append(f"{name}: {suite['name']}.{case['name']}\n{tail(texts)}")
                else:
                    self.passed += case["result"] == "COMPLETED"
        if exit_code != 0 and not self.failures:
            self.failures.append(f"{name} ended with {exit_code} ({log})\n{workshop.last_lines(log, 30)}")


def tail(text, lines=40):
    return "\n".join(text.strip().splitlines()[-lines:])


def run_under_wine(wine, width, program, outcome):
    """Runs a test program of Windows; one that hangs is ended, with a picture of its screen kept."""
    report = BUILD / width / f"{program}.json"
    report.unlink(missing_ok=True)

    def run(log):
        with log.open("w") as out:
            process = wine.start([BUILD / width / "tests" / f"{program}.exe",
                                  f"--gtest_output=json:{workshop.windows_path(report)}"],
                                 stdout=out, stderr=subprocess.STDOUT, cwd=ROOT)
            try:
                return process.wait(420)
            except subprocess.TimeoutExpired:
                picture = LOGS / f"{program}-{width}.png"
                workshop.screenshot(wine.display, picture)
                wine.stop()
                return f"no end after 420 s (screen in {picture})"
            finally:
                workshop.stop_process(process)
    outcome.add_google_tests(f"{program}-{width}", report, run)


def house(outcome):
    outcome.check("house rules", [sys.executable, "scripts/check_house.py"])
    outcome.check("the house checks can fail", [sys.executable, "scripts/house/self_test.py"])
    outcome.check("the scripts", [sys.executable, "tests/scripts/scripts_test.py"])
    outcome.check("the help book", [sys.executable, "tests/help/book_test.py"])


def style(outcome):
    sources = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "*.cpp", "*.h"],
                             cwd=ROOT, check=True, capture_output=True, text=True).stdout.split()
    result = outcome.check("clang-format", ["clang-format", "--dry-run", "--Werror", *sources])
    if result.returncode != 0:
        outcome.failures[-1] = "not as clang-format has it: " + ", ".join(sorted(
            {line.split(":")[0] for line in result.stdout.splitlines() if ": error:" in line}))


def sanitize(outcome):
    """The tests of the engines, natively."""
    workshop.build("sanitize")
    report = BUILD / "sanitize" / "engine_tests.json"
    report.unlink(missing_ok=True)

    def run(log):
        with log.open("w") as out:
            return subprocess.run([BUILD / "sanitize" / "tests" / "engine_tests", f"--gtest_output=json:{report}"],
                                  stdout=out, stderr=subprocess.STDOUT, cwd=ROOT, timeout=900,
                                  env=os.environ | {"LLVM_PROFILE_FILE": os.devnull}).returncode
    outcome.add_google_tests("engine_tests-sanitize", report, run)


def fuzz(outcome):
    """A few seconds of each fuzzer: enough that none of them rots, and to see that it reaches its engine."""
    workshop.build("sanitize")
    folder = BUILD / "sanitize" / "fuzz"
    findings = BUILD / "sanitize" / "findings"
    findings.mkdir(exist_ok=True)

    def run(fuzzer):
        profile = findings / f"{fuzzer.name}.profraw"
        outcome.check(fuzzer.name, [fuzzer, f"-max_total_time={FUZZ_SECONDS}", "-rss_limit_mb=4096",
                                    "-verbosity=0", f"-artifact_prefix={findings}/"], timeout=120,
                      env=os.environ | {"LLVM_PROFILE_FILE": str(profile)})
        if text := fuzz_coverage.shortfall(fuzzer, profile):
            outcome.failures.append(text)
        else:
            outcome.passed += 1
    fuzzers = sorted(path for path in folder.iterdir() if path.is_file() and os.access(path, os.X_OK))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for _ in pool.map(run, fuzzers):
            pass


def windows(outcome):
    """The tests of engines and windows as programs of 32-bit and of 64-bit Windows."""
    for width in WIDTHS:
        workshop.build(width)
    with workshop.virtual_display() as display, workshop.Wine(display).running() as wine:
        for width in WIDTHS:
            for program in ("engine_tests", "window_tests"):
                run_under_wine(wine, width, program, outcome)


def e2e(outcome):
    """The shipping program by its keys, mouse, dialogs and files."""
    workshop.build("i686")
    if not (program := BUILD / "i686" / "tarrow.exe").exists():
        raise Failure(f"there is no {program}")
    with workshop.virtual_display() as display, workshop.Wine(display).running() as wine:
        outcome.passed, outcome.failures = play.play(wine, "i686")


def benchmarks(outcome):
    """Small runs of the benchmarks: their results are checked, their times are not looked at."""
    outcome.check("./bench --quick", [sys.executable, "scripts/bench.py", "--quick"], timeout=600)


STEPS = {
    "house": house, "style": style, "sanitize": sanitize, "fuzz": fuzz, "windows": windows, "e2e": e2e,
    "benchmarks": benchmarks}


def run_step(name):
    print(f"{name} ...", flush=True)
    outcome = Outcome()
    began = time.monotonic()
    try:
        STEPS[name](outcome)
    except (Failure, subprocess.SubprocessError, OSError) as failure:
        outcome.failures.append(f"{name}: {failure}")
    for failure in outcome.failures:
        print(f"FAILED: {failure}\n")
    print(f"{name}: {outcome.passed} good, {len(outcome.failures)} bad, {time.monotonic() - began:.0f} s", flush=True)
    return outcome


def main():
    parser = argparse.ArgumentParser(prog="./test", description=__doc__)
    parser.add_argument("steps", nargs="*", metavar="STEP", help=f"only these: {', '.join(STEPS)}")
    wanted = parser.parse_args().steps or list(STEPS)
    if unknown := [step for step in wanted if step not in STEPS]:
        parser.error(f"unknown step '{unknown[0]}': there are {', '.join(STEPS)}")
    began = time.monotonic()
    LOGS.mkdir(parents=True, exist_ok=True)
    outcomes = [run_step(step) for step in wanted]
    failed = sum(len(outcome.failures) for outcome in outcomes)
    print(f"Took {(time.monotonic() - began) / 60:.1f} minutes.")
    print(f"{sum(outcome.passed for outcome in outcomes)} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    workshop.main(main)
