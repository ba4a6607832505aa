// A program with views of files in a scratch directory.
#pragma once

#include "tests/edit/documents/document_program.h"
#include "tests/framework/scratch_directory.h"
#include "tests/window_pump.h"
#include "ui/program/string_ids.h"
#include "viewer/views/hex_file_view.h"
#include "viewer/views/text_file_view.h"

#include <gtest/gtest.h>

namespace tarrow {

class ViewProgram : public testing::Test {
 protected:
  static constexpr std::uint32_t kBars = kHorizontalScroll | kVerticalScroll;

  ViewProgram() {
    program.settings.arrange = ArrangeMode::kCascade;
    program.messages.keepsFileErrors = true;
    program.messages.answer = IDYES;
    ::ShowWindow(program.frame.Handle(), SW_SHOW);
  }
  ~ViewProgram() override { PumpMessages(); }

  CHexFileView* OpenHex(const std::string& path, std::uint32_t flags = kBars) {
    CHexFileView* view = CHexFileView::Open(program.services, path, flags);
    if (view) Place(*view);
    return view;
  }
  CTextFileView* OpenText(const std::string& path, std::uint32_t flags = kBars) {
    if (CTextFileView::Open(program.services, path, flags) != TextViewOpening::kShown) return nullptr;
    auto* view = dynamic_cast<CTextFileView*>(program.frame.ActiveChild());
    if (view) Place(*view);
    return view;
  }
  void Place(CFileView& view) {
    ::MoveWindow(view.Handle(), 0, 0, 560, 300, TRUE);
    program.documents.activeDocument = &view;
    PumpMessages();
  }
  // Writes a file anew while a view has it open.
  void Rewrite(const std::string& path, std::string_view bytes) {
    CFile file(path, CFile::Mode::kCreate, CFile::Share::kReadWrite);
    file.Write(bytes);
    file.Close();
  }
  bool Run(CFileView& view, UINT id) {
    LRESULT result = 0;
    return view.RunCommand(id, 0, nullptr, result);
  }
  bool IsEnabled(const CFileView& view, UINT id) {
    CommandState state;
    return view.QueryCommand(id, state) && state.enabled;
  }

  ScratchDirectory scratch;
  DocumentProgram program;
};

}  // namespace tarrow
