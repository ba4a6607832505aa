#include "shell/state/settings_files.h"

#include "base/path_text.h"
#include "edit/files/save_disk.h"
#include "framework/directories.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "shell/state/init_file.h"

namespace tarrow {
namespace {

constexpr std::string_view kUserFolder = "Tarrow";

}  // namespace

std::optional<std::string> WindowsSettingsDisk::Read(const std::string& path) {
  try {
    return ReadWholeFile(path);
  } catch (const CFileException& error) {
    if (error.Cause() == FileCause::kFileNotFound || error.Cause() == FileCause::kBadPath) return {};
    throw;
  }
}

void WindowsSettingsDisk::Write(const std::string& path, const std::string& bytes) {
  std::string directory(WithoutTrailingSeparators(DirectoryPart(path)));
  if (!directory.empty() && !FileExists(directory)) MakeDirectory(directory);
  WindowsSaveDisk disk(WindowsSaveDisk::ForSettings());
  SafeSave(disk, path, {}, [&](ByteSink& out) { out.Write(bytes); });
}

bool WindowsSettingsDisk::CanWrite(const std::string& path) {
  try {
    auto status = GetFileStatus(path);
    if (status)
      CFile(path, CFile::Mode::kUpdate, CFile::Share::kReadWrite).Close();
    else
      RemoveFile(WindowsSaveDisk().MakeTemporary(path));
    return !status || (status->attributes & kAttributeReadOnly) == 0;
  } catch (const CFileException&) {
    return false;
  }
}

bool WindowsSettingsDisk::Enter(const std::string& directory) {
  try {
    ChangeWorkingDirectory(directory);
    return true;
  } catch (const CFileException&) {
    return false;
  }
}

void DiskSettingsFiles::SetGlobalFile(const std::string& path) {
  std::string beside = HomeDirectory(ProgramPath()).append(kInitFileName);
  std::string folder = ApplicationDataDirectory();
  bool mayMove = !folder.empty() && (EqualIgnoringCase(path, beside) || IsDirectory(path));
  SettingsLocation::SetGlobalFile(
      path, mayMove ? JoinPath(JoinPath(folder, kUserFolder), kInitFileName) : std::string());
}

}  // namespace tarrow
