// CTwChild: what every document window of the program has in common.
//
// A child owns its font, its directory, and its bits (child_flags.h); it publishes what the status bar shows,
// keeps the current directory that of the window in front, and opens the popup menu. The path of the document
// is kept here; the title only shows it.
#pragma once

#include "edit/commands/child_flags.h"
#include "edit/documents/document_services.h"
#include "framework/handle.h"
#include "framework/mdi.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tarrow {

class CTwChild : public CMDIChildWnd {
 public:
  // Takes the low six bits of `flags`; the document has no name yet.
  CTwChild(const DocumentServices& program, std::uint32_t flags);

  std::uint32_t Flags() const { return flags_; }
  bool Has(ChildFlag flag) const { return (flags_ & flag) != 0; }

  // The full path in lower case, or the title of a document that has no name yet.
  const std::string& Path() const { return path_; }

  // The directory of the window, in lower case.
  const std::string& Directory() const { return directory_; }

  // The name, a mark when it is not saved, then the directory.
  std::string ListText() const override;
  bool IsUnsaved() const override { return Has(kModified); }

  // Whether the window may close. Asks about changes with string `message`, formatted with the path; 0 saves
  // them without asking.
  [[nodiscard]] virtual bool QuerySave(int message);

  // The document's file is now called `path` (full, lower case).
  virtual void FollowFile(std::string path) { SetPath(std::move(path)); }

  // Shows a caret's place and the indicators of this window in the status bar.
  virtual void PublishState();

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

  const DocumentServices& Program() const { return program_; }
  void SetFlag(ChildFlag flag, bool on) { flags_ = on ? flags_ | flag : flags_ & ~std::uint32_t{flag}; }
  void SetFlags(std::uint32_t flags) { flags_ = flags; }

  // Gives the document its path and the window its title; the directory becomes that of the path.
  void SetPath(std::string path);
  void SetUntitled(std::string title);

  HFONT Font() const { return font_.Get(); }
  void SetFont(const LOGFONTW& font);

  void Alert(UINT sound) const { program_.messages.Alert(sound, this); }

  // The window whose scroll bars the Show commands switch.
  virtual HWND ScrollBarOwner() const { return Handle(); }
  virtual void OnFontChanged() {}

  // The document has got another name, or none.
  virtual void OnPathChanged() {}
  virtual void ShowHorizontalScroll(bool show);
  virtual void ShowVerticalScroll(bool show);

  // WM_CREATE: announces the window. A derived class makes its controls first.
  bool OnCreate(const CREATESTRUCTW& create);

  // Opens the popup menu at a place in client coordinates.
  void OnRButtonDown(UINT keys, POINT client);
  void OnSetFocus(HWND from);
  void OnSize(UINT kind, int width, int height);

 private:
  void OnDestroy();
  void OnClose();
  bool OnQueryEndSession();
  void OnMdiActivate(HWND deactivated, HWND activated);
  void OnSysCommand(UINT command);
  LRESULT OnContextMenu(WPARAM w, LPARAM l);
  void OnToggleHorizontalScroll();
  void OnToggleVerticalScroll();
  void OnFontCommand();
  CommandState HorizontalScrollState() const { return {true, Has(kHorizontalScroll)}; }
  CommandState VerticalScrollState() const { return {true, Has(kVerticalScroll)}; }

  void EnterDirectory();
  void ShowTitle(bool minimised);
  void ShowNewTitle();

  const DocumentServices& program_;
  std::uint32_t flags_;
  std::string path_;
  std::string directory_;
  LOGFONTW fontChoice_;
  FontHandle font_;
};

// The window that shows the document `path` (full, lower case), or null.
CTwChild* FindChildShowing(const CMDIFrameWnd& frame, std::string_view path);

// The title of a minimised document: the last backslash of its path becomes a blank, so that the directory
// and the name stand apart; not directly under a root.
std::string MinimisedTitle(std::string path);

}  // namespace tarrow
