// CFileView: a read-only document window that shows a file of any size, a screenful at a time.
//
// What it shows and where its caret stands is a ViewState, which the engines of this folder change and paint;
// the window turns messages into their questions. Nothing of the file is kept but what a page takes: each
// paint reads the file anew. When the file cannot be read any more, the user is told and the window closes.
#pragma once

#include "edit/control/font_widths.h"
#include "edit/documents/child.h"
#include "edit/documents/printable.h"
#include "edit/documents/searchable_file.h"
#include "framework/wheel.h"
#include "viewer/views/file_watch.h"
#include "viewer/views/view_moves.h"
#include "viewer/views/view_paint.h"

#include <optional>
#include <string>

namespace tarrow {

class CFileView : public CTwChild, public SearchableFile, public Printable {
 public:
  // Puts the caret at a row and a place in it, both counted from 0, and brings it into view. The place is a
  // byte of the row in the hex view, a column in the text view.
  virtual void GotoPosition(LineNo row, ColumnNo place) = 0;

  // Shows name and size of the file in the status bar.
  virtual void ShowFileStats() = 0;

  // The settings for all windows have changed: the screen font (if it has), or others.
  virtual void ApplySettings(const LOGFONTW* font);

  const ViewState& State() const { return state_; }
  ViewPage Page() const { return page_; }

  void PublishState() override;

  // SearchableFile:
  std::unique_ptr<ByteSource> OpenBytes() const override;
  FileRange SelectedBytes() override;
  void SelectMatch(const FileRange& bytes) override;
  bool IsAtMatch() const override { return found_ && found_->selection == state_.selection; }
  RECT MatchOnScreen() const override;

  // Printable:
  bool HasSelection() const override { return !state_.selection.Empty(); }
  std::unique_ptr<PrintedLines> LinesToPrint(PrintedPart part) const override;

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

  // Takes the low six bits of `flags`; the form is that of the derived class.
  CFileView(const DocumentServices& program, const std::string& path, std::uint32_t flags);

  // Makes the window; the object is gone when this returns false.
  bool CreateView();

  // The rows of the file, or null once it is closed.
  virtual ViewRows* Rows() const = 0;
  virtual void CloseFile() = 0;

  // Sees the file as it is now, as far as that costs nothing; returns whether it has other rows. Throws
  // CFileException.
  virtual bool Refresh() = 0;

  // Opens the file anew after somebody has changed it, or leaves it as it is when that is not possible.
  // Returns false when that would take long and must not now.
  virtual bool Reopen(bool mayTakeLong) = 0;

  // Asks where to go, and goes there.
  virtual void OnGoto() = 0;

  // The file has other rows than before: brings view and bars into agreement.
  void AdaptToFile();

  // Runs `action`, which reads the file through Rows(). Where that fails, the file is closed, and so will be
  // the window.
  template <typename Action>
  void Reading(Action action) {
    try {
      if (Rows()) action();
    } catch (const CFileException& error) {
      Fail(error);
    }
  }

  // Shows what `next` makes of the present state.
  template <typename Next>
  void Change(Next next) {
    Reading([&] { Show(next(state_, page_, *Rows())); });
  }

  void OnFontChanged() override;
  void ShowHorizontalScroll(bool show) override;

 private:
  // file_view.cpp: the window.
  bool OnCreate(const CREATESTRUCTW& create);
  void OnSize(UINT kind, int width, int height);
  void OnPaint();
  bool OnEraseBackground(HDC) { return true; }
  void OnSetFocus(HWND from);
  void OnKillFocus(HWND to);
  void OnTimer(UINT_PTR id);
  void Measure();
  void MakeCaret();
  void LookAtFile();
  void Fail(const CFileException& error);

  // file_view_scroll.cpp: keys, scroll bars, what follows from a new state.
  void OnKeyDown(UINT key, LPARAM data);
  template <ViewMove Key>
  LRESULT OnMove(WPARAM columns, LPARAM extend) {
    MoveBy({Key, static_cast<int>(columns)}, extend != 0);
    return 0;
  }
  void MoveBy(ViewKey key, bool extend);
  void OnVScroll(UINT code, UINT position, HWND bar);
  void OnHScroll(UINT code, UINT position, HWND bar);
  void Show(const ViewState& state);
  void InvalidateChange(const ViewState& before);
  void InvalidateRows(LineNo first, LineNo last);
  RECT RectOfRows(LineNo first, LineNo last) const;
  void UpdateScrollBars();
  void PlaceCaret();
  void PublishCaret();

  // file_view_mouse.cpp
  CellPos CellAt(POINT client) const;
  void OnLButtonDown(UINT keys, POINT client);
  void OnLButtonDblClk(UINT keys, POINT client);
  void OnMouseMove(UINT keys, POINT client);
  void OnLButtonUp(UINT keys, POINT client);
  LRESULT OnCaptureChanged(WPARAM, LPARAM);
  void OnMouseWheel(int delta, UINT keys, POINT screen);
  void OnMouseHWheel(int delta, UINT keys, POINT screen);
  void DragTo(POINT client);
  void DragOn();

  // file_view_commands.cpp
  void OnCopy();
  void OnCopyAppend();
  void OnGotoCommand() { OnGoto(); }
  void OnFileStats() { ShowFileStats(); }
  void PutSelection(const std::string& before);

  ViewState state_;
  ViewPage page_;
  std::optional<FontWidths> font_;
  CellSize cell_;
  bool hasFocus_ = false;
  bool isDragging_ = false;
  Wheel wheel_, wheelSideways_;
  FileWatch watch_;
  bool hasChanged_ = false;  // the file, since it was opened
  bool wasEntered_ = false;  // the window, since the file was last looked at

  // The bytes that were found last, for as long as the selection is still theirs.
  struct Found {
    CellSelection selection;
    FileRange bytes;
  };
  std::optional<Found> found_;
};

}  // namespace tarrow
