// Runs a decoded program at one place of a text: the inner machine of the matcher and of the search.
//
// Loops over one character take their run in one go and leave one entry on the failure stack for all its
// points; everything observable (what matches, what the registers hold, when the stack is full) is as if they
// went byte by byte.
#pragma once

#include "base/progress.h"
#include "search/pattern/failure_stack.h"
#include "search/pattern/match_program.h"
#include "search/pattern/regex_matcher.h"
#include "search/pattern/text_access.h"
#include "search/pattern/utf8_text.h"
#include "search/pattern/word_test.h"

namespace tarrow {

template <typename Text>
class Backtracker {
 public:
  // Nothing before `origin` is looked at, nothing at or beyond `stop` is consumed.
  Backtracker(CompiledPattern& pattern, MatchProgram& program, const Text& text, std::int32_t origin,
              std::int32_t stop, ProgressTicker& ticker)
      : pattern_(pattern),
        program_(program),
        fold_(*program.fold),
        alphabet_(*program.alphabet),
        text_(text),
        origin_(origin),
        stop_(stop),
        ticker_(ticker) {}

  // Returns the length of the match at `position`, kNoMatch or kMatcherOverflow. Throws std::bad_alloc.
  std::int32_t Run(std::int32_t position) {
    Start(position);
    for (;;) {
      Outcome outcome = Take(*at_);
      if (outcome == Outcome::kGoOn) continue;
      if (outcome == Outcome::kMatch) return here_ - position;
      if (outcome == Outcome::kOverflow) return kMatcherOverflow;
      if (!Resume()) return kNoMatch;
    }
  }

  // The same with `position` as the start of the text.
  std::int32_t RunFromStart(std::int32_t position) {
    origin_ = position;
    return Run(position);
  }

  // Did the last run go beyond the room that it would have had without luck?
  bool WasStretched() const { return stack_.IsStretched(); }

  // The registers of the last match, which began at `position`.
  void Report(std::int32_t position, MatchRegisters& out) const {
    out = MatchRegisters();
    for (int r = 1; r < program_.registerCount; ++r)
      if (end_[r] >= 0) {
        out.start[r] = start_[r];
        out.end[r] = end_[r];
      }
    out.start[0] = position;
    out.end[0] = here_;
  }

 private:
  enum class Outcome { kGoOn, kFail, kMatch, kOverflow };

  // How many bytes compared one by one, or scanned, weigh as much as one step of the ticker.
  static constexpr int kComparedPerTick = 16, kScannedPerTick = 256;

  void Start(std::int32_t position) {
    ticker_.Tick(program_.stretchWeight);
    at_ = program_.steps.data();
    here_ = position;
    emptyRounds_ = 0;
    stack_.Clear();
    for (int r = 1; r < program_.registerCount; ++r) end_[r] = -1;
  }

  int Folded(std::int32_t i) const { return fold_[static_cast<std::uint8_t>(text_[i])]; }
  bool IsWordAt(std::int32_t i) const {
    return i >= origin_ && i < text_.Size() && alphabet_.IsWord(text_[i]);
  }
  bool IsUtf8WordAt(std::int32_t i) const { return i < text_.Size() && IsWordInUtf8(text_, i); }
  bool IsUtf8WordBefore(std::int32_t i) const { return i > origin_ && IsWordBeforeInUtf8(text_, i); }
  const ByteClass& ClassOf(const Instruction& step) const {
    return program_.classes[static_cast<std::size_t>(step.index)];
  }

  Outcome GoOnIf(bool holds) {
    ++at_;
    return holds ? Outcome::kGoOn : Outcome::kFail;
  }

  [[gnu::always_inline]] Outcome Take(Instruction& step) {
    switch (step.step) {
      case Step::kMatch:
        return Outcome::kMatch;
      case Step::kByte:
        return Consume(here_ < stop_ && static_cast<std::uint8_t>(text_[here_]) == step.operand);
      case Step::kClass:
        return Consume(here_ < stop_ && ClassOf(step).Has(text_[here_]));
      case Step::kLiteral:
        return TakeLiteral(step);
      case Step::kFoldedLiteral:
        return TakeFoldedLiteral(step);
      case Step::kLineStart:
        return GoOnIf(here_ == origin_ || text_[here_ - 1] == '\n');
      case Step::kLineEnd:
        return GoOnIf(here_ == text_.Size() || text_[here_] == '\r');
      case Step::kWordStart:
        return GoOnIf(IsWordAt(here_) && !IsWordAt(here_ - 1));
      case Step::kWordEnd:
        return GoOnIf(IsWordAt(here_ - 1) && !IsWordAt(here_));
      case Step::kGroupStart:
        start_[step.operand] = here_;
        return GoOnIf(true);
      case Step::kGroupEnd:
        end_[step.operand] = here_;
        return GoOnIf(true);
      case Step::kBackRef:
        return TakeBackRef(step.operand);
      case Step::kPush:
        return TakePush(step);
      case Step::kPushDormant:
        stack_.PushDormant();
        return JumpTo(step.index);
      case Step::kLoopEnd:
        return TakeLoopEnd(step);
      case Step::kStar:
        return TakeStar(step, RunEnd(step));
      case Step::kPlus:
        return TakePlus(step, RunEnd(step));
      default:
        return TakeUtf8(step);
    }
  }

