#include "search/pattern/match_program.h"

#include <algorithm>
#include <array>
#include <map>

namespace tarrow {
namespace {

constexpr int kCodePerTick = 64;  // bytes of code that weigh as much as one step of the ticker

using Members = std::array<bool, 256>;

bool IsLoopEnd(Opcode op) {
  return op == Opcode::kMaybeFinalizeJump || op == Opcode::kFinalizeJump || op == Opcode::kJump;
}

bool IsJump(Opcode op) {
  return IsLoopEnd(op) || op == Opcode::kOnFailureJump || op == Opcode::kDummyFailureJump;
}

class Decoder {
 public:
  explicit Decoder(const CompiledPattern& pattern)
      : code_(pattern.code),
        fold_(pattern.Fold()),
        foldCase_(pattern.foldCase),
        jumpsTo_(code_.size() + 1),
        indexOf_(code_.size() + 1) {
    program_.isForUtf8 = pattern.isForUtf8;
    program_.alphabet = &pattern.Alphabet();
    program_.fold = &pattern.Fold();
  }

  MatchProgram Run() {
    for (int at = 0; at < End(); at += OperationSize(code_, at))
      if (IsJump(OpcodeAt(code_, at))) ++jumpsTo_[Bounded(JumpTarget(code_, at))];
    for (int at = 0; at < End();) {
      indexOf_[at] = Here();
      at += Decode(at);
    }
    indexOf_[End()] = Here();
    program_.steps.push_back({Step::kMatch});
    program_.stretchWeight += End() / kCodePerTick;
    for (Instruction& step : program_.steps)
      if (step.step == Step::kPush || step.step == Step::kPushDormant || step.step == Step::kLoopEnd)
        step.index = indexOf_[step.index];
    return std::move(program_);
  }

 private:
  int End() const { return static_cast<int>(code_.size()); }
  int Here() const { return static_cast<int>(program_.steps.size()); }
  int Bounded(int at) const { return at < 0 || at > End() ? End() : at; }

  void Add(Step step, int operand, int index = 0, int code = 0) {
    Instruction instruction;
    instruction.step = step;
    instruction.operand = static_cast<std::uint8_t>(operand);
    instruction.index = index;
    instruction.code = code;
    program_.steps.push_back(instruction);
  }

  // Decodes the operation at `at`, or the loop that begins there. Returns how many bytes of code that took.
  int Decode(int at) {
    if (int size = DecodeLoop(at)) return size;
    switch (OpcodeAt(code_, at)) {
      case Opcode::kExact:
        AddExact(at);
        break;
      case Opcode::kAnyChar:
      case Opcode::kCharSet:
      case Opcode::kCharSetNot:
        Add(Step::kClass, 0, ClassOf(at));
        break;
      case Opcode::kLineStart:
        Add(Step::kLineStart, 0);
        break;
      case Opcode::kLineEnd:
        Add(Step::kLineEnd, 0);
        break;
      case Opcode::kWordStart:
        Add(Step::kWordStart, 0);
        break;
      case Opcode::kWordEnd:
        Add(Step::kWordEnd, 0);
        break;
      case Opcode::kGroupStart:
        AddGroupStep(Step::kGroupStart, at);
        break;
      case Opcode::kGroupEnd:
        AddGroupStep(Step::kGroupEnd, at);
        break;
      case Opcode::kBackRef:
        AddGroupStep(Step::kBackRef, at);
        break;
      case Opcode::kOnFailureJump:
        Add(Step::kPush, 0, Bounded(JumpTarget(code_, at)));
        break;
      case Opcode::kDummyFailureJump:
        Add(Step::kPushDormant, 0, Bounded(JumpTarget(code_, at)));
        break;
      case Opcode::kJump:
      case Opcode::kFinalizeJump:
      case Opcode::kMaybeFinalizeJump:
        AddLoopEnd(Step::kLoopEnd, at, Bounded(JumpTarget(code_, at)));
        break;
      default:
        DecodeUtf8(at);
    }
    return OperationSize(code_, at);
  }

  // The same for the operations on whole characters.
  void DecodeUtf8(int at) {
    switch (OpcodeAt(code_, at)) {
      case Opcode::kUtf8AnyChar:
      case Opcode::kUtf8CharSet:
      case Opcode::kUtf8CharSetNot:
        Add(Step::kCharacter, 0, SetOf(at));
        break;
      case Opcode::kUtf8FoldedExact:
        Add(Step::kUtf8FoldedLiteral, CodeByte(code_, at + 1), 0, at + 2);
        break;
      case Opcode::kUtf8FoldedBackRef:
        AddGroupStep(Step::kUtf8FoldedBackRef, at);
        break;
      case Opcode::kUtf8WordStart:
        Add(Step::kUtf8WordStart, 0);
        break;
      case Opcode::kUtf8WordEnd:
        Add(Step::kUtf8WordEnd, 0);
        break;
      default:
        break;
    }
  }

