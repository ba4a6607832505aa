#include "tools/file_manager/recycle_bin.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(RecycleBin, OnlyDrivesThatStayAndTellOfOneHaveIt) {
  struct Case {
    DriveFacts drive;
    bool hasBin;
  };
  constexpr Case kCases[] = {
      {{DriveKind::kFixed, true}, true},      {{DriveKind::kFixed, false}, false},
      {{DriveKind::kRemote, true}, false},    {{DriveKind::kRemote, false}, false},
      {{DriveKind::kOther, true}, false},     {{}, false},
      {{DriveKind::kRemovable, true}, false},
  };
  for (const Case& c : kCases)
    EXPECT_EQ(HasRecycleBin(c.drive), c.hasBin) << static_cast<int>(c.drive.kind) << c.drive.tellsOfBin;
}

}  // namespace
}  // namespace tarrow
