#include "shell/state/settings_location.h"

#include "base/path_text.h"
#include "shell/state/init_file.h"

namespace tarrow {

void SettingsLocation::SetGlobalFile(const std::string& path, const std::string& substitute) {
  global_ = path;
  substitute_ = EqualIgnoringCase(path, substitute) ? std::string() : substitute;
  usesSubstitute_ = false;
  if (substitute_.empty()) return;
  try {
    usesSubstitute_ = disk_.Read(substitute_).has_value() && !disk_.CanWrite(global_);
  } catch (const CFileException&) {  // a substitute that cannot be read is none
  }
}

IniText SettingsLocation::Read(Source& source, const std::string& path) {
  source = {path, {}, {}};
  try {
    source.read = disk_.Read(path).value_or(std::string());
  } catch (const CFileException& error) {
    source.unreadable = error.Cause();
  }
  return IniText(source.read);
}

void SettingsLocation::Write(const Source& source, const IniText& text) {
  if (source.unreadable) throw CFileException(*source.unreadable, source.path);
  std::string bytes = text.Bytes();
  if (bytes != source.read) disk_.Write(source.path, bytes);
}

IniText SettingsLocation::ReadGlobal() {
  return Read(globalSource_, GlobalFile());
}

void SettingsLocation::WriteGlobal(const IniText& text) {
  try {
    Write(globalSource_, text);
  } catch (const CFileException& error) {
    // Only a place that is closed for good is given up: what a full disk refuses now it may take the next
    // time.
    if (error.Cause() != FileCause::kAccessDenied || usesSubstitute_ || substitute_.empty()) throw;
    disk_.Write(substitute_, text.Bytes());
    usesSubstitute_ = true;
    if (moved_) moved_(global_, substitute_);
  }
}

bool SettingsLocation::EnterProject(const std::string& directory) {
  if (!disk_.Enter(directory)) return false;
  project_ = JoinPath(directory, kInitFileName);
  return true;
}

IniText SettingsLocation::ReadProject() {
  return Read(projectSource_, project_);
}
void SettingsLocation::WriteProject(const IniText& text) {
  Write(projectSource_, text);
}

}  // namespace tarrow
