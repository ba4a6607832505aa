#include "edit/recovery/journal_format.h"

#include "base/crc32.h"

namespace tarrow {
namespace {

template <typename T>
void Append(std::string& out, T number) {
  for (std::size_t i = 0; i < sizeof(T); ++i) out += static_cast<char>((number >> 8 * i) & 0xFF);
}

// As much as is used of a number; most are small.
void AppendShort(std::string& out, std::uint32_t number) {
  for (; number >= 0x80; number >>= 7) out += static_cast<char>((number & 0x7F) | 0x80);
  out += static_cast<char>(number);
}

template <typename T>
bool Take(std::string_view& bytes, T& number) {
  if (bytes.size() < sizeof(T)) return false;
  number = 0;
  for (std::size_t i = sizeof(T); i-- > 0;)
    number = static_cast<T>(number << 8 | static_cast<unsigned char>(bytes[i]));
  bytes.remove_prefix(sizeof(T));
  return true;
}

// A number of at most 31 bits: no text has more bytes.
bool TakeShort(std::string_view& bytes, std::int32_t& number) {
  std::uint64_t value = 0;
  for (int shift = 0; shift < 35; shift += 7) {
    if (bytes.empty()) return false;
    auto byte = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    value |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
    if (byte & 0x80) continue;
    number = static_cast<std::int32_t>(value);
    return value <= static_cast<std::uint64_t>(kMaxTextSize);
  }
  return false;
}

bool TakeKind(std::string_view& contents, FrameKind kind) {
  if (contents.empty() || contents.front() != static_cast<char>(kind)) return false;
  contents.remove_prefix(1);
  return true;
}

}  // namespace

std::string EncodeJournalBeginning() {
  std::string bytes(kJournalWord);
  Append(bytes, kJournalVersion);
  return bytes;
}

std::string EncodeDescription(const JournalDescription& description) {
  std::string contents(1, static_cast<char>(FrameKind::kDescription));
  Append(contents, description.document);
  Append(contents, description.generation);
  Append(contents, static_cast<std::uint8_t>(description.isUntitled));
  Append(contents, static_cast<std::uint8_t>(description.format));
  Append(contents, description.file.size);
  Append(contents, description.file.modified);
  return contents.append(description.name);
}

std::string EncodeChangesHead(const ChangesHead& head) {
  std::string contents(1, static_cast<char>(FrameKind::kChanges));
  Append(contents, head.time);
  Append(contents, static_cast<std::uint8_t>(head.isWhole));
  Append(contents, static_cast<std::uint32_t>(head.size));
  return contents;
}

void AppendChange(std::string& changes, const JournalChange& change) {
  AppendShort(changes, static_cast<std::uint32_t>(change.at.value));
  AppendShort(changes, static_cast<std::uint32_t>(change.removed));
  AppendShort(changes, static_cast<std::uint32_t>(change.inserted.size()));
  changes.append(change.inserted);
}

std::uint32_t FrameChecksum(std::uint32_t number, std::string_view contents) {
  std::string place;
  Append(place, number);
  return Crc32(contents, Crc32(place));
}

std::string EncodeFrameHeader(std::uint32_t number, std::string_view head, std::string_view rest) {
  std::string header;
  Append(header, static_cast<std::uint32_t>(head.size() + rest.size()));
  Append(header, Crc32(rest, FrameChecksum(number, head)));
  return header;
}

FrameHeader DecodeFrameHeader(std::string_view bytes) {
  FrameHeader header{};
  (void)(Take(bytes, header.length) && Take(bytes, header.checksum));
  return header;
}

std::optional<std::uint32_t> TakeVersion(std::string_view& beginning) {
  std::uint32_t version = 0;
  if (!beginning.starts_with(kJournalWord)) return {};
  beginning.remove_prefix(kJournalWord.size());
  if (!Take(beginning, version)) return {};
  return version;
}

std::optional<JournalDescription> DecodeDescription(std::string_view contents) {
  JournalDescription description;
  std::uint8_t isUntitled = 0, format = 0;
  bool isRead = TakeKind(contents, FrameKind::kDescription) && Take(contents, description.document) &&
                Take(contents, description.generation) && Take(contents, isUntitled) &&
                Take(contents, format) && Take(contents, description.file.size) &&
                Take(contents, description.file.modified);
  if (!isRead || format >= kFileFormatCount) return {};
  description.isUntitled = isUntitled != 0;
  description.format = static_cast<FileFormat>(format);
  description.name = contents;
  return description;
}

std::optional<ChangesHead> TakeChangesHead(std::string_view& contents) {
  ChangesHead head;
  std::uint8_t isWhole = 0;
  std::uint32_t size = 0;
  bool isRead = TakeKind(contents, FrameKind::kChanges) && Take(contents, head.time) &&
                Take(contents, isWhole) && Take(contents, size);
  if (!isRead || size > static_cast<std::uint32_t>(kMaxTextSize)) return {};
  head.isWhole = isWhole != 0;
  head.size = static_cast<std::int32_t>(size);
  return head;
}

std::optional<JournalChange> TakeChange(std::string_view& changes) {
  JournalChange change;
  std::int32_t at = 0, inserted = 0;
  if (!TakeShort(changes, at) || !TakeShort(changes, change.removed) || !TakeShort(changes, inserted))
    return {};
  auto count = static_cast<std::size_t>(inserted);
  if (count > changes.size()) return {};
  change.at = BytePos(at);
  change.inserted = changes.substr(0, count);
  changes.remove_prefix(count);
  return change;
}

}  // namespace tarrow
