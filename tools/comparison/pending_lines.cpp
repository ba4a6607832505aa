#include "tools/comparison/pending_lines.h"

#include <algorithm>
#include <bit>

namespace tarrow {
namespace {

constexpr std::size_t kBuckets = 80;
constexpr unsigned kLeastSlotBits = 10;

// The xor of sign-extended characters is eight bits and the sign again, so that nine of its bits tell all.
std::uint32_t KeyOf(std::string_view text) {
  std::uint32_t hash = 0, xorSum = 0;
  for (char c : text) {
    auto value = static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<signed char>(c)));
    hash = std::rotl(static_cast<std::uint16_t>(hash), 1) + value;
    xorSum ^= value;
  }
  auto bucket = static_cast<std::uint32_t>(std::min(text.size(), kBuckets - 1));
  return bucket << 25 | (xorSum & 0x1FF) << 16 | (hash & 0xFFFF);
}

}  // namespace

void PendingLines::Append(const LineSpan& line) {
  lines_.push_back({line});
  textSize_ += line.length;
}

void PendingLines::Skip() {
  indexed_ = std::max(indexed_, ++settled_);
  window_.ReleaseBefore(window_.Position());
}

void PendingLines::DropThrough(std::uint64_t number) {
  while (settled_ < number && !lines_.empty()) {
    const Line& line = lines_.front();
    ++settled_;
    // The oldest line is the first of its slot.
    if (settled_ <= indexed_) {
      Slot& slot = SlotOf(line.key);
      slot.first = line.next ? slot.first + line.next : 0;
    }
    textSize_ -= line.span.length;
    lines_.pop_front();
  }
  indexed_ = std::max(indexed_, settled_);
  window_.ReleaseBefore(lines_.empty() ? window_.Position() : lines_.front().span.position);
}

FoundLines PendingLines::FindEqual(PendingLines& other, std::uint64_t line) {
  CatchUp();
  other.CatchUp();
  FoundLines found;
  std::uint32_t key = other.At(line).key;
  const Slot& slot = SlotOf(key);
  if (!slot.first) return found;
  for (std::uint64_t number = origin_ + slot.first; found.count < found.numbers.size();) {
    const Line& candidate = At(number);
    if (candidate.key == key && (form_ == LineForm::kText || SameText(number, other, line)))
      found.numbers[found.count++] = number;
    if (!candidate.next) break;
    number += candidate.next;
  }
  return found;
}

bool PendingLines::Equal(std::uint64_t number, PendingLines& other, std::uint64_t line) {
  if (SameText(number, other, line)) return true;
  if (form_ == LineForm::kExact) return false;
  CatchUp();
  other.CatchUp();
  return At(number).key == other.At(line).key;
}

bool PendingLines::SameText(std::uint64_t number, const PendingLines& other, std::uint64_t line) const {
  return TextOf(number) == other.TextOf(line) &&
         (form_ == LineForm::kText || (*this)[number].terminated == other[line].terminated);
}

// Puts the lines that came since the last search into the table.
void PendingLines::CatchUp() {
  if (indexed_ == LinesRead() && !slots_.empty()) return;
  for (std::uint64_t n = indexed_ + 1; n <= LinesRead(); ++n) At(n).key = KeyOf(TextOf(n));
  bool numbersRunOut = LinesRead() - origin_ > 0x7FFF'FFFF;
  if (lines_.size() > slots_.size() || slots_.empty() || numbersRunOut) return Rebuild();
  while (indexed_ < LinesRead()) Thread(++indexed_);
}

void PendingLines::Rebuild() {
  unsigned bits = std::max(kLeastSlotBits, static_cast<unsigned>(std::bit_width(lines_.size())));
  slots_ = std::vector<Slot>(std::size_t{1} << bits);
  slotShift_ = 32 - bits;
  origin_ = settled_;
  for (indexed_ = settled_; indexed_ < LinesRead();) Thread(++indexed_);
}

void PendingLines::Thread(std::uint64_t number) {
  Line& line = At(number);
  line.next = 0;
  Slot& slot = SlotOf(line.key);
  if (slot.first)
    At(origin_ + slot.last).next = FromOrigin(number) - slot.last;
  else
    slot.first = FromOrigin(number);
  slot.last = FromOrigin(number);
}

}  // namespace tarrow
