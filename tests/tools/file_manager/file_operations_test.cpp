#include "tools/file_manager/file_operations.h"

#include "tests/tools/file_manager/managed_disk.h"
#include "ui/program/string_ids.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

using Listing = std::map<std::string, std::string>;

class FileOperationsTest : public testing::Test, public OperationOwner, public Progress {
 protected:
  using Tasks = std::vector<FileTask>;

  void OnFile(const std::string& path, std::size_t done) override {
    if (done == 0) visited.clear();
    EXPECT_EQ(done, visited.size());
    visited.push_back(path);
    if (done == cancelAt) throw CYieldException();
  }
  Progress& GetProgress() override { return *this; }
  void Poll() override {}
  Answer MayReplace(const std::string& to, const FileState&, const std::string&, const FileState&) override {
    asked.push_back(to);
    return asked.size() <= answers.size() ? answers[asked.size() - 1] : Answer::kNo;
  }
  void OnMoved(const std::string& from, const std::string& to) override { moved.push_back({from, to}); }

  static std::vector<int> Causes(const OperationReport& report) {
    std::vector<int> causes;
    for (const OperationFailure& failure : report.failures) causes.push_back(failure.message);
    return causes;
  }
  static int Text(FileCause cause) { return kTextFirstFileCause + static_cast<int>(cause); }

  ManagedDisk disk;
  FileOperations operations{disk, *this};
  std::vector<std::string> visited, asked;
  std::vector<Answer> answers;
  Tasks moved;
  std::size_t cancelAt = 1000;
};

TEST_F(FileOperationsTest, CopiesBytesTimesAndAttributes) {
  disk.Add("c:\\work\\A.c", "one", kAttributeReadOnly | kAttributeHidden);
  disk.At("c:\\work\\a.c").modified = 42;
  auto report = operations.Copy(Tasks{{"c:\\work\\A.c", "d:\\far\\A.c"}});
  EXPECT_EQ(report.done, 1u);
  EXPECT_TRUE(report.failures.empty());
  EXPECT_EQ(disk.Listing(), (Listing{{"c:\\work\\A.c", "one"}, {"d:\\far\\A.c", "one"}}));
  EXPECT_EQ(disk.At("d:\\far\\a.c").modified, 42u);
  EXPECT_EQ(disk.At("d:\\far\\a.c").attributes, kAttributeReadOnly | kAttributeHidden);
  EXPECT_TRUE(moved.empty());
}

TEST_F(FileOperationsTest, AFullDiskLeavesNoHalfFile) {
  for (const char* name : {"a", "b", "c"}) disk.Add(std::string("c:\\work\\") + name, "text of the file");
  disk.Add("c:\\other\\b", "old");
  disk.copiesUntilFull = 1;
  answers = {Answer::kYes};
  auto report = operations.Copy(Tasks{
      {"c:\\work\\a", "c:\\other\\a"}, {"c:\\work\\b", "c:\\other\\b"}, {"c:\\work\\c", "c:\\other\\c"}});
  EXPECT_EQ(report.done, 2u);
  ASSERT_EQ(Causes(report), std::vector{Text(FileCause::kDiskFull)});
  EXPECT_EQ(report.failures[0].path, "c:\\work\\b");
  EXPECT_EQ(disk.At("c:\\other\\b").bytes, "old") << "the old file stays whole";
  EXPECT_EQ(disk.files.size(), 6u) << "and no temporary file is left";
}

TEST_F(FileOperationsTest, CancellingInAFileLeavesNoHalfFileEither) {
  disk.Add("c:\\work\\a");
  disk.Add("c:\\work\\b");
  disk.copiesUntilCancel = 1;
  auto report = operations.Copy(Tasks{{"c:\\work\\a", "d:\\a"}, {"c:\\work\\b", "d:\\b"}});
  EXPECT_TRUE(report.cancelled);
  EXPECT_EQ(report.done, 1u);
  EXPECT_EQ(disk.files.size(), 3u);
}

TEST_F(FileOperationsTest, CancellingBetweenFilesStopsThere) {
  disk.Add("c:\\work\\a");
  disk.Add("c:\\work\\b");
  cancelAt = 1;
  auto report = operations.Delete(std::vector<std::string>{"c:\\work\\a", "c:\\work\\b"}, Removal::kForGood);
  EXPECT_TRUE(report.cancelled);
  EXPECT_EQ(disk.Listing(), (Listing{{"c:\\work\\b", "text"}}));
}

