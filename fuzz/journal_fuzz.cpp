// Any bytes are a journal: reading it ends, and what a reading says of the text is what the text is. The
// input is also taken as the contents of frames, whose checksums no fuzzer finds.
#include "base/exceptions.h"
#include "edit/recovery/journal_reader.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace tarrow;  // NOLINT

void Read(std::string_view bytes) {
  StringSource state(bytes), text(bytes);
  JournalState read = ReadJournalState(state);
  bool isWhole = read.kind == JournalState::Kind::kWhole;
  try {
    if (ReplayJournal(text).Size() != read.size || !isWhole) std::abort();
  } catch (const CFileException&) {
    if (isWhole) std::abort();
  }
}

// Frames, of which each byte of a length that stands before it in the input tells where it ends.
std::string Framed(std::string_view bytes) {
  std::string journal = EncodeJournalBeginning();
  std::string description = EncodeDescription({});
  journal += EncodeFrameHeader(0, description, {}) + description;
  for (std::uint32_t number = 1; !bytes.empty(); ++number) {
    std::size_t length = static_cast<unsigned char>(bytes[0]);
    bytes.remove_prefix(1);
    std::string_view contents = bytes.substr(0, length);
    journal.append(EncodeFrameHeader(number, contents, {})).append(contents);
    bytes.remove_prefix(contents.size());
  }
  return journal;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  Read(bytes);
  Read(Framed(bytes));
  return 0;
}
