#include "search/find/find_in_bytes.h"

#include "ui/program/string_ids.h"

namespace tarrow {
namespace {

// What a file holds is not known before it has been read, so it is taken to go beyond ASCII.
constexpr std::string_view kBeyondAscii = "\xC2\xA0";

// Where a pass begins; nothing when there is no place to try.
using Start = std::optional<std::uint64_t>;

Start FirstStart(bool forward, const FileRange& selection) {
  if (forward) return selection.end;
  return selection.start > 0 ? Start(selection.start - 1) : Start();
}

// There is no second pass when the first covers the whole file: forwards from its start, backwards from its
// last byte.
int PassCount(bool forward, std::uint64_t size, Start start) {
  std::uint64_t at = start.value_or(0);
  bool coversAll = forward ? at == 0 : size - at == 1;
  return coversAll ? 1 : 2;
}

// So that "^" moves on from a line start, and a match at a line end does too.
std::uint64_t OffAnchors(std::uint64_t at, const CompiledPattern& pattern, FileFinder& finder) {
  bool atLineStart = at == 0 || finder.ByteAt(at - 1) == '\n';
  if (pattern.hasLineStart && atLineStart) return at + 1;
  if (finder.ByteAt(at) == '\r') ++at;
  if (finder.ByteAt(at) == '\n') ++at;
  return at;
}

}  // namespace

std::optional<FileRange> FindInBytes(FindState& state, ByteSource& file, FileRange selection, Charset charset,
                                     FindDialogue& user, Progress* progress) {
  if (int message = CompileIfNeeded(state, charset, TextView(kBeyondAscii))) {
    user.Complain(message);
    return std::nullopt;
  }
  state.registers = {};
  FileFinder finder(state.compiled, file, progress);
  bool forward = state.searchForward;
  Start start = FirstStart(forward, selection);
  int passes = PassCount(forward, finder.Size(), start);
  if (forward) start = OffAnchors(*start, state.compiled, finder);
  for (;;) {
    auto found = !start ? std::nullopt : forward ? finder.Forward(*start) : finder.Backward(*start);
    if (found) return found;
    if (--passes == 0) {
      user.Complain(kTextNotFound);
      return std::nullopt;
    }
    if (!user.ConfirmRestart(forward ? kTextRestartFromStart : kTextRestartFromEnd)) return std::nullopt;
    start = forward ? 0 : finder.Size();
  }
}

}  // namespace tarrow
