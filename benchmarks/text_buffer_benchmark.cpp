// The text buffer beside a plain string and hand-written loops: keys, replacements, lists of them, lines.
#include "edit/text/text_buffer.h"

#include "base/byte_scan.h"
#include "benchmarks/report.h"

#include <cstring>

namespace tarrow::bench {
namespace {

constexpr const char kLine[] = "  for (int i = 0; i < count; ++i) total += values[i];\r\n";

std::string SomeText(std::size_t size) {
  std::string text;
  text.reserve(size + sizeof kLine);
  while (text.size() < size) text += kLine;
  return text;
}

TextBuffer Loaded(const std::string& text) {
  TextBuffer buffer;
  std::memcpy(buffer.PrepareLoad(static_cast<std::int64_t>(text.size())).data(), text.data(), text.size());
  buffer.FinishLoad(static_cast<std::int64_t>(text.size()));
  return buffer;
}

// A thousand keys in the middle of a text: a string moves everything behind each.
void Keys(const std::string& text) {
  constexpr int kKeys = 1000;
  TextBuffer buffer = Loaded(text);
  BytePos at(static_cast<std::int64_t>(text.size() / 2));
  buffer.Replace({at, at}, "x", EditKind::kTyping);  // the jump there is no part of the keys
  double ours = Seconds([&] {
    for (int key = 1; key <= kKeys; ++key) buffer.Replace({at + key, at + key}, "x", EditKind::kTyping);
  });
  std::string plain = text;
  plain.insert(plain.begin() + at.value, 'x');
  int rivalKeys = kKeys / 50;
  double theirs = Seconds([&] {
    for (int key = 1; key <= rivalKeys; ++key) plain.insert(plain.begin() + at.value + key, 'x');
  });
  Check(buffer.View().Copy({at, at + 4}) == plain.substr(static_cast<std::size_t>(at.value), 4), "keys");
  Row({"one key in the middle of " + std::to_string(text.size() >> 20) + " MB", ours / kKeys,
       "a plain string", theirs / rivalKeys, "s", 100});
}

void ReplaceFromTopToBottom(const std::string& text) {
  constexpr int kReplacements = 10'000;
  TextBuffer buffer = Loaded(text);
  auto step = static_cast<std::int64_t>(text.size()) / kReplacements;
  double ours = Seconds([&] {
    for (int i = 0; i < kReplacements; ++i) {
      BytePos at(i * (step + 2));
      buffer.Replace({at, at + 1}, "xyz");
    }
  });
  // The least that anybody must do: copy the text once.
  std::string copy;
  double theirs = Seconds([&] {
    copy.reserve(text.size() + 2 * kReplacements);
    for (int i = 0; i < kReplacements; ++i) {
      auto from = static_cast<std::size_t>(i * step);
      copy.append("xyz").append(text, from + 1, static_cast<std::size_t>(step) - 1);
    }
    copy.append(text, static_cast<std::size_t>(kReplacements * step));
  });
  Check(buffer.View().Copy() == copy, "replacements from top to bottom");
  Row({"10,000 replacements, each one unit, over " + std::to_string(text.size() >> 20) + " MB", ours,
       "a loop that copies", theirs, "s", 0.1});
}

void ReplaceAll(const std::string& text) {
  EditList edits;
  for (std::size_t at = 0; (at += FindByte(std::string_view(text).substr(at), 'v')) < text.size(); ++at) {
    BytePos start(static_cast<std::int64_t>(at));
    edits.Add({start, start + 1}, "val");
  }
  TextBuffer buffer = Loaded(text);
  double ours = Seconds([&] { buffer.Apply(edits); });
  std::string copy;
  double theirs = Seconds([&] {
    copy.reserve(text.size() + 2 * edits.Size());
    std::size_t from = 0;
    for (std::size_t i = 0; i < edits.Size(); ++i) {
      auto start = static_cast<std::size_t>(edits[i].range.start.value);
      copy.append(text, from, start - from).append(edits[i].text);
      from = start + 1;
    }
    copy.append(text, from);
  });
  Check(buffer.View().Copy() == copy, "a list of replacements");
  Row({std::to_string(edits.Size()) + " replacements at once, with undo, in " +
           std::to_string(text.size() >> 20) + " MB",
       ours, "a loop that copies", theirs, "s", 0.1});
}

void IndexLines(const std::string& text) {
  LineIndex lines;
  double ours = BestSeconds(3, [&] { lines.Scan(text); });
  std::size_t count = 0;
  double theirs = BestSeconds(3, [&] { count = CountByte(text, '\n'); });
  Check(lines.Count() == LineNo(static_cast<std::int64_t>(count) + 1), "line index");
  Row({"index the lines of " + std::to_string(text.size() >> 20) + " MB", ours, "counting LFs", theirs, "s",
       0});
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  using namespace tarrow::bench;  // NOLINT
  bool isQuick = IsQuick(argc, argv);
  std::string text = SomeText(std::size_t{isQuick ? 4u : 100u} << 20);
  Keys(text);
  ReplaceFromTopToBottom(text);
  ReplaceAll(text);
  IndexLines(text);
}
