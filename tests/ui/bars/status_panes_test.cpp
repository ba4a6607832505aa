#include "ui/bars/status_panes.h"

#include "ui/bars/clock_format.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

// Every character is ten pixels wide.
StatusPanes TenPixelPanes() {
  return StatusPanes([](std::string_view text) { return static_cast<int>(text.size()) * 10; },
                     [](int pixels) { return pixels; });
}

TEST(StatusPanes, StandBesideEachOtherAsWideAsTheirWidestText) {
  StatusPanes panes = TenPixelPanes();
  int caret = panes.AddCaret();
  int mode = panes.AddTwoState("Ins", "Ovr");
  int words = panes.AddWords(" ,Align,Indent");
  EXPECT_EQ(panes.Span(caret).left, 10);
  EXPECT_EQ(panes.Span(caret).right, 10 + 150 + 1);
  EXPECT_EQ(panes.Span(mode).left, 161 + 5);
  EXPECT_EQ(panes.Span(mode).right, 166 + 30 + 1);
  EXPECT_EQ(panes.Span(words).right - panes.Span(words).left, 61);
}

TEST(StatusPanes, RefuseTheTwelfth) {
  StatusPanes panes = TenPixelPanes();
  for (int i = 0; i < StatusPanes::kMaxPanes; ++i) EXPECT_EQ(panes.AddTwoState("", "x"), i);
  EXPECT_EQ(panes.AddTwoState("", "x"), -1);
  EXPECT_EQ(panes.AddCaret(), -1);
  EXPECT_FALSE(panes.SetState(-1, 0));
}

TEST(StatusPanes, ShowWhatTheirStateSays) {
  StatusPanes panes = TenPixelPanes();
  int caret = panes.AddCaret();
  int mode = panes.AddTwoState("Ins", "Ovr");
  int words = panes.AddWords(" ,Align,Indent");
  EXPECT_EQ(panes.Text(caret), "");
  EXPECT_EQ(panes.Text(mode), "");
  EXPECT_TRUE(panes.SetState(mode, 1));
  EXPECT_FALSE(panes.SetState(mode, 1));
  EXPECT_TRUE(panes.SetState(words, 2));
  EXPECT_TRUE(panes.SetCaret(12, 3));
  EXPECT_FALSE(panes.SetCaret(12, 3));
  EXPECT_EQ(panes.Text(caret), "12 : 3");
  EXPECT_EQ(panes.Text(mode), "Ovr");
  EXPECT_EQ(panes.Text(words), "Indent");
  panes.SetState(words, 3);
  panes.SetCaret(0, 0);
  EXPECT_EQ(panes.Text(words), "");
  EXPECT_EQ(panes.Text(caret), "");
}

TEST(StatusPanes, ShowAnyTextInATextPane) {
  StatusPanes panes = TenPixelPanes();
  int task = panes.AddText("Build 0:00");
  EXPECT_EQ(panes.Span(task).right - panes.Span(task).left, 101);
  EXPECT_EQ(panes.Text(task), "");
  EXPECT_TRUE(panes.SetText(task, "Link 0:01"));
  EXPECT_FALSE(panes.SetText(task, "Link 0:01"));
  EXPECT_EQ(panes.Text(task), "Link 0:01");
  EXPECT_FALSE(panes.SetText(-1, "x"));
}

TEST(ClockFormat, FollowsTheRegion) {
  ClockFormat twelve;
  EXPECT_EQ(twelve.Text(9, 5), "9:05 am");
  EXPECT_EQ(twelve.Text(0, 0), "12:00 am");
  EXPECT_EQ(twelve.Text(12, 30), "12:30 pm");
  EXPECT_EQ(twelve.Text(23, 59), "11:59 pm");
  EXPECT_EQ(twelve.WidestMorning(), "23:59 am");
  EXPECT_EQ(twelve.WidestAfternoon(), "23:59 pm");
  ClockFormat dotted{".", false, "am", "pm"};
  EXPECT_EQ(dotted.Text(9, 5), "9.05");
  EXPECT_EQ(dotted.Text(0, 0), "0.00");
  EXPECT_EQ(dotted.WidestMorning(), "23.59");
}

}  // namespace
}  // namespace tarrow
