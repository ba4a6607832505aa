"""Shows that each rule of the house can fail: a clean little tree passes, and one planted fault is found."""

import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))

import check_house
from house.functions import functions_of
from house.tree import Tree

CLEAN = {
    "base/CMakeLists.txt": "tarrow_engine(text.cpp)  # not: window.cpp\n",
    "base/text.h": "#pragma once\nint Length(int a);\n",
    "base/text.cpp": '#include "base/text.h"\n#include <vector>\nint Length(int a) {\n  return a;\n}\n',
    "edit/documents/CMakeLists.txt": "tarrow_window(child.cpp)\n",
    "edit/documents/child.cpp": '#include "base/text.h"\n#include "ui/bar.h"\n#include <windows.h>\n',
    "ui/bar.h": "#pragma once\n",
}

# What is planted, and the rule that has to find it. Forbidden words are written in pieces, so that this file
# holds none of them.
FAULTS = [
    ("direction of includes", {"base/text.h": '#include "ui/bar.h"\n'}),
    ("direction of includes", {"framework/wnd.h": '#include "shell/app.h"\n'}),
    ("direction of includes", {"search/find.h": '#include "tools/list.h"\n'}),
    ("direction of includes", {"viewer/hex.h": '#include "shell/app.h"\n'}),
    ("direction within a folder", {"edit/text/a.h": '#include "edit/control/b.h"\n'}),
    ("direction within a folder", {"edit/files/a.h": '#include "edit/commands/b.h"\n'}),
    ("direction within a folder", {"edit/documents/a.h": '#include "edit/b.h"\n'}),
    ("direction within a folder", {"search/attic/a.h": ""}),
    ("cycles of files", {"base/a.h": '#include "base/b.h"\n', "base/b.h": '#include "base/a.h"\n'}),
    ("cycles of folders", {"edit/a.h": '#include "ui/bar.h"\n', "ui/bar.h": '#include "edit/b.h"\n', "edit/b.h": ""}),
    ("engines free of Windows", {"base/text.cpp": "#include <windows.h>\n"}),
    ("engines free of Windows", {"base/text.h": "#include <WindowsX.h>\n"}),
    ("file sizes", {"base/text.h": "\n" * 601}),
    ("file sizes", {"scripts/long.py": "\n" * 601}),
    ("function sizes", {"base/text.h": "inline void Long() {\n" + "  Step();\n" * 59 + "}\n"}),
    ("function sizes", {"scripts/long.py": "def long():\n" + "    step()\n" * 60}),
    ("words", {"base/text.h": "// as the " + "sp" + "ec says\n"}),
    ("words", {"README.md": "see " + "Part" + " 3.1\n"}),
    ("words", {"base/text.cpp": 'const char* kPath = "/wo' + 'rk/wt/a";\n'}),
    ("words", {"base/text.h": "// TODO: more\n"}),
    ("every source is built", {"base/lost.cpp": "\n"}),
    ("every source is built", {"base/window.cpp": "\n"}),
    ("root", {"00-note.txt": ""}),
    ("root", {"notes/one.md": ""}),
]

# The lengths of the functions that a text holds.
LENGTHS = [
    ("void A() {\n}\n", [2]),
    ("Name::Name(int a)\n    : a_{a}, b_(2) {\n  Go();\n}\n", [4]),
    ("namespace n {\nclass A : public B {\n public:\n  int F() const { return 1; }\n};\n}\n", [1]),
    ("template <typename T = int>\nstd::vector<T> F(T a) {\n  if (a) {\n  }\n}\n", [5]),
    ("constexpr int kTable[] = {\n  1,\n};\nint F() noexcept {\n}\n", [2]),
    ('auto F(int a) -> int {\n  const char* s = "}{"; // {\n  char c = \'{\';\n}\n', [4]),
    ("struct A {\n  int a = 0;\n  bool operator==(const A&) const { return true; }\n};\n", [1]),
    ('const char* kText = R"({ " {)";\nvoid F() {\n}\n', [2]),
    ("int Big() {\n  return 1'000'000;\n}\n", [3]),
    ("TEST(Suite, Case) {\n  EXPECT_EQ(1, 1);\n}\n", [3]),
    ("#define X() {\\\n  {\nvoid F() {\n}\n", [2]),
]


class HouseRules(unittest.TestCase):
    def broken_rules(self, extra):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in (CLEAN | extra).items():
                path = pathlib.Path(folder, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text)
            tree = Tree(folder)
            return {name for name, rule in check_house.RULES.items() if list(rule(tree))}

    def test_clean_tree_passes(self):
        self.assertEqual(self.broken_rules({}), set())

    def test_each_fault_is_found(self):
        for rule, planted in FAULTS:
            with self.subTest(rule=rule, planted=planted):
                self.assertIn(rule, self.broken_rules(planted))

    def test_every_rule_has_a_fault(self):
        self.assertEqual({rule for rule, _ in FAULTS}, set(check_house.RULES))

    def test_functions_are_found(self):
        for text, lengths in LENGTHS:
            with self.subTest(text=text):
                self.assertEqual([last - first + 1 for first, last, _ in functions_of(text)], lengths)

    def test_an_engine_may_have_a_part_for_windows(self):
        self.assertEqual(self.broken_rules({
            "edit/memory_windows.cpp": "#include <windows.h>\n",
            "edit/CMakeLists.txt": "tarrow_window(child.cpp)\nif(WIN32)\n  tarrow_engine(memory_windows.cpp)\nendif()\n"
        }), set())

    def test_a_name_spec_in_code_is_no_reference(self):
        self.assertEqual(self.broken_rules({"base/text.h": "int F(const WindowSpec& spec);\n"}), set())


if __name__ == "__main__":
    unittest.main()
