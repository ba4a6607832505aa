// The room of Global Search: its dialog, and the search that each OK starts.
#pragma once

#include "edit/documents/result_run.h"
#include "framework/command_target.h"
#include "search/files/file_search.h"
#include "search/files/grep_dialog.h"

#include <functional>
#include <string>
#include <vector>

namespace tarrow {

class GlobalSearchRoom final : public CommandTarget {
 public:
  // Makes a sorted list of full paths of names and wildcard patterns; the first name may be their directory.
  // Polls `progress`, whose CYieldException it lets through.
  using FileLister =
      std::function<std::vector<std::string>(const std::vector<std::string>& names, Progress& progress)>;

  // All of them outlive the room.
  GlobalSearchRoom(const ResultServices& program, const ProjectOptions& options, Help& help,
                   FileLister listFiles);
  ~GlobalSearchRoom() override;

  CGrepDialog* Dialog() const { return dialog_; }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnOpen();
  LRESULT OnRequest(WPARAM w, LPARAM l);

  void Search(const SearchRequest& request);
  bool Compile(const SearchRequest& request, LinePattern& pattern);
  bool CheckDirectory(const SearchRequest& request);
  void RunSearch(const SearchRequest& request, LinePattern& pattern);
  static void SearchFiles(const std::vector<std::string>& files, FileSearch& search, ResultRun& run);

  const ResultServices program_;
  const ProjectOptions& options_;
  Help& help_;
  FileLister listFiles_;
  CGrepDialog* dialog_ = nullptr;  // belongs to its window
};

}  // namespace tarrow
