#include "viewer/records/record_file.h"

#include "base/exceptions.h"
#include "naive_lines.h"
#include "viewer/records/first_bytes.h"

#include <gtest/gtest.h>

#include <random>

namespace tarrow {
namespace {

// A source over a string that the test may change while it is open; counts reads, fails on demand.
class TestSource final : public ByteSource {
 public:
  explicit TestSource(std::string& bytes) : bytes_(bytes) {}

  std::size_t Read(std::span<char> into) override {
    if (failing) throw CFileException(FileCause::kHardware, "disk");
    ++reads;
    std::size_t n = position_ < bytes_.size() ? std::min(into.size(), bytes_.size() - position_) : 0;
    std::copy_n(bytes_.data() + std::min(position_, bytes_.size()), n, into.data());
    position_ += n;
    return n;
  }
  void Seek(std::uint64_t position) override { position_ = static_cast<std::size_t>(position); }
  std::uint64_t Size() override { return claimed ? claimed : bytes_.size(); }

  static inline bool failing = false;
  static inline int reads = 0;
  static inline std::uint64_t claimed = 0;

 private:
  std::string& bytes_;
  std::size_t position_ = 0;
};

class RecordFile : public testing::Test {
 protected:
  RecordFile() {
    TestSource::failing = false;
    TestSource::claimed = 0;
  }

  std::unique_ptr<ByteSource> Source() { return std::make_unique<TestSource>(bytes); }
  std::string Record(CRecordFile& file, std::size_t size = 4000) {
    std::string text(size, '#');
    text.resize(file.ReadRecord(text));
    return text;
  }
  std::string Text(CRecordFile& file, std::size_t size = 256) {
    std::string text(size, '#');
    std::size_t n = file.ReadText(text);
    EXPECT_EQ(text[n], '\0');
    text.resize(n);
    return text;
  }

