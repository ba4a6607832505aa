// The line index as one would write it byte by byte: what the fast one must agree with.
#pragma once

#include "viewer/records/line_scan.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tarrow {

struct NaiveLines {
  std::vector<unsigned char> questions;
  bool declined = false;
  std::vector<std::uint32_t> offsets;
  LineTerminator terminator = LineTerminator::kCrLf;
  std::uint32_t longest = 0;
};

inline NaiveLines ScanNaively(std::string_view text, bool accept) {
  NaiveLines lines;
  std::uint32_t start = 0, offset = 0;
  auto end = [&](std::uint32_t next) {
    lines.offsets.push_back(start);
    lines.longest = std::max(lines.longest, next - start);
    start = next;
  };
  for (std::size_t i = 0; i < text.size(); ++i, ++offset) {
    char c = text[i];
    if (c == '\r' || c == '\n') {
      bool pair = c == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
      if (!pair) lines.terminator = c == '\n' ? LineTerminator::kLf : LineTerminator::kCr;
      i += pair;
      offset += pair;
      end(offset + 1);
    } else if (static_cast<unsigned char>(c) < 0x20 && (c < '\t' || c > '\r') && lines.questions.empty()) {
      lines.questions.push_back(static_cast<unsigned char>(c));
      lines.declined = !accept;
      if (lines.declined) return lines;
      ++offset;
    }
  }
  if (offset != start) end(offset + (lines.terminator == LineTerminator::kCrLf ? 2 : 1));
  lines.offsets.push_back(start);
  return lines;
}

}  // namespace tarrow
