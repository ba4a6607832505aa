// A program around document windows under test: a frame, and fakes of everything else.
#pragma once

#include "edit/documents/document_services.h"
#include "tests/fakes/fake_program.h"

#include <functional>
#include <stdexcept>
#include <utility>

namespace tarrow {

class FakeDocuments final : public Documents {
 public:
  std::vector<std::string> opened;
  std::vector<std::pair<SourcePlace, std::string>> places;  // with the directories of their windows
  CTwChild* activeDocument = nullptr;
  TextControl* activeText = nullptr;
  std::function<CTwLog*(std::string title, PlaceFinder finder)> makeLog;  // none: no window can be made
  bool mayContinue = true;  // what is answered to offers to save
  std::vector<std::string> offered;
  std::vector<std::pair<std::string, std::string>> followed;
  std::vector<std::string> own;

  bool OpenFile(std::string_view path, bool, bool) override {
    opened.emplace_back(path);
    return true;
  }
  bool OpenAt(const SourcePlace& place, std::string_view directory) override {
    places.emplace_back(place, directory);
    return true;
  }
  CTwLog* NewResultWindow(std::string_view title, PlaceFinder finder) override {
    return makeLog ? makeLog(std::string(title), std::move(finder)) : nullptr;
  }
  CTwChild* ActiveDocument() const override { return activeDocument; }
  TextControl* ActiveText() const override { return activeText; }
  bool OfferToSave(int) override { return mayContinue; }
  bool OfferToSaveFile(std::string_view path, int) override {
    offered.emplace_back(path);
    return mayContinue;
  }
  void FollowFile(std::string_view from, std::string_view to) override { followed.emplace_back(from, to); }
  void FileIsOurs(std::string_view path) override { own.emplace_back(path); }
};

// The frame's window and its ears for the document windows; what it hears it forgets.
class FakeFrame final : public CMDIFrameWnd, public DocumentFrame {
 public:
  FakeFrame() {
    static const WindowClass windowClass{L"TarrowTestFrame"};
    WindowSpec spec;
    spec.style = WS_OVERLAPPEDWINDOW;
    spec.bounds = {40, 40, 640, 480};
    if (!CreateFrame(windowClass, spec) || !CreateClient(nullptr)) throw std::runtime_error("no frame");
    ::MoveWindow(Client(), 0, 0, 600, 400, FALSE);
  }

  void ChildOpened(CMDIChildWnd&) override {}
  void ChildActivated(CMDIChildWnd&, bool) override {}
  void ChildDeactivated(CMDIChildWnd&, bool) override {}
  void ChildRetitled(CMDIChildWnd&) override {}
  void ChildClosed(CMDIChildWnd&) override {}
  void ShowPopupMenu(POINT) override {}
};

class DocumentProgram {
 public:
  FakeFrame frame;
  FakeDocuments documents;
  FakeMessages messages;
  FakeStatusLine status;
  FakeWaiting waiting;
  FakeHelp help;
  FakeOptions options;
  GlobalSettings settings;
  LOGFONTW screenFont{};
  std::optional<StyleChoices> styles = StyleChoices{};
  const DocumentServices services{frame, frame,   documents, messages,   status, waiting,
                                  help,  options, settings,  screenFont, styles};
};

}  // namespace tarrow
