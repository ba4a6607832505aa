#include "search/pattern/first_char_map.h"

#include "search/pattern/byte_code.h"
#include "search/pattern/character_set.h"

#include <cstddef>

namespace tarrow {
namespace {

// Follows the code from its start along every path up to the first byte that it would consume. Paths not yet
// taken wait on a stack; the newest is taken first.
//
// Paths meet again behind everything optional, so that there are as many as 2 to the number of such items.
// What comes of a place depends on the place and on `canBeEmpty` alone, and a place is left only when all
// that it leads to has been seen: coming there a second time in the same state could add nothing, and ends
// the path.
class MapWalk {
 public:
  explicit MapWalk(CompiledPattern& pattern)
      : pattern_(pattern), code_(pattern.code), seen_(pattern.code.size()) {}

  void Run() {
    while (!isStopped_) {
      if (at_ >= End()) {
        pattern_.canBeEmpty = CanBeEmpty::kAnywhere;
        return;
      }
      if (IsNew() && Step()) continue;
      if (pending_.empty()) return;
      at_ = pending_.back();
      pending_.pop_back();
    }
  }

 private:
  int End() const { return static_cast<int>(code_.size()); }
  void Mark(int c) { pattern_.firstCharMap[pattern_.Fold()[static_cast<std::uint8_t>(c)]] = true; }

  void MarkAnyChar() {
    for (int c = 0; c < 256; ++c)
      if (c != '\r' && c != '\n') pattern_.firstCharMap[c] = true;
  }

  // Whether the walk is at this place for the first time in this state.
  bool IsNew() {
    auto state = static_cast<std::uint8_t>(1 << static_cast<int>(pattern_.canBeEmpty));
    std::uint8_t& states = seen_[static_cast<std::size_t>(at_)];
    bool isNew = (states & state) == 0;
    states |= state;
    return isNew;
  }

  // Takes the operation at `at_`; false when this path is done.
  bool Step() {
    switch (OpcodeAt(code_, at_)) {
      case Opcode::kExact:
        Mark(code_[at_ + 2]);
        return false;
      case Opcode::kLineEnd:
        return TakeLineEnd();
      case Opcode::kJump:
      case Opcode::kFinalizeJump:
      case Opcode::kMaybeFinalizeJump:
      case Opcode::kDummyFailureJump:
        return TakeJump();
      case Opcode::kOnFailureJump:
        pending_.push_back(JumpTarget(code_, at_));
        break;
      case Opcode::kUtf8FoldedExact:
        return TakeFoldedExact();
      case Opcode::kAnyChar:
      case Opcode::kUtf8AnyChar:
        return TakeAnyChar();
      case Opcode::kCharSet:
        return TakeSet();
      case Opcode::kCharSetNot:
        return TakeSetNot();
      case Opcode::kUtf8CharSet:
      case Opcode::kUtf8CharSetNot:
        MarkAll(CharacterSet(code_, at_, pattern_.foldCase).FirstBytes());
        return false;
      case Opcode::kBackRef:
      case Opcode::kUtf8FoldedBackRef:
        return TakeBackRef();
      default:
        break;
    }
    at_ += OperationSize(code_, at_);
    return true;
  }

  void MarkAll(const std::array<bool, 256>& bytes) {
    for (int c = 0; c < 256; ++c)
      if (bytes[static_cast<std::size_t>(c)]) Mark(c);
  }

  // The other case of a character beyond ASCII may begin with another byte.
  bool TakeFoldedExact() {
    std::uint8_t first = code_[at_ + 2];
    for (int c = 0x80; c < 256; ++c)
      if (first >= 0x80) Mark(c);
    if (first < 0x80) Mark(first);
    return false;
  }

  bool TakeLineEnd() {
    Mark('\r');
    if (pattern_.canBeEmpty != CanBeEmpty::kAnywhere) pattern_.canBeEmpty = CanBeEmpty::kAtLineEnd;
    return false;
  }

  // A jump back closes a loop whose body was passed without consuming: go on behind the loop, and forget that
  // its end was still to be visited.
  bool TakeJump() {
    pattern_.canBeEmpty = CanBeEmpty::kAnywhere;
    int target = JumpTarget(code_, at_);
    bool isLoopEnd = target < at_ && OpcodeAt(code_, target) == Opcode::kOnFailureJump;
    if (isLoopEnd) {
      target = JumpTarget(code_, target);
      if (!pending_.empty() && pending_.back() == target) pending_.pop_back();
    }
    at_ = target;
    return true;
  }

  // With an empty match already possible the map will not be used, or so the walk assumes: it ends here even
  // if empty matches are confined to line ends and other paths still wait.
  bool TakeAnyChar() {
    MarkAnyChar();
    isStopped_ = pattern_.canBeEmpty != CanBeEmpty::kNever;
    return isStopped_;
  }

  bool TakeSet() {
    for (int c = 0; c < 256; ++c)
      if (IsInBitmap(code_, at_, c)) Mark(c);
    return false;
  }

  bool TakeSetNot() {
    for (int c = 0; c < 256; ++c)
      if (!IsInBitmap(code_, at_, c)) pattern_.firstCharMap[c] = true;
    return false;
  }

  bool TakeBackRef() {
    pattern_.canBeEmpty = CanBeEmpty::kAnywhere;
    Mark('\r');
    MarkAnyChar();
    isStopped_ = true;
    return true;
  }

  CompiledPattern& pattern_;
  const std::vector<std::uint8_t>& code_;
  int at_ = 0;
  bool isStopped_ = false;
  std::vector<int> pending_;
  std::vector<std::uint8_t> seen_;  // for each place of the code the states in which it was walked
};

}  // namespace

void ComputeFirstCharMap(CompiledPattern& pattern) {
  pattern.firstCharMap.fill(false);
  pattern.canBeEmpty = CanBeEmpty::kNever;
  MapWalk(pattern).Run();
  pattern.mapValid = true;
}

}  // namespace tarrow
