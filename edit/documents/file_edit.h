// CTwFileEdit: the text-editing window, a document over the text control.
//
// It keeps the clean or modified state, asks before changes are lost, loads and saves, and hands the editing
// commands on. The text lives in the control and nowhere else.
#pragma once

#include "edit/control/text_control.h"
#include "edit/documents/child.h"
#include "edit/documents/file_edit_commands.h"
#include "edit/documents/printable.h"
#include "edit/files/file_format.h"
#include "edit/files/file_load.h"
#include "edit/files/known_file.h"
#include "edit/recovery/journal_format.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

class CTwFileEdit : public CTwChild, public Printable, protected EditingOwner {
 public:
  // The identifier of the text control within its window.
  static constexpr UINT kControlId = 3244;

  // Opens the file `path` (full, lower case) in a new window. Null when it could not be loaded, of which the
  // user has been told, or when he did not want it. Throws CMemoryException when the file does not fit, of
  // which he has not been told.
  static CTwFileEdit* Open(const DocumentServices& program, const std::string& path, std::uint32_t flags);

  // A new window without a name, or null when it could not be made.
  static CTwFileEdit* New(const DocumentServices& program, std::uint32_t flags);

  // A new window with a text that no file holds, modified, under the name that it had. Null when it could not
  // be made.
  static CTwFileEdit* OpenUnsaved(const DocumentServices& program, const JournalDescription& name,
                                  TextBuffer&& text, std::uint32_t flags);

  // What a journal must know to bring the text back under its name.
  JournalDescription JournalName() const;

  TextControl& Control() { return control_; }
  const TextControl& Control() const { return control_; }

  // Puts the caret at a line and column, both one-based, and the line into the upper half of the view. A line
  // beyond the end means the last one, a column beyond it (in characters; 0: none is meant) the line's end.
  void ShowPlace(std::uint32_t line, std::uint32_t column);

  // Marks the text as changed or as clean.
  void SetModified(bool modified);

  // The settings for all windows have changed: the screen font (if it has) and the tab size.
  void ApplySettings(const LOGFONTW* font);

  // What a look at the window's file has found. The user is told of a change, and asked once what is to
  // become of the text.
  void FileSeen(const FileLook& seen);

  // The program itself has written the file, or changed its time: that is no news.
  void TakeFileAsKnown();

  void FollowFile(std::string path) override;

  // Printable:
  bool HasSelection() const override { return !control_.Selection().Empty(); }
  std::unique_ptr<PrintedLines> LinesToPrint(PrintedPart part) const override;

  bool QuerySave(int message) override;
  void PublishState() override;
  bool QueryCommand(UINT id, CommandState& state) const override;
  bool RunCommand(UINT id, UINT code, HWND control, LRESULT& result) override;

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

  CTwFileEdit(const DocumentServices& program, std::uint32_t flags);

  // Makes the window; the object is gone when this returns false.
  bool CreateEdit(const WindowClass& windowClass);

  // Writes the text to a file; the user is told when that fails.
  bool WriteText(const std::string& path, FileFormat format);

  HWND ScrollBarOwner() const override { return control_.Handle(); }
  void OnFontChanged() override;
  void OnPathChanged() override { control_.SetLexer(TextLexer()); }

  // What tells the parts of the text: what the name of the file asks for. Null: nothing.
  virtual const Lexer* TextLexer() const;
  void ShowHorizontalScroll(bool show) override;

 private:
  bool CreateEdit();

  // EditingOwner:
  std::uint32_t EditFlags() const override { return Flags(); }
  void ChangeEditFlags(std::uint32_t flags) override;
  const std::string& EditName() const override { return Path(); }
  void MarkClean() override { SetModified(false); }
  void Beep(UINT sound) override { Alert(sound); }

  // file_edit.cpp: the window and its control.
  bool OnCreate(const CREATESTRUCTW& create);
  void OnSetFocus(HWND from);
  void OnSize(UINT kind, int width, int height);
  void OnSysColorChange() { control_.Send(WM_SYSCOLORCHANGE); }
  void OnLButtonDown(UINT keys, POINT client);
  void OnLButtonDblClk(UINT keys, POINT client);
  void OnChange();
  void ShowModified(bool modified);
  void OnErrSpace();
  void OnHScroll();
  void OnCaretMoved();

  // file_edit_files.cpp: loading, saving, merging.
  void OnSave();
  void OnSaveAs();
  void OnMerge();
  void OnFileStats();
  std::string FileStats() const;
  void ShowOpened();
  bool CanSave() const { return Has(kModified); }
  bool CanChange() const { return !Has(kReadOnly); }
  bool Save();
  bool SaveAs();
  bool SaveUnder(const std::string& path, const std::string& nameOnDisk, FileFormat format);
  bool WriteFile(const std::string& path);
  void Reload();

  // file_edit_disk.cpp: when another program has changed the file.
  int AskAboutChange();
  bool ResolveChange(const FileLook& look);

  TextControl control_;
  EditingCommands commands_;
  FileFormat format_ = FileFormat::kDos;
  KnownFile file_;
  bool isAsking_ = false;         // about a change of the file
  bool programScrolled_ = false;  // the program itself has scrolled the control sideways
};

}  // namespace tarrow
