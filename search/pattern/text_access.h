// How the engine reads a text: as one piece of memory, or as the two of a gap buffer.
//
// Matching and scanning are templates over one of these, so that the usual text, which lies in one piece,
// pays nothing for the gap. Offsets are those of the whole text.
#pragma once

#include "base/byte_class.h"
#include "base/byte_scan.h"
#include "base/text_view.h"
#include "search/pattern/literal_finder.h"

#include <algorithm>

namespace tarrow {

class FlatText {
 public:
  explicit FlatText(const TextView& view)
      : data_(view.head.empty() ? view.tail.data() : view.head.data()), size_(view.Size()) {}

  std::int32_t Size() const { return size_; }
  char operator[](std::int32_t i) const { return data_[i]; }

  bool HasLiteral(std::int32_t at, const std::uint8_t* bytes, std::int32_t count) const {
    if (data_[at] != static_cast<char>(bytes[0])) return false;
    for (std::int32_t i = 1; i < count; ++i)
      if (data_[at + i] != static_cast<char>(bytes[i])) return false;
    return true;
  }

  // The first place in [from, to) whose byte is in `wanted`, or is not; `to` without any.
  std::int32_t FindFirst(const ByteClass& wanted, std::int32_t from, std::int32_t to) const {
    return from + static_cast<std::int32_t>(wanted.FindFirst(Piece(from, to)));
  }
  std::int32_t FindFirstNot(const ByteClass& unwanted, std::int32_t from, std::int32_t to) const {
    return from + static_cast<std::int32_t>(unwanted.FindFirstNot(Piece(from, to)));
  }
  // The first place in [from, to) where a word made of `words` starts, with a byte of `wanted`, all of which
  // are word characters; `to` without any.
  std::int32_t FindWordStart(const ByteClass& words, const ByteClass& wanted, std::int32_t from,
                             std::int32_t to) const {
    if (from >= to) return to;
    bool isStart = wanted.Has(data_[from]) && (from == 0 || !words.Has(data_[from - 1]));
    return isStart ? from
                   : from + static_cast<std::int32_t>(wanted.FindFirstAfterNot(words, Piece(from, to)));
  }
  std::int32_t FindByte(char wanted, std::int32_t from, std::int32_t to) const {
    return from + static_cast<std::int32_t>(tarrow::FindByte(Piece(from, to), wanted));
  }

  // The first place in [from, to) where `wanted` stands wholly before `to`; `to` without any.
  std::int32_t FindLiteral(const LiteralFinder& wanted, std::int32_t from, std::int32_t to) const {
    std::size_t at = wanted.Find(Piece(from, to));
    return at == LiteralFinder::kNotFound ? to : from + static_cast<std::int32_t>(at);
  }

  // The first place of the run of `wanted` bytes that ends before `to`, not before `from`.
  std::int32_t RunStart(const ByteClass& wanted, std::int32_t from, std::int32_t to) const {
    return to - static_cast<std::int32_t>(wanted.CountTrailing(Piece(from, to)));
  }

  // The last place in [from, to) that holds `wanted`; from - 1 without any.
  std::int32_t FindLast(char wanted, std::int32_t from, std::int32_t to) const {
    std::string_view piece = Piece(from, to);
    std::size_t at = FindLastByte(piece, wanted);
    return at == piece.size() ? from - 1 : from + static_cast<std::int32_t>(at);
  }

 private:
  std::string_view Piece(std::int32_t from, std::int32_t to) const {
    return {data_ + from, static_cast<std::size_t>(to - from)};
  }

  const char* data_;
  std::int32_t size_;
};

class SplitText {
 public:
  explicit SplitText(const TextView& view)
      : head_(view),
        tail_(TextView(view.tail)),
        gap_(static_cast<std::int32_t>(view.head.size())),
        size_(view.Size()) {}

  std::int32_t Size() const { return size_; }
  char operator[](std::int32_t i) const { return i < gap_ ? head_[i] : tail_[i - gap_]; }

