// A program around a room under test: small parts that remember what they are asked for.
#pragma once

#include "framework/dialog.h"
#include "ui/program/help.h"
#include "ui/program/messages.h"
#include "ui/program/project_options.h"
#include "ui/program/status_line.h"
#include "ui/program/wait_state.h"

#include <map>
#include <string>
#include <vector>

namespace tarrow {

class FakeMessages final : public Messages {
 public:
  int answer = IDOK;                  // to every box
  std::vector<int> boxes;             // their strings
  std::vector<std::string> subjects;  // what fills the first field of each
  std::vector<UINT> alerts;
  std::vector<WORD> questions;  // the templates of the dialogs that ask, which get the answer, too
  int outOfMemory = 0;
  bool keepsFileErrors = false;  // rather than throw them at the test
  std::vector<FileCause> fileErrors;

  int ShowMessageBox(HWND, UINT, int id, std::initializer_list<FormatArg> args) override {
    boxes.push_back(id);
    subjects.emplace_back(args.size() ? args.begin()->Text() : std::string_view());
    return answer;
  }
  int Ask(CDialog& question) override {
    questions.push_back(question.Template());
    return answer;
  }
  void Alert(UINT sound, const CMDIChildWnd*) override { alerts.push_back(sound); }
  void ShowFileError(HWND, const CFileException& error) override {
    if (!keepsFileErrors) throw error;
    fileErrors.push_back(error.Cause());
  }
  void ReportOutOfMemory() override { ++outOfMemory; }
};

class FakeStatusLine final : public StatusLine {
 public:
  std::vector<std::string> texts;
  std::vector<std::string> tasks;
  int line = 0, column = 0;
  std::map<Indicator, int> indicators;

  void ShowStatus(std::string_view text, int) override { texts.emplace_back(text); }
  void ShowStatusId(int id, int) override { texts.push_back(std::to_string(id)); }
  void PublishCaret(int newLine, int newColumn) override { line = newLine, column = newColumn; }
  void PublishIndicator(Indicator indicator, int state) override { indicators[indicator] = state; }
  void PublishTask(std::string_view text) override { tasks.emplace_back(text); }
};

class FakeWaiting final : public Waiting {
 public:
  int waits = 0;  // begun and not ended

  void BeginWait(bool) override { ++waits; }
  void EndWait() override { --waits; }
};

class FakeHelp final : public Help {
 public:
  std::vector<unsigned> topics;

  void ShowHelp(HWND, unsigned topic) override { topics.push_back(topic); }
};

class FakeOptions final : public ProjectOptions {
 public:
  std::map<ProjectOption, std::string> values;

  std::string Option(ProjectOption option) const override {
    auto found = values.find(option);
    return found == values.end() ? std::string() : found->second;
  }
};

}  // namespace tarrow
