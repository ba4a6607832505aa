#include "edit/recovery/journal.h"

#include "edit/recovery/left_texts.h"
#include "tests/edit/recovery/memory_journal_disk.h"

#include <gtest/gtest.h>

#include <random>

namespace tarrow {
namespace {

constexpr std::uint64_t kSecond = 10'000'000;

// A text with its journal, and a disk.
class Play final : private JournaledText {
 public:
  Play() { buffer.SetObserver(&journal); }
  ~Play() { queue.Finish(); }

  void Load(std::string_view text) {
    TextBuffer loaded;
    loaded.Replace({}, text);
    buffer = std::move(loaded);
  }
  void Type(std::int64_t at, std::int64_t removed, std::string_view text) {
    buffer.Replace({BytePos(at), BytePos(at + removed)}, text);
  }
  void Settle() {
    for (int turn = 0; turn < 1000 && journal.IsBehind(); ++turn) {
      disk.now += kSecond;
      journal.Write();
      queue.Finish();
    }
  }
  // What another run would find if this one ended now.
  static std::vector<std::string> Left(const MemoryJournalDisk::Files& files) {
    MemoryJournalDisk after;
    after.files = files;
    std::vector<std::string> texts;
    for (LeftText& left : ClaimLeftTexts(after)) texts.push_back(RecoverText(left).View().Copy());
    return texts;
  }
  std::vector<std::string> Left() const { return Left(disk.files); }
  std::string Text() const { return buffer.View().Copy(); }

  MemoryJournalDisk disk;
  int wanted = 0, idle = 0;
  BackgroundQueue queue{[this] { ++idle; }};
  JournalServices services{disk, queue, [this] { ++wanted; }};
  TextBuffer buffer;
  Journal journal{services, *this};

