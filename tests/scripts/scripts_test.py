"""The scripts behind the commands: what they install, and what a benchmark says of a rival that is missing."""

import os
import pathlib
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent

# A system on which each command is a line of shell. What is asked to be installed is written down.
FAKES = {
    "dpkg-query": 'case "$4" in {absent}) printf "{status} "; exit {code};; *) printf "installed ";; esac',
    "dpkg": "true", "sudo": '"$@"', "env": "shift; \"$@\"",
    "apt-get": 'echo "$@" >>"$(dirname "$0")/asked"',
}


class InstallPackages(unittest.TestCase):
    def asked(self, absent, status, code=0):
        """What apt-get is told when dpkg-query says `status` of one package, and `installed` of all others."""
        with tempfile.TemporaryDirectory() as folder:
            for name, line in FAKES.items():
                path = pathlib.Path(folder, name)
                path.write_text("#!/bin/sh\n" + line.format(absent=absent, status=status, code=code) + "\n")
                path.chmod(0o755)
            environment = os.environ | {"PATH": f"{folder}:{os.environ['PATH']}"}
            subprocess.run([ROOT / "scripts" / "install_packages", "bench"], env=environment, check=True,
                           stdout=subprocess.DEVNULL)
            asked = pathlib.Path(folder, "asked")
            return asked.read_text() if asked.exists() else ""

    def test_nothing_is_asked_for_when_all_is_there(self):
        self.assertEqual(self.asked("none-such", ""), "")

    def test_only_installed_is_installed(self):
        for status, code in (("not-installed", 0), ("config-files", 0), ("half-installed", 0), ("unpacked", 0), ("", 1)):
            with self.subTest(status=status):
                self.assertIn(" libre2-dev", self.asked("libre2-dev", status, code))

    def test_a_package_of_two_widths_is_there_with_one(self):
        self.assertEqual(self.asked("libre2-dev", "not-installed installed"), "")


class Benchmarks(unittest.TestCase):
    def test_a_missing_rival_is_a_failure_that_names_its_package(self):
        with tempfile.TemporaryDirectory() as empty:
            script = f"import os; os.environ['PATH'] = {empty!r}; import bench_programs; bench_programs.require('rg', 'xxd')"
            result = subprocess.run([os.sys.executable, "-c", script], cwd=ROOT / "scripts", text=True,
                                    capture_output=True)
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("the packages: ripgrep, xxd", result.stderr)


if __name__ == "__main__":
    unittest.main()
