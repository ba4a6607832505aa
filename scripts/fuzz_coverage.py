"""How much of its engine a fuzz target has run: a target that no longer reaches what it claims fails."""

import json
import subprocess

from workshop import ROOT

# The sources that a target is for, and the least share of their lines that some seconds of it must reach, in
# percent. Well below what they reach, for inputs are random.
LEAST = {
    "compare_files_fuzz": ("tools/comparison/compare_files.cpp", 50),
    "extract_strings_fuzz": ("tools/extraction/extract_strings.cpp", 80),
    "file_load_fuzz": ("edit/files/file_load.cpp", 60),
    "hex_rows_fuzz": ("viewer/records/hex_rows.cpp", 80),
    "ini_text_fuzz": ("base/ini_text.cpp", 60),
    "journal_fuzz": ("edit/recovery/journal_reader.cpp", 80),
    "key_bindings_fuzz": ("ui/commands/key_bindings.cpp", 45),
    "lexers_fuzz": ("edit/lexers/", 45),
    "line_file_fuzz": ("viewer/records/line_file.cpp", 70),
    "regex_fuzz": ("search/pattern/", 50),
    "text_buffer_fuzz": ("edit/text/text_buffer.cpp", 50),
    "view_rows_fuzz": ("viewer/views/", 70),
}


def lines_covered(fuzzer, profile, sources):
    """The percentage of the lines of `sources` (a file, or a folder ending in a slash) in a raw profile."""
    merged = profile.with_suffix(".profdata")
    subprocess.run(["llvm-profdata-16", "merge", "-sparse", profile, "-o", merged], check=True)
    report = subprocess.run(["llvm-cov-16", "export", "-summary-only", f"-instr-profile={merged}", fuzzer],
                            check=True, capture_output=True, text=True).stdout
    counts = [entry["summary"]["lines"] for entry in json.loads(report)["data"][0]["files"]
              if entry["filename"].startswith(str(ROOT / sources))]
    total = sum(count["count"] for count in counts)
    return 100 * sum(count["covered"] for count in counts) / total if total else 0


def shortfall(fuzzer, profile):
    """What is wrong with the coverage of a target, or None."""
    if fuzzer.name not in LEAST:
        return f"{fuzzer.name} has no least coverage in scripts/fuzz_coverage.py"
    sources, least = LEAST[fuzzer.name]
    covered = lines_covered(fuzzer, profile, sources)
    if covered >= least:
        return None
    return f"{fuzzer.name} reaches {covered:.0f} % of the lines of {sources}, and not {least} %"
