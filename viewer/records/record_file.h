// Files of any size up to 4 GiB read as numbered records, for views that show a screenful at a time: nothing
// is loaded whole. CLineFile's records are the lines of a text file, found once when it is opened;
// CFixedRecordFile's are stretches of one length.
//
// Reading forwards goes through one buffer and reads nothing twice; a step backwards out of the buffer reads
// the target with 2048 bytes before it, so that going up line by line costs a read every 2048 bytes. Offsets
// are bytes, record numbers begin at 0. A file that has shrunk since gives short records.
#pragma once

#include "base/byte_source.h"
#include "base/progress.h"
#include "viewer/records/line_offsets.h"
#include "viewer/records/line_scan.h"

#include <array>
#include <cstdint>
#include <memory>
#include <span>

namespace tarrow {

enum class RecordFileOutcome {
  kOpened,
  kDeclined,  // the question about a control byte was answered No
  kTooLarge,  // its offsets would not fit in 32 bits
  kNoMemory,
};

class CRecordFile {
 public:
  // What SeekRecord returns for a number that is no record; the current record is then unchanged.
  static constexpr std::int32_t kPastEnd = -1;
  static constexpr std::int32_t kNegative = -2;

  virtual ~CRecordFile() = default;
  CRecordFile(const CRecordFile&) = delete;
  CRecordFile& operator=(const CRecordFile&) = delete;

  bool IsOpen() const { return source_ != nullptr; }
  virtual void Close();

  // Place the current record in `into`, as much of it as fits, and go on to the next one. Return the number
  // of bytes placed, 0 at the end. Of a line, ReadText expands the tabs and puts a NUL behind the text, which
  // counts in the size of `into` but not in the result. Throw CFileException.
  virtual std::size_t ReadRecord(std::span<char> into) = 0;
  virtual std::size_t ReadText(std::span<char> into) = 0;

  // Makes `record` the next to be read and returns its number, or kNegative or kPastEnd. Throws
  // CFileException.
  virtual std::int32_t SeekRecord(std::int32_t record) = 0;
  std::int32_t NextRecord() { return SeekRecord(current_ + 1); }
  std::int32_t PrevRecord() { return SeekRecord(current_ - 1); }

  // The bytes of a record, without its line end.
  virtual std::uint32_t GetRecordLength(std::int32_t record) const = 0;
  virtual void SetTabWidth(int) {}

  std::int32_t CurrentRecord() const { return current_; }
  std::uint32_t RecordCount() const { return count_; }
  // For lines, the length of the longest one without its line end.
  std::uint32_t RecordLength() const { return length_; }
  // The size of the file when it was opened, or when a fixed-record file was last refreshed.
  std::uint64_t FileSize() const { return fileSize_; }

  // Forgets what has been read, so that the next read sees the file as it is now. Throws CFileException.
  void Discard();

 protected:
  explicit CRecordFile(std::uint32_t length) : length_(length) {}

  // Takes the source over in place of the one before and notes its size; false when that is above `limit`.
  [[nodiscard]] bool Attach(std::unique_ptr<ByteSource> source, std::uint64_t limit);
  ByteSource& Source() { return *source_; }
  void SetFileSize(std::uint64_t size) { fileSize_ = size; }

  void SeekTo(std::uint64_t position);
  std::uint64_t Position() const { return bufferStart_ + read_; }
  // The unread bytes of the buffer, filled again when there are none; empty at the end of the file.
  std::string_view Available();
  void Consume(std::size_t n) { read_ += n; }

  std::int32_t current_ = 0;
  std::uint32_t count_ = 0;
  std::uint32_t length_;

 private:
  static constexpr std::size_t kBufferSize = 4096;
  static constexpr std::uint64_t kStepBack = 2048;

  void Refill();
  void Empty(std::uint64_t position);

  std::unique_ptr<ByteSource> source_;
  std::uint64_t fileSize_ = 0;
  std::uint64_t bufferStart_ = 0;  // file position of the buffer's first byte
  std::size_t valid_ = 0;
  std::size_t read_ = 0;
  std::array<char, kBufferSize> buffer_;
};

class CLineFile final : public CRecordFile {
 public:
  explicit CLineFile(int tabWidth) : CRecordFile(0) { SetTabWidth(tabWidth); }

  // Finds all lines. Anything but kOpened leaves the file closed. Throws CFileException, CYieldException.
  [[nodiscard]] RecordFileOutcome Open(std::unique_ptr<ByteSource> source,
                                       const NonAnsiQuestion& question = nullptr,
                                       Progress* progress = nullptr);
  void Close() override;

  std::size_t ReadRecord(std::span<char> into) override;
  std::size_t ReadText(std::span<char> into) override;
  std::int32_t SeekRecord(std::int32_t record) override;
  // One too long for the CR LF lines of a file that also has other line ends.
  std::uint32_t GetRecordLength(std::int32_t record) const override;
  void SetTabWidth(int width) override { tabWidth_ = width > 0 ? static_cast<std::size_t>(width) : 1; }

  LineTerminator Terminator() const { return terminator_; }

  // Whether all of the file is UTF-8.
  bool IsUtf8() const { return isUtf8_; }

  // Where a line begins, by the index; `record` may be the count, for the end of the last line. And the line
  // that holds a byte: the first or the last one for a byte before or behind all of them.
  std::uint32_t StartOf(std::int32_t record) const { return offsets_[static_cast<std::size_t>(record)]; }
  std::int32_t RecordAt(std::uint64_t offset) const;

 private:
  RecordFileOutcome BuildIndex(const NonAnsiQuestion& question, Progress* progress);
  RecordFileOutcome ScanAll(LineScan& scan, Progress* progress);
  bool AtEnd() const { return static_cast<std::uint32_t>(current_) >= count_; }
  std::uint32_t LineStart() const { return offsets_[static_cast<std::size_t>(current_)]; }
  std::uint32_t LineEnd() const { return offsets_[static_cast<std::size_t>(current_) + 1]; }
  void GoToNext();

  std::size_t tabWidth_ = 8;
  LineTerminator terminator_ = LineTerminator::kCrLf;
  bool isUtf8_ = true;
  LineOffsets offsets_;
};

class CFixedRecordFile final : public CRecordFile {
 public:
  // `length` must not be 0.
  explicit CFixedRecordFile(std::uint32_t length) : CRecordFile(length) {}

  [[nodiscard]] RecordFileOutcome Open(std::unique_ptr<ByteSource> source);

  // Takes over the size that the file has now, as far as its records can be numbered, and forgets what has
  // been read. Returns whether the size is another one. Throws CFileException.
  bool Refresh();

  // A record that straddles the end of the buffer comes in two, the first one short. That cannot happen to a
  // length that divides 2048.
  std::size_t ReadRecord(std::span<char> into) override;
  std::size_t ReadText(std::span<char> into) override { return ReadRecord(into); }
  // The very end of the file is accepted; the read that follows returns 0.
  std::int32_t SeekRecord(std::int32_t record) override;
  std::uint32_t GetRecordLength(std::int32_t) const override { return length_; }

 private:
  std::uint64_t RecordsIn(std::uint64_t size) const { return (size + length_ - 1) / length_; }
};

}  // namespace tarrow
