#include "ui/selector/window_selector.h"

#include "tests/edit/documents/document_program.h"
#include "tests/window_pump.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tarrow {
namespace {

constexpr int kList = 101, kNumber = 102, kWheel = 103;

class TestChild final : public CMDIChildWnd {};

// Three windows, and a selector that is told when another becomes active.
class WindowSelectorTest : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* title : {"one.c", "two.c", "three.c"}) children_.push_back(Make(title));
    ASSERT_TRUE(selector_.Open(frame_, "Window Selector"));
    ReadOrder();
  }
  ~WindowSelectorTest() override {
    selector_.Destroy();
    for (TestChild* child : children_) child->Destroy();
  }

  TestChild* Make(const char* title) {
    static const WindowClass windowClass{L"TarrowTestChild"};
    auto* child = new TestChild;  // belongs to its window
    EXPECT_TRUE(child->CreateChild(frame_, windowClass, title, 0, false));
    return child;
  }
  // The children in the order of their numbers: that of the z-order when the selector was opened.
  void ReadOrder() {
    ordered_.clear();
    frame_.ForEachChild([this](CMDIChildWnd& child) {
      ordered_.push_back(&child);
      return true;
    });
  }
  std::string Row(int row) const {
    wchar_t text[100] = L"";
    ::SendMessageW(Item(kList), LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
    std::wstring wide(text);
    return {wide.begin(), wide.end()};
  }
  std::string Number() const {
    wchar_t text[20] = L"";
    ::GetWindowTextW(Item(kNumber), text, 20);
    std::wstring wide(text);
    return {wide.begin(), wide.end()};
  }
  // The number of the active window; the selector is told of it as the frame does.
  int Active() {
    CMDIChildWnd* active = frame_.ActiveChild();
    selector_.Select(*active);
    return static_cast<int>(std::ranges::find(ordered_, active) - ordered_.begin()) + 1;
  }
  void Type(const wchar_t* text) {
    ::SendMessageW(Item(kNumber), EM_SETSEL, 0, -1);
    for (; *text; ++text) ::SendMessageW(Item(kNumber), WM_CHAR, *text, 0);
  }
  HWND Item(int id) const { return ::GetDlgItem(selector_.Handle(), id); }
  void Turn(int delta) {
    NMUPDOWN notification{{Item(kWheel), kWheel, UDN_DELTAPOS}, 0, delta};
    selector_.Send(WM_NOTIFY, kWheel, reinterpret_cast<LPARAM>(&notification));
  }

  FakeFrame frame_;
  std::vector<TestChild*> children_;
  std::vector<CMDIChildWnd*> ordered_;
  CWinSelector selector_;
};

TEST_F(WindowSelectorTest, NumbersTheWindowsAndFollowsTheActiveOne) {
  EXPECT_EQ(Row(0), "1  " + ordered_[0]->Text());
  EXPECT_EQ(Row(2), "3  " + ordered_[2]->Text());
  EXPECT_EQ(Number(), std::to_string(Active()));
  frame_.ActivateChild(*ordered_[1]);
  EXPECT_EQ(Active(), 2);
  EXPECT_EQ(Number(), "2");
  EXPECT_EQ(::SendMessageW(Item(kList), LB_GETCURSEL, 0, 0), 1);
}

TEST_F(WindowSelectorTest, GoesToTheWindowWhoseNumberIsTyped) {
  Type(L"3");
  EXPECT_EQ(Active(), 3);
  Type(L"x2y");
  EXPECT_EQ(Number(), "2") << "letters are refused";
  EXPECT_EQ(Active(), 2);
  Type(L"7");
  EXPECT_EQ(Active(), 2) << "there is no such window";
}

TEST_F(WindowSelectorTest, StepsWithTheWheelAndTheArrows) {
  Type(L"1");
  Active();
  Turn(-1);
  EXPECT_EQ(Active(), 2) << "the lower arrow goes down the list";
  Turn(1);
  Turn(1);
  EXPECT_EQ(Active(), 1) << "the selector is told but once";
  ::SendMessageW(Item(kNumber), WM_KEYDOWN, VK_UP, 0);
  EXPECT_EQ(Active(), 3) << "going round";
  ::SendMessageW(Item(kNumber), WM_KEYDOWN, VK_DOWN, 0);
  EXPECT_EQ(Active(), 1);
}

TEST_F(WindowSelectorTest, WindowsThatGoMoveTheOthersUp) {
  std::string last = ordered_[2]->Text();
  selector_.Remove(*ordered_[1]);
  EXPECT_EQ(::SendMessageW(Item(kList), LB_GETCOUNT, 0, 0), 2);
  EXPECT_EQ(Row(1), "2  " + last);
  ordered_[2]->SetText("new name.c");
  selector_.Retitle(*ordered_[2]);
  EXPECT_EQ(Row(1), "2  new name.c");
  selector_.Add(*ordered_[1]);
  EXPECT_EQ(Row(2), "3  " + ordered_[1]->Text());
}

TEST_F(WindowSelectorTest, PastesTheDigitsOnly) {
  constexpr wchar_t kText[] = L"no. 2!";
  ASSERT_TRUE(::OpenClipboard(selector_.Handle()));
  ::EmptyClipboard();
  HGLOBAL data = ::GlobalAlloc(GMEM_MOVEABLE, sizeof kText);
  std::copy(std::begin(kText), std::end(kText), static_cast<wchar_t*>(::GlobalLock(data)));
  ::GlobalUnlock(data);
  ::SetClipboardData(CF_UNICODETEXT, data);
  ::CloseClipboard();
  ::SendMessageW(Item(kNumber), EM_SETSEL, 0, -1);
  ::SendMessageW(Item(kNumber), WM_PASTE, 0, 0);
  EXPECT_EQ(Number(), "2");
  EXPECT_EQ(Active(), 2);
}

}  // namespace
}  // namespace tarrow
