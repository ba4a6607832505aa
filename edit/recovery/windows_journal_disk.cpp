#include "edit/recovery/windows_journal_disk.h"

#include "base/exceptions.h"
#include "edit/files/look_at_file.h"
#include "framework/directories.h"
#include "framework/file.h"
#include "framework/file_system.h"

#include <windows.h>

#include <optional>
#include <utility>

namespace tarrow {
namespace {

constexpr std::string_view kSubdirectory = "Tarrow\\Recovery\\";
constexpr std::string_view kPattern = "*.journal";

// A file that nobody else can open while it is: that is how a running program is told from one that is gone.
class OwnedFile final : public JournalFile {
 public:
  OwnedFile(const std::string& path, CFile::Mode mode) : file_(path, mode, CFile::Share::kNothing) {}

  std::size_t Read(std::span<char> into) override { return file_.Read(into); }
  void Seek(std::uint64_t position) override { file_.Seek(position); }
  std::uint64_t Size() override { return file_.Size(); }
  void Write(std::string_view bytes) override { file_.Write(bytes); }
  void Truncate() override { file_.Truncate(); }
  void Flush() override { file_.Flush(); }
  void Close() override { file_.Close(); }

  // By the handle: whatever has the name meanwhile, this file goes and no other.
  void Remove() override {
    FILE_DISPOSITION_INFO disposition{TRUE};
    if (!SetFileInformationByHandle(file_.Handle(), FileDispositionInfo, &disposition, sizeof disposition))
      ThrowLastFileError(file_.Path());
    file_.Close();
  }

 private:
  CFile file_;
};

}  // namespace

// A profile may lie on a network, and the directory for temporary files seldom does.
std::string WindowsJournalDisk::UsersDirectory() {
  try {
    std::string data = LocalDataDirectory();
    if (!IsOnLocalDisk(data)) data = TemporaryDirectory();
    return IsOnLocalDisk(data) ? data.append(kSubdirectory) : std::string();
  } catch (const CFileException&) {
    return {};
  }
}

std::unique_ptr<JournalFile> WindowsJournalDisk::Create(const std::string& name) {
  std::string path = directory_ + name;
  MakeDirectories(directory_);
  return std::make_unique<OwnedFile>(path, CFile::Mode::kOwnNew);
}

std::vector<std::unique_ptr<JournalFile>> WindowsJournalDisk::Claim() {
  std::vector<std::unique_ptr<JournalFile>> files;
  for (const DirectoryEntry& entry : FindFiles(directory_ + std::string(kPattern))) {
    try {
      files.push_back(std::make_unique<OwnedFile>(directory_ + entry.name, CFile::Mode::kOwn));
    } catch (const CFileException&) {  // a running program's, or gone
    }
  }
  return files;
}

std::uint64_t WindowsJournalDisk::Now() {
  FILETIME now;
  GetSystemTimeAsFileTime(&now);
  return static_cast<std::uint64_t>(now.dwHighDateTime) << 32 | now.dwLowDateTime;
}

}  // namespace tarrow
