#include "project/commands/tool_output.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarrow {
namespace {

// The upper half of the Western console's page, 850.
constexpr std::u16string_view kUpper850 =
    u"\u00c7\u00fc\u00e9\u00e2\u00e4\u00e0\u00e5\u00e7\u00ea\u00eb\u00e8\u00ef\u00ee\u00ec\u00c4\u00c5"
    u"\u00c9\u00e6\u00c6\u00f4\u00f6\u00f2\u00fb\u00f9\u00ff\u00d6\u00dc\u00f8\u00a3\u00d8\u00d7\u0192"
    u"\u00e1\u00ed\u00f3\u00fa\u00f1\u00d1\u00aa\u00ba\u00bf\u00ae\u00ac\u00bd\u00bc\u00a1\u00ab\u00bb"
    u"\u2591\u2592\u2593\u2502\u2524\u00c1\u00c2\u00c0\u00a9\u2563\u2551\u2557\u255d\u00a2\u00a5\u2510"
    u"\u2514\u2534\u252c\u251c\u2500\u253c\u00e3\u00c3\u255a\u2554\u2569\u2566\u2560\u2550\u256c\u00a4"
    u"\u00f0\u00d0\u00ca\u00cb\u00c8\u0131\u00cd\u00ce\u00cf\u2518\u250c\u2588\u2584\u00a6\u00cc\u2580"
    u"\u00d3\u00df\u00d4\u00d2\u00f5\u00d5\u00b5\u00fe\u00de\u00da\u00db\u00d9\u00fd\u00dd\u00af\u00b4"
    u"\u00ad\u00b1\u2017\u00be\u00b6\u00a7\u00f7\u00b8\u00b0\u00a8\u00b7\u00b9\u00b3\u00b2\u25a0\u00a0";

CodePage Page850() {
  CodePage page;
  for (std::size_t byte = 0; byte < 256; ++byte)
    page.single[byte] = byte < 0x80 ? static_cast<char16_t>(byte) : kUpper850[byte - 0x80];
  return page;
}

std::string Encoded(std::u16string_view text, const CodePage& page) {
  std::string bytes;
  for (char16_t c : text) bytes += static_cast<char>(std::ranges::find(page.single, c) - page.single.begin());
  return bytes;
}

constexpr std::u16string_view kMessages[] = {
    u"a.c(3): Die Datei \u00bb\u00e4.h\u00ab konnte nicht ge\u00f6ffnet werden\r\n",
    u"a.c(3): Pr\u00e9processeur d\u00e9sactiv\u00e9\r\n",
    u"a.c(3): El s\u00edmbolo no est\u00e1 declarado en esta funci\u00f3n\r\n",
    u"f\u00fcr Gr\u00fc\u00dfe\r\n",
};

TEST(ToolOutput, TellsTheConsolesPageFromAnsi) {
  const CodePage oem = Page850(), &ansi = WesternCodePage();
  for (std::u16string_view message : kMessages) {
    SCOPED_TRACE(Utf16ToUtf8(message));
    EXPECT_EQ(OutputCharset::kOem, TellOutputCharset(Encoded(message, oem), ansi, oem));
    EXPECT_EQ(OutputCharset::kAnsi, TellOutputCharset(Encoded(message, ansi), ansi, oem));
    EXPECT_EQ(OutputCharset::kUtf8, TellOutputCharset(Utf16ToUtf8(message), ansi, oem));
  }
}

TEST(ToolOutput, KnowsDrawingsAndQuotes) {
  const CodePage oem = Page850(), &ansi = WesternCodePage();
  std::string tree = Encoded(u"\u251c\u2500\u2500\u2500src\r\n\u2502   \u2514\u2500\u2500\u2500lib\r\n", oem);
  EXPECT_EQ(OutputCharset::kOem, TellOutputCharset(tree, ansi, oem));
  std::string quoted = Encoded(u"a.c:3:5: error: \u2018foo\u2019 undeclared\r\n", ansi);
  EXPECT_EQ(OutputCharset::kAnsi, TellOutputCharset(quoted, ansi, oem));
  EXPECT_EQ(OutputCharset::kOem, TellOutputCharset("\xB1", ansi, oem));
  EXPECT_EQ(OutputCharset::kUtf8, TellOutputCharset("", ansi, oem));
  EXPECT_EQ(OutputCharset::kAnsi, TellOutputCharset("\xFF", ansi, ansi));
}

TEST(ToolOutput, BecomesText) {
  const CodePage oem = Page850(), &ansi = WesternCodePage();
  EXPECT_EQ("a\r\nb\r\nc", ToolOutputText("a\nb\r\nc", ansi, oem));
  EXPECT_EQ("\r\n\r\n", ToolOutputText("\n\n", ansi, oem));
  EXPECT_EQ("a\rb", ToolOutputText("a\rb", ansi, oem));
  EXPECT_EQ("ge\303\266ffnet\r\n", ToolOutputText("ge\x94"
                                                  "ffnet\n",
                                                  ansi, oem));
  EXPECT_EQ(
      "ge\xF6"
      "ffnet\r\n",
      ToolOutputText("ge\xF6"
                     "ffnet\n",
                     ansi, oem));
  EXPECT_EQ(std::string("a\0b", 3), ToolOutputText(std::string("a\0b", 3), ansi, oem));
}

}  // namespace
}  // namespace tarrow
