#include "edit/text/charset.h"

#include "tests/edit/text/text_model.h"

#include <array>

namespace tarrow {
namespace {

// A page of pairs: lead bytes 0x81 to 0xFE, a pair is the character of its two bytes as a number.
const CodePage& PairPage() {
  static const CodePage page = [] {
    CodePage p = WesternCodePage();
    for (std::size_t lead = 0x81; lead < 0xFF; ++lead) p.isLead[lead] = true;
    p.decodePair = [](unsigned char lead, unsigned char trail) {
      return static_cast<char16_t>(lead << 8 | trail);
    };
    return p;
  }();
  return page;
}

// The characters of a text as lengths in bytes, walked forwards.
std::string Lengths(const Charset& charset, const TextView& text) {
  std::string lengths;
  for (BytePos at(0); at < text.End();) {
    BytePos next = charset.Next(text, at);
    lengths += static_cast<char>('0' + (next - at));
    at = next;
  }
  return lengths;
}

TEST(Charset, ValidUtf8IsUtf8AndAnythingElseIsNot) {
  const std::pair<const char*, bool> kCases[] = {
      {"", true},
      {"plain", true},
      {"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", true},
      {"\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF", true},  // around the surrogates, the last code
      {"caf\xE9", false},                                  // Latin-1
      {"\xC3", false},                                     // cut off
      {"\xE2\x82", false},
      {"\xF0\x9F\x98", false},
      {"\x80", false},              // a continuation by itself
      {"\xC0\x80", false},          // overlong
      {"\xE0\x9F\xBF", false},      // overlong
      {"\xF0\x8F\xBF\xBF", false},  // overlong
      {"\xED\xA0\x80", false},      // a surrogate
      {"\xF4\x90\x80\x80", false},  // beyond the last code
      {"\xF5\x80\x80\x80", false},
      {"\xC3\xA9 and then \xFF", false},
  };
  for (const auto& [bytes, isUtf8] : kCases) {
    std::string padded = std::string(40, 'x') + bytes;
    EXPECT_EQ(Charset::Of(TextView(padded)).IsUtf8(), isUtf8) << bytes;
    // Wherever the gap cuts the text in two.
    for (std::size_t cut = 38; cut <= padded.size(); ++cut) {
      std::string_view whole = padded;
      EXPECT_EQ(Charset::Of({whole.substr(0, cut), whole.substr(cut)}).IsUtf8(), isUtf8) << bytes << cut;
    }
  }
}

TEST(Charset, StepsOverWholeCharactersAndLineEnds) {
  const Charset kUtf8, kWestern(WesternCodePage()), kPairs(PairPage());
  EXPECT_EQ(Lengths(kUtf8, TextView("a\xC3\xA9\xE2\x82\xAC\r\n\xF0\x9F\x98\x80\r\n")),
            "12324"
            "2");
  EXPECT_EQ(Lengths(kUtf8, TextView("\r\r\n\n\xC3(\x80\x80\xE2\x82")),
            "1211111"
            "11");
  EXPECT_EQ(Lengths(kWestern, TextView("a\xC3\xA9\r\n")), "1112");
  EXPECT_EQ(Lengths(kPairs, TextView("a\x81\x81\x81\x40z\x81\r\n\x90")),
            "122112"
            "1");
}

// Snap and Previous agree with walking forwards from the beginning, for any bytes and any place of the gap.
TEST(Charset, SnapsToWhereWalkingForwardsStops) {
  std::mt19937 random(9);
  static const std::string kBytes = "a\r\n\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xFF\x81@";
  for (const Charset& charset : {Charset(), Charset(WesternCodePage()), Charset(PairPage())}) {
    for (int round = 0; round < 3000; ++round) {
      std::string bytes(random() % 12, ' ');
      for (char& c : bytes) c = kBytes[random() % kBytes.size()];
      std::string_view whole = bytes;
      std::size_t cut = random() % (bytes.size() + 1);
      TextView text(whole.substr(0, cut), whole.substr(cut));
      BytePos start(0);
      while (start < text.End()) {
        BytePos next = charset.Next(text, start);
        ASSERT_GT(next, start);
        for (BytePos at = start; at < next; ++at) ASSERT_EQ(charset.Snap(text, at), start) << bytes;
        ASSERT_EQ(charset.Previous(text, next), start) << bytes;
        start = next;
      }
      ASSERT_EQ(charset.Snap(text, text.End()), text.End());
    }
  }
}

TEST(Charset, ConvertsToUtf16AndBack) {
  const Charset kUtf8, kWestern(WesternCodePage()), kPairs(PairPage());
  std::string utf8 = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80";
  EXPECT_EQ(kUtf8.ToWide(TextView(utf8)), u"a\u00E9\u20AC\U0001F600");
  EXPECT_EQ(kUtf8.FromWide(u"a\u00E9\u20AC\U0001F600"), utf8);
  EXPECT_EQ(kUtf8.ToWide(TextView("\xFFz\xE2\x82")), u"\uFFFDz\uFFFD\uFFFD");
  EXPECT_EQ(kWestern.ToWide(TextView("\x80\xE9")), u"\u20AC\u00E9");
  EXPECT_EQ(kWestern.FromWide(u"\u20AC\u00E9\u03B1\U0001F600"), "\x80\xE9??");
  EXPECT_EQ(kPairs.ToWide(TextView("\x82\x83x")), u"\u8283x");
  const char16_t kLoneHalves[] = {u'a', 0xD800, u'b', 0xDC00, 0};
  EXPECT_EQ(kUtf8.FromWide(kLoneHalves),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD");
}

TEST(Charset, KnowsWhatItHolds) {
  const Charset kUtf8, kWestern(WesternCodePage());
  for (char32_t code : {U'?', U'a', U'\u00E9', U'\u20AC', U'\u0152'})
    EXPECT_TRUE(kWestern.Holds(code)) << static_cast<unsigned>(code);
  for (char32_t code : {U'\u0416', U'\u65E5', U'\U0001F600', U'\uFFFD'}) {
    EXPECT_FALSE(kWestern.Holds(code)) << static_cast<unsigned>(code);
    EXPECT_TRUE(kUtf8.Holds(code)) << static_cast<unsigned>(code);
  }
  EXPECT_FALSE(kUtf8.Holds(char32_t{0xD800}));
  EXPECT_TRUE(kWestern.Holds(u"caf\u00E9?"));
  EXPECT_FALSE(kWestern.Holds(u"caf\u00E9 \u0416"));
  EXPECT_TRUE(kUtf8.Holds(u"\u0416 \U0001F600"));
}

// By way of UTF-16 or at once, for any bytes and any place of the gap.
TEST(Charset, ConvertsFromOneToAnother) {
  std::mt19937 random(17);
  static const std::string kBytes = "a?\r\n\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xFF\x81@";
  const Charset kAll[] = {Charset(), Charset(WesternCodePage()), Charset(PairPage())};
  for (int round = 0; round < 2000; ++round) {
    std::string bytes(random() % 12, ' ');
    for (char& c : bytes) c = kBytes[random() % kBytes.size()];
    std::size_t cut = random() % (bytes.size() + 1);
    TextView text(std::string_view(bytes).substr(0, cut), std::string_view(bytes).substr(cut));
    for (const Charset& from : kAll)
      for (const Charset& to : kAll)
        ASSERT_EQ(from.Convert(text, to), to.FromWide(from.ToWide(text))) << bytes;
  }
  EXPECT_EQ(Charset(WesternCodePage()).Convert(TextView("caf\xE9 \x80"), Charset()),
            "caf\xC3\xA9 \xE2\x82\xAC");
}

TEST(Charset, AsciiIsTheSameInAll) {
  EXPECT_TRUE(IsAscii(TextView("")));
  EXPECT_TRUE(IsAscii({"plain", std::string_view("\0\x7F", 2)}));
  EXPECT_FALSE(IsAscii({"plain", "\x80"}));
  EXPECT_FALSE(IsAscii({"caf\xE9", "plain"}));
}

TEST(Charset, EveryCodeComesBack) {
  const Charset kUtf8;
  for (char32_t code = 0; code <= 0x10FFFF; code += code < 0x3000 ? 1 : 97) {
    if (code >= 0xD800 && code < 0xE000) continue;
    std::string bytes = kUtf8.Encode(code);
    Character c = kUtf8.At(TextView(bytes), BytePos(0));
    ASSERT_EQ(c.code, code);
    ASSERT_EQ(c.length, static_cast<std::int32_t>(bytes.size()));
  }
}

}  // namespace
}  // namespace tarrow
