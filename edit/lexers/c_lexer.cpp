#include "edit/lexers/c_lexer.h"

#include "base/byte_scan.h"
#include "edit/lexers/c_words.h"
#include "edit/lexers/line_cursor.h"

#include <algorithm>
#include <array>
#include <bit>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tarrow {
namespace {

// The state: what is open, and whether the line continues one on which something other than blanks and
// comments stands, so that no directive can begin; or a raw string with the sum of its delimiter.
enum Open : LexState { kNothing, kBlockComment, kLineComment, kString, kCharacter };
constexpr LexState kOpenMask = 0x07;
constexpr LexState kWithin = 0x08;
constexpr LexState kRawString = 0x80;

constexpr std::size_t kLongestDelimiter = 16;

// What a byte can begin.
enum class Kind : std::uint8_t { kPlain, kBlank, kWord, kDigit, kDot, kQuote, kApostrophe, kSlash, kHash };

constexpr std::array<Kind, 256> MakeKinds() {
  std::array<Kind, 256> kinds{};
  for (unsigned c = 0; c < 256; ++c)
    if (IsWordByte(static_cast<char>(c)) || c == '$') kinds[c] = Kind::kWord;
  for (unsigned c = '0'; c <= '9'; ++c) kinds[c] = Kind::kDigit;
  for (unsigned char c : {' ', '\t', '\v', '\f'}) kinds[c] = Kind::kBlank;
  kinds['.'] = Kind::kDot;
  kinds['"'] = Kind::kQuote;
  kinds['\''] = Kind::kApostrophe;
  kinds['/'] = Kind::kSlash;
  kinds['#'] = Kind::kHash;
  return kinds;
}
constexpr std::array<Kind, 256> kKinds = MakeKinds();

Kind KindOf(char c) {
  return kKinds[static_cast<unsigned char>(c)];
}
bool IsPartOfWord(char c) {
  Kind kind = KindOf(c);
  return kind == Kind::kWord || kind == Kind::kDigit;
}

#if defined(__SSE2__)

// A bit for each of 16 bytes that can be part of a word.
unsigned WordMask(const char* block) {
  auto splat = [](char c) { return _mm_set1_epi8(c); };
  __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block));
  auto isWithin = [&](__m128i x, char low, char high) {
    __m128i above = _mm_sub_epi8(x, splat(low));
    return _mm_cmpeq_epi8(_mm_min_epu8(above, splat(static_cast<char>(high - low))), above);
  };
  __m128i letters = isWithin(_mm_or_si128(bytes, splat(0x20)), 'a', 'z');
  __m128i signs = _mm_or_si128(_mm_cmpeq_epi8(bytes, splat('_')), _mm_cmpeq_epi8(bytes, splat('$')));
  __m128i word = _mm_or_si128(_mm_or_si128(letters, isWithin(bytes, '0', '9')), signs);
  return static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(word, bytes)));
}

#endif

// Where the word ends that begins at `at` of a line: by blocks, the last of which may overlap what is in
// front of `at`, for the lengths of words are what a processor cannot foresee.
const char* WordEnd(const char* begin, const char* at, const char* end) {
#if defined(__SSE2__)
  constexpr std::ptrdiff_t kBlock = 16;
  while (end - begin >= kBlock && at != end) {
    const char* from = std::min(at, end - kBlock);
    unsigned others = ~WordMask(from) & 0xFFFF;
    others = others >> (at - from) << (at - from);
    if (others) return from + std::countr_zero(others);
    at = from + kBlock;
  }
#endif
  while (at != end && IsPartOfWord(*at)) ++at;
  return at;
}

// Of delimiters of one character no two have the same sum; 0 is that of the empty one.
LexState SumOf(std::string_view delimiter) {
  unsigned sum = 0;
  for (char c : delimiter) sum = (sum * 31 + static_cast<unsigned char>(c)) % 127;
  return delimiter.empty() ? 0 : static_cast<LexState>(sum % 127 + 1);
}

bool IsRawPrefix(std::string_view word) {
  return word == "R" || word == "LR" || word == "uR" || word == "UR" || word == "u8R";
}
bool IsPrefix(std::string_view word) {
  return word == "L" || word == "u" || word == "U" || word == "u8";
}

// One line on its way through the lexer. A token ends with Style(); what stands before it is plain text.
class Scanner {
 public:
  Scanner(const CDialect& dialect, std::string_view line, StyleRuns* runs)
      : dialect_(dialect), begin_(line.data()), at_(begin_), end_(begin_ + line.size()), runs_(runs) {}

