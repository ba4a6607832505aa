// Names on the disk: what stands behind a path, and the operations on whole files.
//
// Paths are UTF-8. A full path has less than 260 characters; a longer one is refused as a bad path, never
// cut. Operations throw CFileException naming the file; questions answer and do not throw. The program shows
// and compares paths in lower case; the name on the disk keeps the case that it has there.
#pragma once

#include "base/file_lookup.h"
#include "framework/lower_path.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// What is known of a file or directory. Times count 100 nanoseconds since 1601, UTC; 0 where unknown.
struct FileStatus {
  std::string fullName;  // made absolute, in the case it was asked for
  std::uint64_t created = 0;
  std::uint64_t modified = 0;
  std::uint64_t accessed = 0;
  std::uint64_t size = 0;
  std::uint32_t attributes = 0;

  bool IsDirectory() const { return (attributes & kAttributeDirectory) != 0; }
};

// The status of what `path` names, or nothing when there is no such file. A drive ("a:") counts as a
// directory, with its times unknown; a device (CON, NUL) is no file.
[[nodiscard]] std::optional<FileStatus> GetFileStatus(std::string_view path);

[[nodiscard]] bool FileExists(std::string_view path);

// Whether two paths lead to the same file, by whatever names and links. False when either leads nowhere.
[[nodiscard]] bool SameFile(std::string_view a, std::string_view b);

// Whether `name` is a directory, as IsDirectory of base/file_lookup.h has it.
[[nodiscard]] bool IsDirectory(std::string_view name);

// The full path of `path`. Throws kBadPath when it is too long, names a device, or has no full form.
[[nodiscard]] std::string FullPath(std::string_view path);

// The full path in lower case, as the program keeps it (framework/lower_path.h).
[[nodiscard]] std::string FullPathLower(std::string_view path);

// `path` with its last component in the case that it has on the disk; unchanged when nothing is there, or
// exactly that.
[[nodiscard]] std::string TrueCase(std::string_view path);

// `path` with every component in the case that it has on the disk, and the letter of a drive in upper case.
[[nodiscard]] std::string TrueCasePath(std::string_view path);

// Everything that a path with wildcards in its last component finds, "." and ".." included.
[[nodiscard]] std::vector<DirectoryEntry> FindFiles(std::string_view pattern);

void RemoveFile(std::string_view path);

// Gives a file another name, on another volume too. Throws kAccessDenied when `to` exists.
void RenameFile(std::string_view from, std::string_view to);

// Copies the bytes, times and attributes of a file. An existing `to` is overwritten when `overwrite` is set.
void DuplicateFile(std::string_view from, std::string_view to, bool overwrite);

void MakeDirectory(std::string_view path);

// Makes a directory and those above it that are missing.
void MakeDirectories(std::string_view path);

void ChangeAttributes(std::string_view path, std::uint32_t attributes);

// Sets the time of the last modification.
void ChangeModifiedTime(std::string_view path, std::uint64_t time);

// The disk as engines see it.
class DiskLookup final : public FileLookup {
 public:
  std::optional<std::uint32_t> Attributes(std::string_view path) override;
  bool IsDriveKnown(char letter) override;
  std::optional<std::string> FullPath(std::string_view path) override;
  void Find(std::string_view pattern, Progress* progress, const EntryUse& use) override;
  std::string Lower(std::string_view path) override;
  std::string LowerLetters(std::string_view name) override;

 private:
  LowerPaths lower_;
};

// `path` for a call of the platform, for use within framework/ and beside it. Throws kBadPath for one that is
// empty, too long, or holds a NUL.
[[nodiscard]] std::wstring CheckedWidePath(std::string_view path);

// Throws the CFileException for the error of the last call of the platform on `path`.
[[noreturn]] void ThrowLastFileError(std::string_view path);

}  // namespace tarrow
