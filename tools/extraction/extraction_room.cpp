#include "tools/extraction/extraction_room.h"

#include "base/path_text.h"
#include "edit/documents/listed_place.h"
#include "edit/documents/log.h"
#include "edit/lexers/lexers.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/text_resources.h"
#include "tools/file_lists/file_dir.h"
#include "ui/commands/commands.h"
#include "ui/program/string_ids.h"

#include <optional>
#include <utility>

namespace tarrow {

constinit const MessageMap ExtractionRoom::kMessageMap =
    MessageMap::Make<nullptr, OnCommand<kToolExtractStrings, &ExtractionRoom::OnExtract>>();

ExtractionRoom::ExtractionRoom(const ResultServices& program, AnchoredPatternMaker makePattern)
    : program_(program), makePattern_(std::move(makePattern)) {}

void ExtractionRoom::OnExtract() {
  if (std::unique_ptr<AnchoredPattern> pattern = AskForPattern()) Extract(*pattern);
}

// Shows the dialog until the pattern is one, or the user has enough; null then.
std::unique_ptr<AnchoredPattern> ExtractionRoom::AskForPattern() {
  for (bool isWrong = false;; isWrong = true) {
    if (CExtractDialog(request_, isWrong).DoModal(program_.frame.Handle()) != IDOK) return nullptr;
    int message = 0;
    if (auto pattern = makePattern_(request_.pattern, message)) return pattern;
    program_.messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, message);
  }
}

void ExtractionRoom::Extract(AnchoredPattern& pattern) {
  ResultRun run(program_, FormatTextResource(kTextExtractTitle, {request_.pattern}), ListedPlaces(),
                FormatTextResource(kTextExtracting, {request_.pattern}));
  if (!run.Window()) return;
  run.Window()->ReadBy(SearchResultLexer());
  run.Run([&] {
    DiskLookup disk;
    CFileDir list(disk, &run.GetProgress());
    run.SetWhole(static_cast<std::int64_t>(list.Build({request_.files})));
    for (std::int64_t done = 0; const std::string* path = list.Next(); ++done) {
      run.SetDone(done);
      ExtractFrom(*path, pattern, run);
    }
  });
  run.Finish();
}

// A file that cannot be opened is told of and passed over; one that cannot be read to its end ends the
// command.
void ExtractionRoom::ExtractFrom(const std::string& path, AnchoredPattern& pattern, ResultRun& run) {
  run.SetWork(path);
  run.Tick();
  std::optional<CFile> file;
  try {
    file.emplace(path, CFile::Mode::kRead, CFile::Share::kRead);
  } catch (const CFileException& failure) {
    return run.ReportFile(failure);
  }
  ExtractStrings(*file, NameSeenFrom(run.Window()->Directory(), path), pattern, run.Out(), "\r\n",
                 &run.GetProgress());
}

}  // namespace tarrow
