// Any bytes are a journal: reading it ends, and what a reading says of the text is what the text is. The
// input is also taken as the contents of frames, and as changes, for no fuzzer finds checksums; changes that
// are good make of a text what they make of a string.
#include "base/exceptions.h"
#include "edit/recovery/journal_reader.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>

namespace {

using namespace tarrow;  // NOLINT

void Expect(bool holds) {
  if (!holds) std::abort();
}

std::optional<std::string> Read(std::string_view bytes) {
  StringSource state(bytes), text(bytes);
  JournalState read = ReadJournalState(state);
  bool isWhole = read.kind == JournalState::Kind::kWhole;
  try {
    TextBuffer replayed = ReplayJournal(text);
    Expect(isWhole && replayed.Size() == read.size);
    return replayed.View().Copy();
  } catch (const CFileException&) {
    Expect(!isWhole);
    return {};
  }
}

class Frames {
 public:
  Frames() : bytes(EncodeJournalBeginning()) { Add(EncodeDescription({})); }
  void Add(std::string_view contents) {
    bytes.append(EncodeFrameHeader(number_++, contents, {})).append(contents);
  }
  std::string bytes;

 private:
  std::uint32_t number_ = 0;
};

// Frames, of which each byte of a length that stands before it in the input tells where it ends.
std::string Framed(std::string_view bytes) {
  Frames frames;
  while (!bytes.empty()) {
    std::size_t length = static_cast<unsigned char>(bytes[0]);
    bytes.remove_prefix(1);
    frames.Add(bytes.substr(0, length));
    bytes.remove_prefix(std::min(length, bytes.size()));
  }
  return frames.bytes;
}

// One frame a change, up to the first that is none or that the text cannot take.
void ReadChanges(std::string_view bytes) {
  Frames frames;
  std::string text;
  frames.Add(EncodeChangesHead({0, true, 0}));
  for (std::string_view rest = bytes;;) {
    std::optional<JournalChange> change = TakeChange(rest);
    if (!change) break;
    auto at = static_cast<std::size_t>(change->at.value), removed = static_cast<std::size_t>(change->removed);
    if (at > text.size() || removed > text.size() - at) break;
    text.replace(at, removed, change->inserted);
    std::string contents = EncodeChangesHead({0, true, static_cast<std::int32_t>(text.size())});
    frames.Add(contents.append(bytes.substr(0, bytes.size() - rest.size())));
    bytes = rest;
  }
  Expect(Read(frames.bytes) == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  (void)Read(bytes);
  (void)Read(Framed(bytes));
  ReadChanges(bytes);
  return 0;
}
