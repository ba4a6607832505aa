#include "shell/state/settings_location.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace tarrow {
namespace {

constexpr const char* kHome = "c:\\program\\tarrow.ini";
constexpr const char* kUser = "c:\\user\\Tarrow\\tarrow.ini";

struct FilesInMemory final : SettingsDisk {
  std::optional<std::string> Read(const std::string& path) override {
    if (unreadable.contains(path)) throw CFileException(FileCause::kSharingViolation, path);
    auto found = files.find(path);
    if (found == files.end()) return {};
    return found->second;
  }
  void Write(const std::string& path, const std::string& bytes) override {
    ++writes;
    if (locked.contains(path)) throw CFileException(FileCause::kAccessDenied, path);
    files[path] = bytes;
  }
  bool CanWrite(const std::string& path) override { return !locked.contains(path); }
  bool Enter(const std::string& directory) override { return directory == "c:\\project"; }

  std::map<std::string, std::string> files;
  std::set<std::string> locked, unreadable;
  int writes = 0;
};

class SettingsLocationTest : public testing::Test {
 protected:
  // A start of the program that saves one value; returns the value of the last time.
  std::string Run(const std::string& value) {
    SettingsLocation files(disk);
    files.OnMoved(
        [&](const std::string& wanted, const std::string& kept) { told += wanted + ">" + kept + ";"; });
    files.SetGlobalFile(kHome, kUser);
    IniText text = files.ReadGlobal();
    std::string before = text.Value("S", "k").value_or("none");
    text.SetValue("S", "k", value);
    files.WriteGlobal(text);
    used = files.GlobalFile();
    return before;
  }
  FilesInMemory disk;
  std::string told, used;
};

TEST_F(SettingsLocationTest, BesideTheProgramWherePossible) {
  EXPECT_EQ(Run("1"), "none");
  EXPECT_EQ(Run("2"), "1");
  EXPECT_EQ(disk.files.size(), 1u);
  EXPECT_EQ(told, "");
}

TEST_F(SettingsLocationTest, MovesToTheUserTellsOnceAndComesBack) {
  disk.files[kHome] = "[S]\r\nk=theirs\r\n";
  disk.locked.insert(kHome);
  EXPECT_EQ(Run("1"), "theirs");
  EXPECT_EQ(used, kUser);
  EXPECT_EQ(told, std::string(kHome) + ">" + kUser + ";");
  EXPECT_EQ(Run("2"), "1");
  EXPECT_EQ(Run("3"), "2");
  EXPECT_EQ(told, std::string(kHome) + ">" + kUser + ";");
  disk.locked.clear();
  EXPECT_EQ(Run("4"), "theirs") << "the first place counts again";
  EXPECT_EQ(used, kHome);
}

TEST_F(SettingsLocationTest, NoPlaceAtAllIsAFailure) {
  disk.locked = {kHome, kUser};
  EXPECT_THROW(Run("1"), CFileException);
  SettingsLocation files(disk);
  files.SetGlobalFile(kHome, "");
  (void)files.ReadGlobal();
  EXPECT_THROW(files.WriteGlobal(IniText("[S]\r\n")), CFileException);
}

TEST_F(SettingsLocationTest, FileThatCannotBeReadIsNotWrittenOver) {
  disk.files[kHome] = "; precious\r\n";
  disk.unreadable.insert(kHome);
  SettingsLocation files(disk);
  files.SetGlobalFile(kHome, kUser);
  IniText text = files.ReadGlobal();
  EXPECT_TRUE(text.Keys("S").empty());
  text.SetValue("S", "k", "1");
  EXPECT_THROW(files.WriteGlobal(text), CFileException);
  EXPECT_EQ(disk.files[kHome], "; precious\r\n");
  EXPECT_EQ(disk.files.size(), 1u);
}

TEST_F(SettingsLocationTest, NothingChangedIsNotWritten) {
  disk.files[kHome] = "[S]\r\nk=1\r\n";
  Run("1");
  EXPECT_EQ(disk.writes, 0);
}

TEST_F(SettingsLocationTest, ProjectHasAFileOfItsOwn) {
  SettingsLocation files(disk);
  EXPECT_FALSE(files.EnterProject("c:\\none"));
  EXPECT_TRUE(files.EnterProject("c:\\project"));
  EXPECT_EQ(files.ReadProject().Bytes(), "");
  files.WriteProject(IniText("[S]\r\n"));
  EXPECT_EQ(disk.files["c:\\project\\tarrow.ini"], "[S]\r\n");
}

}  // namespace
}  // namespace tarrow
