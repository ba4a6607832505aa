#include "console/options.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

constexpr Option kOptions[] = {
    {'a', "all", "", "everything"},
    {'b', "both", "", "two"},
    {'n', "number", "COUNT", "so many"},
};

struct Parsed {
  std::string letters;
  std::string number;
  std::vector<std::string> operands;
  friend bool operator==(const Parsed&, const Parsed&) = default;
};

Parsed Parse(const std::vector<std::string>& words) {
  Arguments arguments(kOptions, words);
  Parsed parsed;
  for (char letter : {'a', 'b', 'h'})
    if (arguments.Has(letter)) parsed.letters += letter;
  parsed.number = arguments.Value('n', "none");
  parsed.operands = arguments.Operands();
  return parsed;
}

TEST(Options, AreReadInEveryForm) {
  EXPECT_EQ(Parse({}), (Parsed{"", "none", {}}));
  EXPECT_EQ(Parse({"-ab", "x", "-"}), (Parsed{"ab", "none", {"x", "-"}}));
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"-a", "-n", "7", "x"},
                                             {"x", "-an7"},
                                             {"--all", "--number", "7", "x"},
                                             {"--number=7", "x", "--all"}})
    EXPECT_EQ(Parse(words), (Parsed{"a", "7", {"x"}}));
  EXPECT_EQ(Parse({"--", "-a", "--"}), (Parsed{"", "none", {"-a", "--"}}));
  EXPECT_EQ(Parse({"-n", "-a"}), (Parsed{"", "-a", {}}));
  EXPECT_EQ(Parse({"--number="}), (Parsed{"", "", {}}));
  EXPECT_EQ(Parse({"--help"}), (Parsed{"h", "none", {}}));
}

TEST(Options, RefuseWhatTheTableDoesNotHold) {
  for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
           {"-x"}, {"-ax"}, {"--xyz"}, {"--al"}, {"--all=1"}, {"-n"}, {"--number"}})
    EXPECT_THROW(Parse(words), UsageError) << words[0];
}

TEST(Options, BoundNumbers) {
  auto number = [](const char* text, int base = 10) {
    std::vector<std::string> words{"-n", text};
    return Arguments(kOptions, words).Number('n', 0, 1, 255, base);
  };
  EXPECT_EQ(number("255"), 255u);
  EXPECT_EQ(number("fF", 16), 255u);
  for (const char* text : {"0", "256", "-1", "1x", "", " 1", "99999999999999999999999"})
    EXPECT_THROW(number(text), UsageError) << text;
}

TEST(Options, HaveARowOfHelpEach) {
  std::string help = HelpOnOptions(kOptions);
  for (const char* row : {"  -a, --all  ", "  -n, --number COUNT  ", "so many\n", "  -h, --help  "})
    EXPECT_NE(help.find(row), std::string::npos) << row;
}

}  // namespace
}  // namespace tarrow
