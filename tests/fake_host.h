// A program around a room under test: it keeps what it is asked for, and answers message boxes with `answer`.
#pragma once

#include "ui/program/host.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace tarrow {

class FakeHost : public Host {
 public:
  virtual ~FakeHost() = default;

  int answer = IDOK;
  GlobalSettings settings;
  std::vector<int> boxes;  // the strings of the message boxes
  std::vector<UINT> alerts;
  std::vector<unsigned> helpContexts;
  std::vector<std::string> statusTexts;
  std::vector<std::string> openedFiles;
  int outOfMemory = 0;
  int waits = 0;

  int ShowMessageBox(HWND, UINT, int id, std::initializer_list<FormatArg>) override {
    boxes.push_back(id);
    return answer;
  }
  void Alert(UINT sound, const CMDIChildWnd*) override { alerts.push_back(sound); }
  void ShowFileError(HWND, const CFileException& error) override { throw error; }
  void ReportOutOfMemory() override { ++outOfMemory; }
  void ShowStatus(std::string_view text, int) override { statusTexts.emplace_back(text); }
  void ShowStatusId(int id, int) override { statusTexts.push_back(std::to_string(id)); }
  void PublishCaret(int, int) override {}
  void PublishIndicator(Indicator, int) override {}
  void BeginWait(bool) override { ++waits; }
  void EndWait() override { --waits; }
  bool OpenFile(std::string_view path, bool, bool) override {
    openedFiles.emplace_back(path);
    return true;
  }
  void AddRecentFile(std::string_view) override {}
  void ChildOpened(CMDIChildWnd&) override {}
  void ChildActivated(CMDIChildWnd&, bool) override {}
  void ChildDeactivated(CMDIChildWnd&, bool) override {}
  void ChildRetitled(CMDIChildWnd&) override {}
  void ChildClosed(CMDIChildWnd&) override {}
  void DirectoryChanged() override {}
  void ShowPopupMenu(POINT) override {}
  std::string FileFilter() const override { return "All Files (*.*)|*.*|"; }
  LOGFONTW ScreenFont() const override { return {}; }
  void ShowHelp(HWND, unsigned context) override { helpContexts.push_back(context); }
  GlobalSettings& Settings() override { return settings; }
  CMDIFrameWnd& Frame() override { throw std::logic_error("this test has no frame"); }
};

}  // namespace tarrow
