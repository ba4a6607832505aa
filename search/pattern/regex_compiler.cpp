#include "search/pattern/regex_compiler.h"

#include "search/pattern/byte_code.h"
#include "search/pattern/character_set_code.h"
#include "search/pattern/prepared_search.h"
#include "search/pattern/utf8_text.h"

#include <cstddef>
#include <new>

namespace tarrow {
namespace {

constexpr std::size_t kMaxCode = 16384;
constexpr std::size_t kTokenRoom = 10;  // what any token but a set may need
constexpr std::size_t kSetRoom = 35;
constexpr std::size_t kMaxOpenGroups = 10;
constexpr int kMaxExact = 127;
constexpr int kNowhere = -1;

bool IsClosure(int c) {
  return c == '*' || c == '+' || c == '?';
}

// Reads the pattern left to right, one token at a time, and appends code for each. Positions in the code are
// offsets; a closure moves what it repeats up to make room for its jumps.
class Compiler {
 public:
  Compiler(std::string_view pattern, const FoldTable& fold, CompiledPattern& out)
      : pattern_(pattern), fold_(fold), isUtf8_(out.isForUtf8), out_(out), code_(out.code) {}

  PatternError Run() {
    while (next_ < pattern_.size()) {
      if (!HasRoom(kTokenRoom)) return PatternError::kTooComplex;
      if (PatternError error = Token(); error != PatternError::kNone) return error;
    }
    return groups_.empty() ? PatternError::kNone : PatternError::kUnmatchedOpen;
  }

 private:
  struct OpenGroup {
    int contents;  // just after its GroupStart
    int reg;       // kNowhere when the group is not captured
  };

  bool HasRoom(std::size_t room) const { return code_.size() + room <= kMaxCode; }
  int End() const { return static_cast<int>(code_.size()); }

  int Peek(std::size_t ahead = 0) const {
    return next_ + ahead < pattern_.size() ? static_cast<unsigned char>(pattern_[next_ + ahead]) : kNowhere;
  }
  std::uint8_t ReadUnfolded() { return static_cast<std::uint8_t>(pattern_[next_++]); }
  std::uint8_t Read() { return fold_[ReadUnfolded()]; }

  void Emit(Opcode op) { code_.push_back(static_cast<std::uint8_t>(op)); }
  void Emit(Opcode op, int operand) {
    Emit(op);
    code_.push_back(static_cast<std::uint8_t>(operand));
  }
  void StoreJump(int at, Opcode op, int target) {
    int offset = target - (at + kJumpSize);
    code_[at] = static_cast<std::uint8_t>(op);
    code_[at + 1] = static_cast<std::uint8_t>(offset & 0xFF);
    code_[at + 2] = static_cast<std::uint8_t>((offset >> 8) & 0xFF);
  }
  void InsertJump(int at, Opcode op, int target) {
    code_.insert(code_.begin() + at, kJumpSize, 0);
    StoreJump(at, op, target);
  }

  PatternError Token() {
    std::uint8_t c = Read();
    switch (c) {
      case '.':
        return Item(isUtf8_ ? Opcode::kUtf8AnyChar : Opcode::kAnyChar);
      case '*':
      case '+':
      case '?':
        return lastItem_ == kNowhere ? Literal(c) : Closure(c);
      case '^':
        return Caret();
      case '$':
        return Dollar();
      case '[':
        return Set();
      case '\\':
        return Escape();
      default:
        return Literal(c);
    }
  }

  PatternError Item(Opcode op) {
    lastItem_ = End();
    Emit(op);
    return PatternError::kNone;
  }

  PatternError Literal(std::uint8_t c) {
    if (isUtf8_ && c >= 0x80) return BeyondAscii();
    char byte = static_cast<char>(c);
    return Exact({&byte, 1});
  }

  // Literals gather into one Exact. One that a '*' follows stays apart, so that the star repeats it alone;
  // one before '^' stays apart too, though the '^' may then join it.
  PatternError Exact(std::string_view bytes) {
    auto size = static_cast<int>(bytes.size());
    bool isGathering = pendingExact_ != kNowhere && pendingExact_ + 2 + code_[pendingExact_ + 1] == End() &&
                       code_[pendingExact_ + 1] + size <= kMaxExact && Peek() != '*' && Peek() != '^';
    if (isGathering) {
      code_[pendingExact_ + 1] = static_cast<std::uint8_t>(code_[pendingExact_ + 1] + size);
    } else {
      pendingExact_ = lastItem_ = End();
      Emit(Opcode::kExact, size);
    }
    code_.insert(code_.end(), bytes.begin(), bytes.end());
    return PatternError::kNone;
  }

