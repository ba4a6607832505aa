#include "project/help/help_request.h"

#include "project/help/keywords.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

std::string Word(std::string_view text, std::int32_t caret) {
  return WordForHelp(text, BytePos(caret), Charset());
}

TEST(WordForHelp, IsTheOneThatTheCaretTouches) {
  struct {
    const char* text;
    int caret;
    const char* word;
  } const kRows[] = {
      {"while (x)", 0, "while"},
      {"while (x)", 3, "while"},
      {"while (x)", 5, "while"},
      {"while (x)", 6, ""},
      {"while (x)", 7, "x"},
      {"while (x)", 8, "x"},
      {"while (x)", 9, ""},
      {"#pragma once", 4, "#pragma"},
      {"#pragma once", 0, "#pragma"},
      {"#pragma once", 7, "#pragma"},
      {"a #if", 2, "#if"},
      {"# if", 0, ""},
      {"# if", 2, "if"},
      {"##if", 0, ""},
      {"", 0, ""},
      {"x", 1, "x"},
      {"a#b", 1, "a"},
      {"a#b", 2, "#b"},
      {"f\303\274r", 1, "f\303\274r"},
      {"a\r\nb", 3, "b"},
      {"a\r\nb", 1, "a"},
  };
  for (auto& row : kRows) EXPECT_EQ(row.word, Word(row.text, row.caret)) << row.text << " " << row.caret;
}

TEST(WordForHelp, IsCutToSixtyThreeCharacters) {
  EXPECT_EQ(std::string(63, 'a'), Word(std::string(64, 'a'), 64));
  EXPECT_EQ("#" + std::string(62, 'a'), Word("#" + std::string(64, 'a'), 9));
  std::string wide, expected;
  for (int i = 0; i < 70; ++i) wide += "\303\244";
  EXPECT_EQ(wide.substr(0, 126), Word(wide, 0));
}

// In a text of the system's code page, the word is told in UTF-8 all the same.
TEST(WordForHelp, ComesInUtf8) {
  EXPECT_EQ("gr\303\274n", WordForHelp(std::string_view("gr\374n"), BytePos(2), Charset(WesternCodePage())));
}

TEST(Keywords, AreFoundEachAndNoOther) {
  for (std::string_view word : Keywords()) {
    EXPECT_TRUE(IsKeyword(word)) << word;
    EXPECT_FALSE(IsKeyword(std::string(word) + "_")) << word;
    EXPECT_EQ(HelpMode::kEnvironment, HelpModeFor(HelpMode::kChoose, word));
    EXPECT_EQ(HelpMode::kSdk, HelpModeFor(HelpMode::kSdk, word));
  }
  for (const char* word : {"", "While", "pragma", "CreateWindow", "_set_new_handle", "whil", "a", "~"})
    EXPECT_EQ(HelpMode::kSdk, HelpModeFor(HelpMode::kChoose, word)) << word;
}

TEST(HelpRequest, IsTakenFromTheOption) {
  struct {
    const char* value;
    const char* expected;
  } const kRows[] = {
      {"$api32wh.hlp", "$api32wh.hlp|"},
      {"$", "$|"},
      {"", "|"},
      {"upshot", "upshot|"},
      {"prog /k %s", "prog|/k word"},
      {"prog %s%s", "prog|word%s"},
      {"prog 100%% %d %n %5s %", "prog|100% %d %n %5s %"},
      {"prog %%s", "prog|%s"},
      {"prog  -x", "prog| -x"},
      {"\"C:\\My Tools\\h.exe\" -f \"%s\"", "C:\\My Tools\\h.exe|-f \"word\""},
      {" prog %s", "prog|word"},
  };
  for (auto& row : kRows) {
    WordHelpRequest request = MakeWordHelpRequest(row.value, "word");
    EXPECT_EQ(row.expected, (request.isHelpFile ? "$" : "") + request.name + "|" + request.parameters);
  }
}

TEST(HelpRequest, HasNoParametersForALongWord) {
  EXPECT_EQ("/k " + std::string(48, 'w'), MakeWordHelpRequest("prog /k %s", std::string(48, 'w')).parameters);
  WordHelpRequest request = MakeWordHelpRequest("prog /k %s", std::string(49, 'w'));
  EXPECT_EQ("prog", request.name);
  EXPECT_EQ("", request.parameters);
}

}  // namespace
}  // namespace tarrow
