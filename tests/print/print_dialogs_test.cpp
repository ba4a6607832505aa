#include "base/exceptions.h"
#include "print/page_setup_dialog.h"
#include "print/printing_dialog.h"
#include "resources/resource.h"
#include "tests/fakes/fake_program.h"
#include "tests/window_pump.h"
#include "ui/program/string_ids.h"
#include "ui/settings/font_choice.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

// The dialogs run modeless here, so that a test drives them with the messages of their controls.
class PageSetupDialogTest : public testing::Test {
 protected:
  void Open(const LengthFormat& lengths) {
    dialog_ = std::make_unique<CPageSetupDialog>(messages_, help_, lengths, setup_);
    ASSERT_TRUE(dialog_->CreateModeless(nullptr));
  }
  void Click(int id) { ::SendMessageW(dialog_->Item(id), BM_CLICK, 0, 0); }

  FakeMessages messages_;
  FakeHelp help_;
  PageSetup setup_{{250, 253, 254, 381}, "&f", "Page &p"};
  std::unique_ptr<CPageSetupDialog> dialog_;
};

TEST_F(PageSetupDialogTest, ShowsTheMarginsInTheMeasureOfTheRegion) {
  struct Case {
    LengthFormat lengths;
    const char *title, *left, *top, *right, *bottom;
  };
  const Case kCases[] = {{{true, ","}, "Margins (cm)", "2,50", "2,53", "2,54", "3,81"},
                         {{false, "."}, "Margins (inches)", "0.98", "1.00", "1.00", "1.50"}};
  for (const Case& c : kCases) {
    Open(c.lengths);
    EXPECT_EQ(dialog_->ItemText(IDC_MARGINS), c.title);
    EXPECT_EQ(dialog_->ItemText(IDC_MARGIN_LEFT), c.left);
    EXPECT_EQ(dialog_->ItemText(IDC_MARGIN_TOP), c.top);
    EXPECT_EQ(dialog_->ItemText(IDC_MARGIN_RIGHT), c.right);
    EXPECT_EQ(dialog_->ItemText(IDC_MARGIN_BOTTOM), c.bottom);
    EXPECT_EQ(dialog_->ItemText(IDC_PAGE_HEADER), "&f");
    EXPECT_EQ(dialog_->ItemText(IDC_PAGE_FOOTER), "Page &p");
    dialog_->Close(IDCANCEL);
  }
}

TEST_F(PageSetupDialogTest, OkTakesWhatTheFieldsSay) {
  Open({true, "."});
  const std::pair<int, const char*> kTexts[] = {{IDC_MARGIN_LEFT, "1"},  {IDC_MARGIN_TOP, "2.5"},
                                                {IDC_MARGIN_RIGHT, "3"}, {IDC_MARGIN_BOTTOM, "0.04"},
                                                {IDC_PAGE_HEADER, ""},   {IDC_PAGE_FOOTER, "&d"}};
  for (auto [id, text] : kTexts) dialog_->SetItemText(id, text);
  Click(IDOK);
  EXPECT_FALSE(dialog_->Exists());
  EXPECT_EQ(setup_, (PageSetup{{100, 250, 300, 4}, "", "&d"}));
}

TEST_F(PageSetupDialogTest, AnInvalidMarginKeepsItOpen) {
  PageSetup before = setup_;
  for (int field : {IDC_MARGIN_LEFT, IDC_MARGIN_RIGHT, IDC_MARGIN_TOP, IDC_MARGIN_BOTTOM}) {
    Open({false, "."});
    dialog_->SetItemText(field, "1,5");
    messages_.boxes.clear();
    Click(IDOK);
    ASSERT_TRUE(dialog_->Exists());
    EXPECT_EQ(messages_.boxes, std::vector<int>{kTextBadMargin});
    EXPECT_EQ(::GetFocus(), dialog_->Item(field));
    EXPECT_EQ(setup_, before);
    dialog_->Close(IDCANCEL);
  }
}

