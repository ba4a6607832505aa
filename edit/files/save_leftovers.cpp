#include "edit/files/save_leftovers.h"

#include "base/crc32.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarrow {
namespace {

// The seal: this word, the size of the text (8 bytes, the lowest first), the checksum of both (4).
constexpr std::string_view kWord = "\r\n[Tarrow: whole]\r\n";
constexpr std::size_t kSizeAt = kWord.size(), kSumAt = kSizeAt + 8, kSealSize = kSumAt + 4;
constexpr std::size_t kBlock = 65536;

void AppendNumber(std::string& out, std::uint64_t number, std::size_t bytes) {
  for (std::size_t i = 0; i < bytes; ++i) out += static_cast<char>(number >> 8 * i & 0xFF);
}

std::uint64_t NumberIn(std::string_view bytes) {
  std::uint64_t number = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[i]);
  return number;
}

bool HoldsSame(DiskFile& a, DiskFile& b, std::uint64_t size) {
  if (b.Size() != size) return false;
  std::array<char, kBlock> left, right;
  a.Seek(0);
  b.Seek(0);
  while (size > 0) {
    auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(size, kBlock));
    if (a.Read({left.data(), wanted}) != wanted || b.Read({right.data(), wanted}) != wanted) return false;
    if (!std::equal(left.data(), left.data() + wanted, right.data())) return false;
    size -= wanted;
  }
  return true;
}

void TryRemove(SaveDisk& disk, const std::string& path) {
  try {
    disk.Remove(path);
  } catch (const CFileException&) {  // it lies there to no harm
  }
}

// What the temporary file at `path` keeps of `target`, if the target needs it.
std::optional<WholeText> NeededText(SaveDisk& disk, const std::string& path, const std::string& target) {
  auto temporary = disk.Open(path, SaveDisk::Access::kRead);
  std::optional<std::uint64_t> size = SealedSize(*temporary);
  if (!size || HoldsSame(*temporary, *disk.Open(target, SaveDisk::Access::kRead), *size)) return {};
  return WholeText{path, *size};
}

}  // namespace

void Seal(DiskFile& temporary, std::uint64_t size) {
  std::string seal(kWord);
  AppendNumber(seal, size, kSumAt - kSizeAt);
  AppendNumber(seal, Crc32(seal), kSealSize - kSumAt);
  temporary.Seek(size);
  temporary.Write(seal);
  temporary.Flush();
}

std::optional<std::uint64_t> SealedSize(DiskFile& temporary) {
  std::uint64_t size = temporary.Size();
  if (size < kSealSize) return {};
  std::string seal(kSealSize, '\0');
  temporary.Seek(size - kSealSize);
  if (temporary.Read(seal) != kSealSize || !seal.starts_with(kWord)) return {};
  std::string_view bytes(seal);
  bool isGood = NumberIn(bytes.substr(kSumAt)) == Crc32(bytes.substr(0, kSumAt)) &&
                NumberIn(bytes.substr(kSizeAt, kSumAt - kSizeAt)) == size - kSealSize;
  return isGood ? std::optional(size - kSealSize) : std::nullopt;
}

std::optional<WholeText> FindWholeText(SaveDisk& disk, const std::string& path) {
  std::optional<WholeText> newest;
  for (const std::string& temporary : disk.Temporaries(path)) {
    try {
      std::optional<WholeText> whole = NeededText(disk, temporary, path);
      if (!whole)
        TryRemove(disk, temporary);
      else if (!newest)
        newest = whole;
    } catch (const CFileException&) {  // being written by somebody just now
    }
  }
  return newest;
}

void RemoveLeftovers(SaveDisk& disk, const std::string& path) {
  for (const std::string& file : {path, BackupName(path)}) {
    if (file.empty()) continue;
    for (const std::string& temporary : disk.Temporaries(file)) TryRemove(disk, temporary);
  }
}

}  // namespace tarrow
