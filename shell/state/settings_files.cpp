#include "shell/state/settings_files.h"

#include "base/path_text.h"
#include "edit/files/save_disk.h"
#include "framework/directories.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/handle.h"
#include "shell/state/init_file.h"

namespace tarrow {
namespace {

constexpr std::string_view kUserFolder = "Tarrow";

constexpr wchar_t kTurnName[] = L"Local\\TarrowSettings";
constexpr DWORD kTurnMilliseconds = 2000;

// The one mutex of the session's instances, held if it could be had.
class MutexTurn final : public SettingsFiles::Turn {
 public:
  MutexTurn() : mutex_(::CreateMutexW(nullptr, FALSE, kTurnName)) {
    DWORD result = mutex_ ? ::WaitForSingleObject(mutex_.Get(), kTurnMilliseconds) : WAIT_FAILED;
    isHeld_ = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
  }
  ~MutexTurn() override {
    if (isHeld_) ::ReleaseMutex(mutex_.Get());
  }
  MutexTurn(const MutexTurn&) = delete;
  MutexTurn& operator=(const MutexTurn&) = delete;

 private:
  KernelHandle mutex_;
  bool isHeld_ = false;
};

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

std::unique_ptr<SettingsFiles::Turn> DiskSettingsFiles::TakeTurn() {
  return std::make_unique<MutexTurn>();
}

void DiskSettingsFiles::SetGlobalFile(const std::string& path) {
  std::string beside = HomeDirectory(ProgramPath()).append(kInitFileName);
  std::string folder = ApplicationDataDirectory();
  bool mayMove = !folder.empty() && (EqualIgnoringCase(path, beside) || IsDirectory(path));
  SettingsLocation::SetGlobalFile(
      path, mayMove ? JoinPath(JoinPath(folder, kUserFolder), kInitFileName) : std::string());
}

}  // namespace tarrow
