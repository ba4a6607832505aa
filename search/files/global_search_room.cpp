#include "search/files/global_search_room.h"

#include "base/path_text.h"
#include "edit/documents/listed_place.h"
#include "edit/documents/log.h"
#include "framework/disabled_window.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/text_resources.h"
#include "resources/resource.h"
#include "search/files/match_lexer.h"
#include "search/pattern/find_pattern.h"
#include "search/pattern/regex_compiler.h"
#include "ui/commands/commands.h"
#include "ui/program/private_messages.h"
#include "ui/program/string_ids.h"

#include <utility>

namespace tarrow {
namespace {

FindOptions OptionsOf(const SearchRequest& request) {
  return {request.matchCase, request.wholeWord};
}

}  // namespace

constinit const MessageMap GlobalSearchRoom::kMessageMap =
    MessageMap::Make<nullptr, OnCommand<kSearchGrep, &GlobalSearchRoom::OnOpen>,
                     On<kGlobalSearchMessage, &GlobalSearchRoom::OnRequest>>();

GlobalSearchRoom::GlobalSearchRoom(const ResultServices& program, const ProjectOptions& options, Help& help,
                                   FileLister listFiles)
    : program_(program), options_(options), help_(help), listFiles_(std::move(listFiles)) {}

GlobalSearchRoom::~GlobalSearchRoom() {
  if (dialog_) dialog_->Destroy();
}

void GlobalSearchRoom::OnOpen() {
  if (dialog_) return dialog_->ComeBack();
  HWND frame = program_.frame.Handle();
  auto* dialog = new CGrepDialog(frame, options_, help_);  // belongs to its window
  if (dialog->CreateModeless(frame))
    dialog_ = dialog;
  else
    program_.messages.ReportOutOfMemory();
}

LRESULT GlobalSearchRoom::OnRequest(WPARAM, LPARAM l) {
  if (!dialog_ || reinterpret_cast<CGrepDialog*>(l) != dialog_) return 0;
  if (dialog_->IsClosing())
    dialog_ = nullptr;
  else
    Search(dialog_->Request());
  return 0;
}

void GlobalSearchRoom::Search(const SearchRequest& request) {
  LinePattern pattern;
  if (!Compile(request, pattern) || !CheckDirectory(request)) return;
  {
    DisabledWindow disabled(dialog_->Handle());
    RunSearch(request, pattern);
  }
  dialog_->ComeBack();
}

bool GlobalSearchRoom::Compile(const SearchRequest& request, LinePattern& pattern) {
  PatternError error = pattern.Compile(request.text, OptionsOf(request));
  if (error == PatternError::kNone) return true;
  if (error == PatternError::kOutOfMemory)
    program_.messages.ReportOutOfMemory();
  else
    program_.messages.ShowMessageBox(dialog_->Handle(), MB_ICONEXCLAMATION, PatternErrorMessage(error));
  dialog_->ComeBack(IDC_SEARCH_FOR);
  return false;
}

bool GlobalSearchRoom::CheckDirectory(const SearchRequest& request) {
  if (request.directory.empty() || IsDirectory(WithoutTrailingSeparators(request.directory))) return true;
  program_.messages.ShowMessageBox(dialog_->Handle(), MB_ICONSTOP, kTextBadPath);
  dialog_->ComeBack(IDC_IN_DIRECTORY);
  return false;
}

void GlobalSearchRoom::RunSearch(const SearchRequest& request, LinePattern& pattern) {
  bool isDone = false, isFound = false;
  {
    ResultRun run(program_, FormatTextResource(kTextGrepTitle, {request.text}), ListedPlaces(),
                  FormatTextResource(kTextSearching, {request.text}));
    if (!run.Window()) return;
    run.Window()->ReadBy(std::make_unique<MatchLexer>(request.text, OptionsOf(request)));
    isDone = run.Run([&] {
      run.SetWork(request.directory);
      std::vector<std::string> files = listFiles_(NamesToSearch(request), run.GetProgress());
      auto listing = request.listLines ? FileSearch::Listing::kLines : FileSearch::Listing::kCounts;
      FileSearch search(pattern, listing, run.Out(), &run.GetProgress());
      SearchFiles(files, search, run);
    });
    isFound = run.HasText();
    run.Finish();
    if (!isFound) run.Discard();
  }
  if (isDone && !isFound)
    program_.messages.ShowMessageBox(dialog_->Handle(), MB_ICONINFORMATION, kTextNotFound, {request.text});
}

void GlobalSearchRoom::SearchFiles(const std::vector<std::string>& files, FileSearch& search,
                                   ResultRun& run) {
  const std::string directory = run.Window()->Directory();
  auto count = static_cast<std::int64_t>(files.size());
  std::int64_t done = 0, matches = 0;
  run.SetWhole(count);
  run.SetCounts([&] { return FormatTextResource(kTextSearchCounts, {done, count, matches}); });
  for (; done < count; ++done) {
    const std::string& path = files[static_cast<std::size_t>(done)];
    run.SetDone(done);
    run.SetWork(path);
    run.Tick();
    try {
      CFile file(path, CFile::Mode::kRead, CFile::Share::kReadWrite);
      matches += search.Run(file, NameSeenFrom(directory, path), path);
    } catch (const CFileException& failure) {
      run.ReportFile(failure);
    }
  }
}

}  // namespace tarrow
