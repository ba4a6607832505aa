// Random patterns and texts for the property tests of the engine.
#pragma once

#include <iterator>
#include <random>
#include <string>

namespace tarrow {

// Writes patterns and texts over a small alphabet, so that they often meet.
class RandomPatterns {
 public:
  explicit RandomPatterns(unsigned seed) : random_(seed) {}

  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

  std::string Pattern() {
    static const char* const kPieces[] = {
        "a",   "b",    "ab",  "c",   "_",   ".",     ".",        "[ab]",  "[^a]", "[a-c]", "[^\r\n]", "[b_]",
        "*",   "*",    "*",   "+",   "+",   "?",     "?",        "^",     "$",    "\\(",   "\\(",     "\\)",
        "\\)", "\\1",  "\\2", "\\<", "\\>", " ",     "A",        "\n",    "\r",   "[ -~]", "[^ab]",   "bca",
        "ab",  "[_c]", "a*",  "b+",  ".*",  "[ab]*", "\\(a*\\)", "[^b]*", "$\\)", "\\t",   "[]-]",    "[^]",
    };
    std::string out;
    int open = 0;
    for (int n = 1 + Below(9); n > 0; --n) {
      std::string piece = kPieces[Below(static_cast<int>(std::size(kPieces)))];
      open += (piece == "\\(") - (piece == "\\)" || piece == "$\\)");
      out += piece;
    }
    for (; open > 0; --open) out += "\\)";
    return out;
  }

  // Now and then a long run, to reach the limits of the failure stack.
  std::string Text() {
    static const char* const kPieces[] = {"a", "b",    "a",  "b",  "c",  "_",   " ",
                                          "A", "\r\n", "\r", "\n", "ab", "bca", "\xE9"};
    std::string out;
    for (int n = Below(24); n > 0; --n) out += kPieces[Below(static_cast<int>(std::size(kPieces)))];
    if (Below(200) == 0) out += std::string(4090 + Below(12), "ab_"[Below(3)]) + (Below(2) ? "c" : "");
    return out;
  }

 private:
  std::mt19937 random_;
};

// `text`, cut short if need be, with its line ends visible.
inline std::string Quoted(const std::string& text) {
  std::string out;
  for (char c : text.substr(0, 200)) out += c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string(1, c);
  return "\"" + out + "\"";
}

}  // namespace tarrow
