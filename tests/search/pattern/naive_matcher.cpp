#include "tests/search/pattern/naive_matcher.h"

#include "search/pattern/first_char_map.h"

#include <cctype>
#include <vector>

namespace tarrow::naive {
namespace {

enum { kMatched = 0, kNone = -1, kOverflow = -2 };

struct Point {
  int code, text;
};

struct Machine {
  std::vector<std::uint8_t>& code;
  bool foldCase;
  const std::string& text;
  int stop;
  int pc = 0, d = 0;
  std::vector<Point> points;
  std::size_t capacity = 128;
  int start[10], end[10];
  int emptyRounds = 0;

  int Size() const { return static_cast<int>(text.size()); }
  int Byte(int at) const { return at < static_cast<int>(code.size()) ? code[at] : 0; }
  int Target(int at) const { return at + 3 + static_cast<std::int16_t>(Byte(at + 1) + 256 * Byte(at + 2)); }
  int Char(int i) const {
    int c = static_cast<unsigned char>(text[i]);
    return foldCase && c >= 'a' && c <= 'z' ? c - 32 : c;
  }
  bool IsWord(int i) const {
    if (i < 0 || i >= Size()) return false;
    int c = static_cast<unsigned char>(text[i]);
    return c < 128 && (std::isalnum(c) || c == '_');
  }
  bool IsInSet(int at, int c) const {
    return c < 8 * Byte(at + 1) && (Byte(at + 2 + c / 8) & (1 << (c % 8)));
  }

  int Fail() {
    while (!points.empty()) {
      Point p = points.back();
      points.pop_back();
      if (p.code == 0) continue;
      pc = p.code;
      d = p.text;
      return kMatched;
    }
    return kNone;
  }

  int Push(int target) {
    if (points.size() == capacity) {
      if (capacity * 8 > 16384) return kOverflow;
      capacity *= 2;
    }
    points.push_back({target, d});
    return kMatched;
  }

  void PushDormant() {
    if (points.size() == capacity) capacity *= 2;
    points.push_back({0, 0});
  }

  int OneOf(bool wanted, int size) {
    if (!wanted) return Fail();
    ++d;
    pc += size;
    return kMatched;
  }

  void Decide() {
    int next = pc + 3;
    while (Byte(next) == 13 || Byte(next) == 12) ++next;
    bool finalize = next >= static_cast<int>(code.size());
    if (!finalize && (Byte(next) == 1 || Byte(next) == 3)) {
      int c = Byte(next) == 3 ? 13 : Byte(next + 2);
      int body = Target(pc) + 3;
      finalize = (Byte(body) == 1 && Byte(body + 2) != c) || (Byte(body) == 10 && !IsInSet(body, c)) ||
                 (Byte(body) == 11 && IsInSet(body, c));
    }
    code[pc] = finalize ? 6 : 4;
  }

  int Literal() {
    for (int i = 0; i < Byte(pc + 1); ++i, ++d)
      if (d >= stop || Char(d) != Byte(pc + 2 + i)) return Fail();
    pc += 2 + Byte(pc + 1);
    return kMatched;
  }

  int Finalize() {
    Point p = points.back();
    points.pop_back();
    int loop = Target(pc);
    if (p.text == d && p.code == Target(loop) && ++emptyRounds > 4096) return kOverflow;
    pc = loop;
    return kMatched;
  }

  int BackRef(int r) {
    if (end[r] < 0 || start[r] > end[r]) return Fail();
    for (int i = start[r]; i < end[r]; ++i, ++d)
      if (d >= stop || Char(d) != Char(i)) return Fail();
    pc += 2;
    return kMatched;
  }

  int Step() {
    int op = Byte(pc);
    switch (op) {
      case 1:
        return Literal();
      case 2:
        if (d > 0 && text[d - 1] != '\n') return Fail();
        break;
      case 3:
        if (d < Size() && text[d] != '\r') return Fail();
        break;
      case 4:
        pc = Target(pc);
        return kMatched;
      case 5:
        if (Push(Target(pc)) == kOverflow) return kOverflow;
        pc += 3;
        return kMatched;
      case 6:
        return Finalize();
      case 7:
        Decide();
        return kMatched;
      case 8:
        PushDormant();
        pc = Target(pc);
        return kMatched;
      case 9:
        return OneOf(d < stop && text[d] != '\r' && text[d] != '\n', 1);
      case 10:
        return OneOf(d < stop && IsInSet(pc, Char(d)), 2 + Byte(pc + 1));
      case 11:
        return OneOf(d < stop && !IsInSet(pc, Char(d)), 2 + Byte(pc + 1));
      case 12:
        start[Byte(pc + 1)] = d;
        ++pc;
        break;
      case 13:
        end[Byte(pc + 1)] = d;
        ++pc;
        break;
      case 14:
        return BackRef(Byte(pc + 1));
      case 18:
        if (!IsWord(d) || IsWord(d - 1)) return Fail();
        break;
      case 19:
        if (!IsWord(d - 1) || IsWord(d)) return Fail();
        break;
      default:
        break;
    }
    ++pc;
    return kMatched;
  }
};

}  // namespace

int MatchAt(CompiledPattern& pattern, const std::string& text, int position, int stop,
            MatchRegisters& registers, Limits& limits) {
  Machine m{pattern.code, pattern.foldCase, text, stop, 0, 0, {}, 128, {}, {}, 0};
  m.d = position;
  for (int r = 0; r < 10; ++r) m.start[r] = m.end[r] = -1;
  while (m.pc < static_cast<int>(pattern.code.size())) {
    if (--limits.steps < 0) return kOutOfSteps;
    if (int failure = m.Step(); failure != kMatched) return failure;
  }
  for (int r = 0; r < 10; ++r) {
    registers.start[r] = m.end[r] < 0 ? -1 : m.start[r];
    registers.end[r] = m.end[r];
  }
  registers.start[0] = position;
  registers.end[0] = m.d;
  return m.d - position;
}

int SearchPattern(CompiledPattern& pattern, const std::string& text, int start, int range,
                  MatchRegisters& registers, Limits& limits) {
  int size = static_cast<int>(text.size());
  if (!pattern.mapValid) ComputeFirstCharMap(pattern);
  if (range == 0 || start < 0 || start > size) return kNone;
  auto isInMap = [&](int i) {
    return pattern.firstCharMap[pattern.Fold()[static_cast<unsigned char>(text[i])]];
  };
  bool usesMap = pattern.canBeEmpty != CanBeEmpty::kAnywhere;
  for (;;) {
    bool attempt = true;
    if (range > 0 && usesMap)
      while (start < size && range > 0 && !isInMap(start)) ++start, --range;
    if (range < 0 && usesMap && start < size) attempt = isInMap(start);
    if (range >= 0 && start == size && pattern.canBeEmpty == CanBeEmpty::kNever) return kNone;
    if (attempt) {
      int length = MatchAt(pattern, text, start, size, registers, limits);
      if (length >= 0) return start;
      if (length != kNone) return length;
    }
    if (range > 0) {
      --range;
      ++start;
    } else if (range < 0) {
      ++range;
      --start;
      if (start == 0 && range == 0) range = -1;
    }
    if (range == 0 || start < 0 || start > size) return kNone;
  }
}

}  // namespace tarrow::naive
