#include "edit/files/safe_save.h"

#include "edit/files/save_leftovers.h"
#include "tests/edit/files/memory_disk.h"

#include <gtest/gtest.h>

#include <optional>

namespace tarrow {
namespace {

constexpr const char* kName = "c:\\dir\\File.c";
constexpr const char* kBackup = "c:\\dir\\File.BAK";

std::string Text(char c, std::size_t size) {
  return std::string(size, c);
}

// A way in which a file may have to be saved.
struct Situation {
  const char* name;
  std::size_t oldSize, newSize;
  bool backup, inPlace, unreplaceable, closedDirectory, existing = true;
};

const Situation kSituations[] = {
    {"replaced", 1000, 2000, false, false, false, false},
    {"replaced, with backup", 1000, 2000, true, false, false, false},
    {"in place, growing", 1000, 200'000, false, true, false, false},
    {"in place, shrinking", 200'000, 1000, false, true, false, false},
    {"in place, with backup", 1000, 2000, true, true, false, false},
    {"held by another program", 1000, 2000, true, false, true, false},
    {"closed directory", 1000, 2000, false, false, false, true},
    {"emptied", 1000, 0, true, true, false, false},
    {"new", 0, 2000, true, false, false, false, false},
};

// One attempt to save, on a disk of its own.
struct Attempt {
  explicit Attempt(const Situation& s)
      : situation(s), before(Text('o', s.oldSize)), after(Text('n', s.newSize)) {
    if (s.existing) disk.files[kName] = before;
    disk.files[kBackup] = "older";
    if (s.inPlace) disk.inPlace.insert(kName);
    if (s.unreplaceable) disk.unreplaceable.insert(kName);
    disk.directoryIsClosed = s.closedDirectory;
  }
  // Saves, and returns the cause for which it failed.
  std::optional<FileCause> Save() {
    SaveOptions options{situation.backup, [&](const CFileException&) { ++backupFailures; }};
    try {
      SafeSave(disk, kName, options, [&](ByteSink& out) {
        out.Write(std::string_view(after).substr(0, after.size() / 3));
        out.Write(std::string_view(after).substr(after.size() / 3));
      });
    } catch (const CFileException& error) {
      EXPECT_EQ(error.Path(), kName) << "the user knows of no other file";
      return error.Cause();
    }
    return {};
  }
  bool HasOldText() const {
    auto file = disk.files.find(kName);
    return situation.existing ? file != disk.files.end() && file->second == before : file == disk.files.end();
  }
  bool HasNewText() const { return disk.files.contains(kName) && disk.files.at(kName) == after; }

  const Situation& situation;
  MemoryDisk disk;
  std::string before, after;
  int backupFailures = 0;
};

int StepsOf(const Situation& situation) {
  Attempt attempt(situation);
  (void)attempt.Save();
  return attempt.disk.steps;
}

TEST(SafeSave, SavesAndCleansUp) {
  for (const Situation& situation : kSituations) {
    SCOPED_TRACE(situation.name);
    Attempt attempt(situation);
    EXPECT_EQ(attempt.Save(), std::nullopt);
    EXPECT_TRUE(attempt.HasNewText());
    EXPECT_EQ(attempt.disk.files.size(), 2u) << "a temporary file was left";
    bool backedUp = situation.backup && situation.existing;
    EXPECT_EQ(attempt.disk.files[kBackup], backedUp ? attempt.before : "older");
    EXPECT_EQ(attempt.backupFailures, 0);
  }
}

TEST(SafeSave, FailureOfAnyStepLeavesTheOldTextOrTheNew) {
  for (const Situation& situation : kSituations) {
    for (int step = 0; step < StepsOf(situation); ++step) {
      SCOPED_TRACE(testing::Message() << situation.name << ", step " << step);
      Attempt attempt(situation);
      attempt.disk.failAt = step;
      // In the middle of overwriting, the new text is whole in the temporary file.
      if (attempt.Save())
        EXPECT_TRUE(attempt.HasOldText() || attempt.disk.Holds(attempt.after));
      else
        EXPECT_TRUE(attempt.HasNewText());
    }
  }
}

TEST(SafeSave, DeathAtAnyStepLeavesTheOldTextOrTheNew) {
  for (const Situation& situation : kSituations) {
    for (int step = 0; step < StepsOf(situation); ++step) {
      SCOPED_TRACE(testing::Message() << situation.name << ", step " << step);
      Attempt attempt(situation);
      attempt.disk.killAt = step;
      // Death while the temporary file is being removed goes unseen.
      try {
        (void)attempt.Save();
        EXPECT_TRUE(attempt.HasNewText());
      } catch (const MemoryDisk::Killed&) {
      }
      bool growing =
          attempt.disk.files.contains(kName) && attempt.disk.files[kName].starts_with(attempt.before);
      EXPECT_TRUE(attempt.HasOldText() || growing || attempt.disk.Holds(attempt.after));
    }
  }
}

// Whatever step is the last, the next opening offers the whole text where the file is not whole, and nothing
// but a whole text; where the file is whole, nothing is left beside it once it has been opened or saved.
TEST(SafeSave, OpeningAfterDeathAtAnyStepFindsTheWholeText) {
  int offered = 0, unsealed = 0;
  for (const Situation& situation : kSituations) {
    if (situation.closedDirectory || !situation.existing) continue;
    for (int step = 0; step < StepsOf(situation); ++step) {
      SCOPED_TRACE(testing::Message() << situation.name << ", step " << step);
      Attempt attempt(situation);
      attempt.disk.killAt = step;
      try {
        (void)attempt.Save();
      } catch (const MemoryDisk::Killed&) {
      }
      attempt.disk.killAt = -1;
      unsealed += !attempt.disk.Temporaries(kName).empty();
      std::optional<WholeText> whole = FindWholeText(attempt.disk, kName);
      if (!whole) {
        EXPECT_TRUE(attempt.HasOldText() || attempt.HasNewText());
        EXPECT_TRUE(attempt.disk.Temporaries(kName).empty());
        continue;
      }
      ++offered;
      EXPECT_FALSE(attempt.HasNewText());
      EXPECT_EQ(attempt.disk.files[whole->path].substr(0, static_cast<std::size_t>(whole->size)),
                attempt.after);
      EXPECT_EQ(FindWholeText(attempt.disk, kName)->path, whole->path) << "it stays until the file is saved";
      EXPECT_EQ(attempt.Save(), std::nullopt);
      RemoveLeftovers(attempt.disk, kName);
      EXPECT_EQ(attempt.disk.files.size(), 2u) << "the file and its backup";
    }
  }
  EXPECT_GT(offered, 10);
  EXPECT_GT(unsealed, offered);
}

TEST(SafeSave, TextThatOnlyLooksSealedIsNot) {
  MemoryDisk disk;
  disk.files[kName] = "old";
  SafeSave(disk, kName, {}, [](ByteSink& out) { out.Write("text"); });
  std::string temporary = disk.MakeTemporary(kName);
  Seal(*disk.Open(temporary, SaveDisk::Access::kUpdate), 0);
  std::string seal = disk.files[temporary];
  for (const std::string& bytes : {seal.substr(1), seal + "x", "x" + seal, std::string("text")}) {
    disk.files[temporary] = bytes;
    EXPECT_EQ(SealedSize(*disk.Open(temporary, SaveDisk::Access::kRead)), std::nullopt);
  }
}

TEST(SafeSave, DiskThatFillsAnywhereKeepsTheOldText) {
  for (const Situation& situation : kSituations) {
    std::size_t most = 3 * situation.oldSize + 2 * situation.newSize + 10;
    for (std::size_t space = situation.oldSize + 5; space <= most; space += most / 60 + 1) {
      SCOPED_TRACE(testing::Message() << situation.name << ", " << space << " bytes");
      Attempt attempt(situation);
      attempt.disk.space = space;
      if (auto cause = attempt.Save()) {
        EXPECT_EQ(*cause, FileCause::kDiskFull);
        EXPECT_TRUE(attempt.HasOldText());
        EXPECT_LE(attempt.disk.files.size(), 2u) << "a temporary file was left";
      } else {
        EXPECT_TRUE(attempt.HasNewText());
      }
    }
  }
}

TEST(SafeSave, BackupThatFailsIsReportedAndTheFileSaved) {
  for (bool inPlace : {false, true}) {
    MemoryDisk disk;
    disk.files = {{kName, "old"}, {kBackup, "older"}};
    disk.unreplaceable.insert(kBackup);
    if (inPlace) disk.inPlace.insert(kName);
    int reported = 0;
    SafeSave(disk, kName, {true, [&](const CFileException&) { ++reported; }},
             [](ByteSink& out) { out.Write("new"); });
    EXPECT_EQ(reported, 1);
    EXPECT_EQ(disk.files, (std::map<std::string, std::string>{{kName, "new"}, {kBackup, "older"}}));
  }
}

TEST(SafeSave, DeviceIsWrittenDirectly) {
  MemoryDisk disk;
  SafeSave(disk, "device", {true, {}}, [](ByteSink& out) { out.Write("text"); });
  EXPECT_EQ(disk.files, (std::map<std::string, std::string>{{"device", "text"}}));
}

TEST(SafeSave, FailureOfTheWriterPassesThrough) {
  MemoryDisk disk;
  disk.files[kName] = "old";
  EXPECT_THROW(SafeSave(disk, kName, {}, [](ByteSink& out) { out.Write("ne"), throw CMemoryException(); }),
               CMemoryException);
  EXPECT_EQ(disk.files, (std::map<std::string, std::string>{{kName, "old"}}));
}

TEST(SafeSave, BackupNames) {
  EXPECT_EQ(BackupName("c:\\src\\a.c"), "c:\\src\\a.BAK");
  EXPECT_EQ(BackupName("c:\\src\\makefile"), "c:\\src\\makefile.BAK");
  EXPECT_EQ(BackupName("c:\\src.old\\makefile"), "c:\\src.BAK");  // the dot of the directory counts
  EXPECT_EQ(BackupName("c:\\src\\a.bak"), "");
  EXPECT_EQ(BackupName("c:\\src\\a.b.c"), "c:\\src\\a.b.BAK");
}

}  // namespace
}  // namespace tarrow
