#include "search/pattern/search_plan.h"

#include "base/byte_scan.h"
#include "search/pattern/utf8_text.h"

#include <algorithm>
#include <optional>

namespace tarrow {
namespace {

constexpr int kMaxElements = 100;  // far below what would strain the failure stack by itself

ByteClass AllBytes() {
  std::array<bool, 256> members;
  members.fill(true);
  return ByteClass(members);
}

ByteClass BeyondAscii() {
  std::array<bool, 256> members{};
  std::fill(members.begin() + 0x80, members.end(), true);
  return ByteClass(members);
}

ByteClass OneByte(char c, const FoldTable& fold) {
  std::array<bool, 256> members{};
  for (std::size_t b = 0; b < 256; ++b) members[b] = fold[b] == fold[static_cast<std::uint8_t>(c)];
  return ByteClass(members);
}

// Reads the straight part of a program and collects what every match must begin with.
class Planner {
 public:
  Planner(const MatchProgram& program, const CompiledPattern& pattern)
      : program_(program), pattern_(pattern), fold_(pattern.Fold()), words_(pattern.Alphabet().words) {
    for (const Instruction& step : program.steps) {
      hasBackRef_ |= step.step == Step::kBackRef || step.step == Step::kUtf8FoldedBackRef;
      looksBehind_ |= step.step == Step::kLineStart || step.step == Step::kWordStart ||
                      step.step == Step::kWordEnd || step.step == Step::kUtf8WordStart ||
                      step.step == Step::kUtf8WordEnd;
    }
  }

  SearchPlan Run() {
    TakeElements();
    FinishFirst();
    ChooseSkip();
    plan_.atWordStart = isAtWordStart_;
    return std::move(plan_);
  }

  ScanPlan RunForScan() {
    TakeElements();
    ScanPlan plan;
    // Where the text begins at each place, what stands before that is not the same for all places of a run.
    plan.skipsLeadRun = plan_.skipsLeadRun && !looksBehind_ && !hasBackRef_;
    plan.leadRun = plan_.leadRun;
    if (firstIsKnown_ && !mayStartEmpty_) {
      plan.run = first_;
      plan.runLength = std::max<std::size_t>(LeadingClassLength(), 1);
    }
    return plan;
  }

 private:
  struct Candidate {
    LiteralFinder finder;
    int cost = 1000;
    bool isFixed = false;
    std::int32_t offset = 0;
    ByteClass reach;
    bool mayOverflow = false;
    bool orTextEnd = false;
  };

  void TakeElements() {
    for (at_ = 0; elements_ < kMaxElements && TakeElement(); ++elements_) {
    }
  }

  // How many bytes of one class a match begins with, when its first steps are that class again and again.
  std::size_t LeadingClassLength() const {
    std::size_t length = 0;
    for (const Instruction& step : program_.steps) {
      bool isOne = step.step == Step::kClass || step.step == Step::kPlus;
      if (!isOne || (length > 0 && step.index != program_.steps[0].index)) break;
      ++length;
      if (step.step == Step::kPlus) break;
    }
    return length;
  }

  const ByteClass& ClassAt(const Instruction& step) const {
    return program_.classes[static_cast<std::size_t>(step.index)];
  }

  std::string BytesOf(const Instruction& step) const {
    if (step.step == Step::kByte) return std::string(1, static_cast<char>(step.operand));
    auto from = pattern_.code.begin() + step.code;
    return std::string(from, from + step.operand);
  }

  // Takes the element at `at_`; false where the straight part ends.
  bool TakeElement() {
    const Instruction& step = program_.steps[static_cast<std::size_t>(at_)];
    switch (step.step) {
      case Step::kGroupStart:
      case Step::kGroupEnd:
        ++at_;
        return true;
      case Step::kLineStart:
        isAtLineStart_ |= !hasPassed_;
        return TakeAnchor();
      case Step::kWordStart:
        TakeWordStart();
        return TakeAnchor();
      case Step::kUtf8WordStart:
        TakeUtf8WordStart();
        return TakeAnchor();
      case Step::kWordEnd:
      case Step::kUtf8WordEnd:
        return TakeAnchor();
      case Step::kLineEnd:
        TakeLineEnd();
        return TakeAnchor();
      case Step::kClass:
        TakeClass(step);
        return true;
      case Step::kByte:
      case Step::kLiteral:
      case Step::kFoldedLiteral:
        TakeLiteral(step);
        return true;
      case Step::kUtf8FoldedLiteral:
        TakeUtf8Literal(step);
        return true;
      case Step::kCharacter:
      case Step::kCharacterStar:
      case Step::kCharacterPlus:
        TakeCharacters(step);
        return true;
      case Step::kStar:
        TakeLoop(step, false);
        return true;
      case Step::kPlus:
        TakeLoop(step, true);
        return true;
      case Step::kPush:
        return TakeOptional(step);
      default:
        return false;
    }
  }

