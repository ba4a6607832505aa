"""The files of the project as the rules see them."""

import functools
import pathlib
import subprocess

# The floors of the house, from the ground up. What stands on one floor may use the floors below it.
GROUND = ["base", "framework"]
SHARED_ROOMS = ["edit", "ui"]
ROOMS = ["search", "tools", "viewer", "project", "print"]
TOP = ["shell", "console", "wrapper"]
PROGRAM = GROUND + SHARED_ROOMS + ROOMS + TOP

# The floors within a folder, from the ground up; what stands on one floor side by side does not know one
# another. What stands in the folder itself is above them all.
INNER_FLOORS = {
    "edit": [["text"], ["lexers"], ["files", "commands", "control"], ["recovery"], ["documents"]],
    "ui": [["commands"], ["program"], ["settings", "bars", "selector"]],
    "search": [["pattern"], ["find", "files"]],
    "tools": [["file_lists"], ["comparison", "extraction", "file_manager"]],
    "viewer": [["records"], ["views"]],
    "project": [["options"], ["commands", "help"]],
    "shell": [["state"], ["frame"], ["commands"]],
}

# What may stand in the root: a note to oneself may not.
ROOT_FILES = {".clang-format", ".clang-tidy", ".editorconfig", ".gitignore", "ARCHITECTURE.md", "CHANGES.md",
              "CMakeLists.txt", "CMakePresets.json", "LICENSE", "README.md", "bench", "run", "test"}
ROOT_FOLDERS = {*PROGRAM, ".ci", "benchmarks", "cmake", "doc", "fuzz", "help", "resources", "scripts", "tests"}


class Tree:
    """The files under a root: those that git knows or would add, or all where there is no git."""

    def __init__(self, root):
        self.root = pathlib.Path(root).resolve()

    @functools.cached_property
    def files(self):
        listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard"],
                                cwd=self.root, capture_output=True, text=True)
        if listed.returncode == 0:
            names = listed.stdout.splitlines()
        else:
            names = [str(path.relative_to(self.root)) for path in self.root.rglob("*")]
        return sorted(name for name in names if (self.root / name).is_file())

    @functools.cached_property
    def sources(self):
        """C++ files, by their names from the root."""
        return [name for name in self.files if name.endswith((".h", ".cpp", ".inc"))]

    @functools.cache
    def text(self, name):
        return (self.root / name).read_text(encoding="utf-8", errors="replace")

    def lines(self, name):
        return self.text(name).splitlines()


def folder_of(name):
    return name.split("/")[0]


def subfolder_of(name):
    """The subfolder that a file stands in, or "" when it stands in its folder itself."""
    parts = name.split("/")
    return parts[1] if len(parts) > 2 else ""
