#include "edit/documents/log.h"

#include "tests/edit/documents/document_program.h"
#include "tests/window_pump.h"
#include "ui/commands/commands.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

class LogTest : public testing::Test {
 protected:
  ~LogTest() override {
    if (log_) log_->Destroy();
  }
  void Open(PlaceFinder finder = FirstPlace) {
    log_ = CTwLog::New(program_.services, "GREP x", std::move(finder));
    ASSERT_TRUE(log_);
  }
  static std::optional<SourcePlace> FirstPlace(const LineReader& lines, std::int64_t line) {
    return ParseSourcePlace(lines(line));
  }
  void Write(std::string_view text) { log_->Sink().Write(text); }
  std::string Text() const { return log_->Control().View().Copy(); }
  void Run(UINT id) { log_->Send(WM_COMMAND, id); }
  std::vector<std::string> Opened() {
    PumpMessages();
    std::vector<std::string> places;
    for (const auto& [place, directory] : program_.documents.places)
      places.push_back(place.name + ":" + std::to_string(place.position));
    return places;
  }

  DocumentProgram program_;
  CTwLog* log_ = nullptr;  // belongs to its window
};

TEST_F(LogTest, ShowsWhatIsWrittenAndStaysClean) {
  Open();
  std::string all;
  for (int i = 0; i < 50000; ++i) all += "a.c(" + std::to_string(i) + "): line\r\n";
  for (std::size_t at = 0; at < all.size(); at += 999) Write(std::string_view(all).substr(at, 999));
  log_->Finish();
  EXPECT_EQ(Text(), all);
  EXPECT_FALSE(log_->Has(kModified));
  EXPECT_TRUE(log_->Has(kReadOnly));
  EXPECT_TRUE(log_->Has(kUntitled)) << "it is in no session";
  EXPECT_FALSE(log_->Control().CanUndo());
  EXPECT_EQ(log_->Control().Selection(), TextRange{}) << "and shows its start";
}

TEST_F(LogTest, LeavesTheCaretWhereTheUserHasPutIt) {
  Open();
  Write(std::string(3 << 20, 'x') + "\r\n");
  log_->Control().Select(BytePos(5), BytePos(5));
  Write(std::string(3 << 20, 'y'));
  log_->Finish();
  EXPECT_EQ(log_->Control().Caret(), BytePos(5));
  EXPECT_EQ(log_->Control().TopLine(), LineNo(0));
}

TEST_F(LogTest, KnowsTheCharactersOfWhatComes) {
  Open();
  Write("plain\r\n");
  Write("\xC3\xA4\r\n");
  log_->Finish();
  EXPECT_TRUE(log_->Control().TextCharset().IsUtf8());
  Write("\xE4\r\n");
  log_->Finish();
  EXPECT_FALSE(log_->Control().TextCharset().IsUtf8());
}

TEST_F(LogTest, RefusesToBeEditedAndShowsItsHelp) {
  Open();
  for (UINT id : {kEditUndo, kEditCut, kEditPaste, kEditShiftLeft, kEditShiftRight}) {
    CommandState state;
    EXPECT_TRUE(log_->QueryCommand(id, state) && !state.enabled);
    Run(id);
  }
  EXPECT_EQ(program_.messages.alerts, std::vector<UINT>(5, MB_ICONEXCLAMATION));
  Run(kHelpOnWord);
  EXPECT_EQ(program_.help.topics, std::vector<unsigned>{5});
}

TEST_F(LogTest, GoesToThePlaceOfALineByCommandAndClicks) {
  Open();
  Write("none\r\na.c(12): x\r\nb.c(7)\r\n");
  log_->Finish();
  Run(kSearchGotoLine);
  EXPECT_EQ(program_.messages.alerts, std::vector<UINT>{MB_ICONEXCLAMATION});
  TextControl& control = log_->Control();
  control.Select(BytePos(8), BytePos(8));
  Run(kSearchGotoLine);
  EXPECT_EQ(control.Selection(), (TextRange{BytePos(6), BytePos(18)})) << "the whole line";
  EXPECT_EQ(Opened(), std::vector<std::string>{"a.c:12"});
  EXPECT_EQ(program_.documents.places[0].second, log_->Directory());

  POINT at = control.PointOf(BytePos(20));
  control.Send(WM_RBUTTONDOWN, 0, MAKELPARAM(at.x, at.y));
  EXPECT_EQ(Opened().back(), "b.c:7");
  at = control.PointOf(BytePos(8));
  control.Send(WM_LBUTTONDBLCLK, 0, MAKELPARAM(at.x, at.y));
  EXPECT_EQ(Opened(), (std::vector<std::string>{"a.c:12", "b.c:7", "a.c:12"}));
}

TEST_F(LogTest, WithoutPlacesItIsAPlainText) {
  Open(nullptr);
  Write("a.c(12)\r\n");
  log_->Finish();
  CommandState state;
  EXPECT_TRUE(log_->QueryCommand(kSearchGotoLine, state) && !state.enabled);
  POINT at = log_->Control().PointOf(BytePos(1));
  log_->Control().Send(WM_LBUTTONDBLCLK, 0, MAKELPARAM(at.x, at.y));
  EXPECT_TRUE(Opened().empty());
}

}  // namespace
}  // namespace tarrow
