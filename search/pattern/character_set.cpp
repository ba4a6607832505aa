#include "search/pattern/character_set.h"

#include "edit/text/letters.h"
#include "search/pattern/utf8_text.h"

#include <algorithm>

namespace tarrow {
namespace {

constexpr char32_t kFirstWithoutCase = 0x10000;  // from here on nothing is folded
constexpr int kFirstLead = 0xC2, kLastLead = 0xF4;

int LeadOf(char32_t code) {
  std::string bytes;
  AppendUtf8Char(bytes, code);
  return static_cast<unsigned char>(bytes[0]);
}

}  // namespace

// Not every system knows that the sigma at the end of a word is one.
char32_t FoldBeyondAscii(char32_t code) {
  static constexpr char32_t kFinalSigma = 0x3C2, kSigma = 0x3C3;
  char32_t upper = ConvertCase(code == kFinalSigma ? kSigma : code, LetterCase::kUpper);
  return upper < 0x80 ? code : upper;
}

void JoinRanges(std::vector<CodeRange>& ranges) {
  std::ranges::sort(ranges, {}, &CodeRange::low);
  std::vector<CodeRange> joined;
  for (CodeRange range : ranges) {
    if (!joined.empty() && range.low <= joined.back().high + 1)
      joined.back().high = std::max(joined.back().high, range.high);
    else
      joined.push_back(range);
  }
  ranges = std::move(joined);
}

CharacterSet::CharacterSet(ByteCode code, int at, bool foldCase) : foldCase_(foldCase) {
  Opcode op = OpcodeAt(code, at);
  bool isAny = op == Opcode::kUtf8AnyChar;
  isNegated_ = isAny || op == Opcode::kUtf8CharSetNot;
  const FoldTable& fold = foldCase ? kFoldToUpper : kFoldNothing;
  for (std::size_t c = 0; c < ascii_.size(); ++c) {
    if (isAny)
      ascii_[c] = c != '\r' && c != '\n';
    else if (op == Opcode::kExact)
      ascii_[c] = fold[c] == CodeByte(code, at + 2);
    else
      ascii_[c] = IsInBitmap(code, at, fold[c]) != isNegated_;
  }
  if (op == Opcode::kUtf8CharSet || op == Opcode::kUtf8CharSetNot) ReadRanges(code, at);
  if (foldCase) Fold();
}

void CharacterSet::ReadRanges(ByteCode code, int at) {
  auto number = [&](int place) {
    return static_cast<char32_t>(CodeByte(code, place) | CodeByte(code, place + 1) << 8 |
                                 CodeByte(code, place + 2) << 16);
  };
  int first = at + 4 + CodeByte(code, at + 1), end = at + OperationSize(code, at);
  for (int place = first; place < end; place += kCodeRangeSize)
    ranges_.push_back({number(place), number(place + kCodeRangeSize / 2)});
}

void CharacterSet::Fold() {
  std::vector<CodeRange> folded;
  for (CodeRange range : ranges_) AddFolded(range, folded);
  JoinRanges(folded);
  ranges_ = std::move(folded);
}

void CharacterSet::AddFolded(CodeRange range, std::vector<CodeRange>& folded) const {
  for (char32_t c = range.low; c <= range.high && c < kFirstWithoutCase; ++c) {
    char32_t code = FoldBeyondAscii(c);
    if (!folded.empty() && folded.back().high + 1 == code)
      folded.back().high = code;
    else
      folded.push_back({code, code});
  }
  if (range.high >= kFirstWithoutCase) folded.push_back({std::max(range.low, kFirstWithoutCase), range.high});
}

bool CharacterSet::HasBeyond(char32_t code) const {
  if (foldCase_) code = FoldBeyondAscii(code);
  auto after = std::ranges::upper_bound(ranges_, code, {}, &CodeRange::low);
  bool isThere = after != ranges_.begin() && code <= std::prev(after)->high;
  return isThere != isNegated_;
}

std::array<bool, 256> CharacterSet::FirstBytes() const {
  std::array<bool, 256> bytes{};
  std::ranges::copy(ascii_, bytes.begin());
  auto mark = [&](int low, int high) { std::fill(bytes.begin() + low, bytes.begin() + high + 1, true); };
  if (isNegated_) mark(0x80, 0xFF);
  for (CodeRange range : ranges_) {
    if (isNegated_) break;
    bool isStray = range.low >= kStrayByte;
    if (foldCase_ && !isStray)
      mark(kFirstLead, kLastLead);
    else
      mark(LeadOf(range.low), LeadOf(range.high));
  }
  return bytes;
}

std::array<bool, 256> CharacterSet::AllBytes() const {
  std::array<bool, 256> bytes{};
  std::ranges::copy(ascii_, bytes.begin());
  if (isNegated_ || !ranges_.empty()) std::fill(bytes.begin() + 0x80, bytes.end(), true);
  return bytes;
}

}  // namespace tarrow
