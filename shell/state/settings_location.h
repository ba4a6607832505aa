// Where the settings lie: the global file, what takes its place when it cannot be written, and the project's.
//
// A program that is installed for all users may not write beside itself. Its settings then go to a file of
// the user's own, and are read from there for as long as the first place cannot be written; the user is told
// when that begins. A file that is there but cannot be read counts as empty, and is never written over.
#pragma once

#include "base/exceptions.h"
#include "shell/state/settings.h"

#include <functional>
#include <optional>
#include <string>

namespace tarrow {

// The disk as settings need it. Paths are UTF-8; operations throw CFileException.
class SettingsDisk {
 public:
  virtual ~SettingsDisk() = default;

  // The bytes of a file, or nothing when there is none.
  [[nodiscard]] virtual std::optional<std::string> Read(const std::string& path) = 0;

  // Gives a file these bytes: whatever happens meanwhile, it holds all of them, or all that it held before.
  // Its directory is made when it is missing.
  virtual void Write(const std::string& path, const std::string& bytes) = 0;

  // Whether a file could be written.
  [[nodiscard]] virtual bool CanWrite(const std::string& path) = 0;

  // Makes a directory current; false when that fails.
  [[nodiscard]] virtual bool Enter(const std::string& directory) = 0;
};

class SettingsLocation : public SettingsFiles {
 public:
  // Told that the settings cannot be saved in one file and are kept in another.
  using Moved = std::function<void(const std::string& wanted, const std::string& kept)>;

  explicit SettingsLocation(SettingsDisk& disk) : disk_(disk) {}
  virtual ~SettingsLocation() = default;

  // The global file, and the one to take its place (empty: none).
  void SetGlobalFile(const std::string& path, const std::string& substitute);
  void OnMoved(Moved moved) { moved_ = std::move(moved); }

  IniText ReadGlobal() override;
  void WriteGlobal(const IniText& text) override;
  bool EnterProject(const std::string& directory) override;
  IniText ReadProject() override;
  void WriteProject(const IniText& text) override;

  // The global file that is read and written now.
  const std::string& GlobalFile() const { return usesSubstitute_ ? substitute_ : global_; }

 private:
  // One file, and why it could not be read.
  struct Source {
    std::string path;
    std::optional<FileCause> unreadable;
    std::string read;  // what it held
  };

  IniText Read(Source& source, const std::string& path);
  void Write(const Source& source, const IniText& text);

  SettingsDisk& disk_;
  Moved moved_;
  std::string global_, substitute_, project_;
  bool usesSubstitute_ = false;
  Source globalSource_, projectSource_;
};

}  // namespace tarrow
