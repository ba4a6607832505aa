// The commands that list a file as its view shows it: lines of text, rows of hex.

#include "base/text_batch.h"
#include "base/text_format.h"
#include "console/commands.h"
#include "console/system.h"
#include "ui/program/string_ids.h"
#include "ui/program/string_table.h"
#include "viewer/records/hex_rows.h"
#include "viewer/records/record_file.h"

#include <limits>

namespace tarrow {
namespace {

constexpr std::uint64_t kMostRecords = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t kTextRowSize = 256;

// A text of its own.
class HeldSource final : public ByteSource {
 public:
  explicit HeldSource(std::string bytes) : bytes_(std::move(bytes)), source_(bytes_) {}

  std::size_t Read(std::span<char> into) override { return source_.Read(into); }
  void Seek(std::uint64_t position) override { source_.Seek(position); }
  std::uint64_t Size() override { return source_.Size(); }

 private:
  std::string bytes_;
  StringSource source_;
};

// A file of the system's own may have text though its size is 0: the text is made while it is read.
std::unique_ptr<ByteSource> ReadWhole(ByteSource& source) {
  std::string bytes;
  char portion[4096];
  while (std::size_t n = source.Read(portion)) bytes.append(portion, n);
  return std::make_unique<HeldSource>(std::move(bytes));
}

// One file being listed: what both commands do around their records.
class Listing {
 public:
  Listing(Console& console, const std::string& name, std::string_view records)
      : console_(console),
        name_(name),
        records_(records),
        batch_(console.Out()),
        ticker_(&console.GetProgress(), 64) {
    console.GetProgress().Begin(name);
  }

  std::unique_ptr<ByteSource> Open() {
    std::unique_ptr<ByteSource> source = console_.Open(name_);
    if (source->Size() == 0) source = ReadWhole(*source);
    source_ = source.get();
    return source;
  }

  // Whether the file can be listed; tells why not.
  bool Check(RecordFileOutcome outcome) {
    switch (outcome) {
      case RecordFileOutcome::kOpened:
        return true;
      case RecordFileOutcome::kDeclined:
        break;
      case RecordFileOutcome::kTooLarge:
        console_.Complain(name_, "larger than 4 GB");
        break;
      case RecordFileOutcome::kNoMemory:
        console_.Complain(name_, FindText(kTextOutOfMemory));
    }
    return false;
  }

  // Calls `put` with the text to append to, for each of up to `count` records from `first` on.
  template <typename Put>
  void PrintRecords(CRecordFile& file, std::uint64_t first, std::uint64_t count, Put put) {
    if (first >= file.RecordCount() && first > 0)
      return console_.Complain(name_, FormatText("has only %u %s", {file.RecordCount(), records_}));
    std::uint64_t end = std::min<std::uint64_t>(file.RecordCount(), first + count);
    if (first < end) file.SeekRecord(static_cast<std::int32_t>(first));
    for (std::uint64_t record = first; record < end; ++record) {
      put(batch_.Text());
      batch_.Text() += kNewLine;
      batch_.FlushIfLarge();
      ticker_.Tick();
    }
    batch_.Flush();
    if (source_->Size() < file.FileSize()) console_.Complain(name_, "has shrunk while it was read");
  }

  void PrintStatistics(std::string text) { console_.Out().Write(text.append(kNewLine)); }

 private:
  Console& console_;
  const std::string& name_;
  std::string_view records_;      // what they are called
  ByteSource* source_ = nullptr;  // owned by the record file
  TextBatch batch_;
  ProgressTicker ticker_;
};

void PrintLines(const Arguments& arguments, Console& console, const std::string& name) {
  std::uint64_t first = arguments.Number('f', 1, 1, kMostRecords) - 1;
  std::uint64_t count = arguments.Number('n', kMostRecords, 0, kMostRecords);
  CLineFile file(static_cast<int>(arguments.Number('t', 8, 1, 255)));
  Listing listing(console, name, "lines");
  auto question = [&](unsigned char control) {
    if (arguments.Has('y')) return true;
    bool yes = console.Ask(FormatText(FindText(kTextNonAnsi), {control, name}));
    if (!yes)
      console.Complain(name, FormatText("Non-ANSI character (0x%x); --yes lists it anyway", {control}));
    return yes;
  };
  if (!listing.Check(file.Open(listing.Open(), question, &console.GetProgress()))) return;
  if (arguments.Has('s'))
    return listing.PrintStatistics(
        FormatText(FindText(kTextFileStats), {name, file.FileSize(), file.RecordCount()}));
  char row[kTextRowSize];
  listing.PrintRecords(file, first, count, [&](std::string& text) { text.append(row, file.ReadText(row)); });
}

void PrintHex(const Arguments& arguments, Console& console, const std::string& name) {
  std::uint64_t first = arguments.Number('f', 0, 0, std::numeric_limits<std::uint32_t>::max(), 16);
  std::uint64_t count = arguments.Number('n', kMostRecords, 0, kMostRecords);
  CFixedRecordFile file(kHexRowBytes);
  Listing listing(console, name, "rows");
  if (!listing.Check(file.Open(listing.Open()))) return;
  if (arguments.Has('s'))
    return listing.PrintStatistics(FormatText(FindText(kTextHexStats), {name, file.FileSize()}));
  std::array<char, kHexRowWidth> row;
  listing.PrintRecords(file, first / kHexRowBytes, count, [&](std::string& text) {
    auto offset = static_cast<std::uint32_t>(file.CurrentRecord()) * static_cast<std::uint32_t>(kHexRowBytes);
    char bytes[kHexRowBytes];
    std::size_t n = file.ReadRecord(bytes);
    text.append(row.data(), FormatHexRow(offset, {bytes, n}, row));
  });
}

}  // namespace

int RunLines(const Arguments& arguments, Console& console) {
  const std::string& name = arguments.Operands()[0];
  console.Guard(name, [&] { PrintLines(arguments, console, name); });
  return 0;
}

int RunHex(const Arguments& arguments, Console& console) {
  const std::string& name = arguments.Operands()[0];
  console.Guard(name, [&] { PrintHex(arguments, console, name); });
  return 0;
}

}  // namespace tarrow
