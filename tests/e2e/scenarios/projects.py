"""Projects: opened and left, their tools run, and what these say."""

import itertools
import os
import subprocess

from driver import BUILD
from tarrow import FLAG_BACKUP, Scenario, shown_path
from workshop import windows_path

SOURCE = b"// A program.\r\nint first;\r\nint second\r\nint third;\r\n"
LOG = "Project Command Error Log"


class ProjectScenario(Scenario):
    """Tools of the tests in the environment without presets."""

    def start(self, *words, **options):
        """Starts Tarrow in front: the console of an earlier command may have left nobody there."""
        program = super().start(*words, **options)
        left, top, _, _ = program.main().facts["rect"]
        places = itertools.cycle(range(left + 200, left + 600, 10))  # no two clicks make a double click

        def in_front():
            if self.stage.probe.ask("focus")["foreground"] in (window.handle for window in program.windows()):
                return True
            self.stage.click(next(places), top + 10)
            return False
        self.stage.wait(in_front, "the program in front")
        return program

    def stop_programs(self):
        """A console that goes later would take the foreground from the next play."""
        super().stop_programs()
        self.stage.wait(lambda: all("Console" not in window.kind for window in self.stage.everything()),
                        "the consoles of commands to close")

    def tool(self, *words):
        program = BUILD / self.stage.width / "tests" / "wrapper" / "command_child.exe"
        return " ".join([windows_path(program), *words])

    def write_options(self, **options):
        self.write_settings({"Project": {"Environment": "Other"}, "Other": options})

    def run_command(self, program, command, expected):
        """Runs a command and waits for what the status bar says at its end."""
        program.command(command)
        self.wait_status(program, expected)

    def wait_status(self, program, text):
        def shows():
            bar = program.main().find("CStatusBar")
            return bar and bar.text == text
        self.stage.wait(shows, f"'{text}' in the status bar")

    def leftovers(self):
        return sorted(self.stage.wine.prefix.glob("drive_c/users/*/Temp/TRW*.tmp"))

    def choose_project(self, program, path):
        program.command("Project:Select")
        dialog = program.dialog("Select Project Directory")
        self.stage.type(path)
        self.stage.keys("Enter")
        program.wait_gone(dialog)


class Commands(ProjectScenario):
    def test_an_error_is_found_and_mended(self):
        self.write_options(Compiler=self.tool("compile"))
        program, path = self.open("a.c", SOURCE)
        self.run_command(program, "Project:Compile", "Task completed with errors")
        program.wait_title(LOG)
        self.assertIn("a.c(3,11) : error C2146", program.active_edit().text)
        self.stage.keys("Ctrl+g")
        program.wait_file(path)
        self.stage.type(";")
        program.save()
        self.wait_content(path, SOURCE.replace(b"second", b"second;"))
        self.run_command(program, "Project:Compile", "Task completed successfully")
        self.assertTrue((self.folder / "a.c.obj").is_file())
        self.assertEqual(program.close_and_end(), 0)
        self.assertEqual(self.leftovers(), [])

    def test_the_line_beyond_the_end_is_the_last(self):
        self.write("b.c", b"one\r\ntwo")
        self.write("say.bat", b"@echo b.c(99,99): error\r\n@exit /b 1\r\n")
        self.write_options(Builder="say.bat")
        program, _ = self.open("a.c", SOURCE)
        self.run_command(program, "Project:Build", "Task completed with errors")
        program.wait_title(LOG)
        self.stage.keys("Ctrl+g")
        program.wait_file(self.folder / "b.c")
        self.stage.type("!")
        program.wait_text("one\r\ntwo!")

    def test_the_results_are_shown_when_asked_for(self):
        self.write("say.bat", b"@echo all is well\r\n")
        self.write_options(Builder="say.bat")
        program, _ = self.open("a.c", SOURCE)
        self.run_command(program, "Project:Build", "Task completed successfully")
        self.assertEqual(len(program.titles()), 1)
        self.assertEqual(len(self.leftovers()), 1)
        program.command("Project:ViewLog")
        program.wait_title(LOG)
        self.assertEqual(program.active_edit().text, "all is well\r\n")
        self.assertEqual(self.leftovers(), [])

    def test_a_command_outlives_the_program(self):
        lock, done = self.write("lock", b""), self.folder / "done"
        self.write("slow.bat", f"@echo begun\r\n@{self.tool('until-gone', 'lock')}\r\n@echo x>done\r\n".encode())
        self.write_options(Builder="slow.bat")
        program = self.start()
        program.command("Project:Build")
        self.stage.wait(lambda: any(path.stat().st_size for path in self.leftovers()), "the output of the command")
        self.assertEqual(program.close_and_end(), 0)
        lock.unlink()
        self.stage.wait(done.is_file, "the command to go on to its end")
        self.assertEqual(len(self.leftovers()), 1)
        self.start()
        self.stage.wait(lambda: not self.leftovers(), "the next start to clean up")


