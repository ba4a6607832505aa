#include "base/byte_scan.h"
#include "viewer/records/record_file.h"
#include "viewer/records/utf8_check.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace tarrow {
namespace {

constexpr std::size_t kScanSize = 128 << 10;
// A last line without terminator ends two bytes past the file, a doubled byte one more.
constexpr std::uint64_t kLargestFile = std::numeric_limits<std::uint32_t>::max() - 3;

std::size_t WithoutLineEnd(std::span<const char> line) {
  std::size_t n = line.size();
  while (n > 0 && (line[n - 1] == '\r' || line[n - 1] == '\n')) --n;
  return n;
}

// Puts `bytes` into `room` from `column` on, as far as it goes, and moves `column` on; returns how many bytes
// that took.
std::size_t ExpandTabs(std::string_view bytes, std::span<char> room, std::size_t& column, std::size_t width) {
  std::size_t used = 0;
  while (used < bytes.size() && column < room.size()) {
    std::string_view rest = bytes.substr(used, room.size() - column);
    std::size_t plain = FindByte(rest, '\t');
    std::memcpy(room.data() + column, rest.data(), plain);
    column += plain;
    used += plain;
    if (plain == rest.size()) continue;
    std::size_t next = std::min(column + width - column % width, room.size());
    std::fill(room.begin() + static_cast<std::ptrdiff_t>(column),
              room.begin() + static_cast<std::ptrdiff_t>(next), ' ');
    column = next;
    ++used;
  }
  return used;
}

}  // namespace

RecordFileOutcome CLineFile::Open(std::unique_ptr<ByteSource> source, const NonAnsiQuestion& question,
                                  Progress* progress) {
  if (!Attach(std::move(source), kLargestFile)) return RecordFileOutcome::kTooLarge;
  RecordFileOutcome outcome = RecordFileOutcome::kNoMemory;
  try {
    outcome = BuildIndex(question, progress);
  } catch (const std::bad_alloc&) {
  } catch (...) {
    Close();
    throw;
  }
  if (outcome != RecordFileOutcome::kOpened) Close();
  return outcome;
}

void CLineFile::Close() {
  CRecordFile::Close();
  offsets_.Clear();
  length_ = 0;
}

RecordFileOutcome CLineFile::BuildIndex(const NonAnsiQuestion& question, Progress* progress) {
  LineScan scan(offsets_, question);
  RecordFileOutcome outcome = ScanAll(scan, progress);
  if (outcome != RecordFileOutcome::kOpened) return outcome;
  scan.Finish();
  if (offsets_.Size() - 1 > std::numeric_limits<std::int32_t>::max()) return RecordFileOutcome::kTooLarge;
  terminator_ = scan.Terminator();
  count_ = static_cast<std::uint32_t>(offsets_.Size() - 1);
  std::uint32_t longest = offsets_.GreatestStep();
  length_ = longest - std::min(longest, terminator_ == LineTerminator::kCrLf ? 2u : 1u);
  Source().Seek(0);
  return RecordFileOutcome::kOpened;
}

// A file that grows while it is read must not outgrow the offsets either.
RecordFileOutcome CLineFile::ScanAll(LineScan& scan, Progress* progress) {
  auto buffer = std::make_unique_for_overwrite<char[]>(kScanSize);
  std::uint64_t scanned = 0;
  Utf8Check utf8;
  ProgressTicker ticker(progress, 1);
  for (std::size_t n = kScanSize; n == kScanSize;) {
    n = Source().Read({buffer.get(), kScanSize});
    scanned += n;
    if (scanned > kLargestFile) return RecordFileOutcome::kTooLarge;
    if (!scan.Scan({buffer.get(), n})) return RecordFileOutcome::kDeclined;
    utf8.Take({buffer.get(), n});
    if (progress) progress->SetDone(static_cast<std::int64_t>(scanned));
    ticker.Tick();
  }
  isUtf8_ = utf8.IsUtf8();
  return RecordFileOutcome::kOpened;
}

std::int32_t CLineFile::SeekRecord(std::int32_t record) {
  if (record < 0) return kNegative;
  if (static_cast<std::uint32_t>(record) >= count_) return kPastEnd;
  SeekTo(offsets_[static_cast<std::size_t>(record)]);
  return current_ = record;
}

std::int32_t CLineFile::RecordAt(std::uint64_t offset) const {
  std::int32_t first = 0, last = static_cast<std::int32_t>(count_) - 1;
  while (first < last) {
    std::int32_t middle = last - (last - first) / 2;
    if (StartOf(middle) <= offset)
      first = middle;
    else
      last = middle - 1;
  }
  return first;
}

std::uint32_t CLineFile::GetRecordLength(std::int32_t record) const {
  if (record < 0 || static_cast<std::uint32_t>(record) >= count_) return 0;
  auto i = static_cast<std::size_t>(record);
  std::uint32_t length = offsets_[i + 1] - offsets_[i] - 1;
  return length - (length > 0 && terminator_ == LineTerminator::kCrLf);
}

std::size_t CLineFile::ReadRecord(std::span<char> into) {
  if (AtEnd()) return 0;
  std::size_t wanted = std::min<std::size_t>(LineEnd() - LineStart(), into.size()), kept = 0;
  while (kept < wanted) {
    std::string_view bytes = Available().substr(0, wanted - kept);
    if (bytes.empty()) break;
    std::memcpy(into.data() + kept, bytes.data(), bytes.size());
    kept += bytes.size();
    Consume(bytes.size());
  }
  GoToNext();
  return WithoutLineEnd(into.first(kept));
}

std::size_t CLineFile::ReadText(std::span<char> into) {
  if (into.empty()) return 0;
  into[0] = 0;
  if (AtEnd()) return 0;
  std::span<char> room = into.first(into.size() - 1);
  std::size_t remaining = LineEnd() - LineStart(), column = 0;
  while (remaining > 0 && column < room.size()) {
    std::string_view bytes = Available().substr(0, remaining);
    if (bytes.empty()) break;
    std::size_t used = ExpandTabs(bytes, room, column, tabWidth_);
    Consume(used);
    remaining -= used;
  }
  GoToNext();
  std::size_t length = WithoutLineEnd(room.first(column));
  into[length] = 0;
  return length;
}

// The rest of a line that did not fit is passed over, not read.
void CLineFile::GoToNext() {
  if (Position() != LineEnd()) SeekTo(LineEnd());
  ++current_;
}

}  // namespace tarrow