 private:
  TextView JournalView() const override { return buffer.View(); }
  JournalDescription JournalName() const override {
    return {0, 0, "c:\\a.c", false, FileFormat::kDos, {5, 6}};
  }
};

using Texts = std::vector<std::string>;

TEST(Journal, WritesNothingWhileNothingChanges) {
  Play play;
  play.Load("text");
  EXPECT_FALSE(play.journal.IsBehind());
  play.Settle();
  EXPECT_EQ(play.disk.steps, 0);
  play.Type(0, 0, "x");
  play.Settle();
  int steps = play.disk.steps;
  EXPECT_GT(steps, 0);
  play.journal.Write();
  play.queue.Finish();
  EXPECT_EQ(play.disk.steps, steps);
  EXPECT_EQ(play.wanted, 1);
}

TEST(Journal, HoldsTheTextOnceItIsSettled) {
  Play play;
  play.Load("text");
  for (std::string_view typed : {"a", "bc", "\r\n"}) {
    play.Type(2, 1, typed);
    play.Settle();
    EXPECT_EQ(play.Left(), Texts{play.Text()});
  }
  EXPECT_EQ(play.disk.files.size(), 1u);
}

TEST(Journal, TextThatIsExchangedIsWrittenAnew) {
  Play play;
  play.Type(0, 0, "before");
  play.Settle();
  play.Load("quite another");
  play.Settle();
  EXPECT_EQ(play.Left(), Texts{"quite another"});
  EXPECT_EQ(play.disk.files.size(), 1u);
}

TEST(Journal, EndRemovesIt) {
  Play play;
  play.Type(0, 0, "a");
  play.Settle();
  play.journal.End();
  play.queue.Finish();
  EXPECT_TRUE(play.disk.files.empty());
  EXPECT_FALSE(play.journal.IsBehind());
  play.Type(0, 0, "b");
  play.Settle();
  EXPECT_EQ(play.Left(), Texts{"ba"}) << "and it begins again";
}

TEST(Journal, OneThatOutgrowsItsTextIsBegunAnew) {
  Play play;
  std::size_t largest = 0;
  for (int i = 0; i < 100; ++i) {
    play.Type(0, static_cast<std::int64_t>(play.buffer.Size()),
              std::string(100'000, static_cast<char>('a' + i % 26)));
    play.Settle();
    std::size_t size = 0;
    for (const auto& [name, bytes] : play.disk.files) size += bytes.size();
    largest = std::max(largest, size);
  }
  EXPECT_EQ(play.Left(), Texts{play.Text()});
  EXPECT_LT(largest, 3'000'000u);
}

TEST(Journal, LargeTextIsCopiedWhileItChanges) {
  Play play;
  play.Load(std::string(5'000'000, '.'));
  play.Type(2'500'000, 0, "first");
  play.journal.Write();
  for (int turn = 0; turn < 200 && play.journal.IsBehind(); ++turn) {
    play.Type(turn * 30'000 % 5'000'000, 1, "xy");
    play.queue.Finish();
    turn % 3 == 0 ? play.journal.Write() : play.journal.CopyOn();
  }
  play.Settle();
  EXPECT_TRUE(play.Left() == Texts{play.Text()});
}

TEST(Journal, ThousandsOfReplacementsAtOnceAreCopied) {
  Play play;
  play.Load(std::string(200'000, 'v'));
  play.Type(0, 0, "a");
  play.Settle();
  EditList edits;
  for (int i = 0; i < 100'000; ++i) edits.Add({BytePos(2 * i), BytePos(2 * i + 1)}, "value");
  play.buffer.Apply(edits);
  play.Settle();
  EXPECT_TRUE(play.Left() == Texts{play.Text()});
}

// What was on the disk at any moment is a text that was to be seen at a Write, and none before the last one
// that was settled.
TEST(Journal, PowerCutAtAnyStepLeavesATextThatWasThere) {
  std::mt19937 random(3);
  Play play;
  std::vector<std::string> history;
  std::size_t settled = 0;
  bool isSettled = false;
  int checked = 0;
  play.disk.seen = [&](const MemoryJournalDisk::Files& files) {
    Texts left = Play::Left(files);
    ASSERT_LE(left.size(), 1u);
    ASSERT_FALSE(left.empty() && isSettled) << "the text is gone";
    if (left.empty()) return;
    auto found = std::ranges::find(history.rbegin(), history.rend(), left[0]);
    ASSERT_NE(found, history.rend());
    ASSERT_TRUE(!isSettled || history.rend() - found >= static_cast<std::ptrdiff_t>(settled));
    ++checked;
  };
  for (int turn = 0; turn < 300; ++turn) {
    for (int key = 0; key < 5; ++key) {
      auto at = static_cast<std::int64_t>(random() % static_cast<unsigned>(play.buffer.Size() + 1));
      std::int64_t removed = std::min<std::int64_t>(random() % 3, play.buffer.Size() - at);
      play.Type(at, removed, std::string(random() % 4, static_cast<char>('a' + random() % 26)));
    }
    if (turn % 50 == 49) play.journal.OnExchanged();
    history.push_back(play.Text());
    play.Settle();
    settled = history.size();
    isSettled = true;
  }
  play.disk.seen = {};
  EXPECT_GT(checked, 500);
  EXPECT_EQ(play.Left(), Texts{play.Text()});
}

TEST(Journal, FailureOfAnyStepHarmsNothingAndPasses) {
  for (int step = 0; step < 40; ++step) {
    SCOPED_TRACE(step);
    Play play;
    Texts before{"abc"};
    play.Load("ab");
    play.Type(2, 0, "c");
    play.disk.failAt = step;
    for (int turn = 0; turn < 6; ++turn) {
      play.journal.Write();
      play.queue.Finish();
      Texts left = play.Left();
      EXPECT_TRUE(left.empty() || std::string(left[0].size() - 3, 'd') + "abc" == left[0]);
      play.Type(0, 0, "d");
      if (turn == 2) play.journal.OnExchanged();
    }
    EXPECT_EQ(play.Text(), "ddddddabc");
    if (play.journal.IsBehind()) {
      play.disk.failAt = {};
      play.Settle();
    }
    EXPECT_EQ(play.Left(), Texts{play.Text()});
    play.journal.End();
    play.queue.Finish();
    EXPECT_EQ(play.Left(), Texts{}) << "what could not be removed is empty";
  }
}

TEST(Journal, FullDiskIsToldOnceAndTriedAgainLater) {
  Play play;
  play.disk.failAt = 0;
  play.Type(0, 0, "a");
  for (int turn = 0; turn < 5; ++turn) {
    play.journal.Write();
    play.queue.Finish();
  }
  int steps = play.disk.steps;
  EXPECT_EQ(play.journal.TakeFailure(), FileCause::kDiskFull);
  EXPECT_EQ(play.journal.TakeFailure(), std::nullopt);
  EXPECT_LE(steps, 2) << "a disk that is full is left alone for a while";
  EXPECT_TRUE(play.journal.IsBehind());
}

TEST(LeftTexts, RunningProgramsJournalIsNotOffered) {
  Play play;
  play.Type(0, 0, "mine");
  play.Settle();
  EXPECT_TRUE(ClaimLeftTexts(play.disk).empty());
  EXPECT_EQ(play.disk.files.size(), 1u);
}

TEST(LeftTexts, ClaimedByOneAreNotOfferedToAnother) {
  Play play;
  play.Type(0, 0, "left");
  play.Settle();
  MemoryJournalDisk after;
  after.files = play.disk.files;
  {
    std::vector<LeftText> first = ClaimLeftTexts(after);
    ASSERT_EQ(first.size(), 1u);
    EXPECT_TRUE(ClaimLeftTexts(after).empty());
  }
  std::vector<LeftText> later = ClaimLeftTexts(after);
  ASSERT_EQ(later.size(), 1u) << "let go of, they are offered again";
  DiscardText(later[0]);
  EXPECT_TRUE(after.files.empty());
}

TEST(LeftTexts, RecoveredTextKeepsItsOldJournalUntilItHasANewOne) {
  Play first;
  first.Type(0, 0, "left");
  first.Settle();
  Play second;
  second.disk.files = first.disk.files;
  LeftText left = std::move(ClaimLeftTexts(second.disk).at(0));
  second.Load(RecoverText(left).View().Copy());
  int looks = 0;
  second.disk.seen = [&](const MemoryJournalDisk::Files& files) {
    EXPECT_EQ(Play::Left(files), Texts{"left"});
    ++looks;
  };
  second.journal.TakeOver(left.state.description, std::move(left.files));
  second.Settle();
  EXPECT_GT(looks, 3);
  EXPECT_EQ(second.disk.files.size(), 1u);
  second.disk.seen = {};
}

TEST(LeftTexts, WhatCannotBeReadStaysAndWhatIsUnfinishedGoes) {
  MemoryJournalDisk disk;
  std::string later = EncodeJournalBeginning();
  later[kJournalWord.size()] = 9;
  disk.files = {
      {"damaged", "no journal"}, {"later", later + "frames"}, {"unfinished", EncodeJournalBeginning()}};
  EXPECT_TRUE(ClaimLeftTexts(disk).empty());
  EXPECT_EQ(disk.files.size(), 2u);
  EXPECT_FALSE(disk.files.contains("unfinished"));
}

}  // namespace
}  // namespace tarrow