class Wrapper(ProjectScenario):
    def test_a_full_disk_is_an_error(self):
        if os.geteuid() != 0:
            self.skipTest("only root can mount a small disk")
        disk = self.folder / "disk"
        disk.mkdir()
        subprocess.run(["mount", "-t", "tmpfs", "-o", "size=256k", "tmpfs", disk], check=True)
        self.addCleanup(subprocess.run, ["umount", "-l", disk], check=True)
        wrapper = self.stage.program.parent / "nt" / "projexec.exe"
        output = disk / "output"
        process = self.stage.wine.start([wrapper, windows_path(output), *self.tool("flood", "1").split()],
                                        cwd=self.folder, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        _, said = process.communicate(timeout=20)
        self.assertEqual(process.returncode, 1)
        self.assertIn(b"no room for", said)
        self.assertTrue(output.read_bytes().startswith(b"sixty-two characters"))


class Selecting(ProjectScenario):
    def test_a_project_has_its_own_settings_and_session(self):
        own = self.folder / "own project"
        outside = self.write("outside.txt", b"\r\n")
        program = self.start("outside.txt")
        program.wait_file(outside)
        self.choose_project(program, windows_path(own))
        program.answer("OK to create new", "OK")
        self.stage.wait(own.is_dir, "the directory of the project")
        program.wait_titles([])
        self.choose_project(program, windows_path(self.folder))
        program.wait_titles([])
        (own / "inside.txt").write_bytes(b"text\r\n")
        (own / "tarrow.ini").write_bytes(
            b"[Settings]\r\nFlags=10001001000\r\n[Session]\r\nEditCount=1\r\nEdit01="
            + windows_path(own / "inside.txt").encode() + b",8\r\n")
        self.choose_project(program, windows_path(own))
        program.wait_titles([shown_path(own / "inside.txt")])
        self.assertEqual(program.close_and_end(), 0)

        settings = self.read_settings()
        self.assertEqual(settings["project"]["project"], shown_path(own))
        self.assertEqual([settings["project"]["project 1"], settings["project"]["project 2"]],
                         [shown_path(own), shown_path(self.folder)])
        flags = next(line for line in (own / "tarrow.ini").read_text().splitlines() if line.startswith("Flags="))
        self.assertTrue(int(flags.removeprefix("Flags="), 2) & FLAG_BACKUP)

        program = self.start()
        program.wait_titles([shown_path(own / "inside.txt")])
        program.command("Project:Select")
        program.press(program.dialog("Select Project Directory"), "Exit Project")
        program.wait_titles([shown_path(outside)])
        self.assertEqual(program.close_and_end(), 0)
        self.assertNotIn("project", self.read_settings()["project"])

    def test_a_file_is_no_project(self):
        self.write("file", b"")
        program = self.start()
        self.choose_project(program, windows_path(self.folder / "file"))
        said = program.answer("Error accessing", "OK")
        self.assertIn("path is invalid", said)

    def test_a_modified_window_can_stop_it(self):
        program, path = self.open("a.txt", b"\r\n")
        self.stage.type("x")
        program.wait_text("x\r\n")
        self.choose_project(program, windows_path(self.folder))
        program.answer("Save changes", "Cancel")
        self.stays(lambda: program.titles() == [shown_path(path)], "the window was closed")


class ContextHelp(ProjectScenario):
    def test_an_included_file_opens(self):
        (self.folder / "include").mkdir()
        header = self.write("include/own.h", b"#define A\r\n")
        self.write_options(Include="include")
        program, _ = self.open("a.c", b"#include <own.h>\r\n")
        self.stage.keys("F1")
        program.wait_file(header)
        self.stage.type("x")
        self.stays(lambda: program.active_edit().text == "#define A\r\n", "the file is not read only")
