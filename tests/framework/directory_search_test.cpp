#include "framework/directory_search.h"

#include "base/exceptions.h"
#include "framework/unicode.h"
#include "tests/framework/scratch_directory.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>

namespace tarrow {
namespace {

constexpr int kFiles = 600;  // more than two batches

struct Impatient final : Progress {
  void Poll() override { throw CYieldException(); }
};
struct Patient final : Progress {
  void Poll() override {}
};

class DirectorySearchTest : public testing::Test {
 protected:
  DirectorySearchTest() : pattern_(ToWide(scratch_ / "*.c")) {
    for (int i = 0; i < kFiles; ++i) scratch_.Make("F" + std::to_string(i) + ".c", std::string(i % 7, 'x'));
    scratch_.Make("other.h", "");
  }

  ScratchDirectory scratch_;
  const std::wstring pattern_;
};

TEST_F(DirectorySearchTest, FindsTheSameOnAThreadOfItsOwn) {
  using Sizes = std::map<std::string, std::uint64_t>;
  Sizes plain, watched, expected;
  Patient progress;
  for (int i = 0; i < kFiles; ++i) expected["F" + std::to_string(i) + ".c"] = static_cast<unsigned>(i % 7);
  SearchDirectory(pattern_, [&](DirectoryEntry&& entry) { plain[entry.name] = entry.size; });
  SearchDirectory(pattern_, progress, [&](DirectoryEntry&& entry) { watched[entry.name] = entry.size; });
  EXPECT_EQ(plain, expected);
  EXPECT_EQ(watched, expected);
}

TEST_F(DirectorySearchTest, FindsNothingWhereNothingIs) {
  Patient progress;
  for (const std::wstring& pattern :
       {std::wstring(), ToWide(scratch_ / "*.x"), ToWide(scratch_ / "no\\*.*")}) {
    auto fail = [](DirectoryEntry&& entry) { ADD_FAILURE() << entry.name; };
    SearchDirectory(pattern, fail);
    SearchDirectory(pattern, progress, fail);
  }
}

TEST_F(DirectorySearchTest, WhatTheUseThrowsComesOut) {
  Patient progress;
  int used = 0;
  auto use = [&](DirectoryEntry&&) {
    if (++used == 300) throw CYieldException();
  };
  EXPECT_THROW(SearchDirectory(pattern_, progress, use), CYieldException);
  EXPECT_EQ(used, 300);
}

TEST_F(DirectorySearchTest, AsksTheProgress) {
  Impatient progress;
  auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  EXPECT_THROW(while (std::chrono::steady_clock::now() < limit)
                   SearchDirectory(pattern_, progress, [](DirectoryEntry&&) {}),
               CYieldException);
}

}  // namespace
}  // namespace tarrow
