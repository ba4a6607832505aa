#include "search/pattern/regex_dump.h"

#include "base/text_format.h"
#include "search/pattern/byte_code.h"

namespace tarrow {
namespace {

struct OperationName {
  Opcode op;
  const char* name;
};

constexpr OperationName kNames[] = {
    {Opcode::kExact, "Exact"},
    {Opcode::kLineStart, "LineStart"},
    {Opcode::kLineEnd, "LineEnd"},
    {Opcode::kJump, "Jump"},
    {Opcode::kOnFailureJump, "OnFailureJump"},
    {Opcode::kFinalizeJump, "FinalizeJump"},
    {Opcode::kMaybeFinalizeJump, "MaybeFinalizeJump"},
    {Opcode::kDummyFailureJump, "DummyFailureJump"},
    {Opcode::kAnyChar, "AnyChar"},
    {Opcode::kCharSet, "CharSet"},
    {Opcode::kCharSetNot, "CharSetNot"},
    {Opcode::kGroupStart, "GroupStart"},
    {Opcode::kGroupEnd, "GroupEnd"},
    {Opcode::kBackRef, "BackRef"},
    {Opcode::kWordStart, "WordStart"},
    {Opcode::kWordEnd, "WordEnd"},
    {Opcode::kUtf8AnyChar, "Utf8AnyChar"},
    {Opcode::kUtf8CharSet, "Utf8CharSet"},
    {Opcode::kUtf8CharSetNot, "Utf8CharSetNot"},
    {Opcode::kUtf8FoldedExact, "Utf8FoldedExact"},
    {Opcode::kUtf8FoldedBackRef, "Utf8FoldedBackRef"},
    {Opcode::kUtf8WordStart, "Utf8WordStart"},
    {Opcode::kUtf8WordEnd, "Utf8WordEnd"},
};

std::string NameOf(Opcode op) {
  for (const OperationName& entry : kNames)
    if (entry.op == op) return entry.name;
  return FormatText("NoOp(%d)", {static_cast<int>(op)});
}

std::string Printable(int c) {
  if (c < ' ' || c > '~') return FormatText("\\x%02X", {c});
  return c == '\\' || c == '-' || c == ']' ? std::string("\\") + static_cast<char>(c)
                                           : std::string(1, static_cast<char>(c));
}

std::string Literal(ByteCode code, int at) {
  std::string out = " ";
  for (int i = 0; i < CodeByte(code, at + 1); ++i) out += Printable(CodeByte(code, at + 2 + i));
  return out;
}

// The characters beyond ASCII of a set: " U+00E0-U+00FF".
std::string Ranges(ByteCode code, int at) {
  std::string out;
  int first = at + 4 + CodeByte(code, at + 1), end = at + OperationSize(code, at);
  auto number = [&](int place) {
    return CodeByte(code, place) | CodeByte(code, place + 1) << 8 | CodeByte(code, place + 2) << 16;
  };
  for (int place = first; place < end; place += kCodeRangeSize) {
    int low = number(place), high = number(place + kCodeRangeSize / 2);
    out += FormatText(low == high ? " U+%04X" : " U+%04X-U+%04X", {low, high});
  }
  return out;
}

std::string Members(ByteCode code, int at) {
  std::string out = " [";
  for (int c = 0; c < 256; ++c) {
    if (!IsInBitmap(code, at, c)) continue;
    int last = c;
    while (last < 255 && IsInBitmap(code, at, last + 1)) ++last;
    out += Printable(c);
    if (last > c + 1) out += '-';
    if (last > c) out += Printable(last);
    c = last;
  }
  return out + "]" + Ranges(code, at);
}

std::string Operand(ByteCode code, int at) {
  switch (OpcodeAt(code, at)) {
    case Opcode::kExact:
    case Opcode::kUtf8FoldedExact:
      return Literal(code, at);
    case Opcode::kCharSet:
    case Opcode::kCharSetNot:
    case Opcode::kUtf8CharSet:
    case Opcode::kUtf8CharSetNot:
      return Members(code, at);
    case Opcode::kJump:
    case Opcode::kOnFailureJump:
    case Opcode::kFinalizeJump:
    case Opcode::kMaybeFinalizeJump:
    case Opcode::kDummyFailureJump:
      return FormatText(" %d", {JumpTarget(code, at)});
    case Opcode::kGroupStart:
    case Opcode::kGroupEnd:
    case Opcode::kBackRef:
    case Opcode::kUtf8FoldedBackRef:
      return FormatText(" %d", {CodeByte(code, at + 1)});
    default:
      return {};
  }
}

}  // namespace

std::string DumpPattern(const CompiledPattern& pattern) {
  ByteCode code = pattern.code;
  std::string out;
  for (int at = 0; at < static_cast<int>(code.size()); at += OperationSize(code, at))
    out += FormatText("%4d %s%s\n", {at, NameOf(OpcodeAt(code, at)), Operand(code, at)});
  return out;
}

}  // namespace tarrow
