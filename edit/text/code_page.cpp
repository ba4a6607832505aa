#include "edit/text/charset.h"

#include <algorithm>

namespace tarrow {
namespace {

// Bytes 0x80 to 0x9F, where the page differs from Latin-1; a byte without a character stands for itself.
constexpr char16_t kFrom80[] = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178,
};

std::string EncodeWestern(char32_t code) {
  const auto& single = WesternCodePage().single;
  auto found = std::find(single.begin(), single.end(), code);
  return std::string(1, found == single.end() ? '?' : static_cast<char>(found - single.begin()));
}

CodePage MakeWestern() {
  CodePage page;
  for (std::size_t byte = 0; byte < 256; ++byte) {
    bool differs = byte >= 0x80 && byte < 0xA0;
    page.single[byte] = differs ? kFrom80[byte - 0x80] : static_cast<char16_t>(byte);
  }
  page.encode = EncodeWestern;
  return page;
}

}  // namespace

const CodePage& WesternCodePage() {
  static const CodePage page = MakeWestern();
  return page;
}

}  // namespace tarrow