  std::string bytes;
};

TEST_F(RecordFile, LinesAreAsTheNaiveSplitterFindsThemFromAnywhere) {
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    bytes.clear();
    for (std::size_t n = random() % 3000; n > 0; --n) {
      bytes.append(random() % 50 == 0 ? random() % 9000 : random() % 30, 'x');
      bytes.append(std::string_view(random() % 6 ? "\r\n" : round % 2 ? "\n" : "\r"));
      if (bytes.size() > 100'000) break;
    }
    if (round % 3) bytes += "end";
    NaiveLines naive = ScanNaively(bytes, true);
    CLineFile file(8);
    ASSERT_EQ(file.Open(Source()), RecordFileOutcome::kOpened);
    ASSERT_EQ(file.RecordCount(), naive.offsets.size() - 1);
    if (!file.RecordCount()) continue;
    for (int step = 0; step < 60; ++step) {
      auto record = static_cast<std::int32_t>(random() % file.RecordCount());
      if (step % 2) record = std::max(0, file.CurrentRecord() - 1 - static_cast<int>(random() % 3));
      ASSERT_EQ(file.SeekRecord(record), record);
      for (std::size_t i = static_cast<std::size_t>(record), k = random() % 5;
           k > 0 && i < file.RecordCount(); --k, ++i) {
        std::string line = bytes.substr(naive.offsets[i], naive.offsets[i + 1] - naive.offsets[i]);
        std::size_t size = random() % 3 ? 20'000 : random() % 40;
        line = line.substr(0, size);
        while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.pop_back();
        ASSERT_EQ(Record(file, size), line);
        ASSERT_EQ(file.CurrentRecord(), static_cast<std::int32_t>(i + 1));
      }
    }
  }
}

TEST_F(RecordFile, LengthsFollowTheTerminatorOfTheFile) {
  struct Case {
    const char* bytes;
    std::uint32_t longest;
    std::vector<std::uint32_t> lengths;
  };
  for (const Case& c : std::initializer_list<Case>{
           {"", 0, {}},
           {"abc", 3, {3}},
           {"a\r\nb\r\n", 1, {1, 1}},
           {"a\nbb\n", 2, {1, 2}},
           {"\r\n", 0, {0}},
           // With mixed line ends those of CR LF come out one too long.
           {"abc\r\nd\n", 4, {4, 1}},
       }) {
    bytes = c.bytes;
    CLineFile file(8);
    ASSERT_EQ(file.Open(Source()), RecordFileOutcome::kOpened);
    EXPECT_EQ(file.RecordLength(), c.longest) << c.bytes;
    ASSERT_EQ(file.RecordCount(), c.lengths.size()) << c.bytes;
    for (std::size_t i = 0; i < c.lengths.size(); ++i)
      EXPECT_EQ(file.GetRecordLength(static_cast<std::int32_t>(i)), c.lengths[i]) << c.bytes;
    EXPECT_EQ(file.GetRecordLength(static_cast<std::int32_t>(c.lengths.size())), 0u);
  }
}

TEST_F(RecordFile, TextExpandsTabsAndStopsBeforeTheNul) {
  bytes = "\tab\tc\r\n" + std::string(300, 'y') + "\r\n\t\r\nend";
  CLineFile file(4);
  ASSERT_EQ(file.Open(Source()), RecordFileOutcome::kOpened);
  EXPECT_EQ(Text(file), "    ab  c");
  EXPECT_EQ(Text(file), std::string(255, 'y'));
  EXPECT_EQ(Text(file, 4), "   ");
  EXPECT_EQ(Text(file), "end");
  EXPECT_EQ(Text(file), "");
  file.SetTabWidth(0);
  ASSERT_EQ(file.SeekRecord(0), 0);
  EXPECT_EQ(Text(file), " ab c");
}

TEST_F(RecordFile, SeeksOutsideChangeNothing) {
  bytes = "a\nb\n";
  CLineFile lines(8);
  ASSERT_EQ(lines.Open(Source()), RecordFileOutcome::kOpened);
  EXPECT_EQ(lines.NextRecord(), 1);
  EXPECT_EQ(lines.SeekRecord(-1), -2);
  EXPECT_EQ(lines.SeekRecord(2), -1);
  EXPECT_EQ(lines.CurrentRecord(), 1);
  EXPECT_EQ(Record(lines), "b");
  EXPECT_EQ(lines.PrevRecord(), 1);

  bytes.assign(33, 'x');
  CFixedRecordFile rows(16);
  ASSERT_EQ(rows.Open(Source()), RecordFileOutcome::kOpened);
  EXPECT_EQ(rows.RecordCount(), 3u);
  EXPECT_EQ(rows.SeekRecord(3), -1);
  EXPECT_EQ(rows.SeekRecord(2), 2);
  EXPECT_EQ(Record(rows), "x");

  bytes.assign(32, 'x');
  ASSERT_EQ(rows.Open(Source()), RecordFileOutcome::kOpened);
  EXPECT_EQ(rows.RecordCount(), 2u);
  EXPECT_EQ(rows.SeekRecord(2), 2);
  EXPECT_EQ(Record(rows), "");
}

TEST_F(RecordFile, FixedRecordsAreTheBytesFromAnywhere) {
  std::mt19937 random(2);
  bytes.resize(50'007);
  for (char& c : bytes) c = static_cast<char>(random());
  CFixedRecordFile file(16);
  ASSERT_EQ(file.Open(Source()), RecordFileOutcome::kOpened);
  for (int i = 0; i < 3000; ++i) {
    auto record = static_cast<std::int32_t>(random() % file.RecordCount());
    ASSERT_EQ(file.SeekRecord(record), record);
    for (std::size_t at = static_cast<std::size_t>(record) * 16, k = random() % 400;
         k > 0 && at < bytes.size(); --k, at += 16)
      ASSERT_EQ(Record(file, 16), bytes.substr(at, 16));
  }
}

// A record that does not divide the buffer comes in two where the buffer ends.
TEST_F(RecordFile, ARecordAcrossTheBufferComesInTwo) {
  bytes.assign(5000, 'x');
  CFixedRecordFile file(1000);
  ASSERT_EQ(file.Open(Source()), RecordFileOutcome::kOpened);
  std::vector<std::size_t> sizes;
  while (std::size_t n = Record(file).size()) sizes.push_back(n);
  EXPECT_EQ(sizes, (std::vector<std::size_t>{1000, 1000, 1000, 1000, 96, 904}));
}

TEST_F(RecordFile, ReadsOnceForwardsAndEvery2048BytesBackwards) {
  bytes.assign(64 * 1024, 'x');
  CFixedRecordFile file(16);
  ASSERT_EQ(file.Open(Source()), RecordFileOutcome::kOpened);
  TestSource::reads = 0;
  while (!Record(file, 16).empty()) {
  }
  EXPECT_EQ(TestSource::reads, 17);
  TestSource::reads = 0;
  for (int record = 4095; record >= 0; --record) {
    ASSERT_EQ(file.SeekRecord(record), record);
    ASSERT_EQ(Record(file, 16).size(), 16u);
  }
  EXPECT_LE(TestSource::reads, 34);
}

TEST_F(RecordFile, AsksAboutTheFirstControlByteAndThenStartsLinesLate) {
  bytes = "a\r\nb\x01\r\nc\x02\r\nd";
  CLineFile file(8);
  std::vector<unsigned char> asked;
  bool answer = false;
  NonAnsiQuestion question = [&](unsigned char control) {
    asked.push_back(control);
    return answer;
  };
  EXPECT_EQ(file.Open(Source(), question), RecordFileOutcome::kDeclined);
  EXPECT_FALSE(file.IsOpen());
  answer = true;
  ASSERT_EQ(file.Open(Source(), question), RecordFileOutcome::kOpened);
  EXPECT_EQ(asked, (std::vector<unsigned char>{1, 1}));
  EXPECT_EQ(file.RecordCount(), 4u);
  EXPECT_EQ(Record(file), "a");
  EXPECT_EQ(Record(file), "b\x01\r\nc");
  EXPECT_EQ(Record(file), "\x02\r\nd");
  EXPECT_EQ(Record(file), "");
}

TEST_F(RecordFile, AFileThatShrinksGivesWhatIsLeft) {
  for (int i = 0; i < 5000; ++i) bytes += "line " + std::to_string(i) + "\n";
  CLineFile file(8);
  ASSERT_EQ(file.Open(Source()), RecordFileOutcome::kOpened);
  bytes.resize(30'000);
  std::string read;
  for (std::uint32_t i = 0; i < file.RecordCount(); ++i) read += Record(file) + "\n";
  EXPECT_EQ(read.substr(0, 29'990), bytes.substr(0, 29'990));
  EXPECT_EQ(file.SeekRecord(4999), 4999);
  EXPECT_EQ(Record(file), "");
  EXPECT_EQ(file.SeekRecord(10), 10);
  EXPECT_EQ(Record(file), "line 10");

  CFixedRecordFile rows(16);
  ASSERT_EQ(rows.Open(Source()), RecordFileOutcome::kOpened);
  bytes.resize(40);
  EXPECT_EQ(rows.SeekRecord(1000), 1000);
  EXPECT_EQ(Record(rows, 16), "");
  EXPECT_EQ(rows.SeekRecord(2), 2);
  EXPECT_EQ(Record(rows, 16).size(), 8u);
}

TEST_F(RecordFile, ARefreshSeesTheFileAsItIsNow) {
  bytes.assign(40, 'a');
  CFixedRecordFile rows(16);
  ASSERT_EQ(rows.Open(Source()), RecordFileOutcome::kOpened);
  EXPECT_EQ(Record(rows, 16), std::string(16, 'a'));
  bytes.assign(70, 'b');
  EXPECT_EQ(Record(rows, 16), std::string(16, 'a')) << "what was read ahead";
  EXPECT_EQ(rows.SeekRecord(1), 1);
  EXPECT_TRUE(rows.Refresh());
  EXPECT_FALSE(rows.Refresh());
  EXPECT_EQ(rows.RecordCount(), 5u);
  EXPECT_EQ(rows.FileSize(), 70u);
  EXPECT_EQ(Record(rows, 16), std::string(16, 'b'));
  TestSource::claimed = 0x2'0000'0000;
  EXPECT_TRUE(rows.Refresh());
  EXPECT_EQ(rows.RecordCount(), 0x1000'0000u);
}

TEST_F(RecordFile, FindsTheLineOfAByte) {
  bytes = "a\r\nbb\r\nc";
  CLineFile file(8);
  ASSERT_EQ(file.Open(Source()), RecordFileOutcome::kOpened);
  constexpr int kLines[] = {0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2};
  for (std::uint64_t at = 0; at < std::size(kLines); ++at) EXPECT_EQ(file.RecordAt(at), kLines[at]) << at;
  EXPECT_EQ(file.StartOf(2), 7u);
  bytes.clear();
  ASSERT_EQ(file.Open(Source()), RecordFileOutcome::kOpened);
  EXPECT_EQ(file.RecordAt(5), 0);
}

TEST_F(RecordFile, KnowsUtf8AcrossTheBlocksOfTheScan) {
  bytes = std::string((128 << 10) - 1, 'x') + "\xC3\xA9\n";
  CLineFile file(8);
  ASSERT_EQ(file.Open(Source()), RecordFileOutcome::kOpened);
  EXPECT_TRUE(file.IsUtf8());
  bytes.back() = '\x80';
  ASSERT_EQ(file.Open(Source()), RecordFileOutcome::kOpened);
  EXPECT_FALSE(file.IsUtf8());
}

TEST_F(RecordFile, TheFirstBytesOfALongSource) {
  bytes = "0123456789";
  FirstBytes first(Source(), 6);
  EXPECT_EQ(first.Size(), 6u);
  std::string read(4, '#');
  EXPECT_EQ(first.Read(read), 4u);
  EXPECT_EQ(first.Read(read), 2u);
  EXPECT_EQ(read.substr(0, 2), "45");
  first.Seek(8);
  EXPECT_EQ(first.Read(read), 0u);
  bytes = "0123";
  EXPECT_EQ(first.Size(), 4u);
}

TEST_F(RecordFile, FailuresLeaveItClosedOrThrow) {
  bytes = "a\nb\n";
  CLineFile file(8);
  TestSource::failing = true;
  EXPECT_THROW(static_cast<void>(file.Open(Source())), CFileException);
  EXPECT_FALSE(file.IsOpen());
  TestSource::failing = false;
  ASSERT_EQ(file.Open(Source()), RecordFileOutcome::kOpened);
  TestSource::failing = true;
  EXPECT_THROW(Record(file), CFileException);
}

TEST_F(RecordFile, RefusesWhat32BitsDoNotReach) {
  CLineFile lines(8);
  CFixedRecordFile rows(16), bytewise(1);
  TestSource::claimed = 0x1'0000'0000;
  EXPECT_EQ(lines.Open(Source()), RecordFileOutcome::kTooLarge);
  EXPECT_EQ(rows.Open(Source()), RecordFileOutcome::kOpened);
  EXPECT_EQ(bytewise.Open(Source()), RecordFileOutcome::kTooLarge);
  TestSource::claimed = 0x1'0000'0001;
  EXPECT_EQ(rows.Open(Source()), RecordFileOutcome::kTooLarge);
  for (CRecordFile* file : std::initializer_list<CRecordFile*>{&lines, &rows, &bytewise}) {
    EXPECT_FALSE(file->IsOpen());
    EXPECT_EQ(file->RecordCount(), 0u);
  }
}

}  // namespace
}  // namespace tarrow
