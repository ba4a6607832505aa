// What a text is, in the plainest words: a string, and lines found by looking. The tests hold the buffer
// against it.
#pragma once

#include "edit/text/text_buffer.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace tarrow {

inline TextRange Range(std::int64_t start, std::int64_t end) {
  return {BytePos(start), BytePos(end)};
}

inline std::vector<std::int32_t> LineStartsOf(const std::string& text) {
  std::vector<std::int32_t> starts{0};
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;)
    starts.push_back(static_cast<std::int32_t>(at += 2));
  return starts;
}

inline std::vector<std::int32_t> LineStartsOf(const TextBuffer& buffer) {
  std::vector<std::int32_t> starts;
  for (LineNo line(0); line < buffer.LineCount(); ++line) starts.push_back(buffer.LineStart(line).value);
  return starts;
}

inline std::string RandomText(std::mt19937& random, std::size_t most) {
  static const std::string kBytes("\r\n\r\n\0ab \xC3\xA9", 10);
  std::string text(random() % (most + 1), ' ');
  for (char& c : text) c = kBytes[random() % kBytes.size()];
  return text;
}

inline TextRange RandomRange(std::mt19937& random, std::int32_t size, std::uint32_t longest) {
  auto start = static_cast<std::int32_t>(random() % (static_cast<std::uint32_t>(size) + 1));
  auto length = static_cast<std::int32_t>(random() % (longest + 1));
  return Range(start, std::min(size, start + length));
}

inline std::string After(const std::string& text, const EditList& edits) {
  std::string result;
  std::size_t from = 0;
  for (std::size_t i = 0; i < edits.Size(); ++i) {
    auto start = static_cast<std::size_t>(edits[i].range.start.value);
    result.append(text, from, start - from).append(edits[i].text);
    from = static_cast<std::size_t>(edits[i].range.end.value);
  }
  return result.append(text, from);
}

inline EditList RandomEdits(std::mt19937& random, std::int32_t size) {
  EditList edits;
  for (std::int32_t at = 0; at <= size;) {
    at += static_cast<std::int32_t>(random() % 20);
    auto end = at + static_cast<std::int32_t>(random() % 4);
    if (end > size) break;
    edits.Add(Range(at, end), RandomText(random, 4));
    at = end;
  }
  return edits;
}

inline void ExpectIs(const TextBuffer& buffer, const std::string& text) {
  ASSERT_EQ(buffer.View().Copy(), text);
  ASSERT_EQ(LineStartsOf(buffer), LineStartsOf(text));
}

inline TextBuffer BufferOf(const std::string& text) {
  TextBuffer buffer;
  buffer.Replace({}, text, EditKind::kForgotten);
  return buffer;
}

}  // namespace tarrow
