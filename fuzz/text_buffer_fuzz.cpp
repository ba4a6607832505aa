// Any sequence of changes to a text does what it does to a string; undoing and doing again changes nothing.
#include "edit/text/text_buffer.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace tarrow;  // NOLINT

void Expect(bool holds) {
  if (!holds) std::abort();
}

void ExpectIs(const TextBuffer& buffer, const std::string& text) {
  Expect(buffer.View().Copy() == text);
  std::int32_t lines = 1;
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++lines) {
    Expect(lines < buffer.LineCount().value);
    Expect(buffer.LineStart(LineNo(lines)).value == static_cast<std::int32_t>(at += 2));
  }
  Expect(buffer.LineCount().value == lines);
}

// Takes the input apart into small numbers and pieces of text.
class Input {
 public:
  explicit Input(std::string_view bytes) : bytes_(bytes) {}
  bool Empty() const { return bytes_.empty(); }
  std::size_t Number(std::size_t most) {
    return most == 0 ? 0 : static_cast<unsigned char>(Text(1).append(1, '\0')[0]) % (most + 1);
  }
  std::string Text(std::size_t size) {
    std::string text(bytes_.substr(0, size));
    bytes_.remove_prefix(text.size());
    return text;
  }

 private:
  std::string_view bytes_;
};

// Several replacements from the start to the end as one list.
void ApplyList(Input& input, TextBuffer& buffer, std::string& model) {
  EditList edits;
  std::string after;
  std::size_t done = 0;
  for (std::size_t n = input.Number(6); n > 0; --n) {
    std::size_t start = done + input.Number(model.size() - done),
                end = start + input.Number(model.size() - start);
    std::string text = input.Text(input.Number(4));
    edits.Add({BytePos(static_cast<std::int64_t>(start)), BytePos(static_cast<std::int64_t>(end))}, text);
    after += model.substr(done, start - done) + text;
    done = end;
  }
  buffer.Apply(edits);
  if (!edits.Empty()) model = after + model.substr(done);
}

// Takes some units back, and forward again.
void UndoAndBack(TextBuffer& buffer, std::size_t most) {
  if (!buffer.HasUndoLevels()) {
    bool could = buffer.UndoLast().has_value();
    return Expect(could == buffer.UndoLast().has_value());
  }
  std::size_t steps = 0;
  while (steps < most && buffer.UndoLast()) ++steps;
  for (; steps > 0; --steps) Expect(buffer.RedoNext().has_value());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input({reinterpret_cast<const char*>(data), size});
  TextBuffer buffer;
  buffer.SetUndoLevels(static_cast<int>(input.Number(3)));
  std::string model;
  while (!input.Empty()) {
    std::size_t kind = input.Number(5);
    if (kind == 5) {
      ApplyList(input, buffer, model);
      ExpectIs(buffer, model);
      continue;
    }
    std::size_t start = input.Number(model.size()), length = input.Number(model.size() - start);
    if (kind == 4) {
      UndoAndBack(buffer, 1 + input.Number(3));
      Expect(buffer.Contiguous() == model);
    } else {
      std::string text = input.Text(input.Number(8));
      TextRange range{BytePos(static_cast<std::int64_t>(start)),
                      BytePos(static_cast<std::int64_t>(start + length))};
      buffer.Replace(range, text, static_cast<EditKind>(kind));
      model.replace(start, length, text);
    }
    ExpectIs(buffer, model);
  }
  return 0;
}
