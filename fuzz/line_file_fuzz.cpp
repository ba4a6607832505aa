// Any bytes are a text file: its lines are the naive splitter's, and reading them never leaves the buffer.
#include "viewer/records/record_file.h"

#include "fuzz/long_input.h"
#include "tests/viewer/records/naive_lines.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  std::string text =
      tarrow::LongInput({reinterpret_cast<const char*>(data) + 1, size - 1}, data[0], 33 << 10);
  std::string_view bytes = text;
  tarrow::NaiveLines naive = tarrow::ScanNaively(bytes, true);
  tarrow::CLineFile file(data[0] % 10);
  if (file.Open(std::make_unique<tarrow::StringSource>(bytes)) != tarrow::RecordFileOutcome::kOpened)
    std::abort();
  if (file.RecordCount() + 1 != naive.offsets.size() || file.Terminator() != naive.terminator) std::abort();
  // Backwards and forwards in turn, through a buffer that is often too small.
  std::string buffer(data[0] + 1, '#');
  for (std::uint32_t i = 0, n = file.RecordCount(); i < n; ++i) {
    std::uint32_t record = i % 2 ? i : n - 1 - i;
    if (file.SeekRecord(static_cast<std::int32_t>(record)) != static_cast<std::int32_t>(record)) std::abort();
    std::string line(bytes.substr(std::min<std::size_t>(naive.offsets[record], bytes.size()),
                                  naive.offsets[record + 1] - naive.offsets[record]));
    line.resize(std::min(line.size(), buffer.size()));
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.pop_back();
    std::size_t read = file.ReadRecord(buffer);
    if (std::string_view(buffer.data(), read) != line) std::abort();
    if (file.PrevRecord() != static_cast<std::int32_t>(record)) std::abort();
    std::size_t shown = file.ReadText(buffer);
    if (shown >= buffer.size() || buffer[shown] != 0) std::abort();
  }
  return 0;
}