  bool TakeAnchor() {
    hasAnchor_ |= !hasPassed_;
    ++at_;
    return true;
  }

  // At a word start stands a word character, if nothing has been consumed before it.
  void TakeWordStart() {
    if (hasPassed_) return;
    isAtWordStart_ = true;
    if (!firstIsKnown_) mustBe_ = words_;
  }
  void TakeUtf8WordStart() {
    if (!hasPassed_ && !firstIsKnown_) mustBe_ = words_ | BeyondAscii();
  }

  // Consumes nothing, but there is a CR, or nothing more.
  void TakeLineEnd() {
    mayStartEmpty_ |= !firstIsKnown_;
    firstIsKnown_ = true;
    Consider("\r", true);
  }

  void AddFirst(const ByteClass& bytes, bool isRequired) {
    if (firstIsKnown_) return;
    first_ = first_ | bytes;
    firstIsKnown_ = isRequired;
  }

  void TakeClass(const Instruction& step) {
    const ByteClass& bytes = ClassAt(step);
    AddFirst(bytes, true);
    // With folding, a single letter is a class of two bytes.
    Pass(bytes);
    ++offset_;
    ++at_;
  }

  void TakeLiteral(const Instruction& step) {
    std::string bytes = BytesOf(step);
    AddFirst(OneByte(bytes[0], fold_), true);
    ConsiderPlain(bytes);
    for (char c : bytes) Pass(OneByte(c, fold_));
    offset_ += static_cast<std::int32_t>(bytes.size());
    ++at_;
  }

  // The finder of literals knows the two cases of ASCII only. In the texts of a code page what stands before
  // the first byte beyond it will do.
  void ConsiderPlain(const std::string& bytes) {
    std::size_t plain = bytes.size();
    if (pattern_.foldCase && pattern_.alphabet) plain = FindHighByte(bytes);
    if (plain > 0) Consider(bytes.substr(0, plain));
  }

  // What is ASCII in a folded literal is a literal for the search. A character beyond ASCII may have more
  // bytes in its other case.
  void TakeUtf8Literal(const Instruction& step) {
    std::string bytes = BytesOf(step);
    bool isAscii = static_cast<std::uint8_t>(bytes[0]) < 0x80;
    AddFirst(isAscii ? OneByte(bytes[0], fold_) : BeyondAscii(), true);
    for (std::string_view rest = bytes; !rest.empty();) {
      std::size_t plain = FindHighByte(rest);
      if (plain > 0) Consider(std::string(rest.substr(0, plain)));
      for (char c : rest.substr(0, plain)) Pass(OneByte(c, fold_));
      offset_ += static_cast<std::int32_t>(plain);
      rest.remove_prefix(plain);
      if (rest.empty()) break;
      Pass(BeyondAscii());
      isFixed_ = false;
      rest.remove_prefix(static_cast<std::size_t>(Utf8In(rest, 0).length));
    }
    ++at_;
  }

  void TakeCharacters(const Instruction& step) {
    const CharacterSet& set = program_.sets[static_cast<std::size_t>(step.index)];
    AddFirst(ByteClass(set.FirstBytes()), step.step != Step::kCharacterStar);
    isFixed_ = false;
    if (step.step != Step::kCharacter) mayOverflow_ |= !IsCertainlyPossessive(step);
    Pass(ByteClass(set.AllBytes()));
    ++at_;
  }

  void TakeLoop(const Instruction& step, bool isRequired) {
    const ByteClass& bytes = ClassAt(step);
    AddFirst(bytes, isRequired);
    bool isLead = !hasPassed_ && (!hasAnchor_ || isAtWordStart_) && !isAtLineStart_;
    bool isInWord = (bytes & words_).Members() == bytes.Members();
    if (isLead && (isAtWordStart_ ? isInWord : !hasBackRef_)) {
      plan_.skipsLeadRun = true;
      plan_.leadRun = bytes;
    }
    isFixed_ = false;
    mayOverflow_ |= !IsCertainlyPossessive(step);
    Pass(bytes);
    ++at_;
  }