TEST_F(PageSetupDialogTest, HelpOpensItsTopic) {
  Open({});
  Click(IDC_HELP_BUTTON);
  EXPECT_EQ(help_.topics, std::vector<unsigned>{45});
  dialog_->Close(IDCANCEL);
}

class PrintingDialogTest : public testing::Test {
 protected:
  PrintingDialogTest()
      : owner_(::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED | WS_VISIBLE, 0, 0, 100, 100, nullptr,
                                 nullptr, nullptr, nullptr)) {}
  ~PrintingDialogTest() override { ::DestroyWindow(owner_); }

  HWND owner_;
};

TEST_F(PrintingDialogTest, TellsWhatIsPrintedWhere) {
  CPrintingDialog dialog("a & b.txt", {"Laser", "winspool", "LPT1:"});
  dialog.Open(owner_);
  ASSERT_TRUE(dialog.Exists());
  EXPECT_EQ(dialog.ItemText(IDC_PRINT_DOCUMENT), "a & b.txt");
  EXPECT_EQ(dialog.ItemText(IDC_PRINT_PRINTER), "Laser");
  EXPECT_EQ(dialog.ItemText(IDC_PRINT_PORT), "LPT1:");
  dialog.ShowPage(12);
  EXPECT_EQ(dialog.ItemText(IDC_PRINT_PAGE), "Page 12");
}

TEST_F(PrintingDialogTest, TheOwnerCannotBeUsedMeanwhile) {
  {
    CPrintingDialog dialog("a.txt", {});
    dialog.Open(owner_);
    EXPECT_FALSE(::IsWindowEnabled(owner_));
    dialog.Poll();
  }
  EXPECT_TRUE(::IsWindowEnabled(owner_));
}

TEST_F(PrintingDialogTest, CancelAndEscapeEndTheJob) {
  for (WPARAM key : {WPARAM{0}, WPARAM{VK_ESCAPE}}) {
    CPrintingDialog dialog("a.txt", {});
    dialog.Open(owner_);
    dialog.Poll();
    HWND button = dialog.Item(IDCANCEL);
    if (key)
      ::PostMessageW(button, WM_KEYDOWN, key, 0);
    else
      ::PostMessageW(button, BM_CLICK, 0, 0);
    EXPECT_THROW(
        {
          for (int i = 0; i < 100; ++i) dialog.Poll();
        },
        CYieldException);
    EXPECT_TRUE(dialog.IsCancelled());
  }
}

// What is posted for the document waits until the job is done.
TEST_F(PrintingDialogTest, NothingElseIsDispatched) {
  CPrintingDialog dialog("a.txt", {});
  dialog.Open(owner_);
  ::PostMessageW(owner_, WM_CLOSE, 0, 0);
  for (int i = 0; i < 10; ++i) dialog.Poll();
  EXPECT_TRUE(::IsWindow(owner_));
  MSG message;
  EXPECT_TRUE(::PeekMessageW(&message, owner_, WM_CLOSE, WM_CLOSE, PM_REMOVE));
}

TEST(PrinterFont, IsTenPointsWithoutAChoice) {
  LOGFONTW font = PrinterLogFont({}, 600);
  EXPECT_EQ(font.lfHeight, -83);
  EXPECT_EQ(font.lfPitchAndFamily & 3, FIXED_PITCH);
  EXPECT_NE(font.lfFaceName[0], L'\0');
}

TEST(PrinterFont, HasTheHeightOfTheChoiceAsItIs) {
  for (int height : {-83, 100}) {
    LOGFONTW font = PrinterLogFont({"Courier New", height, 700, true}, 600);
    EXPECT_EQ(font.lfHeight, height);
    EXPECT_EQ(font.lfWeight, 700);
    EXPECT_TRUE(font.lfItalic);
    EXPECT_STREQ(font.lfFaceName, L"Courier New");
  }
}

}  // namespace
}  // namespace tarrow
