#include "project/options/option_list.h"

#include "project/options/options.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

class Numbered final : public ProjectOptions {
 public:
  std::string Option(ProjectOption option) const override { return "a=" + std::to_string(option); }
};

TEST(OptionList, HasALineForEveryOptionInOrder) {
  std::vector<OptionLine> lines = ListOptions(Numbered());
  ASSERT_EQ(28u, lines.size());
  EXPECT_EQ("Compiler=a=0", lines.front().Text());
  EXPECT_EQ("HelpEnv=a=27", lines.back().Text());
  for (std::size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(i, FindOptionLine(lines, lines[i].name));
  EXPECT_FALSE(FindOptionLine(lines, "compiler"));
  EXPECT_FALSE(FindOptionLine(lines, ""));
}

TEST(OptionList, PartsALineAtItsFirstEqualsSign) {
  OptionLine line = SplitOptionLine("BuildDebug=DEBUG=1");
  EXPECT_EQ("BuildDebug", line.name);
  EXPECT_EQ("DEBUG=1", line.value);
  EXPECT_EQ("", SplitOptionLine("RC=").value);
  EXPECT_EQ("RC", SplitOptionLine("RC").name);
}

}  // namespace
}  // namespace tarrow