  bool HasLiteral(std::int32_t at, const std::uint8_t* bytes, std::int32_t count) const {
    for (std::int32_t i = 0; i < count; ++i)
      if ((*this)[at + i] != static_cast<char>(bytes[i])) return false;
    return true;
  }

  std::int32_t FindFirst(const ByteClass& wanted, std::int32_t from, std::int32_t to) const {
    return InPieces(from, to, [&](auto& piece, auto a, auto b) { return piece.FindFirst(wanted, a, b); });
  }
  std::int32_t FindFirstNot(const ByteClass& unwanted, std::int32_t from, std::int32_t to) const {
    return InPieces(from, to,
                    [&](auto& piece, auto a, auto b) { return piece.FindFirstNot(unwanted, a, b); });
  }
  std::int32_t FindWordStart(const ByteClass& words, const ByteClass& wanted, std::int32_t from,
                             std::int32_t to) const {
    while ((from = FindFirst(wanted, from, to)) < to && from > 0 && words.Has((*this)[from - 1])) ++from;
    return from;
  }
  std::int32_t FindByte(char wanted, std::int32_t from, std::int32_t to) const {
    return InPieces(from, to, [&](auto& piece, auto a, auto b) { return piece.FindByte(wanted, a, b); });
  }

  std::int32_t FindLiteral(const LiteralFinder& wanted, std::int32_t from, std::int32_t to) const;

  std::int32_t RunStart(const ByteClass& wanted, std::int32_t from, std::int32_t to) const {
    std::int32_t start = to;
    if (to > gap_) start = gap_ + tail_.RunStart(wanted, std::max(from - gap_, 0), to - gap_);
    return start <= gap_ && start > from ? head_.RunStart(wanted, from, start) : start;
  }

  std::int32_t FindLast(char wanted, std::int32_t from, std::int32_t to) const {
    std::int32_t middle = std::max(from, gap_);
    if (to > middle) {
      std::int32_t at = gap_ + tail_.FindLast(wanted, middle - gap_, to - gap_);
      if (at >= middle) return at;
    }
    return from < gap_ ? head_.FindLast(wanted, from, std::min(to, gap_)) : from - 1;
  }

 private:
  // Asks `find` for the head's share of [from, to), and if it finds nothing there, for the tail's.
  template <typename Find>
  std::int32_t InPieces(std::int32_t from, std::int32_t to, Find find) const {
    if (from < gap_) {
      std::int32_t end = std::min(to, gap_), at = find(head_, from, end);
      if (at < end || end == to) return at;
      from = gap_;
    }
    return gap_ + find(tail_, from - gap_, to - gap_);
  }

  FlatText head_;
  FlatText tail_;
  std::int32_t gap_;
  std::int32_t size_;
};

// An occurrence lies in the head, across the gap, or in the tail.
inline std::int32_t SplitText::FindLiteral(const LiteralFinder& wanted, std::int32_t from,
                                           std::int32_t to) const {
  auto length = static_cast<std::int32_t>(wanted.Length());
  std::int32_t headEnd = std::min(gap_, to);
  if (from < headEnd) {
    std::int32_t at = head_.FindLiteral(wanted, from, headEnd);
    if (at < headEnd) return at;
  }
  std::int32_t lastAcross = std::min(gap_ - 1, to - length);
  for (std::int32_t at = std::max(from, gap_ - length + 1); at <= lastAcross; ++at) {
    std::string bytes;
    for (std::int32_t i = 0; i < length; ++i) bytes += (*this)[at + i];
    if (wanted.IsAt(bytes.data())) return at;
  }
  if (to <= gap_) return to;
  return gap_ + tail_.FindLiteral(wanted, std::max(from - gap_, 0), to - gap_);
}

// Calls `use` with the text of `view` in the cheapest form that it allows.
template <typename Use>
auto WithText(const TextView& view, Use use) {
  if (view.head.empty() || view.tail.empty()) return use(FlatText(view));
  return use(SplitText(view));
}

}  // namespace tarrow
