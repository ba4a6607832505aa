// A process that types into several texts is killed at random moments, and what it has left is compared with
// what it had typed. A second of the program is ten milliseconds here, so that many kills take little time;
// TARROW_KILLS says how many.
#include "edit/recovery/journal.h"

#include "edit/recovery/left_texts.h"
#include "tests/edit/recovery/posix_journal_disk.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>

#include <atomic>
#include <cstdlib>
#include <random>
#include <thread>

namespace tarrow {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int kTexts = 3;
constexpr std::size_t kMostEdits = 50'000;
constexpr auto kWriteAfter = 10ms;
constexpr auto kMostLost = 5s;

// What the typing process tells of itself, in memory that outlives it: how often it has changed each text,
// and when.
struct Diary {
  std::array<std::atomic<std::uint32_t>, kTexts> edits;
  std::array<std::atomic<std::uint32_t>, kTexts> saved;  // the number of edits when it was saved last
  std::array<std::array<Clock::time_point, kMostEdits>, kTexts> times;
};

Diary* ShareDiary() {
  void* memory = ::mmap(nullptr, sizeof(Diary), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  return new (memory) Diary{};
}

// The same edits for the same seed, whoever makes them.
class Typist {
 public:
  explicit Typist(unsigned seed) : random_(seed), text_(seed % 3 == 0 ? 700'000 : random_() % 3000, '.') {}

  std::string Text() const { return text_; }
  struct Edit {
    std::size_t at, removed;
    std::string inserted;
  };
  Edit Next(std::size_t size) {
    if (random_() % 10 == 0) at_ = random_() % (size + 1);
    at_ = std::min(at_, size);
    Edit edit{at_, random_() % 4 == 0 ? std::min<std::size_t>(random_() % 6, size - at_) : 0,
              std::string(random_() % 3, static_cast<char>('a' + random_() % 26))};
    if (random_() % 200 == 0) edit.inserted.assign(random_() % 20'000, '#');
    at_ += edit.inserted.size();
    return edit;
  }
  bool Saves() { return random_() % 400 == 0; }

 private:
  std::mt19937 random_;
  std::string text_;
  std::size_t at_ = 0;
};

unsigned SeedOf(unsigned play, int text) {
  return play * kTexts + static_cast<unsigned>(text);
}

class TypedText final : private JournaledText {
 public:
  TypedText(const JournalServices& services, unsigned seed, int number)
      : typist(seed), number_(number), journal(services, *this) {
    buffer.Replace({}, typist.Text());
    buffer.SetObserver(&journal);
  }
  Typist typist;
  TextBuffer buffer;

 private:
  TextView JournalView() const override { return buffer.View(); }
  JournalDescription JournalName() const override {
    return {0, 0, std::to_string(number_), true, FileFormat::kDos, {}};
  }
  int number_;

 public:
  Journal journal;
};

// Types until it is killed.
[[noreturn]] void Type(const std::filesystem::path& directory, unsigned play, Diary& diary) {
  PosixJournalDisk disk(directory);
  BackgroundQueue queue([] {});
  JournalServices services{disk, queue, [] {}};
  std::array<std::unique_ptr<TypedText>, kTexts> texts;
  for (int i = 0; i < kTexts; ++i)
    texts[static_cast<std::size_t>(i)] = std::make_unique<TypedText>(services, SeedOf(play, i), i);
  Clock::time_point written = Clock::now();
  for (std::size_t turn = 0;; ++turn) {
    std::size_t which = turn % kTexts;
    TypedText& text = *texts[which];
    std::uint32_t edits = diary.edits[which];
    if (edits < kMostEdits) {
      auto [at, removed, inserted] = text.typist.Next(static_cast<std::size_t>(text.buffer.Size()));
      BytePos start(static_cast<std::int64_t>(at));
      text.buffer.Replace({start, start + static_cast<std::int64_t>(removed)}, inserted);
      diary.times[which][edits] = Clock::now();
      diary.edits[which] = edits + 1;
      if (text.typist.Saves()) {
        diary.saved[which] = edits + 1;
        text.journal.End();
      }
    }
    for (auto& each : texts) each->journal.CopyOn();
    if (Clock::now() - written < kWriteAfter) {
      std::this_thread::sleep_for(100us);
      continue;
    }
    for (auto& each : texts) each->journal.Write();
    written = Clock::now();
  }
}

// How many of the edits a recovered text holds, or nothing when it is none that was ever typed.
std::optional<std::uint32_t> EditsIn(const std::string& recovered, unsigned seed, std::uint32_t edits) {
  Typist typist(seed);
  std::string text = typist.Text();
  std::optional<std::uint32_t> found;
  for (std::uint32_t done = 0;; ++done) {
    if (text.size() == recovered.size() && text == recovered) found = done;
    if (done == edits) return found;
    auto [at, removed, inserted] = typist.Next(text.size());
    text.replace(at, removed, inserted);
    (void)typist.Saves();
  }
}

// Kills one play and returns how long before the kill the first edit was made that is lost.
void KillAndCompare(unsigned play, Clock::duration& mostLost, int& recoveredTexts) {
  std::filesystem::path directory =
      std::filesystem::temp_directory_path() / ("tarrow_kills_" + std::to_string(::getpid()));
  std::filesystem::create_directories(directory);
  Diary* diary = ShareDiary();
  pid_t typing = ::fork();
  ASSERT_GE(typing, 0);
  if (typing == 0) Type(directory, play, *diary);
  std::this_thread::sleep_for(std::chrono::microseconds(std::mt19937(play)() % 150'000));
  ::kill(typing, SIGKILL);
  ::waitpid(typing, nullptr, 0);
  Clock::time_point killed = Clock::now();
  std::array<std::optional<std::uint32_t>, kTexts> kept;
  PosixJournalDisk disk(directory);
  for (LeftText& left : ClaimLeftTexts(disk)) {
    int number = std::stoi(left.state.description.name);
    auto which = static_cast<std::size_t>(number);
    ASSERT_FALSE(kept[which]) << "a text came back twice";
    // An edit may have been made and not been told of any more.
    kept[which] = EditsIn(RecoverText(left).View().Copy(), SeedOf(play, number), diary->edits[which] + 1);
    ASSERT_TRUE(kept[which]) << "play " << play << ": no text that was ever typed";
    ++recoveredTexts;
    DiscardText(left);
  }
  for (std::size_t which = 0; which < kTexts; ++which) {
    std::uint32_t safe = std::max(kept[which].value_or(0), diary->saved[which].load());
    if (safe >= diary->edits[which]) continue;
    mostLost = std::max(mostLost, killed - diary->times[which][safe]);
  }
  ::munmap(diary, sizeof(Diary));
  std::filesystem::remove_all(directory);
}

TEST(JournalKills, WhatIsLeftIsWhatWasTypedUpToAFewMomentsBefore) {
  const char* wanted = std::getenv("TARROW_KILLS");
  int kills = wanted ? std::atoi(wanted) : 25;
  Clock::duration mostLost{};
  int recovered = 0;
  for (int play = 0; play < kills && !HasFatalFailure(); ++play)
    KillAndCompare(static_cast<unsigned>(play), mostLost, recovered);
  auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(mostLost).count();
  std::cout << kills << " kills, " << recovered << " texts recovered, at most " << milliseconds
            << " ms of typing lost\n";
  EXPECT_GT(recovered, kills);
  EXPECT_LT(mostLost, kMostLost);
}

}  // namespace
}  // namespace tarrow
