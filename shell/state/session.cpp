#include "shell/state/session.h"

#include "base/text_format.h"
#include "shell/state/settings.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace tarrow {
namespace {

constexpr std::string_view kCountKey = "EditCount";
constexpr std::string_view kEntryPrefix = "Edit";

// Smaller than this a frame shows nothing of a text and could hardly be taken hold of.
constexpr int kLeastWidth = 120, kLeastHeight = 80;

std::string EntryKey(std::uint32_t number) {
  return FormatText("Edit%.2d", {number});
}

// The path, and behind the last comma the bits of the window. A comma of the path itself is no harm: the bits
// are always written.
SessionEntry ParseEntry(const std::string& value) {
  std::size_t comma = value.rfind(',');
  if (comma == std::string::npos || comma == 0) return {value, {}};
  std::size_t digits = std::min(value.find_first_not_of(" \t", comma + 1), value.size());
  std::uint32_t flags = 0;
  std::from_chars(value.data() + digits, value.data() + value.size(), flags);
  return {value.substr(0, comma), flags};
}

// The numbers at the front of `value`, at most `most`, with one comma between them. One that is too large is
// as large as can be.
std::vector<int> ParseNumbers(std::string_view value, std::size_t most) {
  std::vector<int> numbers;
  const char* end = value.data() + value.size();
  for (const char* at = value.data(); at != end && numbers.size() < most; ++at) {
    int number = 0;
    auto [next, error] = std::from_chars(at, end, number);
    if (error == std::errc::invalid_argument) break;
    if (error == std::errc::result_out_of_range)
      number = *at == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    numbers.push_back(number);
    at = next;
    if (at == end || *at != ',') break;
  }
  return numbers;
}

}  // namespace

std::vector<SessionEntry> ReadSession(const CProfileStore& store) {
  std::vector<SessionEntry> entries;
  std::uint32_t count = store.ReadNumber(kSessionSection, kCountKey, 10).value_or(0);
  std::string value;
  for (std::uint32_t n = 1; n <= count && store.ReadString(kSessionSection, EntryKey(n), value); ++n)
    entries.push_back(ParseEntry(value));
  return entries;
}

void WriteSession(CProfileStore& store, const std::vector<SessionEntry>& entries) {
  for (const std::string& key : store.Keys(kSessionSection))
    if (key.starts_with(kEntryPrefix)) store.RemoveKey(kSessionSection, key);
  std::uint32_t number = 0;
  for (const SessionEntry& entry : entries)
    store.WriteString(kSessionSection, EntryKey(++number),
                      FormatText("%s,%u", {entry.path, entry.flags.value_or(0)}));
  if (number > 0) store.WriteNumber(kSessionSection, kCountKey, number, 10);
}

FramePlacement ParsePlacement(std::string_view value, const FrameBounds& usual, int screenWidth,
                              int screenHeight) {
  std::vector<int> numbers = ParseNumbers(value, 5);
  if (numbers.empty()) return {};
  auto given = [&](std::size_t i) { return i < numbers.size(); };
  FrameBounds bounds = usual;
  bounds.left = std::max(numbers[0], 0);
  if (given(1)) bounds.top = std::max(numbers[1], 0);
  if (given(2)) bounds.right = std::min(numbers[2], screenWidth);
  if (given(3)) bounds.bottom = std::min(numbers[3], screenHeight);
  FramePlacement placement;
  placement.maximised = given(4) && numbers[4] != 0;
  if (bounds.right - bounds.left >= kLeastWidth && bounds.bottom - bounds.top >= kLeastHeight)
    placement.bounds = bounds;
  return placement;
}

std::string FormatPlacement(std::string_view savedBefore, const FrameBounds& now, FrameState state) {
  std::size_t rectangle = std::string_view::npos;
  if (state != FrameState::kNormal) {
    rectangle = 0;
    for (int i = 0; i < 4 && rectangle != std::string_view::npos; ++i)
      rectangle = savedBefore.find(',', rectangle + (i > 0));
  }
  int maximised = state == FrameState::kMaximised;
  if (rectangle == std::string_view::npos)
    return FormatText("%d,%d,%d,%d,%d", {now.left, now.top, now.right, now.bottom, maximised});
  return FormatText("%s,%d", {savedBefore.substr(0, rectangle), maximised});
}

}  // namespace tarrow
