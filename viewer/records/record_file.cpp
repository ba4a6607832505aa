#include "viewer/records/record_file.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace tarrow {
namespace {

constexpr std::uint64_t kLargestFixedFile = std::uint64_t{1} << 32;

}  // namespace

bool CRecordFile::Attach(std::unique_ptr<ByteSource> source, std::uint64_t limit) {
  Close();
  fileSize_ = source->Size();
  if (fileSize_ > limit) return false;
  source_ = std::move(source);
  return true;
}

void CRecordFile::Close() {
  source_.reset();
  current_ = 0;
  count_ = 0;
  Empty(0);
}

void CRecordFile::Empty(std::uint64_t position) {
  bufferStart_ = position;
  valid_ = read_ = 0;
}

void CRecordFile::Discard() {
  Empty(Position());
  source_->Seek(bufferStart_);
}

void CRecordFile::SeekTo(std::uint64_t position) {
  if (position >= bufferStart_ && position < bufferStart_ + valid_) {
    read_ = static_cast<std::size_t>(position - bufferStart_);
    return;
  }
  bool backwards = position < bufferStart_;
  std::uint64_t from = backwards ? position - std::min(position, kStepBack) : position;
  source_->Seek(from);
  Empty(from);
  if (!backwards) return;
  Refill();
  read_ = std::min(static_cast<std::size_t>(position - from), valid_);
}

void CRecordFile::Refill() {
  bufferStart_ += valid_;
  valid_ = read_ = 0;
  valid_ = source_->Read(buffer_);
}

std::string_view CRecordFile::Available() {
  if (read_ == valid_) Refill();
  return {buffer_.data() + read_, valid_ - read_};
}

RecordFileOutcome CFixedRecordFile::Open(std::unique_ptr<ByteSource> source) {
  if (!Attach(std::move(source), kLargestFixedFile)) return RecordFileOutcome::kTooLarge;
  std::uint64_t records = RecordsIn(FileSize());
  if (records > std::numeric_limits<std::int32_t>::max()) {
    Close();
    return RecordFileOutcome::kTooLarge;
  }
  count_ = static_cast<std::uint32_t>(records);
  return RecordFileOutcome::kOpened;
}

bool CFixedRecordFile::Refresh() {
  Discard();
  std::uint64_t mostRecords = std::numeric_limits<std::int32_t>::max();
  std::uint64_t size = std::min({Source().Size(), kLargestFixedFile, mostRecords * length_});
  if (size == FileSize()) return false;
  SetFileSize(size);
  count_ = static_cast<std::uint32_t>(RecordsIn(size));
  return true;
}

std::size_t CFixedRecordFile::ReadRecord(std::span<char> into) {
  std::string_view bytes = Available().substr(0, length_);
  if (bytes.empty()) return 0;
  std::size_t n = std::min(bytes.size(), into.size());
  std::memcpy(into.data(), bytes.data(), n);
  Consume(bytes.size());
  ++current_;
  return n;
}

std::int32_t CFixedRecordFile::SeekRecord(std::int32_t record) {
  if (record < 0) return kNegative;
  std::uint64_t position = static_cast<std::uint64_t>(record) * length_;
  if (position > FileSize()) return kPastEnd;
  SeekTo(position);
  return current_ = record;
}

}  // namespace tarrow
