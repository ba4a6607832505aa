#include "ui/bars/tool_bar.h"

#include "tests/window_pump.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <set>
#include <stdexcept>
#include <vector>

namespace tarrow {
namespace {

class CommandLog : public CWnd {
 public:
  CommandLog() {
    static const WindowClass windowClass{L"TarrowTestCommandLog"};
    WindowSpec spec;
    spec.style = WS_POPUP;
    spec.bounds = {20, 20, 900, 200};
    if (!Create(windowClass, spec)) throw std::runtime_error("no window");
    ::ShowWindow(Handle(), SW_SHOWNOACTIVATE);
  }
  std::vector<UINT> commands;

 private:
  bool RunCommand(UINT id, UINT, HWND, LRESULT&) override {
    commands.push_back(id);
    return true;
  }
};

class ToolBarTest : public testing::Test {
 protected:
  ToolBarTest() {
    auto query = [this](UINT id, CommandState& state) {
      state.enabled = !greyed_.contains(id);
      return true;
    };
    auto itemText = [](UINT id) { return std::string(CommandMenuText(static_cast<CommandId>(id))); };
    EXPECT_TRUE(bar_.CreateBar(owner_.Handle(), true, query, itemText));
    SetWidth(880);
  }
  void SetWidth(int width) { ::MoveWindow(bar_.Handle(), 0, 0, width, bar_.HeightFor(width), TRUE); }
  std::wstring TipOf(UINT_PTR button) const {
    NMTTDISPINFOW wanted{};
    wanted.hdr = {nullptr, button, static_cast<UINT>(TTN_GETDISPINFOW)};
    bar_.Send(WM_NOTIFY, button, reinterpret_cast<LPARAM>(&wanted));
    return wanted.lpszText ? wanted.lpszText : L"";
  }

  // A point on the n-th button from the left.
  static LPARAM OnButton(std::size_t n) {
    int size = 24, top = 2 + size / 2;
    return MAKELPARAM(PlaceButtons(true, {880, 2, size, 8})[n].left + size / 2, top);
  }
  void Move(LPARAM to) const { bar_.Send(WM_MOUSEMOVE, 0, to); }
  void Press(LPARAM at) const { bar_.Send(WM_LBUTTONDOWN, MK_LBUTTON, at); }
  void Release(LPARAM at) const {
    bar_.Send(WM_LBUTTONUP, 0, at);
    PumpMessages();
  }

  std::set<UINT> greyed_;
  CommandLog owner_;
  CToolBar bar_;
};

TEST_F(ToolBarTest, AButtonSendsItsCommandOnRelease) {
  Press(OnButton(1));
  EXPECT_EQ(::GetCapture(), bar_.Handle());
  EXPECT_TRUE(owner_.commands.empty());
  Release(OnButton(1));
  EXPECT_EQ(owner_.commands, std::vector<UINT>{kFileOpen});
  EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(ToolBarTest, ReleasedElsewhereItSendsNothing) {
  Press(OnButton(1));
  Move(OnButton(2));
  Release(OnButton(2));
  EXPECT_TRUE(owner_.commands.empty());
  EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(ToolBarTest, LosingTheMouseEndsThePress) {
  Press(OnButton(1));
  ::SetCapture(owner_.Handle());
  Release(OnButton(1));
  ::ReleaseCapture();
  EXPECT_TRUE(owner_.commands.empty());
}

TEST_F(ToolBarTest, AButtonThatCannotActIsDead) {
  greyed_.insert(kFileSave);
  Press(OnButton(2));
  Release(OnButton(2));
  EXPECT_TRUE(owner_.commands.empty()) << "asked anew at the press";
}

TEST_F(ToolBarTest, OnlyButtonsThatChangedArePainted) {
  ::UpdateWindow(bar_.Handle());
  bar_.UpdateButtons();
  EXPECT_FALSE(::GetUpdateRect(bar_.Handle(), nullptr, FALSE));
  greyed_.insert(kFileSave);
  bar_.UpdateButtons();
  RECT dirty{};
  EXPECT_TRUE(::GetUpdateRect(bar_.Handle(), &dirty, FALSE));
  EXPECT_EQ(dirty.right - dirty.left, 24);
}

TEST_F(ToolBarTest, TipsNameTheKey) {
  EXPECT_EQ(TipOf(0), L"New (Ctrl+N)");
  EXPECT_EQ(TipOf(1), L"Open (Ctrl+O)");
  EXPECT_EQ(TipOf(5), L"Cut (Ctrl+X)");
  EXPECT_EQ(TipOf(14), L"Window context (F1)");
}

TEST_F(ToolBarTest, ANarrowBarHasAnotherRow) {
  EXPECT_EQ(bar_.HeightFor(880), 2 + 24 + 2);
  EXPECT_EQ(bar_.HeightFor(2 + 21 * 24 + 2), 2 + 24 + 2);
  EXPECT_EQ(bar_.HeightFor(2 + 11 * 24 + 2), 2 + 2 * 24 + 2);
  SetWidth(2 + 11 * 24 + 2);
  LPARAM twelfth = MAKELPARAM(2 + 5, 2 + 24 + 5);
  Press(twelfth);
  Release(twelfth);
  EXPECT_EQ(owner_.commands, std::vector<UINT>{kSearchFind});
}

TEST_F(ToolBarTest, ProjectButtonsActWhileAProjectIsOpen) {
  Press(OnButton(20));
  Release(OnButton(20));
  EXPECT_TRUE(owner_.commands.empty());
  bar_.EnableProjectButtons(true);
  Press(OnButton(20));
  Release(OnButton(20));
  EXPECT_EQ(owner_.commands, std::vector<UINT>{kProjectDebug});
  bar_.ShowProjectButtons(false);
  Press(OnButton(20));
  Release(OnButton(20));
  EXPECT_EQ(owner_.commands.size(), 1u);
}

}  // namespace
}  // namespace tarrow
