"""The cases of the editing commands, played into the running program."""

import itertools

import editing_cases
from loading import is_converted, questions
from tarrow import Scenario, shown_path

EM_GETSEL, EM_SETSEL, EM_POSFROMCHAR, WM_MDIACTIVATE = 0xB0, 0xB1, 0xD6, 0x222

FLAG_COMMANDS = {"overtype": "Set:Insert", "readonly": "Set:ReadOnly"}


class EditingCommands(Scenario):
    flags = 0  # no indentation is maintained but where a case asks for it

    def test_cases(self):
        def settings(case):
            return case.settings
        cases = [case for case in editing_cases.cases() if not is_converted(case.before)]
        self.assertTrue(cases, "there is no case")
        for (tab_size, shift_width, expand), group in itertools.groupby(sorted(cases, key=settings), settings):
            self.write_settings(TabSize=tab_size, ShiftWidth=shift_width, ExpandTabs=expand)
            self.play_group(list(group))

    def play_group(self, cases):
        """All cases of the same settings in one run of the program, a window each."""
        for number, case in enumerate(cases):
            self.write(f"{number:03}.txt", case.before)
        program = self.start("???.txt")
        for case in cases:
            for question in questions(case.before):
                program.answer(question, "Yes")
        paths = [self.folder / f"{number:03}.txt" for number in range(len(cases))]
        program.wait_titles([shown_path(path) for path in paths])
        documents = {document.text: document for document in program.documents()}
        client = program.client().handle
        for case, path in zip(cases, paths):
            with self.subTest(case.name):
                document = documents[shown_path(path)]
                self.stage.probe.ask("send", client, WM_MDIACTIVATE, document.handle, 0)
                program.wait_file(path)
                self.play(program, case, document.find("TarrowEdit"), path)
        self.wait_files([path.name for path in paths])
        program.stop()
        for path in paths:
            path.unlink()

    def play(self, program, case, edit, path):
        for flag in case.flags:
            if flag == "indent" or (flag == "align" and "indent" not in case.flags):
                program.command("Set:Indent" if flag == "indent" else "Set:Align")
            elif flag in FLAG_COMMANDS:
                program.command(FLAG_COMMANDS[flag])
        self.stage.probe.ask("send", edit.handle, EM_SETSEL, *case.selection)
        self.run_command(program, edit, case)
        self.stage.wait(lambda: self.selection(edit) == case.selection_after,
                        f"{case.name}: the selection {case.selection_after}")
        if case.after == case.before:
            program.save()
            self.stays(lambda: path.read_bytes() == case.before, f"{case.name}: the text changed", seconds=0.1)
        else:
            program.save()
            self.wait_content(path, case.after)

    def run_command(self, program, edit, case):
        command = case.command
        if command in ("Enter", "Tab", "Home"):
            self.stage.keys(command)
        elif command == "DoubleClick":
            self.double_click(program, edit, case.selection[0])
        elif command.startswith("Type "):
            self.stage.type(command.removeprefix("Type "))
        else:
            program.command(command)

    def double_click(self, program, edit, at):
        """The place is the control's own answer: the caret follows the keyboard from window to window a moment later."""
        place = self.stage.probe.ask("send", edit.handle, EM_POSFROMCHAR, at, 0)
        left, top, _, _ = program.window(edit).facts["rect"]
        self.stage.click(left + (place & 0xFFFF) + 1, top + (place >> 16) + 1, "double")

    def selection(self, edit):
        packed = self.stage.probe.ask("send", edit.handle, EM_GETSEL, 0, 0)
        return packed & 0xFFFF, packed >> 16