  LexState Run(LexState state) {
    at_ += ByteOrderMarkSize(Rest());
    open_ = Continue(state);
    if (open_ == kNothing) Code();
    return open_;
  }

 private:
  bool IsSpliced() const { return end_ != begin_ && end_[-1] == '\\'; }
  std::string_view Rest() const { return {at_, static_cast<std::size_t>(end_ - at_)}; }

  void AddRun(const char* end, Style style) {
    if (runs_) runs_->Add(static_cast<std::size_t>(end - begin_), style);
  }
  void Token(const char* from, Style style) {
    AddRun(from, Style::kText);
    AddRun(at_, style);
  }

  LexState Continue(LexState state);
  void Code();
  void SkipBlanks();
  void Word();
  void Number();
  void Slash();
  void Directive();
  void HeaderName();
  LexState BlockComment(const char* from);
  LexState LineComment(const char* from);
  LexState Quoted(const char* from, char quote);
  LexState RawString(const char* from);
  LexState RawStringRest(const char* from, LexState sum);

  const CDialect& dialect_;
  const char* begin_;
  const char* at_;
  const char* end_;
  StyleRuns* runs_;
  LexState open_ = kNothing;
  bool isWithin_ = false;  // something stands before this place that no directive can follow
  bool hasCharacters_ = dialect_.hasCharacters;
};

// Goes on with what the line before has left open.
LexState Scanner::Continue(LexState state) {
  isWithin_ = (state & (kRawString | kWithin)) != 0;
  if (state & kRawString) return RawStringRest(at_, state);
  switch (state & kOpenMask) {
    case kBlockComment:
      return BlockComment(at_);
    case kLineComment:
      return LineComment(at_);
    case kString:
      return Quoted(at_, '"');
    case kCharacter:
      return Quoted(at_, '\'');
    default:
      return kNothing;
  }
}

// Up to the end of the line, or to what stays open there.
void Scanner::Code() {
  while (at_ != end_ && open_ == kNothing) {
    const char* from = at_;
    // What is most frequent first, where a processor foresees it.
    Kind kind = KindOf(*at_);
    if (kind <= Kind::kBlank) {
      isWithin_ |= kind == Kind::kPlain;
      ++at_;
      continue;
    }
    if (kind == Kind::kWord) {
      Word();
      isWithin_ = true;
      continue;
    }
    switch (kind) {
      case Kind::kSlash:
        Slash();
        continue;
      case Kind::kHash:
        if (!isWithin_) {
          Directive();
          continue;
        }
        ++at_;
        break;
      case Kind::kDot:
        if (at_ + 1 == end_ || KindOf(at_[1]) != Kind::kDigit) {
          ++at_;
          break;
        }
        [[fallthrough]];
      case Kind::kDigit:
        Number();
        break;
      case Kind::kQuote:
        ++at_;
        open_ = Quoted(from, '"');
        break;
      case Kind::kApostrophe:
        ++at_;
        if (hasCharacters_) open_ = Quoted(from, '\'');
        break;
      default:
        break;
    }
    isWithin_ = true;
  }
  if (open_ == kNothing && IsSpliced()) open_ = kWithin;
}

void Scanner::SkipBlanks() {
  while (at_ != end_ && KindOf(*at_) == Kind::kBlank) ++at_;
}

// A word, or the string or character that it is the prefix of.
void Scanner::Word() {
  const char* from = at_;
  at_ = WordEnd(begin_, at_, end_);
  std::string_view word(from, static_cast<std::size_t>(at_ - from));
  char next = at_ == end_ ? '\0' : *at_;
  if (next == '"' && dialect_.hasRawStrings && IsRawPrefix(word)) {
    ++at_;
    open_ = RawString(from);
  } else if ((next == '"' || (next == '\'' && hasCharacters_)) && IsPrefix(word)) {
    ++at_;
    open_ = Quoted(from, next);
  } else if (runs_) {
    if (Style style = dialect_.words.StyleOf(word); style != Style::kText) Token(from, style);
  }
}

// With its exponent, its separators and its suffix.
void Scanner::Number() {
  const char* from = at_++;
  bool isHex = *from == '0' && at_ != end_ && (*at_ | 0x20) == 'x';
  for (; at_ != end_; ++at_) {
    char c = *at_, before = static_cast<char>(at_[-1] | 0x20);
    if (IsPartOfWord(c) || c == '.') continue;
    if ((c == '+' || c == '-') && (before == 'p' || (before == 'e' && !isHex))) continue;
    if (c == '\'' && hasCharacters_ && at_ + 1 != end_ && IsPartOfWord(at_[1])) continue;
    break;
  }
  Token(from, Style::kNumber);
}