  Outcome TakeUtf8(Instruction& step) {
    switch (step.step) {
      case Step::kCharacter: {
        std::int32_t length = LengthIn(SetOf(step), here_);
        here_ += length;
        return GoOnIf(length > 0);
      }
      case Step::kCharacterStar:
        return TakeStar(step, CharacterRunEnd(step));
      case Step::kCharacterPlus:
        return TakePlus(step, CharacterRunEnd(step));
      case Step::kUtf8FoldedLiteral: {
        auto bytes = reinterpret_cast<const char*>(pattern_.code.data() + step.code);
        return TakeFoldedUtf8(FlatText(TextView({bytes, step.operand})), 0, step.operand);
      }
      case Step::kUtf8FoldedBackRef:
        if (!IsSet(step.operand)) return Outcome::kFail;
        return TakeFoldedUtf8(text_, start_[step.operand], end_[step.operand]);
      case Step::kUtf8WordStart:
        return GoOnIf(IsUtf8WordAt(here_) && !IsUtf8WordBefore(here_));
      case Step::kUtf8WordEnd:
        return GoOnIf(IsUtf8WordBefore(here_) && !IsUtf8WordAt(here_));
      default:
        break;
    }
    return Outcome::kFail;
  }

  Outcome Consume(bool holds) {
    ++here_;
    return GoOnIf(holds);
  }

  Outcome JumpTo(std::int32_t index) {
    at_ = program_.steps.data() + index;
    return Outcome::kGoOn;
  }

  Outcome TakeLiteral(const Instruction& step) {
    const std::uint8_t* bytes = pattern_.code.data() + step.code;
    if (step.operand > stop_ - here_ || !text_.HasLiteral(here_, bytes, step.operand)) return Outcome::kFail;
    here_ += step.operand;
    return GoOnIf(true);
  }

  Outcome TakeFoldedLiteral(const Instruction& step) {
    const std::uint8_t* bytes = pattern_.code.data() + step.code;
    if (step.operand > stop_ - here_) return Outcome::kFail;
    for (int i = 0; i < step.operand; ++i)
      if (Folded(here_ + i) != bytes[i]) return Outcome::kFail;
    here_ += step.operand;
    return GoOnIf(true);
  }

  const CharacterSet& SetOf(const Instruction& step) const {
    return program_.sets[static_cast<std::size_t>(step.index)];
  }

  // The length of the character at `at` if it is in `set`, else 0.
  std::int32_t LengthIn(const CharacterSet& set, std::int32_t at) const {
    if (at >= stop_) return 0;
    if (static_cast<std::uint8_t>(text_[at]) < 0x80) return set.HasAscii(text_[at]);
    Utf8Char c = Utf8At(text_, at);
    return c.length <= stop_ - at && set.HasBeyond(c.code) ? c.length : 0;
  }

  std::int32_t CharacterRunEnd(const Instruction& step) {
    std::int32_t end = here_;
    while (std::int32_t length = LengthIn(SetOf(step), end)) end += length;
    ticker_.Tick(1 + (end - here_) / kComparedPerTick);
    return end;
  }

  // Compares with the characters of `wanted` in [from, to).
  template <typename Wanted>
  Outcome TakeFoldedUtf8(const Wanted& wanted, std::int32_t from, std::int32_t to) {
    std::int32_t at = here_, next = from;
    while (next < to && at < stop_) {
      Utf8Char a = Utf8At(wanted, next), b = Utf8At(text_, at);
      if (a.code != b.code && FoldCharacter(a.code) != FoldCharacter(b.code)) break;
      next += a.length;
      at += b.length;
    }
    ticker_.Tick((at - here_) / kComparedPerTick);
    here_ = at;
    return GoOnIf(next >= to && at <= stop_);
  }

  // A register that holds no text, because its group never closed or was entered anew, matches nothing.
  bool IsSet(int reg) const { return end_[reg] >= 0 && end_[reg] >= start_[reg]; }

  Outcome TakeBackRef(int reg) {
    std::int32_t length = end_[reg] - start_[reg];
    if (!IsSet(reg) || length > stop_ - here_) return Outcome::kFail;
    std::int32_t same = 0;
    while (same < length && Folded(here_ + same) == Folded(start_[reg] + same)) ++same;
    ticker_.Tick(same / kComparedPerTick);
    here_ += length;
    return GoOnIf(same == length);
  }

  Outcome TakePush(const Instruction& step) {
    if (!stack_.Reserve(1)) return Outcome::kOverflow;
    stack_.Push(step.index, here_, here_);
    return GoOnIf(true);
  }

