#include "shell/state/profile_store.h"

#include "base/utf16.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

std::vector<std::string> Sections() {
  return SplitBarList("Settings|Session|Project|Key Bindings|");
}

TEST(ProfileStore, SectionsByNumber) {
  EXPECT_EQ(Sections(), (std::vector<std::string>{"Settings", "Session", "Project", "Key Bindings"}));
  EXPECT_TRUE(SplitBarList("").empty());
  EXPECT_EQ(SplitBarList("|x|").size(), 2u);
}

TEST(ProfileStore, NumbersInTheirBase) {
  CProfileStore store(Sections());
  const struct {
    const char* text;
    int base;
    std::uint32_t number;
  } cases[] = {{"1001000000", 2, 0x240},
               {"12", 2, 1},
               {"2", 2, 0},
               {"", 10, 0},
               {"  8x", 10, 8},
               {"-3", 10, 0},
               {"+3", 10, 0},
               {"4294967295", 10, 0xFFFFFFFF},
               {"4294967296", 10, 0xFFFFFFFF}};
  for (auto& c : cases) {
    store.WriteString(0, "n", c.text);
    EXPECT_EQ(store.ReadNumber(0, "n", c.base), c.number) << c.text;
  }
  EXPECT_EQ(store.ReadNumber(0, "none", 10), std::nullopt);
  std::string text;
  store.WriteNumber(0, "flags", 0xC00, 2);
  EXPECT_TRUE(store.ReadString(0, "FLAGS", text));
  EXPECT_EQ(text, "110000000000");
  store.WriteNumber(0, "flags", 0xFFFFFFFF, 2);
  EXPECT_EQ(store.ReadNumber(0, "flags", 2), 0xFFFFFFFF);
}

TEST(ProfileStore, RemovingTouchesTheStoreAlone) {
  IniText file("[Settings]\r\na=1\r\nb=2\r\n[Session]\r\nc=3\r\n");
  CProfileStore store(Sections());
  store.Load(file);
  std::string text = "before";
  store.RemoveKey(0, "A");
  EXPECT_FALSE(store.ReadString(0, "a", text));
  EXPECT_EQ(text, "");
  store.RemoveSection(1);
  EXPECT_TRUE(store.Keys(1).empty());
  std::string before = file.Bytes();
  store.Save(file);
  EXPECT_EQ(file.Bytes(), before);
  EXPECT_EQ(store.Keys(0), std::vector<std::string>{"b"});
  store.Clear();
  EXPECT_TRUE(store.Keys(0).empty());
  EXPECT_TRUE(store.ReadNumber(0, "b", 10) == std::nullopt);
}

TEST(ProfileStore, LaterFileReplacesEarlierValues) {
  CProfileStore store(Sections());
  store.Load(IniText("[Settings]\nTabSize=4\nOnly=1\n[Unknown]\nx=1\n"));
  store.Load(IniText("[settings]\ntabsize=6\n"));
  EXPECT_EQ(store.ReadNumber(0, "TabSize", 10), 6u);
  EXPECT_EQ(store.ReadNumber(0, "Only", 10), 1u);
}

TEST(ProfileStore, NothingChangedLeavesTheFileAsItWas) {
  // Written by hand: odd blanks, quotes, comments, values in the code page, sections of others.
  std::string bytes =
      "; head\r\n[Settings]\r\n TabSize = 4 "
      "\r\nFace=\"Courier\"\r\nDir=c:\\\xE4\r\n\r\n;x\r\n[Theirs]\r\nq\r\n";
  IniText file(bytes);
  CProfileStore store(Sections(), [](std::string_view ansi) {
    std::string utf8;
    for (char c : ansi) AppendUtf8(utf8, static_cast<unsigned char>(c));
    return utf8;
  });
  store.Load(file);
  std::string text;
  EXPECT_TRUE(store.ReadString(0, "Dir", text));
  EXPECT_EQ(text, "c:\\\xC3\xA4");
  store.Save(file);
  EXPECT_EQ(file.Bytes(), bytes);
}

TEST(ProfileStore, TenThousandKeys) {
  CProfileStore store(Sections());
  for (int i = 0; i < 10000; ++i)
    store.WriteNumber(3, "key" + std::to_string(i), static_cast<unsigned>(i), 10);
  IniText file;
  store.Save(file);
  CProfileStore again(Sections());
  again.Load(IniText(file.Bytes()));
  EXPECT_EQ(again.Keys(3).size(), 10000u);
  EXPECT_EQ(again.ReadNumber(3, "key9876", 10), 9876u);
}

}  // namespace
}  // namespace tarrow
