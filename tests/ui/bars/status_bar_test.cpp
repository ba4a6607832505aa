#include "ui/bars/status_bar.h"

#include "tests/window_pump.h"
#include "ui/bars/clock_timer.h"
#include "ui/program/string_ids.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tarrow {
namespace {

class Owner : public CWnd {
 public:
  Owner() {
    static const WindowClass windowClass{L"TarrowTestOwner"};
    WindowSpec spec;
    spec.style = WS_POPUP;
    spec.bounds = {20, 20, 900, 200};
    if (!Create(windowClass, spec)) throw std::runtime_error("no window");
    ::ShowWindow(Handle(), SW_SHOWNOACTIVATE);
  }
};

class StatusBarTest : public testing::Test {
 protected:
  StatusBarTest() {
    EXPECT_TRUE(bar_.CreateBar(owner_.Handle()));
    ::MoveWindow(bar_.Handle(), 0, 0, 880, bar_.Height(), TRUE);
  }

  std::string PaneTexts() const {
    std::string texts;
    for (int pane = 0; pane < bar_.Panes().Count(); ++pane) texts += bar_.Panes().Text(pane) + "|";
    return texts;
  }

  // The part of the bar that is to be painted.
  RECT Dirty() const {
    RECT dirty{};
    ::GetUpdateRect(bar_.Handle(), &dirty, FALSE);
    return dirty;
  }

  Owner owner_;
  CStatusBar bar_;
};

TEST_F(StatusBarTest, ShowsWhatTheActiveWindowPublishes) {
  bar_.SetCaret(12, 34);
  bar_.SetIndicator(Indicator::kInsertMode, 1);
  bar_.SetIndicator(Indicator::kEditMode, 0);
  bar_.SetIndicator(Indicator::kModification, 1);
  bar_.SetIndicator(Indicator::kIndentation, 2);
  bar_.SetAutoSave(true);
  EXPECT_TRUE(PaneTexts().starts_with("12 : 34|Ovr|Edit|Modified|Indent|Auto-save|")) << PaneTexts();
  bar_.ShowIdle();
  EXPECT_TRUE(PaneTexts().starts_with("|||||Auto-save|")) << PaneTexts();
}

TEST_F(StatusBarTest, AChangedPaneAloneIsPainted) {
  bar_.SetCaret(1, 1);
  ::UpdateWindow(bar_.Handle());
  bar_.SetCaret(1, 1);
  EXPECT_EQ(Dirty().right, 0) << "nothing has changed";
  bar_.SetCaret(1, 2);
  EXPECT_EQ(Dirty().left, bar_.Panes().Span(0).left);
  EXPECT_EQ(Dirty().right, bar_.Panes().Span(0).right);
}

TEST_F(StatusBarTest, AMessageTakesThePlaceOfThePanesUntilItsTimeIsOver) {
  bar_.ShowMessage("Hello", 1);
  EXPECT_TRUE(bar_.Panes().ShowsMessage());
  EXPECT_EQ(bar_.Text(), "Hello");
  ASSERT_TRUE(PumpUntil([&] { return !bar_.Panes().ShowsMessage(); }));
  EXPECT_EQ(bar_.Text(), "");
}

TEST_F(StatusBarTest, ALaterMessageStopsTheTimeOfTheFirst) {
  constexpr UINT_PTR messageTimer = 1;
  bar_.ShowMessage("short", 100);
  bar_.ShowMessage("for good", 0);
  EXPECT_FALSE(::KillTimer(bar_.Handle(), messageTimer)) << "the first message would end the second";
  EXPECT_EQ(bar_.Text(), "for good");
}

TEST_F(StatusBarTest, NamesAMissingString) {
  bar_.ShowMessageId(kTextOutOfMemory, 5);
  EXPECT_EQ(bar_.Text(), "Out of memory on local heap");
  bar_.ShowMessageId(99, 5);
  EXPECT_EQ(bar_.Text(), "No resource string 99");
  bar_.ShowMessageId(0, 5);
  EXPECT_FALSE(bar_.Panes().ShowsMessage());
}

TEST_F(StatusBarTest, TheClockKeepsToTheRightAndTicks) {
  bar_.SwitchClock(true);
  bar_.SwitchClock(true);
  ::UpdateWindow(bar_.Handle());
  bar_.Send(kClockTick);
  RECT client = bar_.ClientRect();
  EXPECT_EQ(Dirty().right, client.right - 10);
  EXPECT_LT(Dirty().left, client.right - 20);
  bar_.SwitchClock(false);
  EXPECT_FALSE(bar_.HasClock());
}

TEST_F(StatusBarTest, CanBeMadeAnew) {
  int panes = bar_.Panes().Count();
  bar_.SwitchClock(true);
  bar_.Destroy();
  EXPECT_FALSE(bar_.HasClock());
  bar_.ShowMessage("nobody sees this", 5);
  ASSERT_TRUE(bar_.CreateBar(owner_.Handle()));
  EXPECT_EQ(bar_.Panes().Count(), panes);
  EXPECT_FALSE(bar_.Panes().ShowsMessage());
}

TEST_F(StatusBarTest, FollowsTheLockKeys) {
  ::SetForegroundWindow(owner_.Handle());
  ::SetFocus(owner_.Handle());
  std::string before = PaneTexts();
  bool caps = (::GetKeyState(VK_CAPITAL) & 1) != 0;
  auto press = [] {
    ::keybd_event(VK_CAPITAL, 0x3A, 0, 0);
    ::keybd_event(VK_CAPITAL, 0x3A, KEYEVENTF_KEYUP, 0);
  };
  press();
  EXPECT_TRUE(PumpUntil([&] { return (PaneTexts().find("Caps") != std::string::npos) != caps; }));
  press();
  EXPECT_TRUE(PumpUntil([&] { return PaneTexts() == before; }));
}

}  // namespace
}  // namespace tarrow
