// Finds a fixed string, in either case if wanted, at nearly the speed of reading the text.
//
// Two bytes of the string, those that are rarest in source code, are compared with many places at once; only
// where both agree is the rest looked at. Comparing a single byte, as a memchr-led search does, stops far too
// often on the letters that words are made of.
#pragma once

#include "search/pattern/char_tables.h"

#include <string>
#include <string_view>

namespace tarrow {

class LiteralFinder {
 public:
  static constexpr std::size_t kNotFound = std::string_view::npos;

  // Finds nothing.
  LiteralFinder() = default;
  // Finds `bytes`, which are not empty; with `foldCase` they are folded already.
  LiteralFinder(std::string_view bytes, bool foldCase);

  std::size_t Length() const { return bytes_.size(); }
  std::string_view Bytes() const { return bytes_; }

  // The offset of the first occurrence that lies wholly within `text`, or kNotFound.
  std::size_t Find(std::string_view text) const;

  // Does the string stand at `text`, of which at least Length() bytes may be read?
  bool IsAt(const char* text) const;

  // How common the rarest byte of `bytes` is in source code: 0 for the rarest of all.
  static int Commonness(std::string_view bytes);

 private:
  struct Probe {
    std::size_t offset = 0;
    std::uint8_t byte = 0;
    std::uint8_t caseBit = 0;  // set in both cases of a letter before comparing
  };

  Probe MakeProbe(std::size_t offset) const;
  bool Hits(const Probe& probe, const char* text) const {
    return (static_cast<std::uint8_t>(text[probe.offset]) | probe.caseBit) == probe.byte;
  }
  template <bool kFold>
  unsigned NextHits(const char* p, std::size_t& i, std::size_t places) const;
  template <bool kFold>
  unsigned NextHitsAvx2(const char* p, std::size_t& i, std::size_t places) const;
  template <bool kFold>
  std::size_t FindPairs(std::string_view text, std::size_t places) const;

  std::string bytes_;
  bool foldCase_ = false;
  Probe first_, second_;
};

}  // namespace tarrow