  void AddExact(int at) {
    int count = CodeByte(code_, at + 1);
    if (count > 1) {
      Add(foldCase_ ? Step::kFoldedLiteral : Step::kLiteral, count, 0, at + 2);
    } else if (foldCase_ && StandsForMore(CodeByte(code_, at + 2))) {
      Add(Step::kClass, 0, ClassOf(at));
    } else {
      Add(Step::kByte, CodeByte(code_, at + 2));
    }
  }

  // Is there another byte that is folded to `c`?
  bool StandsForMore(int c) const { return std::ranges::count(fold_, c) > 1; }

  void AddGroupStep(Step step, int at) {
    int reg = CodeByte(code_, at + 1);
    program_.registerCount = std::max(program_.registerCount, reg + 1);
    Add(step, reg);
  }

  void AddLoopEnd(Step step, int jumpAt, int index) {
    Add(step, 0, index, jumpAt);
    if (OpcodeAt(code_, jumpAt) == Opcode::kFinalizeJump) program_.steps.back().mode = LoopMode::kPossessive;
    if (OpcodeAt(code_, jumpAt) == Opcode::kJump) program_.steps.back().mode = LoopMode::kBacktracking;
  }

  bool IsCharacter(int at) const {
    Opcode op = OpcodeAt(code_, at);
    return op == Opcode::kUtf8AnyChar || op == Opcode::kUtf8CharSet || op == Opcode::kUtf8CharSetNot;
  }

  bool IsSingleChar(int at) const {
    Opcode op = OpcodeAt(code_, at);
    return IsCharacter(at) || op == Opcode::kAnyChar || op == Opcode::kCharSet || op == Opcode::kCharSetNot ||
           (op == Opcode::kExact && CodeByte(code_, at + 1) == 1);
  }

  // The length of a loop over one character whose OnFailureJump stands at `at`, or 0: nothing else may jump
  // into its middle.
  int StarSize(int at, int jumpsToBody) const {
    int body = at + kJumpSize;
    if (at >= End() || OpcodeAt(code_, at) != Opcode::kOnFailureJump || !IsSingleChar(body)) return 0;
    int close = body + OperationSize(code_, body), after = close + kJumpSize;
    bool isLoop = after <= End() && IsLoopEnd(OpcodeAt(code_, close)) && JumpTarget(code_, close) == at &&
                  JumpTarget(code_, at) == after;
    return isLoop && jumpsTo_[body] == jumpsToBody && jumpsTo_[close] == 0 ? after - at : 0;
  }

  int DecodeLoop(int at) {
    if (int size = StarSize(at, 0)) {
      AddRun(Step::kStar, Step::kCharacterStar, at + kJumpSize, at + size - kJumpSize);
      return size;
    }
    int star = at + kJumpSize;
    if (OpcodeAt(code_, at) != Opcode::kDummyFailureJump || JumpTarget(code_, at) != star + kJumpSize)
      return 0;
    int size = StarSize(star, 1);
    if (size == 0 || jumpsTo_[star] != 1) return 0;
    AddRun(Step::kPlus, Step::kCharacterPlus, star + kJumpSize, star + size - kJumpSize);
    return kJumpSize + size;
  }

  // Adds the loop over the single character at `body`. Where all characters beyond ASCII belong to it, its
  // run goes over them byte by byte.
  void AddRun(Step ofBytes, Step ofCharacters, int body, int jumpAt) {
    if (!IsCharacter(body)) return AddLoopEnd(ofBytes, jumpAt, ClassOf(body));
    CharacterSet set(code_, body, foldCase_);
    if (set.HasAllBeyond())
      AddLoopEnd(ofBytes, jumpAt, IndexOf(set.AllBytes()));
    else
      AddLoopEnd(ofCharacters, jumpAt, SetOf(body));
  }

  int SetOf(int at) {
    program_.sets.emplace_back(code_, at, foldCase_);
    return static_cast<int>(program_.sets.size()) - 1;
  }

  // The index of the class of text bytes that the one-character operation at `at` matches.
  int ClassOf(int at) {
    Opcode op = OpcodeAt(code_, at);
    Members members{};
    for (int c = 0; c < 256; ++c) {
      int folded = fold_[static_cast<std::size_t>(c)];
      members[static_cast<std::size_t>(c)] = op == Opcode::kAnyChar ? folded != '\r' && folded != '\n'
                                             : op == Opcode::kExact
                                                 ? folded == CodeByte(code_, at + 2)
                                                 : IsInBitmap(code_, at, folded) == (op == Opcode::kCharSet);
    }
    return IndexOf(members);
  }

  int IndexOf(const Members& members) {
    auto [entry, isNew] = classIndex_.try_emplace(members, static_cast<int>(program_.classes.size()));
    if (isNew) program_.classes.emplace_back(members);
    return entry->second;
  }

  ByteCode code_;
  const FoldTable& fold_;
  bool foldCase_;
  std::vector<int> jumpsTo_;  // how many jumps lead to each code position
  std::vector<int> indexOf_;
  std::map<Members, int> classIndex_;
  MatchProgram program_;
};

}  // namespace

MatchProgram DecodeProgram(const CompiledPattern& pattern) {
  return Decoder(pattern).Run();
}

}  // namespace tarrow
