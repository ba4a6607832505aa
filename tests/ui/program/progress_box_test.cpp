#include "ui/program/progress_box.h"

#include "base/exceptions.h"
#include "resources/resource.h"
#include "tests/edit/documents/document_program.h"

#include <gtest/gtest.h>

#include <commctrl.h>

namespace tarrow {
namespace {

class ProgressBoxTest : public testing::Test {
 protected:
  void SetUp() override { ::ShowWindow(program_.frame.Handle(), SW_SHOW); }

  // Polls as an engine does until `condition` holds; false when it does not within ten seconds.
  template <typename Condition>
  [[nodiscard]] bool PollUntil(CProgressBox& box, Condition condition) {
    auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
      if (std::chrono::steady_clock::now() > limit) return false;
      box.Poll();
    }
    return true;
  }
  [[nodiscard]] bool PollUntilShown(CProgressBox& box) {
    return PollUntil(box, [&] { return box.Exists(); });
  }
  bool IsFrameEnabled() const { return ::IsWindowEnabled(program_.frame.Handle()) != 0; }

  DocumentProgram program_;
};

TEST_F(ProgressBoxTest, ShowsNothingOfWhatIsQuick) {
  CProgressBox box(program_.frame.Handle(), "quick");
  for (int i = 0; i < 1000; ++i) box.Poll();
  EXPECT_FALSE(box.Exists());
  EXPECT_TRUE(IsFrameEnabled());
}

TEST_F(ProgressBoxTest, ShowsWhatIsDoneAndKeepsTheFrameDisabled) {
  {
    CProgressBox box(program_.frame.Handle(), "COMPARING FILES");
    box.SetWhole(200);
    ASSERT_TRUE(PollUntilShown(box));
    EXPECT_FALSE(IsFrameEnabled());
    EXPECT_EQ(box.ItemText(IDC_PROGRESS_TEXT), "COMPARING FILES");
    box.SetWork("c:\\src\\a.c");
    box.SetCounts([] { return std::string("3 files"); });
    box.SetDone(100);
    auto position = [&] { return ::SendMessageW(box.Item(IDC_PROGRESS_BAR), PBM_GETPOS, 0, 0); };
    EXPECT_TRUE(PollUntil(box, [&] { return position() == 500; }));
    EXPECT_EQ(box.ItemText(IDC_PROGRESS_WORK), "c:\\src\\a.c");
    EXPECT_EQ(box.ItemText(IDC_PROGRESS_COUNTS), "3 files");
  }
  EXPECT_TRUE(IsFrameEnabled());
}

TEST_F(ProgressBoxTest, CancelEndsTheWork) {
  CProgressBox box(program_.frame.Handle(), "work");
  ASSERT_TRUE(PollUntilShown(box));
  ::PostMessageW(box.Item(IDCANCEL), BM_CLICK, 0, 0);
  EXPECT_THROW((void)PollUntil(box, [] { return false; }), CYieldException);
}

TEST_F(ProgressBoxTest, EscapeEndsTheWorkBeforeTheBoxIsShownAndAfter) {
  for (bool shown : {false, true}) {
    CProgressBox box(program_.frame.Handle(), "work");
    ASSERT_TRUE(!shown || PollUntilShown(box));
    ::PostMessageW(shown ? box.Handle() : program_.frame.Handle(), WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_THROW((void)PollUntil(box, [] { return false; }), CYieldException) << shown;
  }
}

TEST_F(ProgressBoxTest, PaintsTheOtherWindowsAndKeepsTheirInput) {
  CProgressBox box(program_.frame.Handle(), "work");
  ASSERT_TRUE(PollUntilShown(box));
  ::PostMessageW(program_.frame.Handle(), WM_APP, 0, 0);
  program_.frame.Invalidate();
  EXPECT_TRUE(PollUntil(box, [&] { return !::GetUpdateRect(program_.frame.Handle(), nullptr, FALSE); }));
  MSG message;
  EXPECT_TRUE(::PeekMessageW(&message, program_.frame.Handle(), WM_APP, WM_APP, PM_REMOVE));
}

}  // namespace
}  // namespace tarrow
