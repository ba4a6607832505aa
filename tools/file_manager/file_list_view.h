// The list of the file manager: a virtual list view over a FileTable, of any length.
//
// The control asks for the texts of the rows that it shows. A click on a column's head sorts by it, a second
// one the other way round; what is chosen stays chosen.
#pragma once

#include "tools/file_manager/file_table.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tarrow {

class FileListView {
 public:
  // Takes over a list view that keeps no data of its own.
  void Attach(HWND control);
  HWND Handle() const { return control_; }

  // Shows the files of a list. Those that were there before stay chosen.
  void Show(std::vector<ListedFile> files, std::string_view directory);

  const FileTable& Table() const { return table_; }

  // The rows that are chosen, and the paths of their files.
  std::vector<std::size_t> ChosenRows() const;
  std::vector<std::string> ChosenPaths() const;
  std::size_t ChosenCount() const;
  std::uint64_t ChosenBytes() const;
  void ChooseAll() const;

  // Between these the list is not drawn: where a hundred thousand rows change, each would ask for it.
  void HoldDrawing() const;
  void DrawAgain() const;

  // For WM_NOTIFY of the parent: what the list itself deals with. False for all else.
  bool OnNotify(const NMHDR& header, LPARAM l, LRESULT& result);

 private:
  // Paths in lower case, by which files are known from one list to the next.
  struct Choice {
    std::vector<std::string> paths;  // in ascending order
    std::string focused;
  };

  void FillIn(LVITEMW& item);
  int Find(const NMLVFINDITEMW& wanted) const;
  void SortBy(FileColumn column);
  void ShowSortArrow() const;
  Choice TakeChoice() const;
  void Restore(const Choice& choice) const;
  void ChangeChoice(const std::vector<std::size_t>& from, const std::vector<std::size_t>& to) const;
  std::vector<std::size_t> EveryRow() const;
  std::string Focused() const;
  void Focus(const std::string& path) const;
  std::string CellText(std::size_t row, FileColumn column) const;
  void SetState(std::size_t row, UINT state, UINT mask) const;

  HWND control_ = nullptr;
  FileTable table_;
  std::wstring cell_;  // the text last asked for
};

}  // namespace tarrow
