#include "framework/file.h"

#include "base/exceptions.h"
#include "tests/framework/scratch_directory.h"

#include <gtest/gtest.h>

#include <utility>

namespace tarrow {
namespace {

using Mode = CFile::Mode;
using Share = CFile::Share;

// The cause for which `operation` throws; a failure when it does not.
template <typename Operation>
FileCause CauseOf(Operation operation) {
  try {
    operation();
  } catch (const CFileException& e) {
    return e.Cause();
  }
  ADD_FAILURE() << "nothing was thrown";
  return FileCause::kGeneric;
}

TEST(File, WritesAndReadsAtAnyPosition) {
  ScratchDirectory scratch;
  std::string path = scratch.Make("Some Name.txt", "hello");
  CFile file(path, Mode::kUpdate, Share::kNothing);
  EXPECT_EQ(file.Size(), 5u);
  constexpr std::uint64_t kBeyond32Bits = (1ull << 32) + 3;
  file.Seek(kBeyond32Bits);
  char buffer[8];
  EXPECT_EQ(file.Read(buffer), 0u);
  file.Seek(2);
  EXPECT_EQ(std::string_view(buffer, file.Read(buffer)), "llo");
  file.Seek(1);
  file.Write("EL");
  file.Seek(4);
  file.Truncate();
  file.Flush();
  file.Close();
  EXPECT_FALSE(file.IsOpen());
  EXPECT_EQ(ReadWholeFile(path), "hELl");
}

TEST(File, NamesTheCauseOfAFailure) {
  ScratchDirectory scratch;
  std::string path = scratch.Make("a.txt", "x");
  auto open = [](std::string name, Mode mode) { return [=] { CFile(name, mode, Share::kRead); }; };
  EXPECT_EQ(CauseOf(open(scratch / "none.txt", Mode::kRead)), FileCause::kFileNotFound);
  EXPECT_EQ(CauseOf(open(scratch / "none\\x.txt", Mode::kRead)), FileCause::kBadPath);
  EXPECT_EQ(CauseOf(open(scratch / "a?b", Mode::kCreate)), FileCause::kBadPath);
  EXPECT_EQ(CauseOf(open("", Mode::kRead)), FileCause::kBadPath);
  EXPECT_EQ(CauseOf(open(std::string(260, 'a'), Mode::kRead)), FileCause::kBadPath);
  EXPECT_EQ(CauseOf(open(std::string("a\0b", 3), Mode::kRead)), FileCause::kBadPath);
  EXPECT_EQ(CauseOf(open(scratch.Path(), Mode::kRead)), FileCause::kAccessDenied);
  EXPECT_EQ(CauseOf(open(path, Mode::kCreateNew)), FileCause::kAccessDenied);
  CFile reader(path, Mode::kRead, Share::kRead);
  EXPECT_EQ(CauseOf(open(path, Mode::kUpdate)), FileCause::kSharingViolation);
  EXPECT_EQ(CauseOf([&] { reader.Write("y"); }), FileCause::kAccessDenied);
}

TEST(File, ErrorCarriesTheName) {
  try {
    CFile("c:\\no such\\Name", Mode::kRead, Share::kRead);
    FAIL();
  } catch (const CFileException& e) {
    EXPECT_EQ(e.Path(), "c:\\no such\\Name");
  }
}

TEST(File, MovesAndOpensNamesOutsideTheCodePage) {
  ScratchDirectory scratch;
  std::string path = scratch.Make("\xE6\x96\x87 \xD0\xA9 \xF0\x9F\x98\x80.c", "text");
  EXPECT_EQ(ReadWholeFile(path), "text");
  CFile a(path, Mode::kRead, Share::kRead);
  CFile b = std::move(a);
  EXPECT_FALSE(a.IsOpen());
  a = std::move(b);
  EXPECT_EQ(a.Size(), 4u);
  EXPECT_EQ(a.Path(), path);
}

TEST(File, DeviceHasNoSize) {
  CFile device("NUL", Mode::kUpdate, Share::kReadWrite);
  EXPECT_EQ(CauseOf([&] { (void)device.Size(); }), FileCause::kBadPath);
  device.Write("gone");
  device.Flush();
}

}  // namespace
}  // namespace tarrow
