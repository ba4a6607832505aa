#include "base/ini_text.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <utility>

namespace tarrow {
namespace {

using Names = std::vector<std::string>;

TEST(IniText, ReadsAsProfilesAreRead) {
  IniText ini(
      "stray = 0\r\n"
      "[Settings]  ; the program's\r\n"
      "TabSize=4\r\n"
      "  Face = Courier New \r\n"
      "; Tab=9\r\n"
      "tabsize=5\r\n"
      "Quoted=\" x \"\r\n"
      "Single='y'\r\n"
      "Half=\"z\r\n"
      "Empty=\r\n"
      "Path=c:\\a=b;c\r\n"
      "no equals sign\r\n"
      "= no key\r\n"
      "[broken\r\n"
      "Last=1\r\n"
      "[Other]\r\n"
      "[settings]\r\n"
      "New=1");
  EXPECT_EQ(ini.Keys("SETTINGS"),
            (Names{"TabSize", "Face", "Quoted", "Single", "Half", "Empty", "Path", "Last"}));
  const struct {
    const char *key, *value;
  } values[] = {{"TABSIZE", "4"}, {"Face", "Courier New"}, {"Quoted", " x "}, {"Single", "y"},
                {"half", "\"z"},  {"Empty", ""},           {"Last", "1"},     {"Path", "c:\\a=b;c"}};
  for (auto& v : values) EXPECT_EQ(ini.Value("Settings", v.key), v.value) << v.key;
  EXPECT_EQ(ini.Value("Settings", "New"), std::nullopt);
  EXPECT_EQ(ini.Value("Settings", "stray"), std::nullopt);
  EXPECT_EQ(ini.Value("None", "TabSize"), std::nullopt);
  EXPECT_TRUE(ini.Keys("Other").empty());
  EXPECT_TRUE(ini.Keys("None").empty());
}

TEST(IniText, ChangesOnlyWhatIsSet) {
  IniText ini("; mine\n[A]\nx = 1 \ny=2\n; end\n\n[B]\nz=3");
  ini.SetValue("a", "X", "7");
  ini.SetValue("A", "new", "n");
  ini.SetValue("B", "w", "4");
  ini.SetValue("C", "c", "5");
  EXPECT_EQ(ini.Bytes(), "; mine\n[A]\nx = 7\ny=2\n; end\nnew=n\n\n[B]\nz=3\nw=4\n\n[C]\nc=5\n");
}

TEST(IniText, StartsAnEmptyFile) {
  IniText ini;
  EXPECT_EQ(ini.Bytes(), "");
  ini.SetValue("Settings", "TabSize", "8");
  EXPECT_EQ(ini.Bytes(), "[Settings]\r\nTabSize=8\r\n");
}

TEST(IniText, RemovingASectionKeepsCommentsAndItsPlace) {
  IniText ini("[S]\r\na=1\r\n; note\r\nb=2\r\n\r\n[T]\r\nc=3\r\n[S]\r\na=9\r\n[U]\r\n");
  ini.RemoveSection("T");
  ini.RemoveSection("s");
  EXPECT_EQ(ini.Bytes(), "[S]\r\n; note\r\n\r\n[U]\r\n");
  EXPECT_EQ(ini.Value("S", "a"), std::nullopt);
  ini.SetValue("T", "d", "4");
  ini.SetValue("S", "e", "5");
  EXPECT_EQ(ini.Bytes(), "[S]\r\n; note\r\ne=5\r\n\r\n[T]\r\nd=4\r\n[U]\r\n");
}

TEST(IniText, RemovingAKeyTakesEveryLineOfThatName) {
  IniText ini("[S]\na=1\nb=2\nA=3\nc=4\n");
  ini.RemoveKey("S", "a");
  ini.RemoveKey("S", "none");
  ini.RemoveKey("None", "a");
  EXPECT_EQ(ini.Bytes(), "[S]\nb=2\nc=4\n");
  EXPECT_EQ(ini.Value("S", "c"), "4");
}

TEST(IniText, AnyValueReadsBack) {
  for (const char* value :
       {"", " ", "x ", "\tx", "\"", "\"\"", "\"a\" \"b\"", "'a'", "\"half", ";x", "[x]", "=", "\xC3\xA4"}) {
    IniText ini;
    ini.SetValue("S", "k", value);
    EXPECT_EQ(IniText(ini.Bytes()).Value("S", "k"), value) << value;
  }
  IniText ini;
  ini.SetValue("S", "k", "two\r\nlines");
  EXPECT_EQ(IniText(ini.Bytes()).Value("S", "k"), "two  lines");
}

TEST(IniText, KeyThatNoLineCanHoldIsLeftOut) {
  IniText ini;
  for (const char* key : {"", " a", "a ", "a=b", ";a", "[a", "a\nb"}) ini.SetValue("S", key, "1");
  EXPECT_EQ(ini.Bytes(), "");
}

TEST(IniText, Utf16AndMarksComeBack) {
  using namespace std::string_literals;
  std::string wide = "\xFF\xFE["s + '\0' + "S\0]\0\n\0k\0=\0\xE4\0\n\0"s;
  IniText ini(wide);
  EXPECT_EQ(ini.Value("S", "k"), "\xC3\xA4");
  EXPECT_EQ(ini.Bytes(), wide);
  ini.SetValue("S", "k", "\xE2\x82\xAC");
  EXPECT_EQ(ini.Bytes(), "\xFF\xFE["s + '\0' + "S\0]\0\n\0k\0=\0\xAC\x20\n\0"s);

  IniText marked("\xEF\xBB\xBF[S]\nk=1\n");
  EXPECT_EQ(marked.Value("S", "k"), "1");
  EXPECT_EQ(marked.Bytes(), "\xEF\xBB\xBF[S]\nk=1\n");

  IniText odd("\xFF\xFEodd"s);
  EXPECT_EQ(odd.Bytes(), "\xFF\xFEodd"s);
  odd.SetValue("S", "k", "v");
  EXPECT_EQ(IniText(odd.Bytes()).Value("S", "k"), "v");
}

TEST(IniText, AnyBytesComeBack) {
  std::mt19937 random(7);
  constexpr std::string_view alphabet("[]=;\"'ab \t\r\n\0\xFF\x80", 15);
  for (int round = 0; round < 5000; ++round) {
    std::string bytes;
    for (auto n = random() % 60; n > 0; --n) bytes += alphabet[random() % alphabet.size()];
    IniText ini(bytes);
    ASSERT_EQ(ini.Bytes(), bytes);
    for (const std::string& key : ini.Keys("a")) ASSERT_TRUE(ini.Value("a", key)) << bytes;
    ini.SetValue("a", "b", "value");
    ini.SetValue("c", "d", "other");
    IniText again(ini.Bytes());
    ASSERT_EQ(again.Value("a", "b"), "value") << bytes;
    ASSERT_EQ(again.Value("c", "d"), "other") << bytes;
    ini.RemoveSection("a");
    ASSERT_TRUE(IniText(ini.Bytes()).Keys("a").empty()) << bytes;
  }
}

// Random changes against a plain map, read back from the bytes after each: what was not changed is still
// there.
TEST(IniText, AgreesWithAMapUnderRandomChanges) {
  std::mt19937 random(3);
  for (int round = 0; round < 100; ++round) {
    std::map<std::pair<std::string, std::string>, std::string> model;
    std::string bytes = round % 2 ? "; head\n\n[s1]\n;c\n\n[s9]\nother=1" : "";
    for (int step = 0; step < 60; ++step) {
      IniText ini(bytes);
      std::string section = "s" + std::to_string(random() % 3), key = "k" + std::to_string(random() % 5);
      switch (random() % 8) {
        case 0:
          ini.RemoveSection(section);
          std::erase_if(model, [&](auto& entry) { return entry.first.first == section; });
          break;
        case 1:
          ini.RemoveKey(section, key);
          model.erase({section, key});
          break;
        default:
          model[{section, key}] = std::string(random() % 4, "a\" ="[random() % 4]);
          ini.SetValue(section, key, model[{section, key}]);
      }
      bytes = ini.Bytes();
      IniText again(bytes);
      std::size_t count = 0;
      for (const char* name : {"s0", "s1", "s2"}) count += again.Keys(name).size();
      ASSERT_EQ(count, model.size()) << bytes;
      for (auto& [name, value] : model) ASSERT_EQ(again.Value(name.first, name.second), value) << bytes;
      if (round % 2) {
        ASSERT_EQ(again.Value("s9", "other"), "1") << bytes;
        ASSERT_EQ(bytes.find("; head\n"), 0u);
        ASSERT_NE(bytes.find(";c\n"), std::string::npos) << bytes;
      }
    }
  }
}

TEST(IniText, TenThousandKeysAndTenMegabytes) {
  IniText ini;
  for (int i = 0; i < 10000; ++i) ini.SetValue("S", "key" + std::to_string(i), std::string(1000, 'v'));
  IniText again(ini.Bytes());
  EXPECT_EQ(again.Keys("S").size(), 10000u);
  EXPECT_EQ(again.Value("S", "key9999"), std::string(1000, 'v'));
  again.RemoveSection("S");
  EXPECT_EQ(again.Bytes(), "");
}

}  // namespace
}  // namespace tarrow
