"""Where dialogs stand, and what they show when they come."""

from tarrow import Scenario

FACE_FIELD, STYLE_FIELD, SIZE_FIELD = 0x470, 0x471, 0x472


def middle(rect):
    left, top, right, bottom = rect
    return (left + right) // 2, (top + bottom) // 2


class Places(Scenario):
    settings = {"Window": "500,400,1200,900,0"}

    def assert_over_the_frame(self, program, dialog):
        for one, other in zip(middle(dialog.facts["rect"]), middle(program.main().facts["rect"])):
            self.assertLess(abs(one - other), 3, (dialog.facts["rect"], program.main().facts["rect"]))

    def test_dialogs_stand_over_the_frame(self):
        program, _ = self.open("a.txt", b"a\r\n")
        for command, label in (("Help:About", "OK"), ("Set:Global", "Cancel"), ("Search:GotoMark", "OK"),
                               ("Search:GotoLine", "Cancel"), ("Set:Font", "Cancel")):
            with self.subTest(command):
                program.command(command)
                dialog = program.dialog()
                self.assert_over_the_frame(program, dialog)
                program.press(dialog, label)
                program.wait_focus_back()

    def test_none_leaves_the_screen(self):
        self.write_settings(Window="0,700,300,1000,0")
        program, _ = self.open("a.txt", b"a\r\n")
        program.command("Set:Global")
        left, top, right, bottom = program.dialog().facts["rect"]
        self.assertGreaterEqual(left, 0)
        self.assertLessEqual(bottom, 1024)


class FontDialog(Scenario):
    def shown(self):
        program, _ = self.open("a.txt", b"a\r\n")
        program.command("Set:Font")
        dialog = program.dialog()
        return [dialog.find("ComboBox", identifier=field).text for field in (FACE_FIELD, SIZE_FIELD)]

    def test_the_current_font_is_selected(self):
        self.write_settings(ScreenFont="Nimbus Mono PS,20,400,0")
        self.assertEqual(self.shown(), ["Nimbus Mono PS", "15"])

    def test_the_font_that_is_used_when_none_is_named(self):
        face, size = self.shown()
        self.assertNotEqual(face, "")
        self.assertGreater(int(size), 8, "that is the smallest of the list, and not the one that is drawn with")