  // When a loop is closed for the first time it is decided, for good, whether it may forget its points.
  void Decide(Instruction& step) {
    bool isPossessive = MayFinalizeLoop(pattern_.code, step.code, pattern_.foldCase);
    step.mode = isPossessive ? LoopMode::kPossessive : LoopMode::kBacktracking;
    pattern_.code[static_cast<std::size_t>(step.code)] =
        static_cast<std::uint8_t>(isPossessive ? Opcode::kFinalizeJump : Opcode::kJump);
  }

  // A loop at the very end of the code is possessive whatever it repeats. One that repeats nothing would go
  // round for ever; it ends as it would if its points were kept.
  Outcome TakeLoopEnd(Instruction& step) {
    static constexpr int kMaxEmptyRounds = 4096;
    if (step.mode == LoopMode::kUndecided) Decide(step);
    ticker_.Tick(program_.stretchWeight);
    if (step.mode == LoopMode::kPossessive && !stack_.Empty()) {
      std::int32_t after = program_.steps[static_cast<std::size_t>(step.index)].index;
      bool isEmptyRound = stack_.Top().step == after && stack_.Top().last == here_;
      if (isEmptyRound && ++emptyRounds_ > kMaxEmptyRounds) return Outcome::kOverflow;
      stack_.Drop(1);
    }
    return JumpTo(step.index);
  }

  std::int32_t RunEnd(const Instruction& step) {
    std::int32_t end = text_.FindFirstNot(ClassOf(step), here_, stop_);
    ticker_.Tick(1 + (end - here_) / kScannedPerTick);
    return end;
  }

  // Each round pushes a point; the last one finds no byte and takes its own point away again.
  Outcome TakeStar(Instruction& step, std::int32_t end) {
    if (end > here_ && step.mode == LoopMode::kUndecided) Decide(step);
    bool keepsPoints = end > here_ && step.mode == LoopMode::kBacktracking;
    if (!stack_.Reserve(keepsPoints ? end - here_ + 1 : 1)) return Outcome::kOverflow;
    ++at_;
    if (keepsPoints) stack_.Push(Index(at_), here_, end - 1);
    here_ = end;
    return Outcome::kGoOn;
  }

  // As a star, but the first round is guarded by a dormant point, which a possessive loop takes away.
  Outcome TakePlus(Instruction& step, std::int32_t end) {
    stack_.PushDormant();
    if (end == here_) return Outcome::kFail;
    if (step.mode == LoopMode::kUndecided) Decide(step);
    bool isPossessive = step.mode == LoopMode::kPossessive;
    if (isPossessive) stack_.Drop(1);
    if (!stack_.Reserve(isPossessive ? 1 : end - here_)) return Outcome::kOverflow;
    ++at_;
    if (!isPossessive && end - 1 > here_) stack_.Push(Index(at_), here_ + 1, end - 1);
    here_ = end;
    return Outcome::kGoOn;
  }

  std::int32_t Index(const Instruction* step) const {
    return static_cast<std::int32_t>(step - program_.steps.data());
  }

  // Goes back to the newest failure point; false when there is none. Of a run of points before a byte, those
  // that stand before another are passed over together. In UTF-8 a place within a character is no point.
  bool Resume() {
    ticker_.Tick(program_.stretchWeight);
    while (!stack_.Empty()) {
      FailureStack::Entry top = stack_.Top();
      if (top.step == FailureStack::kDormant) {
        stack_.Drop(1);
        continue;
      }
      const Instruction& next = program_.steps[static_cast<std::size_t>(top.step)];
      std::int32_t last = top.last;
      bool wantsByte = next.step == Step::kByte || next.step == Step::kLiteral;
      if (wantsByte && last > top.first) last = text_.FindLast(FirstByte(next), top.first, last + 1);
      if (program_.isForUtf8 && last >= top.first) last = Utf8Start(text_, last);
      ticker_.Tick((top.last - last) / kScannedPerTick);
      if (last < top.first) {
        stack_.Drop(top.last - top.first + 1);
        continue;
      }
      stack_.Drop(top.last - last + 1);
      here_ = last;
      JumpTo(top.step);
      return true;
    }
    return false;
  }

  char FirstByte(const Instruction& step) const {
    return static_cast<char>(step.step == Step::kByte ? step.operand
                                                      : pattern_.code[static_cast<std::size_t>(step.code)]);
  }

  CompiledPattern& pattern_;
  MatchProgram& program_;
  const FoldTable& fold_;
  const ByteAlphabet& alphabet_;
  const Text& text_;
  std::int32_t origin_;
  std::int32_t stop_;
  Instruction* at_ = nullptr;
  std::int32_t here_ = 0;
  int emptyRounds_ = 0;
  std::array<std::int32_t, MatchRegisters::kCount> start_;
  std::array<std::int32_t, MatchRegisters::kCount> end_;
  ProgressTicker& ticker_;
  FailureStack stack_;
};

}  // namespace tarrow
