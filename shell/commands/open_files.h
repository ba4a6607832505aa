// OpenFiles: files into windows, by command, drop, recent list, session, or at the wish of a room.
#pragma once

#include "edit/commands/child_flags.h"
#include "edit/documents/document_services.h"
#include "framework/command_target.h"
#include "shell/frame/menu_bars.h"
#include "shell/state/recent_list.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarrow {

class OpenFiles final : public CommandTarget, public Documents {
 public:
  // All of them outlive the object.
  OpenFiles(const DocumentServices& services, RecentList& recent, MenuBars& menus);

  // Opens a file with the bits of a document window (child_flags.h), which tell whether it is edited or
  // viewed, too. A window that shows the file in another form is closed first, if the user lets it. Returns
  // whether a window shows it now.
  bool OpenWithFlags(std::string_view path, std::uint32_t flags);

  // Shows the recent files in the menus.
  void ShowRecentFiles() { menus_.SetRecentFiles(recent_.Names()); }

  // Documents:
  bool OpenFile(std::string_view path, bool readOnly, bool hexView) override;
  bool OpenAt(const SourcePlace& place, std::string_view directory) override;
  CTwLog* NewResultWindow(std::string_view title, PlaceFinder finder) override;
  CTwChild* ActiveDocument() const override;
  TextControl* ActiveText() const override;
  bool OfferToSave(int message) override;
  bool OfferToSaveFile(std::string_view path, int message) override;
  void FollowFile(std::string_view from, std::string_view to) override;
  void FileIsOurs(std::string_view path) override;

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnNew();
  void OnOpen();
  void OnSaveAll();
  bool CanSaveAll() const;
  void OnRecentFile(UINT id);
  void OnDropFiles(HANDLE drop);

  std::uint32_t NewFlags(bool readOnly, DocumentForm form) const;
  bool LeavesRoom(CTwChild& shown);
  bool CreateNewFile(const std::string& path, bool readOnly);
  void AddRecent(const std::string& path);

  const DocumentServices& services_;
  CMDIFrameWnd& frame_;
  RecentList& recent_;
  MenuBars& menus_;
};

}  // namespace tarrow
