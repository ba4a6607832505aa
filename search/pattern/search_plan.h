// How a forward search gets from one place worth trying to the next.
//
// A plan is made from the decoded program, once per pattern. It never decides whether something matches: it
// only names places at which the matcher would certainly fail (and not run out of room either), so that they
// need not be tried. Of the ways to skip, the one that stops least in source code is chosen:
//
//   kFixedLiteral   every match has a literal at a fixed distance from its start: "..foo", "\<if\>"
//   kReachedLiteral every match has a literal that is reached over bytes of one class only: "[a-z]*(",
//   ".*foo" kLineStarts     a match begins at a line start: "^[ \t]*{" kFirstByte      a match begins with a
//   byte of a class, or nothing is known
#pragma once

#include "search/pattern/literal_finder.h"
#include "search/pattern/match_program.h"

namespace tarrow {

enum class SkipBy : std::uint8_t { kFirstByte, kLineStarts, kFixedLiteral, kReachedLiteral };

struct SearchPlan {
  SkipBy skipBy = SkipBy::kFirstByte;

  // When set, a place inside the text whose byte is not in `first` need not be tried.
  bool hasFirst = false;
  ByteClass first;

  // Whether every match begins with such a byte: a text without any cannot match.
  bool needsFirst = false;

  // The literal and its distance from the start of the match, or the bytes that lie between them.
  LiteralFinder literal;
  std::int32_t literalOffset = 0;
  ByteClass reach;
  bool orTextEnd = false;  // the end of the text does in place of the literal

  // Whether the matcher might run out of room within a run of at least kLongRun bytes of `reach`.
  bool mayOverflow = false;
  static constexpr std::int32_t kLongRun = 3900;

  // Whether a match begins at the start of a word.
  bool atWordStart = false;

  // When set, a failure at a place in a run of `leadRun` bytes means failure up to and at the run's end.
  bool skipsLeadRun = false;
  ByteClass leadRun;
};

// The same for a scan that tries every place as if the text began there, map or no map, and wants matches
// that consume something.
struct ScanPlan {
  // A match begins with `runLength` bytes of `run`; with a runLength of 0 nothing is known.
  std::size_t runLength = 0;
  ByteClass run;

  bool skipsLeadRun = false;
  ByteClass leadRun;
};

// `canBeEmpty` and the map are those of ComputeFirstCharMap: a search tries no place that they exclude.
SearchPlan PlanSearch(const MatchProgram& program, const CompiledPattern& pattern);
ScanPlan PlanScan(const MatchProgram& program, const CompiledPattern& pattern);

}  // namespace tarrow