void Scanner::Slash() {
  const char* from = at_++;
  if (at_ == end_) return;
  if (*at_ == '*') {
    ++at_;
    open_ = BlockComment(from);
  } else if (*at_ == '/') {
    open_ = LineComment(from);
  } else {
    isWithin_ = true;
  }
}

// The sign and the name of a directive; the rest is code, but for the names of headers and, in messages, for
// apostrophes.
void Scanner::Directive() {
  const char* from = at_++;
  SkipBlanks();
  const char* name = at_;
  while (at_ != end_ && IsPartOfWord(*at_)) ++at_;
  std::string_view word(name, static_cast<std::size_t>(at_ - name));
  Token(from, Style::kDirective);
  if (word == "include" || word == "include_next" || word == "import") HeaderName();
  if (word == "error" || word == "warning") hasCharacters_ = false;
  isWithin_ = true;
}

void Scanner::HeaderName() {
  SkipBlanks();
  if (at_ == end_ || *at_ != '<') return;
  const char* from = at_;
  while (at_ != end_ && *at_ != '>') ++at_;
  if (at_ != end_) ++at_;
  Token(from, Style::kString);
}

// Returns what stays open at the end of the line.
LexState Scanner::BlockComment(const char* from) {
  while (at_ != end_) {
    at_ += FindByte(Rest(), '*');
    if (at_ == end_) break;
    if (++at_ != end_ && *at_ == '/') {
      ++at_;
      Token(from, Style::kComment);
      return kNothing;
    }
  }
  Token(from, Style::kComment);
  return static_cast<LexState>(kBlockComment | (isWithin_ ? kWithin : 0));
}

LexState Scanner::LineComment(const char* from) {
  at_ = end_;
  Token(from, Style::kComment);
  return IsSpliced() ? kLineComment : kNothing;
}

// Behind the opening quote. What is not closed ends with the line, unless that continues.
LexState Scanner::Quoted(const char* from, char quote) {
  isWithin_ = true;
  while (at_ != end_ && *at_ != quote) at_ += *at_ == '\\' && at_ + 1 != end_ ? 2 : 1;
  bool isClosed = at_ != end_;
  if (isClosed) ++at_;
  Token(from, Style::kString);
  if (isClosed || !IsSpliced()) return kNothing;
  return static_cast<LexState>((quote == '"' ? kString : kCharacter) | kWithin);
}

// Behind R and its quote. A delimiter that is none makes it a string like others.
LexState Scanner::RawString(const char* from) {
  std::string_view rest = Rest();
  std::size_t length = rest.find_first_of("( )\\\t\"");
  if (length > kLongestDelimiter || rest[length] != '(') return Quoted(from, '"');
  at_ += length + 1;
  return RawStringRest(from, static_cast<LexState>(kRawString | SumOf(rest.substr(0, length))));
}

LexState Scanner::RawStringRest(const char* from, LexState state) {
  LexState open = state;
  while (at_ != end_ && open != kNothing) {
    at_ += FindByte(Rest(), ')');
    if (at_ == end_) break;
    ++at_;
    std::string_view behind = Rest().substr(0, kLongestDelimiter + 1);
    std::size_t length = behind.find_first_of("\")");
    if (length == behind.npos || behind[length] != '"') continue;
    if ((kRawString | SumOf(behind.substr(0, length))) != state) continue;
    at_ += length + 1;
    open = kNothing;
  }
  Token(from, Style::kString);
  return open;
}

constexpr WordTable kCWords(WordTable::Case::kExact, {{kClassicKeywords, Style::kKeyword},
                                                      {kCompilerKeywords, Style::kKeyword},
                                                      {kNewerKeywords, Style::kKeyword},
                                                      {kPredefinedNames, Style::kPredefined}});
constexpr WordTable kResourceWords(WordTable::Case::kIgnored, {{kResourceKeywords, Style::kKeyword}});

}  // namespace

LexState CLexer::Scan(std::string_view line, LexState state, StyleRuns* runs) const {
  return Scanner(dialect_, line, runs).Run(state);
}

const Lexer& CSourceLexer() {
  static const CLexer lexer({kCWords, true, true});
  return lexer;
}

const Lexer& ResourceLexer() {
  static const CLexer lexer({kResourceWords, false, false});
  return lexer;
}

}  // namespace tarrow
