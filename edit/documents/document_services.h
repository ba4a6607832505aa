// What a document window needs of the program around it.
#pragma once

#include "edit/documents/documents.h"
#include "edit/lexers/palette.h"
#include "framework/mdi.h"
#include "ui/program/help.h"
#include "ui/program/messages.h"
#include "ui/program/project_options.h"
#include "ui/program/status_line.h"
#include "ui/program/wait_state.h"
#include "ui/settings/global_settings.h"

#include <windows.h>

#include <optional>

namespace tarrow {

// The frame around the document windows, as they see it: they tell it what becomes of them.
class DocumentFrame {
 public:
  // `first`: no other window was active before; `last`: no other takes its place.
  virtual void ChildOpened(CMDIChildWnd& child) = 0;
  virtual void ChildActivated(CMDIChildWnd& child, bool first) = 0;
  virtual void ChildDeactivated(CMDIChildWnd& child, bool last) = 0;
  virtual void ChildRetitled(CMDIChildWnd& child) = 0;
  virtual void ChildClosed(CMDIChildWnd& child) = 0;

  // Runs the popup menu of the document windows at a place on the screen.
  virtual void ShowPopupMenu(POINT screen) = 0;

 protected:
  ~DocumentFrame() = default;
};

// All of them outlive every document window.
struct DocumentServices {
  CMDIFrameWnd& frame;
  DocumentFrame& events;
  Documents& documents;
  Messages& messages;
  StatusLine& status;
  Waiting& waiting;
  Help& help;
  const ProjectOptions& options;
  GlobalSettings& settings;
  const LOGFONTW& screenFont;                 // what new windows get
  const std::optional<StyleChoices>& styles;  // how the parts of their texts look
};

}  // namespace tarrow
