// The bytes of a journal: the file from which a text comes back that no program has saved.
//
//   beginning   the word "Tarrow journal\r\n", the version (4 bytes)
//   frame       length of what follows the checksum (4), checksum (4), kind (1), contents
//
// Numbers are little-endian. The checksum covers the number of the frame in its file too, so that a frame is
// good in its own place only. The first frame is a description; a later one takes its place. A frame of
// changes holds the time (8), whether the text is whole from here on (1), the size of the text behind the
// changes (4), and any number of changes: place, count of removed bytes, count of inserted bytes, each seven
// bits a byte and the lowest first, then the bytes inserted. They change a text that is empty at first.
//
// A frame is one step: what a text is between two frames, a user has seen. A file that ends within a frame
// ends before it.
#pragma once

#include "base/units.h"
#include "edit/files/file_format.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

inline constexpr std::string_view kJournalWord = "Tarrow journal\r\n";
inline constexpr std::uint32_t kJournalVersion = 1;
inline constexpr std::size_t kJournalBeginning = kJournalWord.size() + 4;
inline constexpr std::size_t kFrameHeader = 8;

// A file as it was when its text was loaded or saved. The time counts 100 nanoseconds since 1601, UTC; all is
// zero where nothing is known.
struct FileStamp {
  std::uint64_t size = 0;
  std::uint64_t modified = 0;

  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

// What text a journal is of.
struct JournalDescription {
  std::uint64_t document = 0;    // tells it from all other texts, in other runs too
  std::uint32_t generation = 0;  // a later journal of the same text has a higher one
  std::string name;              // path of its file, or title
  bool isUntitled = true;
  FileFormat format = FileFormat::kDos;
  FileStamp file;  // what its changes began with

  friend bool operator==(const JournalDescription&, const JournalDescription&) = default;
};

// A replacement: `removed` bytes at `at` by `inserted`.
struct JournalChange {
  BytePos at;
  std::int32_t removed = 0;
  std::string_view inserted;
};

// What stands in front of the changes of a frame.
struct ChangesHead {
  std::uint64_t time = 0;  // when they were written
  bool isWhole = false;    // the text is complete behind them
  std::int32_t size = 0;   // of the text behind them
};

enum class FrameKind : char { kDescription = 'D', kChanges = 'C' };

[[nodiscard]] std::string EncodeJournalBeginning();
[[nodiscard]] std::string EncodeDescription(const JournalDescription& description);
[[nodiscard]] std::string EncodeChangesHead(const ChangesHead& head);
void AppendChange(std::string& changes, const JournalChange& change);

// What a frame begins with whose contents are `head` and `rest`; `number` counts the frames of the file.
[[nodiscard]] std::string EncodeFrameHeader(std::uint32_t number, std::string_view head,
                                            std::string_view rest);

struct FrameHeader {
  std::uint32_t length;
  std::uint32_t checksum;
};
[[nodiscard]] FrameHeader DecodeFrameHeader(std::string_view bytes);
[[nodiscard]] std::uint32_t FrameChecksum(std::uint32_t number, std::string_view contents);

// Reads contents from their start and takes what is read away; nothing where they are not what they should
// be.
[[nodiscard]] std::optional<std::uint32_t> TakeVersion(std::string_view& beginning);
[[nodiscard]] std::optional<JournalDescription> DecodeDescription(std::string_view contents);
[[nodiscard]] std::optional<ChangesHead> TakeChangesHead(std::string_view& contents);
[[nodiscard]] std::optional<JournalChange> TakeChange(std::string_view& changes);

}  // namespace tarrow