TEST_F(FileOperationsTest, ReplacesOnlyAsTheUserSays) {
  Tasks tasks;
  for (const char* name : {"a", "b", "c", "d"}) {
    disk.Add(std::string("c:\\work\\") + name, "new");
    disk.Add(std::string("c:\\other\\") + name, "old");
    tasks.push_back({std::string("c:\\work\\") + name, std::string("c:\\other\\") + name});
  }
  answers = {Answer::kNo, Answer::kYes, Answer::kYesToAll};
  auto report = operations.Copy(tasks);
  EXPECT_EQ(asked.size(), 3u);
  EXPECT_EQ(report.done, 3u);
  EXPECT_EQ(report.skipped, 1u);
  EXPECT_EQ(disk.At("c:\\other\\a").bytes, "old");
  for (const char* name : {"b", "c", "d"}) EXPECT_EQ(disk.At(std::string("c:\\other\\") + name).bytes, "new");
}

TEST_F(FileOperationsTest, CancelInTheQuestionEndsAll) {
  for (const char* name : {"c:\\work\\a", "c:\\work\\b", "c:\\other\\a"}) disk.Add(name);
  answers = {Answer::kCancel};
  auto report = operations.Move(Tasks{{"c:\\work\\a", "c:\\other\\a"}, {"c:\\work\\b", "c:\\other\\b"}});
  EXPECT_TRUE(report.cancelled);
  EXPECT_EQ(report.done, 0u);
  EXPECT_TRUE(moved.empty());
}

TEST_F(FileOperationsTest, NeverReplacesWhatItMustNot) {
  disk.Add("c:\\work\\a");
  disk.Add("c:\\other\\protected", "old", kAttributeReadOnly);
  disk.Link("c:\\other\\link", "c:\\work\\a");
  answers.assign(9, Answer::kYes);
  auto report = operations.Copy(Tasks{{"c:\\work\\a", "c:\\other\\protected"},
                                      {"c:\\work\\a", "c:\\other\\link"},
                                      {"c:\\work\\a", "c:\\work\\A"},
                                      {"c:\\work\\a", "c:\\other"},
                                      {"c:\\work\\none", "c:\\other\\x"},
                                      {"c:\\work\\a", "c:\\none\\x"}});
  EXPECT_EQ(Causes(report), (std::vector{Text(FileCause::kAccessDenied), int{kTextOntoItself},
                                         int{kTextOntoItself}, int{kTextNameOfDirectory},
                                         Text(FileCause::kFileNotFound), Text(FileCause::kBadPath)}));
  EXPECT_EQ(report.done, 0u);
  EXPECT_EQ(disk.At("c:\\other\\protected").bytes, "old");
}

TEST_F(FileOperationsTest, MovesWithinAndBetweenVolumes) {
  disk.Add("c:\\work\\a", "one", kAttributeReadOnly);
  disk.Add("c:\\work\\b", "two");
  auto report = operations.Move(Tasks{{"c:\\work\\a", "d:\\far\\a"}, {"c:\\work\\b", "c:\\other\\b"}});
  EXPECT_EQ(report.done, 2u);
  EXPECT_EQ(disk.Listing(), (Listing{{"c:\\other\\b", "two"}, {"d:\\far\\a", "one"}}));
  EXPECT_EQ(disk.At("d:\\far\\a").attributes, kAttributeReadOnly);
  EXPECT_EQ(moved, (Tasks{{"c:\\work\\a", "d:\\far\\a"}, {"c:\\work\\b", "c:\\other\\b"}}));
}

TEST_F(FileOperationsTest, ALockedFileStaysAndIsNamed) {
  disk.Add("c:\\work\\a");
  disk.Add("c:\\work\\b");
  disk.locked = {"c:\\work\\a"};
  auto report = operations.Move(Tasks{{"c:\\work\\a", "c:\\other\\a"}, {"c:\\work\\b", "c:\\other\\b"}});
  EXPECT_EQ(report.done, 1u);
  ASSERT_EQ(report.failures.size(), 1u);
  EXPECT_EQ(report.failures[0].path, "c:\\work\\a");
  EXPECT_EQ(report.failures[0].message, Text(FileCause::kSharingViolation));
}