  // An optional item: a failure point past one simple thing.
  bool TakeOptional(const Instruction& step) {
    if (step.index != at_ + 2) return false;
    const Instruction& item = program_.steps[static_cast<std::size_t>(at_ + 1)];
    switch (item.step) {
      case Step::kClass:
        AddFirst(ClassAt(item), false);
        Pass(ClassAt(item));
        break;
      case Step::kCharacter: {
        const CharacterSet& set = program_.sets[static_cast<std::size_t>(item.index)];
        AddFirst(ByteClass(set.FirstBytes()), false);
        Pass(ByteClass(set.AllBytes()));
        break;
      }
      case Step::kByte:
      case Step::kLiteral:
      case Step::kFoldedLiteral: {
        std::string bytes = BytesOf(item);
        AddFirst(OneByte(bytes[0], fold_), false);
        for (char c : bytes) Pass(OneByte(c, fold_));
        break;
      }
      default:
        return false;
    }
    isFixed_ = false;
    at_ += 2;
    return true;
  }

  void Pass(const ByteClass& bytes) {
    passed_ = passed_ | bytes;
    hasPassed_ = true;
  }

  // A group mark after the loop makes the decision depend on bytes that are no operation; leave it open then.
  bool IsCertainlyPossessive(const Instruction& step) const {
    Opcode next = OpcodeAt(pattern_.code, step.code + kJumpSize);
    if (next == Opcode::kGroupStart || next == Opcode::kGroupEnd) return step.mode == LoopMode::kPossessive;
    return MayFinalizeLoop(pattern_.code, step.code, pattern_.foldCase);
  }

  // Keeps the literal if it is rarer than those before it. One at a fixed distance is worth more.
  void Consider(const std::string& bytes, bool orTextEnd = false) {
    int length = static_cast<int>(bytes.size());
    bool isFixed = isFixed_ && !orTextEnd;
    int cost = LiteralFinder::Commonness(bytes) - 12 * std::min(length - 1, 6) + (isFixed ? 0 : 8);
    if (cost >= best_.cost) return;
    LiteralFinder finder(bytes, pattern_.foldCase);
    best_ = {finder, cost, isFixed, offset_, passed_, mayOverflow_, orTextEnd};
  }

  void FinishFirst() {
    ByteClass all = AllBytes();
    bool isFirstKnown = firstIsKnown_ && !mayStartEmpty_;
    bool usesMap = pattern_.canBeEmpty != CanBeEmpty::kAnywhere;
    plan_.hasFirst = isFirstKnown || usesMap || mustBe_;
    plan_.needsFirst = isFirstKnown || mustBe_ || pattern_.canBeEmpty == CanBeEmpty::kNever;
    plan_.first = isFirstKnown ? first_ : all;
    if (mustBe_) plan_.first = plan_.first & *mustBe_;
    if (!usesMap) return;
    std::array<bool, 256> mapped;
    for (std::size_t c = 0; c < 256; ++c) mapped[c] = pattern_.firstCharMap[fold_[c]];
    plan_.first = plan_.first & ByteClass(mapped);
  }

  // A class of first bytes is about as common as its commonest member, a line start as a line feed.
  void ChooseSkip() {
    static constexpr int kLineStartCost = 85, kClassCost = 100;
    int cost = isAtLineStart_ ? kLineStartCost : kClassCost;
    if (isAtLineStart_) plan_.skipBy = SkipBy::kLineStarts;
    if (best_.cost >= cost) return;
    plan_.skipBy = best_.isFixed ? SkipBy::kFixedLiteral : SkipBy::kReachedLiteral;
    plan_.literal = best_.finder;
    plan_.literalOffset = best_.offset;
    plan_.reach = best_.reach;
    plan_.mayOverflow = best_.mayOverflow;
    plan_.orTextEnd = best_.orTextEnd;
  }

  const MatchProgram& program_;
  const CompiledPattern& pattern_;
  const FoldTable& fold_;
  const ByteClass& words_;
  SearchPlan plan_;
  Candidate best_;
  std::int32_t at_ = 0;
  int elements_ = 0;
  bool hasBackRef_ = false;
  bool looksBehind_ = false;

  // What the elements so far say of the start of a match ...
  bool hasAnchor_ = false;
  bool isAtLineStart_ = false;
  bool isAtWordStart_ = false;
  ByteClass first_;
  bool firstIsKnown_ = false;   // something has certainly been consumed
  bool mayStartEmpty_ = false;  // or a line end was reached before
  std::optional<ByteClass> mustBe_;

  // ... and of the way from there to the next element.
  bool hasPassed_ = false;
  ByteClass passed_;
  bool isFixed_ = true;
  std::int32_t offset_ = 0;
  bool mayOverflow_ = false;
};

}  // namespace

SearchPlan PlanSearch(const MatchProgram& program, const CompiledPattern& pattern) {
  return Planner(program, pattern).Run();
}

ScanPlan PlanScan(const MatchProgram& program, const CompiledPattern& pattern) {
  return Planner(program, pattern).RunForScan();
}

}  // namespace tarrow
