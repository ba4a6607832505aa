// A program around a room under test that has a frame, too, and remembers what its message boxes were about.
#pragma once

#include "framework/mdi.h"
#include "tests/fake_host.h"

namespace tarrow {

class FramedHost final : public FakeHost {
 public:
  FramedHost() {
    static const WindowClass windowClass{L"TarrowTestFrame"};
    WindowSpec spec;
    spec.style = WS_OVERLAPPEDWINDOW;
    spec.bounds = {40, 40, 640, 480};
    if (!frame_.CreateFrame(windowClass, spec)) throw std::runtime_error("no frame");
  }

  std::vector<std::string> subjects;  // of the message boxes: what fills the field of the text

  int ShowMessageBox(HWND owner, UINT style, int id, std::initializer_list<FormatArg> args) override {
    subjects.emplace_back(args.size() ? args.begin()->Text() : std::string_view());
    return FakeHost::ShowMessageBox(owner, style, id, args);
  }
  CMDIFrameWnd& Frame() override { return frame_; }

 private:
  CMDIFrameWnd frame_;
};

}  // namespace tarrow
