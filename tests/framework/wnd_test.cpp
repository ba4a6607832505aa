#include "framework/wnd.h"

#include "framework/mdi.h"
#include "tests/window_pump.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace tarrow {
namespace {

constexpr WindowClass kProbeClass{L"TarrowTestProbe"};
constexpr UINT kAsk = WM_APP + 1;
constexpr UINT kDestroyYourself = WM_APP + 2;

class Probe : public CWnd {
 public:
  explicit Probe(std::string* log = nullptr) : log_(log) {}
  bool Make() {
    WindowSpec spec;
    spec.style = WS_OVERLAPPEDWINDOW;
    return Create(kProbeClass, spec);
  }
  bool greyed = false;

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  bool OnCreate(const CREATESTRUCTW&) {
    Note("create ");
    return true;
  }
  void OnDestroy() { Note("destroy "); }
  void OnCommand7() { Note("command "); }
  bool CanCommand7() const { return !greyed; }
  void OnRange(UINT id) { Note(std::to_string(id) + " "); }
  LRESULT WindowProc(UINT message, WPARAM w, LPARAM l) override {
    if (message == WM_GETMINMAXINFO && log_ && log_->empty()) Note("first ");
    if (message == kAsk) throw std::runtime_error("asked");
    if (message == kDestroyYourself) {
      Destroy();
      Note("still-here ");
      return 5;
    }
    return CWnd::WindowProc(message, w, l);
  }
  void OnFinalMessage() override { Note("final "); }
  void Note(const std::string& text) {
    if (log_) *log_ += text;
  }

  std::string* log_;
};

constinit const MessageMap Probe::kMessageMap =
    MessageMap::Make<&CWnd::kMessageMap, On<WM_CREATE, &Probe::OnCreate>, On<WM_DESTROY, &Probe::OnDestroy>,
                     OnCommand<7, &Probe::OnCommand7, &Probe::CanCommand7>,
                     OnCommandRange<20, 29, &Probe::OnRange>>();

TEST(Wnd, IsBoundFromTheFirstMessageToTheLast) {
  std::string log;
  Probe probe(&log);
  ASSERT_TRUE(probe.Make());
  HWND window = probe.Handle();
  EXPECT_EQ(&probe, CWnd::FromHandle(window));
  EXPECT_EQ(5, probe.Send(kDestroyYourself));
  EXPECT_FALSE(probe.Exists());
  EXPECT_EQ(nullptr, CWnd::FromHandle(window));
  EXPECT_EQ("first create destroy still-here final ", log);  // never freed under a running handler
}

TEST(Wnd, RoutesCommandsAndAnswersWhetherTheyCanRun) {
  std::string log;
  Probe probe(&log);
  ASSERT_TRUE(probe.Make());
  log.clear();
  probe.Send(WM_COMMAND, MAKEWPARAM(7, 0));
  probe.Send(WM_COMMAND, MAKEWPARAM(7, 1));  // from an accelerator
  probe.Send(WM_COMMAND, MAKEWPARAM(25, 0));
  probe.Send(WM_COMMAND, MAKEWPARAM(30, 0));
  EXPECT_EQ("command command 25 ", log);

  CommandState state;
  EXPECT_TRUE(probe.QueryCommand(7, state));
  EXPECT_TRUE(state.enabled);
  probe.greyed = true;
  EXPECT_TRUE(probe.QueryCommand(7, state));
  EXPECT_FALSE(state.enabled);
  EXPECT_FALSE(probe.QueryCommand(30, state));
}

TEST(Wnd, HandsWhatAHandlerThrowsToTheReporter) {
  static int reports;
  reports = 0;
  auto count = [](std::exception_ptr) { ++reports; };
  auto previous = CWnd::SetExceptionReporter(count);
  Probe probe;
  ASSERT_TRUE(probe.Make());
  probe.Send(kAsk);
  CWnd::SetExceptionReporter(previous);
  EXPECT_EQ(1, reports);
  EXPECT_TRUE(probe.Exists());
}

TEST(Wnd, AWindowThatOutlivesItsObjectIsDestroyedWithIt) {
  HWND window;
  {
    Probe probe;
    ASSERT_TRUE(probe.Make());
    window = probe.Handle();
  }
  EXPECT_FALSE(::IsWindow(window));
}

TEST(Wnd, AnswersForASubclassedControlAndGivesItBack) {
  HWND edit =
      ::CreateWindowExW(0, L"EDIT", L"abc", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr);
  {
    std::string log;
    Probe probe(&log);
    probe.Subclass(edit);
    EXPECT_EQ("abc", probe.Text());
    ::SendMessageW(edit, WM_COMMAND, 7, 0);
    EXPECT_EQ("command ", log);
    ::DestroyWindow(edit);
    EXPECT_EQ("command destroy final ", log);
    EXPECT_FALSE(probe.Exists());
  }
}

class Frame : public CMDIFrameWnd {
 public:
  bool Make() {
    WindowSpec spec;
    spec.style = WS_OVERLAPPEDWINDOW;
    static constexpr WindowClass kFrameClass{L"TarrowTestFrame"};
    return CreateFrame(kFrameClass, spec) && CreateClient(nullptr);
  }
};

class Child : public CMDIChildWnd {
 public:
  explicit Child(int& living) : living_(++living) {}
  ~Child() override { --living_; }
  bool refuse = false;

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  bool OnCreate(const CREATESTRUCTW&) { return !refuse; }
  int& living_;
};

constinit const MessageMap Child::kMessageMap =
    MessageMap::Make<&CMDIChildWnd::kMessageMap, On<WM_CREATE, &Child::OnCreate>>();

TEST(Mdi, AChildBelongsToItsWindow) {
  static constexpr WindowClass kChildClass{L"TarrowTestChild"};
  int living = 0;
  Frame frame;
  ASSERT_TRUE(frame.Make());
  auto* first = new Child(living);
  ASSERT_TRUE(first->CreateChild(frame, kChildClass, "one", 0, false));
  auto* second = new Child(living);
  ASSERT_TRUE(second->CreateChild(frame, kChildClass, "two", 0, true));
  EXPECT_EQ(second, frame.ActiveChild());

  auto* refused = new Child(living);
  refused->refuse = true;
  EXPECT_FALSE(refused->CreateChild(frame, kChildClass, "three", 0, false));
  EXPECT_EQ(2, living);

  int visited = 0;
  EXPECT_TRUE(frame.ForEachChild([&](CMDIChildWnd& child) {
    ++visited;
    ::SendMessageW(frame.Client(), WM_MDIDESTROY, reinterpret_cast<WPARAM>(child.Handle()), 0);
    return true;
  }));
  EXPECT_EQ(2, visited);
  EXPECT_EQ(0, living);
}

}  // namespace
}  // namespace tarrow
