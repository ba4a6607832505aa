#include "search/regex_matcher.h"

#include "search/byte_code.h"
#include "search/failure_stack.h"

#include <algorithm>
#include <new>

namespace tarrow {
namespace {

class Matcher {
 public:
  Matcher(CompiledPattern& pattern, const TextView& text, BytePos stop, Progress* progress)
      : code_(pattern.code),
        fold_(pattern.Fold()),
        text_(text),
        size_(text.Size()),
        stop_(stop.value),
        ticker_(progress) {}

  std::int32_t Run(BytePos position, MatchRegisters* registers) {
    int end = static_cast<int>(code_.size());
    here_ = position.value;
    for (at_ = 0; at_ < end;) {
      Outcome outcome = Step();
      if (outcome == Outcome::kOverflow) return kMatcherOverflow;
      if (outcome == Outcome::kFail && !Resume()) return kNoMatch;
    }
    if (registers) Report(position, *registers);
    return here_ - position.value;
  }

 private:
  enum class Outcome { kGoOn, kFail, kOverflow };

  static Outcome FailUnless(bool holds) { return holds ? Outcome::kGoOn : Outcome::kFail; }

  int Folded(std::int32_t i) const { return fold_[static_cast<std::uint8_t>(text_[BytePos(i)])]; }
  bool IsWordAt(std::int32_t i) const { return i >= 0 && i < size_ && IsWordChar(text_[BytePos(i)]); }

  Outcome Step() {
    int at = at_;
    at_ += OperationSize(code_, at);
    switch (OpcodeAt(code_, at)) {
      case Opcode::kExact:
        return Exact(at);
      case Opcode::kLineStart:
        return FailUnless(here_ == 0 || text_[BytePos(here_ - 1)] == '\n');
      case Opcode::kLineEnd:
        return FailUnless(here_ == size_ || text_[BytePos(here_)] == '\r');
      case Opcode::kOnFailureJump:
        return stack_.Push({JumpTarget(code_, at), here_}) ? Outcome::kGoOn : Outcome::kOverflow;
      case Opcode::kMaybeFinalizeJump:
        code_[static_cast<std::size_t>(at)] =
            static_cast<std::uint8_t>(MayFinalizeLoop(code_, at) ? Opcode::kFinalizeJump : Opcode::kJump);
        at_ = at;
        return Outcome::kGoOn;
      case Opcode::kFinalizeJump:
        return FinalizeJump(at);
      case Opcode::kDummyFailureJump:
        stack_.PushDormant();
        [[fallthrough]];
      case Opcode::kJump:
        at_ = JumpTarget(code_, at);
        return Outcome::kGoOn;
      case Opcode::kAnyChar:
        return Consume([](int c) { return c != '\r' && c != '\n'; });
      case Opcode::kCharSet:
        return Consume([&](int c) { return IsInBitmap(code_, at, c); });
      case Opcode::kCharSetNot:
        return Consume([&](int c) { return !IsInBitmap(code_, at, c); });
      case Opcode::kGroupStart:
        registers_.start[CodeByte(code_, at + 1)] = here_;
        return Outcome::kGoOn;
      case Opcode::kGroupEnd:
        registers_.end[CodeByte(code_, at + 1)] = here_;
        return Outcome::kGoOn;
      case Opcode::kBackRef:
        return BackRef(CodeByte(code_, at + 1));
      case Opcode::kWordStart:
        return FailUnless(IsWordAt(here_) && !IsWordAt(here_ - 1));
      case Opcode::kWordEnd:
        return FailUnless(IsWordAt(here_ - 1) && !IsWordAt(here_));
      default:
        return Outcome::kGoOn;
    }
  }

  template <typename Wanted>
  Outcome Consume(Wanted wanted) {
    if (here_ >= stop_ || !wanted(Folded(here_))) return Outcome::kFail;
    ++here_;
    return Outcome::kGoOn;
  }

  Outcome Exact(int at) {
    int count = CodeByte(code_, at + 1);
    if (count > stop_ - here_) return Outcome::kFail;
    for (int i = 0; i < count; ++i)
      if (Folded(here_ + i) != CodeByte(code_, at + 2 + i)) return Outcome::kFail;
    here_ += count;
    return Outcome::kGoOn;
  }

  // A loop at the very end of the code is finalized whatever it repeats. One that repeats nothing would go
  // round for ever; it ends as it would if its points were kept.
  Outcome FinalizeJump(int at) {
    static constexpr int kMaxEmptyRounds = 4096;
    int loop = JumpTarget(code_, at);
    if (!stack_.Empty()) {
      FailurePoint point = stack_.Pop();
      bool isEmptyRound = point.text == here_ && point.code == JumpTarget(code_, loop);
      if (isEmptyRound && ++emptyRounds_ > kMaxEmptyRounds) return Outcome::kOverflow;
    }
    at_ = loop;
    return Outcome::kGoOn;
  }

  // A register that holds no text, because its group never closed or was entered anew, matches nothing.
  Outcome BackRef(int reg) {
    std::optional<TextRange> range = registers_.Range(reg);
    if (!range || range->Length() > stop_ - here_) return Outcome::kFail;
    for (std::int32_t i = 0; i < range->Length(); ++i)
      if (Folded(here_ + i) != Folded(range->start.value + i)) return Outcome::kFail;
    here_ += range->Length();
    return Outcome::kGoOn;
  }

  // Goes back to the newest failure point; false when there is none.
  bool Resume() {
    ticker_.Tick();
    while (!stack_.Empty()) {
      FailurePoint point = stack_.Pop();
      if (point.code == 0) continue;
      at_ = point.code;
      here_ = point.text;
      return true;
    }
    return false;
  }

  void Report(BytePos position, MatchRegisters& out) const {
    out = registers_;
    for (int r = 0; r < MatchRegisters::kCount; ++r)
      if (out.end[r] < 0) out.start[r] = -1;
    out.start[0] = position.value;
    out.end[0] = here_;
  }

  std::vector<std::uint8_t>& code_;
  const FoldTable& fold_;
  const TextView& text_;
  std::int32_t size_;
  std::int32_t stop_;
  int at_ = 0;
  std::int32_t here_ = 0;
  int emptyRounds_ = 0;
  MatchRegisters registers_;
  FailureStack stack_;
  ProgressTicker ticker_;
};

}  // namespace

std::int32_t MatchAt(CompiledPattern& pattern, const TextView& text, BytePos position, BytePos stop,
                     MatchRegisters* registers, Progress* progress) {
  try {
    return Matcher(pattern, text, std::min(stop, text.End()), progress).Run(position, registers);
  } catch (const std::bad_alloc&) {
    return kMatcherOverflow;
  }
}

}  // namespace tarrow