  // The character beyond ASCII whose first byte has just been read. A byte that is no character is a set of
  // itself: as part of an Exact it could match within a character.
  PatternError BeyondAscii() {
    --next_;
    char32_t c = ReadCharacter();
    if (c >= kStrayByte) {
      lastItem_ = End();
      CharacterSetCode set(fold_);
      set.Add(c, c);
      set.Write(false, code_);
      return PatternError::kNone;
    }
    std::string bytes;
    AppendUtf8Char(bytes, out_.foldCase ? FoldBeyondAscii(c) : c);
    PatternError error = Exact(bytes);
    if (out_.foldCase) code_[pendingExact_] = static_cast<std::uint8_t>(Opcode::kUtf8FoldedExact);
    return error;
  }

  char32_t ReadCharacter() {
    Utf8Char c = Utf8In(pattern_, next_);
    next_ += static_cast<std::size_t>(c.length);
    return c.code;
  }

  // A whole run of closure characters acts as one: "+?" is "*".
  PatternError Closure(std::uint8_t c) {
    bool isZeroAllowed = c != '+', isManyAllowed = c != '?';
    for (; IsClosure(Peek()); ++next_) {
      isZeroAllowed |= Peek() != '+';
      isManyAllowed |= Peek() != '?';
    }
    if (isManyAllowed) {
      code_.resize(code_.size() + kJumpSize);
      StoreJump(End() - kJumpSize, Opcode::kMaybeFinalizeJump, lastItem_ - kJumpSize);
    }
    InsertJump(lastItem_, Opcode::kOnFailureJump, End() + kJumpSize);
    pendingExact_ = kNowhere;
    if (!isZeroAllowed) InsertJump(lastItem_, Opcode::kDummyFailureJump, lastItem_ + 2 * kJumpSize);
    return PatternError::kNone;
  }

  PatternError Caret() {
    bool isAfterLineFeed = next_ >= 2 && pattern_[next_ - 2] == '\n';
    if (lastItem_ != kNowhere && !isAfterLineFeed) return Literal('^');
    out_.hasLineStart = true;
    Emit(Opcode::kLineStart);
    return PatternError::kNone;
  }

  PatternError Dollar() {
    bool isAtEnd = Peek() == kNowhere || Peek() == '\n' || (Peek() == '\\' && Peek(1) == ')');
    if (!isAtEnd) return Literal('$');
    out_.hasLineEnd = true;
    Emit(Opcode::kLineEnd);
    return PatternError::kNone;
  }

  // The character after a backslash is looked at unfolded: with folding, \t still is a tab and \T a 'T'.
  PatternError Escape() {
    if (Peek() == kNowhere) return PatternError::kInvalid;
    std::uint8_t c = ReadUnfolded();
    switch (c) {
      case '(':
        return OpenGroupHere();
      case ')':
        return CloseGroup();
      case '<':
        Emit(isUtf8_ ? Opcode::kUtf8WordStart : Opcode::kWordStart);
        return PatternError::kNone;
      case '>':
        Emit(isUtf8_ ? Opcode::kUtf8WordEnd : Opcode::kWordEnd);
        return PatternError::kNone;
      case 't':
        return Literal('\t');
      default:
        return c >= '1' && c <= '9' ? Digit(c) : Literal(fold_[c]);
    }
  }

  PatternError OpenGroupHere() {
    if (groups_.size() == kMaxOpenGroups) return PatternError::kTooComplex;
    int reg = nextRegister_ < MatchRegisters::kCount ? nextRegister_++ : kNowhere;
    if (reg != kNowhere) Emit(Opcode::kGroupStart, reg);
    groups_.push_back({End(), reg});
    lastItem_ = pendingExact_ = kNowhere;
    return PatternError::kNone;
  }

