#include "edit/recovery/left_texts.h"

#include "base/exceptions.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarrow {
namespace {

using Kind = JournalState::Kind;

void TryRemove(JournalFile& file) {
  try {
    file.Remove();
  } catch (const CFileException&) {  // it is offered again
  }
}

// A journal that cannot be read counts as unreadable, for whatever reason.
JournalState TryRead(JournalFile& file) {
  try {
    return ReadJournalState(file);
  } catch (const CException&) {
    return {};
  }
}

bool IsNewer(const LeftText& a, const LeftText& b) {
  return a.state.description.generation > b.state.description.generation;
}

}  // namespace

std::vector<LeftText> ClaimLeftTexts(JournalDisk& disk) {
  std::vector<LeftText> texts;
  for (auto& file : disk.Claim()) {
    LeftText left{TryRead(*file), {}};
    if (left.state.kind == Kind::kUnfinished) TryRemove(*file);
    if (left.state.kind != Kind::kWhole) continue;
    left.files.push_back(std::move(file));
    auto same = std::ranges::find_if(texts, [&](const LeftText& other) {
      return other.state.description.document == left.state.description.document;
    });
    if (same == texts.end()) {
      texts.push_back(std::move(left));
      continue;
    }
    if (IsNewer(left, *same)) std::swap(*same, left);
    std::ranges::move(left.files, std::back_inserter(same->files));
  }
  std::ranges::sort(texts, [](const LeftText& a, const LeftText& b) { return a.state.time > b.state.time; });
  return texts;
}

TextBuffer RecoverText(LeftText& left) {
  return ReplayJournal(*left.files.front());
}

// The oldest first: a failure on the way leaves the newest.
void DiscardText(LeftText& left) {
  for (; !left.files.empty(); left.files.pop_back()) left.files.back()->Remove();
}

}  // namespace tarrow
