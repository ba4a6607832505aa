#include "edit/recovery/journal_reader.h"

#include "base/crc32.h"
#include "base/exceptions.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

using Kind = JournalState::Kind;

// A journal, frame by frame, with what the text is behind each.
class Writer {
 public:
  Writer() : bytes(EncodeJournalBeginning()) {}

  void Describe(const JournalDescription& description) { Frame(EncodeDescription(description), {}); }
  void Change(std::int64_t at, std::int32_t removed, std::string_view inserted, bool isWhole) {
    text.replace(static_cast<std::size_t>(at), static_cast<std::size_t>(removed), inserted);
    std::string changes;
    AppendChange(changes, {BytePos(at), removed, inserted});
    Frame(EncodeChangesHead({++time, isWhole, static_cast<std::int32_t>(text.size())}), changes);
    if (isWhole) texts.push_back(text);
  }
  void Frame(const std::string& head, const std::string& rest) {
    bytes += EncodeFrameHeader(frames++, head, rest) + head + rest;
  }

  std::string bytes, text;
  std::vector<std::string> texts;  // the whole ones
  std::uint64_t time = 0;
  std::uint32_t frames = 0;
};

const JournalDescription kDescription{0x123456789ABCDEF0, 3,       "c:\\dir\\a.c", false,
                                      FileFormat::kUnix,  {77, 99}};

Writer SomeJournal() {
  Writer journal;
  journal.Describe(kDescription);
  journal.Change(0, 0, "first piece, ", false);
  journal.Change(13, 0, std::string(300, 'x'), true);
  journal.Change(6, 5, {"\r\n\0", 3}, true);
  journal.Change(0, 311, "", true);
  journal.Change(0, 0, "end", true);
  return journal;
}

JournalState StateOf(std::string_view bytes) {
  StringSource source(bytes);
  return ReadJournalState(source);
}

std::string TextOf(std::string_view bytes) {
  StringSource source(bytes);
  return ReplayJournal(source).View().Copy();
}

TEST(JournalReader, ReadsBackWhatWasWritten) {
  Writer journal = SomeJournal();
  JournalState state = StateOf(journal.bytes);
  EXPECT_EQ(state.kind, Kind::kWhole);
  EXPECT_EQ(state.description, kDescription);
  EXPECT_EQ(state.time, journal.time);
  EXPECT_EQ(state.size, 3);
  EXPECT_EQ(TextOf(journal.bytes), "end");
}

TEST(JournalReader, LaterDescriptionTakesThePlaceOfTheFirst) {
  Writer journal = SomeJournal();
  JournalDescription renamed = kDescription;
  renamed.name = "c:\\b.c";
  journal.Describe(renamed);
  EXPECT_EQ(StateOf(journal.bytes).description, renamed);
}

TEST(JournalReader, JournalCutAnywhereGivesTheTextOfItsLastGoodFrame) {
  Writer journal = SomeJournal();
  std::size_t seen = 0;
  for (std::size_t size = 0; size <= journal.bytes.size(); ++size) {
    std::string_view cut = std::string_view(journal.bytes).substr(0, size);
    if (StateOf(cut).kind != Kind::kWhole) {
      EXPECT_EQ(StateOf(cut).kind, Kind::kUnfinished) << size;
      EXPECT_EQ(seen, 0u) << "a text was there already";
      StringSource source(cut);
      EXPECT_THROW((void)ReplayJournal(source), CFileException);
      continue;
    }
    if (seen == 0 || (seen < journal.texts.size() && TextOf(cut) == journal.texts[seen])) ++seen;
    ASSERT_EQ(TextOf(cut), journal.texts[seen - 1]) << size;
  }
  EXPECT_EQ(seen, journal.texts.size());
}

TEST(JournalReader, DamagedByteEndsWhatIsBelieved) {
  Writer journal = SomeJournal();
  for (std::size_t at = 0; at < journal.bytes.size(); ++at) {
    std::string damaged = journal.bytes;
    damaged[at] ^= 0x10;
    if (StateOf(damaged).kind != Kind::kWhole) continue;
    EXPECT_NE(std::ranges::find(journal.texts, TextOf(damaged)), journal.texts.end()) << at;
  }
}

TEST(JournalReader, WhatIsNoJournalOfThisVersionIsUnreadable) {
  std::string later = SomeJournal().bytes;
  later[kJournalWord.size()] = 2;
  EXPECT_EQ(StateOf(later).kind, Kind::kUnreadable);
  EXPECT_EQ(StateOf("Some other file, which is long enough").kind, Kind::kUnreadable);
  EXPECT_EQ(StateOf(std::string(500, '\0')).kind, Kind::kUnreadable);
  EXPECT_EQ(StateOf("").kind, Kind::kUnfinished);
}

TEST(JournalReader, ChangeOfWhatIsNotThereIsNotMade) {
  struct {
    JournalChange change;
    std::int32_t size;
  } const kCases[] = {{{BytePos(9), 0, "x"}, 4},
                      {{BytePos(0), 9, ""}, 0},
                      {{BytePos(0), 0, "x"}, 9},
                      {{BytePos(kMaxTextSize), kMaxTextSize, ""}, 3}};
  for (const auto& [change, size] : kCases) {
    Writer journal;
    journal.Describe(kDescription);
    journal.Change(0, 0, "abc", true);
    std::string changes;
    AppendChange(changes, change);
    journal.Frame(EncodeChangesHead({9, true, size}), changes);
    EXPECT_EQ(TextOf(journal.bytes), "abc");
  }
}

TEST(JournalReader, FrameIsGoodInItsOwnPlaceOnly) {
  Writer journal, elsewhere;
  journal.Describe(kDescription);
  elsewhere = journal;
  journal.Change(0, 0, "abc", true);
  elsewhere.frames = 7;
  elsewhere.Change(0, 0, "abc", true);
  EXPECT_EQ(StateOf(journal.bytes).kind, Kind::kWhole);
  EXPECT_EQ(StateOf(elsewhere.bytes).kind, Kind::kUnreadable);
}

TEST(Crc32, IsTheKnownOneHoweverTheBytesAreCut) {
  EXPECT_EQ(Crc32("123456789"), 0xCBF43926u);
  std::string bytes;
  for (int i = 0; i < 100; ++i) bytes += static_cast<char>(i * 37);
  for (std::size_t cut = 0; cut <= bytes.size(); ++cut)
    ASSERT_EQ(Crc32(std::string_view(bytes).substr(cut), Crc32(std::string_view(bytes).substr(0, cut))),
              Crc32(bytes));
}

}  // namespace
}  // namespace tarrow
