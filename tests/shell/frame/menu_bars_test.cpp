#include "shell/frame/menu_bars.h"

#include "framework/unicode.h"
#include "ui/commands/commands.h"
#include "ui/commands/menus.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace tarrow {
namespace {

class BareFrame : public CMDIFrameWnd {
 public:
  BareFrame() {
    static constexpr WindowClass kClass{L"TarrowTestBareFrame"};
    WindowSpec spec;
    spec.style = WS_OVERLAPPEDWINDOW;
    spec.menuOrId = menus.Installed();
    made = CreateFrame(kClass, spec) && CreateClient(nullptr);
  }
  ~BareFrame() override {
    menus.ReleaseInstalled();
    Destroy();
  }
  MenuBars menus;
  bool made = false;
};

constexpr WindowClass kChildClass{L"TarrowTestBareChild"};

class BareChild : public CMDIChildWnd {
 public:
  bool IsUnsaved() const override { return isUnsaved; }
  bool isUnsaved = false;
};

std::vector<std::string> Texts(HMENU menu) {
  std::vector<std::string> texts;
  for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
    std::array<wchar_t, 256> text{};
    ::GetMenuStringW(menu, static_cast<UINT>(i), text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
    texts.push_back(ToUtf8(text.data()));
  }
  return texts;
}

TEST(MenuBars, ShowsOneBarAndThenTheOther) {
  BareFrame frame;
  ASSERT_TRUE(frame.made);
  EXPECT_EQ(5, ::GetMenuItemCount(::GetMenu(frame.Handle())));
  EXPECT_TRUE(frame.menus.Show(frame, MenuBar::kEdit));
  EXPECT_EQ(8, ::GetMenuItemCount(::GetMenu(frame.Handle())));
  EXPECT_FALSE(frame.menus.Show(frame, MenuBar::kEdit));

  frame.menus.EnableProject(frame, false);
  UINT state = ::GetMenuState(::GetMenu(frame.Handle()), kEditProjectPopup, MF_BYPOSITION);
  EXPECT_TRUE(state & MF_GRAYED);
}

TEST(MenuBars, MarksTheWindowsThatAreNotSaved) {
  BareFrame frame;
  frame.menus.Show(frame, MenuBar::kEdit);
  HMENU windows = ::GetSubMenu(::GetMenu(frame.Handle()), kEditWindowPopup);
  std::vector<BareChild*> children;
  for (int i = 0; i < 12; ++i) {  // more than the list has room for
    children.push_back(new BareChild);
    ASSERT_TRUE(children.back()->CreateChild(frame, kChildClass, "c:\\file" + std::to_string(i), 0, false));
  }
  auto marked = [&] {
    MenuBars::MarkUnsaved(frame, windows);
    std::string names;
    for (const std::string& text : Texts(windows))
      if (text.ends_with(" *")) names += text + ";";
    return names;
  };
  EXPECT_EQ(marked(), "");
  for (int i : {1, 7, 11}) children[static_cast<std::size_t>(i)]->isUnsaved = true;
  for (int times = 0; times < 2; ++times) {
    EXPECT_NE(marked().find("c:\\file1 *;"), std::string::npos);
    EXPECT_NE(marked().find("c:\\file7 *;"), std::string::npos);
  }
  EXPECT_EQ(children[1]->Text(), "c:\\file1");
  children[1]->isUnsaved = false;
  EXPECT_EQ(marked().find("c:\\file1 "), std::string::npos);
}

TEST(MenuBars, ListsWindowsThatWereOpenBeforeTheBar) {
  BareFrame frame;
  ASSERT_TRUE(frame.made);
  auto* child = new BareChild;  // belongs to its window
  ASSERT_TRUE(child->CreateChild(frame, kChildClass, "first.c", WS_VISIBLE, false));
  frame.menus.Show(frame, MenuBar::kEdit);
  EXPECT_EQ("&1 first.c", Texts(::GetSubMenu(::GetMenu(frame.Handle()), kEditWindowPopup)).back());
}

TEST(MenuBars, ListsTheRecentFilesBeforeExitInBothBars) {
  BareFrame frame;
  HMENU file = ::GetSubMenu(::GetMenu(frame.Handle()), 0);
  std::vector<std::string> without = Texts(file);

  frame.menus.SetRecentFiles({"c:\\a&b.c", "c:\\second.c"});
  std::vector<std::string> with = Texts(file);
  ASSERT_EQ(without.size() + 3, with.size());
  EXPECT_EQ("&1 c:\\a&&b.c", with[with.size() - 4]);
  EXPECT_EQ("&2 c:\\second.c", with[with.size() - 3]);
  EXPECT_EQ("", with[with.size() - 2]);
  EXPECT_EQ(without.back(), with.back());

  frame.menus.SetRecentFiles({"c:\\only.c"});
  EXPECT_EQ(without.size() + 2, Texts(file).size());
  frame.menus.SetRecentFiles({});
  EXPECT_EQ(without, Texts(file));
}

TEST(MenuBars, RewritesTheKeyOfACommandInBothBars) {
  BareFrame frame;
  frame.menus.SetKeyText(kFileNew, "\tCtrl+Alt+N");
  EXPECT_EQ("&New\tCtrl+Alt+N", Texts(::GetSubMenu(::GetMenu(frame.Handle()), 0)).front());
  frame.menus.Show(frame, MenuBar::kEdit);
  EXPECT_EQ("&New\tCtrl+Alt+N", Texts(::GetSubMenu(::GetMenu(frame.Handle()), 0)).front());
  frame.menus.SetKeyText(kFileNew, "");
  EXPECT_EQ("&New", Texts(::GetSubMenu(::GetMenu(frame.Handle()), 0)).front());
}

TEST(MenuBars, GreysAndChecksItemsAsTheyAre) {
  BareFrame frame;
  HMENU popup = frame.menus.Popup();
  MenuBars::Update(popup, [](UINT id, CommandState& state) {
    state = {id != kEditCopy, id == kEditUndo};
    return id != kEditPaste;
  });
  EXPECT_TRUE(::GetMenuState(popup, kEditCopy, MF_BYCOMMAND) & MF_GRAYED);
  EXPECT_TRUE(::GetMenuState(popup, kEditPaste, MF_BYCOMMAND) & MF_GRAYED);  // nobody knows it
  EXPECT_EQ(0u, ::GetMenuState(popup, kEditCut, MF_BYCOMMAND) & MF_GRAYED);
  EXPECT_TRUE(::GetMenuState(popup, kEditUndo, MF_BYCOMMAND) & MF_CHECKED);
}

}  // namespace
}  // namespace tarrow