  // The group's contents and its GroupEnd become the item that a closure repeats; its GroupStart does not, so
  // that the register spans all repetitions.
  PatternError CloseGroup() {
    if (groups_.empty()) return PatternError::kUnmatchedClose;
    OpenGroup group = groups_.back();
    groups_.pop_back();
    if (group.reg != kNowhere) Emit(Opcode::kGroupEnd, group.reg);
    lastItem_ = group.contents;
    return PatternError::kNone;
  }

  PatternError Digit(std::uint8_t c) {
    int reg = c - '0';
    bool isOpen = false;
    for (const OpenGroup& group : groups_) isOpen |= group.reg == reg;
    if (reg >= nextRegister_ || isOpen) return Literal(c);
    lastItem_ = End();
    Emit(isUtf8_ && out_.foldCase ? Opcode::kUtf8FoldedBackRef : Opcode::kBackRef, reg);
    return PatternError::kNone;
  }

  PatternError Set() {
    if (!HasRoom(kSetRoom)) return PatternError::kTooComplex;
    lastItem_ = End();
    bool isNegated = Peek() == '^';
    if (isNegated) ++next_;
    if (isUtf8_) return SetOfCharacters(isNegated);
    Emit(isNegated ? Opcode::kCharSetNot : Opcode::kCharSet);
    std::array<std::uint8_t, 32> bitmap{};
    auto add = [&](int low, int high) {
      for (int c = fold_[low]; c <= fold_[high]; ++c)
        bitmap[c / 8] |= static_cast<std::uint8_t>(1 << (c % 8));
    };
    if (!ReadMembers([&] { return ReadUnfolded(); }, add)) return PatternError::kInvalid;
    std::size_t length = bitmap.size();
    while (length > 0 && bitmap[length - 1] == 0) --length;
    code_.push_back(static_cast<std::uint8_t>(length));
    code_.insert(code_.end(), bitmap.begin(), bitmap.begin() + static_cast<std::ptrdiff_t>(length));
    return PatternError::kNone;
  }

  PatternError SetOfCharacters(bool isNegated) {
    CharacterSetCode set(fold_);
    auto add = [&](char32_t low, char32_t high) { set.Add(low, high); };
    if (!ReadMembers([&] { return ReadCharacter(); }, add)) return PatternError::kInvalid;
    if (!HasRoom(set.MostRoom())) return PatternError::kTooComplex;
    set.Write(isNegated, code_);
    return PatternError::kNone;
  }

  // Reads up to the closing bracket, each member by `read`, and calls `add` with the ends of each range, a
  // single member being both; false when the pattern ends before that.
  template <typename Read, typename Add>
  bool ReadMembers(Read read, Add add) {
    for (bool isFirst = true;; isFirst = false) {
      if (Peek() == kNowhere) return false;
      auto low = read();
      if (low == ']' && !isFirst) return true;
      if (low == '\\' && Peek() == 't') {
        ++next_;
        low = '\t';
      }
      auto high = low;
      if (Peek() == '-' && Peek(1) != ']') {
        ++next_;
        if (Peek() == kNowhere) return false;
        high = read();
      }
      add(low, high);
    }
  }

  std::string_view pattern_;
  const FoldTable& fold_;
  bool isUtf8_;
  CompiledPattern& out_;
  std::vector<std::uint8_t>& code_;
  std::size_t next_ = 0;
  int lastItem_ = kNowhere;  // what a closure would repeat
  int pendingExact_ = kNowhere;
  int nextRegister_ = 1;
  std::vector<OpenGroup> groups_;
};

}  // namespace

PatternError CompilePattern(std::string_view pattern, CompiledPattern& compiled) {
  compiled.mapValid = compiled.hasLineStart = compiled.hasLineEnd = false;
  compiled.code.clear();
  compiled.prepared.search.reset();
  PatternError error = PatternError::kOutOfMemory;
  try {
    error = Compiler(pattern, compiled.Fold(), compiled).Run();
  } catch (const std::bad_alloc&) {
  }
  if (error != PatternError::kNone) compiled.code.clear();
  return error;
}

int PatternErrorMessage(PatternError error) {
  static constexpr int kMessages[] = {0, 127, 143, 144, 145, 146};
  return kMessages[static_cast<int>(error)];
}

}  // namespace tarrow