TEST_F(FileOperationsTest, ChangesTheCaseOfAName) {
  disk.Add("c:\\work\\main.c");
  EXPECT_EQ(operations.Move(Tasks{{"c:\\work\\main.c", "c:\\work\\Main.C"}}).done, 1u);
  EXPECT_EQ(disk.Listing(), (Listing{{"c:\\work\\Main.C", "text"}}));
  EXPECT_TRUE(asked.empty());
  EXPECT_EQ(operations.Move(Tasks{{"c:\\work\\Main.C", "c:\\work\\Main.C"}}).skipped, 1u);
}

TEST_F(FileOperationsTest, NamesMoveUpOneByOne) {
  for (const char* name : {"1", "2", "3"}) disk.Add(std::string("c:\\work\\") + name, name);
  auto report = operations.Move(
      Tasks{{"c:\\work\\1", "c:\\work\\2"}, {"c:\\work\\2", "c:\\work\\3"}, {"c:\\work\\3", "c:\\work\\4"}});
  EXPECT_EQ(report.done, 3u);
  EXPECT_TRUE(asked.empty());
  EXPECT_EQ(disk.Listing(), (Listing{{"c:\\work\\2", "1"}, {"c:\\work\\3", "2"}, {"c:\\work\\4", "3"}}));
}

TEST_F(FileOperationsTest, NoFileOfTheOperationReplacesAnother) {
  for (const char* name : {"1", "2", "3"}) disk.Add(std::string("c:\\work\\") + name, name);
  answers.assign(9, Answer::kYesToAll);
  auto same = operations.Move(Tasks{{"c:\\work\\1", "c:\\work\\x"}, {"c:\\work\\2", "c:\\work\\X"}});
  EXPECT_EQ(Causes(same), std::vector<int>{kTextNameTaken});

  auto ring = operations.Move(Tasks{{"c:\\work\\2", "c:\\work\\3"}, {"c:\\work\\3", "c:\\work\\2"}});
  EXPECT_EQ(Causes(ring), (std::vector<int>{kTextNameTaken, kTextNameTaken}));

  auto copies = operations.Copy(Tasks{{"c:\\work\\2", "d:\\y"}, {"c:\\work\\3", "d:\\y"}});
  EXPECT_EQ(Causes(copies), std::vector<int>{kTextNameTaken});
  EXPECT_EQ(disk.Listing(),
            (Listing{{"c:\\work\\x", "1"}, {"c:\\work\\2", "2"}, {"c:\\work\\3", "3"}, {"d:\\y", "2"}}));
}

TEST_F(FileOperationsTest, DeletesToTheRecycleBinAndSparesReadOnlyFiles) {
  disk.Add("c:\\work\\a");
  disk.Add("c:\\work\\b", "text", kAttributeReadOnly);
  auto report = operations.Delete(std::vector<std::string>{"c:\\work\\a", "c:\\work\\b", "c:\\work\\none"},
                                  Removal::kRecycle);
  EXPECT_EQ(disk.recycled, std::set<std::string>{"c:\\work\\a"});
  EXPECT_EQ(Causes(report), (std::vector{Text(FileCause::kAccessDenied), Text(FileCause::kFileNotFound)}));
  EXPECT_TRUE(disk.files.contains("c:\\work\\b"));
}

TEST_F(FileOperationsTest, TouchesAndChangesAttributes) {
  disk.Add("c:\\work\\a", "text", kAttributeArchive | kAttributeHidden);
  disk.Add("c:\\work\\b", "text", kAttributeReadOnly);
  std::vector<std::string> paths = {"c:\\work\\a", "c:\\work\\b"};
  EXPECT_EQ(operations.Touch(paths, 99).done, 2u);
  EXPECT_EQ(disk.At(paths[0]).modified, 99u);
  EXPECT_EQ(disk.At(paths[1]).modified, 99u);

  auto report = operations.ChangeAttributes(paths, kAttributeReadOnly, kAttributeArchive);
  EXPECT_EQ(report.done, 1u);
  EXPECT_EQ(report.skipped, 1u) << "b is what it is to be";
  EXPECT_EQ(disk.At(paths[0]).attributes, kAttributeReadOnly | kAttributeHidden);

  operations.ChangeAttributes(paths, 0, kAttributeReadOnly);
  EXPECT_EQ(disk.At(paths[1]).attributes, kAttributeNormal);
}

}  // namespace
}  // namespace tarrow
