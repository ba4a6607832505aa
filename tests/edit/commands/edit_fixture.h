// A text window for tests: a window with a text control and the editing commands on it.
#pragma once

#include "edit/commands/child_flags.h"
#include "edit/documents/file_edit_commands.h"
#include "tests/edit/commands/editing_case.h"
#include "tests/edit/documents/document_program.h"
#include "tests/window_pump.h"

namespace tarrow {

class EditFixture : public CWnd, public EditingOwner {
 public:
  static constexpr int kControl = 3244;

  explicit EditFixture(DocumentProgram& program) : program_(program) {
    static const WindowClass windowClass{L"TarrowTestEdit"};
    WindowSpec spec;
    spec.style = WS_POPUP;
    spec.bounds = {0, 0, 400, 300};
    if (!Create(windowClass, spec)) throw std::runtime_error("no window");
    if (!control.CreateControl(Handle(), kControl, WS_CHILD | WS_VISIBLE, {0, 0, 400, 300}))
      throw std::runtime_error("no control");
  }

  // Puts a marked text (tests/cases/README.md) into the control.
  void SetMarked(std::string_view marked) { SetMarked(ReadMarkedText(marked)); }
  void SetMarked(const MarkedText& marked) {
    TextBuffer text;
    text.Replace({}, marked.text);
    control.Adopt(std::move(text));
    control.Select(marked.selection);
    control.EmptyUndo();
  }

  // What the control holds, with its marks.
  std::string Marked() const { return ShowMarkedText({control.View().Copy(), control.Selection()}); }

  // Types characters as they come out of the message loop.
  void Type(std::u16string_view characters) {
    for (char16_t c : characters) {
      MSG message{control.Handle(), WM_CHAR, c, 0, 0, {}};
      control.PreDispatch(message);
    }
  }
  void Press(UINT key) { control.Send(WM_KEYDOWN, key); }

  std::uint32_t EditFlags() const override { return flags; }
  void ChangeEditFlags(std::uint32_t changed) override { flags = changed; }
  const std::string& EditName() const override { return name; }
  void MarkClean() override { flags &= ~std::uint32_t{kModified}; }
  void Beep(UINT sound) override { program_.messages.alerts.push_back(sound); }

  int caretMoves = 0;  // how often the control has said that the caret may have moved

 protected:
  LRESULT WindowProc(UINT message, WPARAM w, LPARAM l) override {
    if (message == WM_COMMAND && HIWORD(w) == kCaretMoved) ++caretMoves;
    return CWnd::WindowProc(message, w, l);
  }

 private:
  DocumentProgram& program_;

 public:
  std::uint32_t flags = 0;
  std::string name = "c:\\dir\\a.txt";
  TextControl control;
  EditingCommands commands{program_.services, control, *this};
};

}  // namespace tarrow
