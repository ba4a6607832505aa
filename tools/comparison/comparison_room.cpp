#include "tools/comparison/comparison_room.h"

#include "edit/documents/log.h"
#include "edit/lexers/lexers.h"
#include "framework/file.h"
#include "framework/text_resources.h"
#include "tools/comparison/compare_files.h"
#include "tools/comparison/comparison_places.h"
#include "ui/commands/commands.h"
#include "ui/program/string_ids.h"

namespace tarrow {
namespace {

// A file under comparison; the run is told how much of it has been read.
class ComparedFile final : public ByteSource {
 public:
  ComparedFile(const std::string& path) : file_(path, CFile::Mode::kRead, CFile::Share::kReadWrite) {}

  std::size_t Read(std::span<char> into) override {
    std::size_t got = file_.Read(into);
    read_ += static_cast<std::int64_t>(got);
    return got;
  }
  void Seek(std::uint64_t position) override { file_.Seek(position); }
  std::uint64_t Size() override { return file_.Size(); }
  std::int64_t BytesRead() const { return read_; }

 private:
  CFile file_;
  std::int64_t read_ = 0;
};

// Tells the box how far both files are, whenever it is polled.
class ComparisonProgress final : public Progress {
 public:
  ComparisonProgress(ResultRun& run, ComparedFile& first, ComparedFile& second)
      : run_(run), first_(first), second_(second) {
    run.SetWhole(static_cast<std::int64_t>(first.Size() + second.Size()));
  }
  void Poll() override {
    run_.SetDone(first_.BytesRead() + second_.BytesRead());
    run_.GetProgress().Poll();
  }

 private:
  ResultRun& run_;
  ComparedFile& first_;
  ComparedFile& second_;
};

}  // namespace

constinit const MessageMap ComparisonRoom::kMessageMap =
    MessageMap::Make<nullptr, OnCommand<kToolCompare, &ComparisonRoom::OnCompare>>();

void ComparisonRoom::OnCompare() {
  if (!program_.documents.OfferToSave(kTextSaveBeforeContinuing)) return;
  if (CCompareDialog(files_, program_.messages).DoModal(program_.frame.Handle()) != IDOK) return;
  try {
    Compare();
  } catch (const CFileException& failure) {
    program_.messages.ShowFileError(nullptr, failure);
  }
}

// Both files are opened before there is a window to show them in.
void ComparisonRoom::Compare() {
  ComparedFile first(files_.first), second(files_.second);
  ResultRun run(program_, FormatTextResource(kTextCompareTitle, {files_.first, files_.second}),
                ComparisonPlaces(files_.first, files_.second), LoadText(kTextComparing));
  if (!run.Window()) return;
  run.Window()->ReadBy(ComparisonLexer());
  run.Run([&] {
    ComparisonProgress progress(run, first, second);
    CompareFiles(first, second, run.Out(), {}, &progress);
  });
  run.Finish();
}

}  // namespace tarrow
