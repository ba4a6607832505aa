#include "edit/files/file_load.h"

#include "edit/files/file_save.h"
#include "tests/edit/text/failing_allocations.h"
#include "tests/edit/text/text_model.h"

namespace tarrow {
namespace {

// Answers as told, and remembers what it was asked.
struct Answers final : LoadQuestions {
  explicit Answers(bool yes) : accept(yes) {}
  bool AcceptControlByte(unsigned char byte) override {
    asked += "control " + std::to_string(byte) + ";";
    return accept;
  }
  bool AcceptLineEnds() override {
    asked += "lines;";
    return accept;
  }
  bool accept;
  std::string asked;
};

std::optional<LoadedText> Load(std::string_view bytes, LoadQuestions& ask, std::int64_t most = kMaxTextSize) {
  StringSource source(bytes);
  return LoadText(source, most, ask);
}

struct Case {
  const char* name;
  std::string bytes;
  std::string text;
  FileFormat format;
  std::string asked;
};

const Case kCases[] = {
    {"empty", "", "", FileFormat::kDos, ""},
    {"one line", "abc", "abc", FileFormat::kDos, "lines;"},
    {"DOS", "a\r\nb\r\n", "a\r\nb\r\n", FileFormat::kDos, ""},
    {"DOS with others behind", "a\r\nb\nc\rd", "a\r\nb\nc\rd", FileFormat::kDos, ""},
    {"Unix", "a\nb\n\nc", "a\r\nb\r\n\r\nc", FileFormat::kUnix, ""},
    {"Unix, one", "\n", "\r\n", FileFormat::kUnix, ""},
    {"Mac", "a\rb\r\rc", "a\r\nb\r\n\r\nc", FileFormat::kMac, ""},
    {"Mac, one", "\r", "\r\n", FileFormat::kMac, ""},
    {"third line DOS", "a\nb\nc\r\n", "a\nb\nc\r\n", FileFormat::kDos, "lines;"},
    {"Mac then DOS", "a\rb\r\n", "a\rb\r\n", FileFormat::kDos, "lines;"},
    {"Unix then Mac", "a\nb\r", "a\nb\r", FileFormat::kDos, "lines;"},
    {"Mac then Unix", "a\rb\n", "a\rb\n", FileFormat::kDos, "lines;"},
    {"white space is no control", "\t\v\f\x7F\n", "\t\v\f\x7F\r\n", FileFormat::kUnix, ""},
    {"control", "a\x1A\n", "a\x1A\r\n", FileFormat::kUnix, "control 26;"},
    {"NUL", std::string("\0\n", 2), std::string("\0\r\n", 3), FileFormat::kUnix, "control 0;"},
    {"the first control asks", "\x01\x02\n", "\x01\x02\r\n", FileFormat::kUnix, "control 1;"},
    {"both questions", "\x01x", "\x01x", FileFormat::kDos, "control 1;lines;"},
    {"the last byte is not looked at", "a\n\x1A", "a\r\n\x1A", FileFormat::kUnix, ""},
    {"of a single byte none is", "\x1A", "\x1A", FileFormat::kDos, "lines;"},
    {"high bytes", "\xFF\x80\n", "\xFF\x80\r\n", FileFormat::kUnix, ""},
};

TEST(FileLoad, Table) {
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    Answers yes(true);
    auto loaded = Load(c.bytes, yes);
    ASSERT_TRUE(loaded);
    ExpectIs(loaded->text, c.text);
    EXPECT_EQ(loaded->format, c.format);
    EXPECT_EQ(yes.asked, c.asked);
    Answers no(false);
    EXPECT_EQ(Load(c.bytes, no).has_value(), c.asked.empty());
    EXPECT_EQ(no.asked, c.asked.substr(0, c.asked.find(';') + 1)) << "a No ends it";
  }
}

TEST(FileLoad, ControlBytesAreLookedForInTheFirst256) {
  const struct {
    std::size_t size, at;
    bool asked;
  } cases[] = {{255, 254, false}, {255, 253, true},  {256, 255, true},
               {257, 255, true},  {257, 256, false}, {1000, 300, false}};
  for (auto& c : cases) {
    std::string bytes(c.size, 'x');
    bytes[0] = '\n';
    bytes[c.at] = '\x1A';
    Answers yes(true);
    ASSERT_TRUE(Load(bytes, yes));
    EXPECT_EQ(yes.asked.empty(), !c.asked) << c.size << " " << c.at;
  }
}

TEST(FileLoad, SizesThatDoNotFit) {
  Answers yes(true);
  EXPECT_TRUE(Load("ab\r\n", yes, 4));
  EXPECT_THROW((void)Load("ab\r\nc", yes, 4), CMemoryException);
  // Two bytes and a terminator become four: one less than the limit is needed.
  EXPECT_THROW((void)Load("ab\n", yes, 4), CMemoryException);
  EXPECT_TRUE(Load("ab\n", yes, 5));
  EXPECT_THROW((void)Load("x", yes, -1), CMemoryException);
  EXPECT_EQ(yes.asked, "");
}

std::string RandomBytes(std::mt19937& random, std::size_t size) {
  static const std::string kKinds[] = {std::string("\n\nab\0\xC3\xA9\x1A ", 9), std::string("\rab\0\xFF", 5),
                                       std::string("\r\n\rab\x80", 6), std::string("abc", 3)};
  const std::string& kind = kKinds[random() % 4];
  std::string bytes(size, ' ');
  bool rare = random() % 2;
  for (char& c : bytes) c = rare && random() % 16 ? 'x' : kind[random() % kind.size()];
  if (random() % 3 == 0 && size > 1) bytes[0] = '\r', bytes[1] = '\n';
  return bytes;
}

// The text that the plainest reading of the rules gives.
std::string Expected(const std::string& bytes, FileFormat format) {
  if (format == FileFormat::kDos) return bytes;
  std::string text;
  for (char c : bytes) c == LineEndOf(format)[0] ? text += "\r\n" : text += c;
  return text;
}

FileFormat FormatOf(const std::string& bytes) {
  bool crLf = bytes.find("\r\n") != std::string::npos;
  bool cr = bytes.find('\r') != std::string::npos, lf = bytes.find('\n') != std::string::npos;
  return crLf || cr == lf ? FileFormat::kDos : cr ? FileFormat::kMac : FileFormat::kUnix;
}

TEST(FileLoad, SavingWhatWasLoadedIsTheIdentity) {
  std::mt19937 random(2);
  for (int round = 0; round < 4000; ++round) {
    static const std::size_t sizes[] = {0, 1, 2, 255, 256, 257, 65535, 65536, 65537, 200000};
    std::string bytes = RandomBytes(random, round < 400 ? sizes[round % 10] : random() % 600);
    Answers yes(true);
    auto loaded = Load(bytes, yes);
    ASSERT_TRUE(loaded);
    ASSERT_EQ(loaded->format, FormatOf(bytes));
    ExpectIs(loaded->text, Expected(bytes, loaded->format));
    StringByteSink saved;
    SaveText(loaded->text.View(), loaded->format, saved);
    ASSERT_EQ(saved.text, bytes) << "round " << round;
  }
}

TEST(FileLoad, LineEndAtTheEdgeOfAChunk) {
  for (std::size_t before : {65534u, 65535u, 65536u}) {
    Answers yes(true);
    auto loaded = Load(std::string(before, 'x') + "\r\ny\r\n", yes);
    EXPECT_EQ(loaded->format, FileFormat::kDos);
    EXPECT_EQ(yes.asked, "");
    EXPECT_EQ(Load(std::string(before, 'x') + "\r", yes)->format, FileFormat::kMac);
    loaded = Load("\n" + std::string(before, 'x') + "\r\n", yes);
    EXPECT_EQ(loaded->format, FileFormat::kDos);
    EXPECT_EQ(yes.asked, "lines;");
  }
}

TEST(FileLoad, LinesBecomingDenserMakeRoomAgain) {
  Answers yes(true);
  std::string bytes = std::string(200'000, 'x') + "\n" + std::string(400'000, '\n');
  auto loaded = Load(bytes, yes);
  ExpectIs(loaded->text, Expected(bytes, FileFormat::kUnix));
}

// A file that other than its size says: it shrinks while it is read, or reading fails.
struct Unsteady final : ByteSource {
  Unsteady(std::string_view held, std::uint64_t said, bool failing)
      : held_(held), said_(said), failing_(failing) {}
  std::size_t Read(std::span<char> into) override {
    std::size_t n = held_.Read(into);
    if (n < into.size() && failing_) throw CFileException(FileCause::kHardware, "x");
    return n;
  }
  void Seek(std::uint64_t position) override { held_.Seek(position); }
  std::uint64_t Size() override { return said_; }
  StringSource held_;
  std::uint64_t said_;
  bool failing_;
};

TEST(FileLoad, FileThatShrinksOrFails) {
  for (const char* bytes : {"a\nb\n", "a\r\nb"}) {
    Answers yes(true);
    Unsteady shrunk(bytes, 100, false);
    ExpectIs(LoadText(shrunk, kMaxTextSize, yes)->text, Expected(bytes, FormatOf(bytes)));
    Unsteady failing(bytes, 100, true);
    EXPECT_THROW((void)LoadText(failing, kMaxTextSize, yes), CFileException);
  }
  Answers yes(true);
  Unsteady huge("x", std::uint64_t{5} << 32, false);
  EXPECT_THROW((void)LoadText(huge, kMaxTextSize, yes), CMemoryException);
}

TEST(FileLoad, MemoryThatEndsAnywhere) {
  std::string bytes = std::string(300'000, 'x') + std::string(300'000, '\n');
  std::string text = Expected(bytes, FileFormat::kUnix);
  bool refused = true;
  for (long countdown = 0; refused; ++countdown) {
    Answers yes(true);
    std::optional<LoadedText> loaded;
    {
      FailingAllocations failing(countdown);
      try {
        loaded = Load(bytes, yes);
      } catch (const CMemoryException&) {
      }
      refused = failing.Refused();
    }
    // Where a smaller reservation did instead, the text is whole.
    if (loaded) ExpectIs(loaded->text, text);
    EXPECT_TRUE(refused || (loaded && countdown > 2)) << countdown;
  }
}

TEST(FileSave, ConvertsEveryCr) {
  const struct {
    const char *text, *unixBytes, *macBytes;
  } cases[] = {{"a\r\nb", "a\nb", "a\rb"},
               {"a\rb", "a\nb", "a\rb"},
               {"a\nb", "a\nb", "a\nb"},
               {"\r\r\n\n", "\n\n\n", "\r\r\n"},
               {"", "", ""},
               {"\r", "\n", "\r"}};
  for (auto& c : cases) {
    std::string_view text = c.text;
    for (std::size_t split = 0; split <= text.size(); ++split) {
      TextView view(text.substr(0, split), text.substr(split));
      StringByteSink asUnix, asMac, asDos;
      SaveText(view, FileFormat::kUnix, asUnix);
      SaveText(view, FileFormat::kMac, asMac);
      SaveText(view, FileFormat::kDos, asDos);
      EXPECT_EQ(asUnix.text, c.unixBytes);
      EXPECT_EQ(asMac.text, c.macBytes);
      EXPECT_EQ(asDos.text, text);
    }
  }
}

}  // namespace
}  // namespace tarrow
