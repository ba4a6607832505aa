// What the control draws step by step is what it draws when everything is drawn anew.
#include "edit/lexers/lexers.h"
#include "framework/handle.h"
#include "tests/edit/control/control_host.h"

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

namespace tarrow {
namespace {

using Picture = std::vector<std::uint32_t>;

Picture PictureOf(HWND window) {
  RECT client{};
  ::GetClientRect(window, &client);
  BITMAPINFO info{};
  info.bmiHeader = {sizeof info.bmiHeader, client.right, -client.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  ClientDc from(window);
  MemoryDcHandle to(::CreateCompatibleDC(from));
  BitmapHandle bitmap(::CreateDIBSection(from, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  SelectedObject selected(to.Get(), bitmap.Get());
  ::BitBlt(to.Get(), 0, 0, client.right, client.bottom, from, 0, 0, SRCCOPY);
  ::GdiFlush();
  auto pixels = static_cast<const std::uint32_t*>(bits);
  return Picture(pixels, pixels + client.right * client.bottom);
}

// The box of the pixels in which two pictures of a width of `width` differ, for a failure's message.
std::string Difference(const Picture& a, const Picture& b, std::size_t width) {
  std::size_t left = width, right = 0, top = a.size(), bottom = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] == b[i]) continue;
    left = std::min(left, i % width);
    right = std::max(right, i % width);
    top = std::min(top, i / width);
    bottom = i / width;
  }
  return std::to_string(left) + "," + std::to_string(top) + " to " + std::to_string(right) + "," +
         std::to_string(bottom);
}

class PaintedHost : public ControlHost {
 public:
  PaintedHost() {
    ::SetFocus(nullptr);  // no caret: it blinks
    ::ShowWindow(Handle(), SW_SHOWNOACTIVATE);
    PumpMessages();
  }
  Picture Drawn() const {
    ::UpdateWindow(control.Handle());
    return PictureOf(control.Handle());
  }
  Picture DrawnAnew() const {
    control.Invalidate();
    return Drawn();
  }
};

std::string SampleText() {
  std::string text;
  for (int i = 0; i < 60; ++i)
    text += std::string(static_cast<std::size_t>(i % 7), '\t') + "line " + std::to_string(i) +
            " caf\xC3\xA9 " + std::string(static_cast<std::size_t>(i * 37 % 120), 'w') + "\r\n";
  return text;
}

TEST(TextControlPaint, ShowsTextAndSelection) {
  PaintedHost host;
  Picture empty = host.Drawn();
  host.SetText("text");
  Picture text = host.Drawn();
  EXPECT_NE(empty, text);
  host.control.Select(BytePos(0), BytePos(4));
  EXPECT_NE(text, host.Drawn());
  host.control.Select(BytePos(0), BytePos(0));
  EXPECT_EQ(text, host.Drawn());
  host.control.Select(BytePos(0), BytePos(4));
  host.control.Clear();
  EXPECT_EQ(empty, host.Drawn());
}

// The first and the last column of pixels in which two pictures of a control differ.
std::pair<LONG, LONG> ColumnsThatDiffer(const Picture& a, const Picture& b, LONG width) {
  std::pair<LONG, LONG> columns{width, -1};
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] == b[i]) continue;
    LONG column = static_cast<LONG>(i) % width;
    columns = {std::min(columns.first, column), std::max(columns.second, column)};
  }
  return columns;
}

TEST(TextControlPaint, AMarkIsDrawnOverItsLetter) {
  PaintedHost host;
  host.SetText("axe z");
  Picture plain = host.Drawn();
  host.SetText("axe\xCC\x81 z");
  Picture marked = host.Drawn();
  auto [first, last] = ColumnsThatDiffer(plain, marked, host.control.ClientRect().right);
  EXPECT_LE(first, last) << "the mark is not drawn at all";
  EXPECT_GE(first, host.control.PointOf(BytePos(2)).x);
  EXPECT_LT(last, host.control.PointOf(BytePos(3)).x);
}

BytePos SomePlace(const ControlHost& host, std::mt19937& random) {
  return BytePos(
      static_cast<std::int64_t>(random() % static_cast<unsigned>(host.control.Buffer().Size() + 1)));
}

void SelectSomewhere(ControlHost& host, std::mt19937& random) {
  BytePos at = SomePlace(host, random);
  host.control.Select(at, at + static_cast<int>(random() % 3 * 70));
}

void Scroll(ControlHost& host, std::mt19937& random) {
  host.control.ScrollBy(static_cast<int>(random() % 9) - 4, static_cast<int>(random() % 9) - 4);
}

void ReplaceSomewhere(ControlHost& host, std::mt19937& random) {
  BytePos at = SomePlace(host, random);
  host.control.Replace({at, at}, "\r\nnew\r\n");
}

void IndentTheFirstLines(ControlHost& host, std::mt19937&) {
  EditList edits;
  for (LineNo line(0); line < std::min(LineNo(5), host.control.Buffer().LineCount()); ++line) {
    BytePos at = host.control.Buffer().LineStart(line);
    edits.Add({at, at}, "  ");
  }
  host.control.Apply(edits, host.control.Selection());
}

struct Step {
  const char* name;
  void (*act)(ControlHost& host, std::mt19937& random);
};
constexpr Step kSteps[] = {
    {"typing", [](ControlHost& host, std::mt19937&) { host.Type(u"ab\u00E9"); }},
    {"typing what changes the line behind it",
     [](ControlHost& host, std::mt19937&) { host.Type(u"1/* \"a\" */\b\b*/ int\b\b x"); }},
    {"breaking a line", [](ControlHost& host, std::mt19937&) { host.Type(u"\r"); }},
    {"a tab", [](ControlHost& host, std::mt19937&) { host.Type(u"\t"); }},
    {"backspace", [](ControlHost& host, std::mt19937&) { host.Type(u"\b"); }},
    {"delete", [](ControlHost& host, std::mt19937&) { host.Press(VK_DELETE); }},
    {"up", [](ControlHost& host, std::mt19937&) { host.Press(VK_UP); }},
    {"selecting down", [](ControlHost& host, std::mt19937&) { host.Press(VK_DOWN, true); }},
    {"selecting left", [](ControlHost& host, std::mt19937&) { host.Press(VK_LEFT, true); }},
    {"selecting to the end", [](ControlHost& host, std::mt19937&) { host.Press(VK_END, true); }},
    {"end", [](ControlHost& host, std::mt19937&) { host.Press(VK_END); }},
    {"page down", [](ControlHost& host, std::mt19937&) { host.Press(VK_NEXT); }},
    {"page up, selecting", [](ControlHost& host, std::mt19937&) { host.Press(VK_PRIOR, true); }},
    {"undo", [](ControlHost& host, std::mt19937&) { host.control.UndoLast(); }},
    {"a selection elsewhere", SelectSomewhere},
    {"scrolling", Scroll},
    {"a replacement elsewhere", ReplaceSomewhere},
    {"a list", IndentTheFirstLines},
};

void ExpectStepsAreDrawnAsAnew(PaintedHost& host, std::mt19937& random, int steps) {
  for (int i = 0; i < steps; ++i) {
    const Step& step = kSteps[random() % std::size(kSteps)];
    step.act(host, random);
    Picture drawn = host.Drawn(), anew = host.DrawnAnew();
    ASSERT_TRUE(drawn == anew) << "step " << i << ", " << step.name << ": pixels "
                               << Difference(drawn, anew,
                                             static_cast<std::size_t>(host.control.ClientRect().right))
                               << " differ";
  }
}

// Some of the styles in the forms that fonts have, too.
StyleChoices SomeStyles() {
  StyleChoices choices{};
  choices[static_cast<std::size_t>(Style::kKeyword)] = Look{{}, true, false};
  choices[static_cast<std::size_t>(Style::kComment)] = Look{Colour{200, 0, 0}, false, true};
  return choices;
}

TEST(TextControlPaint, StepByStepIsTheSameAsAnew) {
  std::mt19937 random(13);
  PaintedHost host;
  host.SetText(SampleText());
  ExpectStepsAreDrawnAsAnew(host, random, 120);
}

TEST(TextControlPaint, StepByStepIsTheSameAsAnewInColours) {
  std::mt19937 random(17);
  PaintedHost host;
  host.control.SetStyles(SomeStyles());
  host.control.SetLexer(&CSourceLexer());
  std::string text;
  for (int i = 0; i < 40; ++i)
    text += "\tint x = 0x1F; \"caf\xC3\xA9\" /* comment\r\n over two lines */ return 'a'; // end\r\n";
  host.SetText(text);
  ExpectStepsAreDrawnAsAnew(host, random, 250);
}

// The row at the top shows another line once the view has moved.
TEST(TextControlPaint, ARowThatHasMovedIsNotTakenForWhatItWas) {
  PaintedHost host;
  std::string text;
  for (int i = 0; i < 60; ++i) text += "a\r\n";
  host.SetText(text);
  host.Drawn();
  host.control.Select(BytePos(1), BytePos(1));
  host.Type(u"b");
  host.control.ScrollBy(0, 1);
  host.control.Select(BytePos(5), BytePos(5));
  host.Type(u"b");
  Picture drawn = host.Drawn();
  EXPECT_TRUE(drawn == host.DrawnAnew());
}

// The pixels that are not of the window's colour.
std::vector<std::uint32_t> Inks(const Picture& picture) {
  std::vector<std::uint32_t> inks;
  for (std::uint32_t pixel : picture)
    if (pixel != picture.back()) inks.push_back(pixel);
  return inks;
}

TEST(TextControlPaint, ColoursComeAndGoWithLexerAndStyles) {
  PaintedHost host;
  host.SetText("int x; // y");
  Picture plain = host.Drawn();
  host.control.SetLexer(&CSourceLexer());
  EXPECT_EQ(plain, host.Drawn()) << "nobody wants colours";
  host.control.SetStyles(StyleChoices{});
  Picture coloured = host.Drawn();
  EXPECT_NE(plain, coloured);
  EXPECT_NE(Inks(plain), Inks(coloured));
  host.control.SetLexer(nullptr);
  EXPECT_EQ(plain, host.Drawn());
  host.control.SetLexer(&CSourceLexer());
  EXPECT_EQ(coloured, host.Drawn());
  host.control.SetStyles(std::nullopt);
  EXPECT_EQ(plain, host.Drawn());
}

TEST(TextControlPaint, ALineOfOneStyleIsDrawnAsWithoutColours) {
  PaintedHost host;
  host.SetText("\tplain words only\r\ncaf\xC3\xA9 (a, b) = c;");
  host.control.Select(BytePos(3), BytePos(9));
  Picture plain = host.Drawn();
  host.control.SetStyles(StyleChoices{});
  host.control.SetLexer(&CSourceLexer());
  EXPECT_EQ(plain, host.Drawn());
}

TEST(TextControlPaint, BoldLettersStandWhereThePlainOnesStand) {
  PaintedHost host;
  host.SetText("int x");
  StyleChoices choices{};
  choices[static_cast<std::size_t>(Style::kKeyword)] = Look{{}, true, false};
  host.control.SetLexer(&CSourceLexer());
  LONG before = host.control.PointOf(BytePos(4)).x;
  host.control.SetStyles(choices);
  EXPECT_EQ(before, host.control.PointOf(BytePos(4)).x);
}

// A comment that is opened above the view, and closed again.
TEST(TextControlPaint, WhatIsLearntInIdleTimeIsDrawn) {
  PaintedHost host;
  host.control.SetStyles(StyleChoices{});
  host.control.SetLexer(&CSourceLexer());
  std::string lines;
  for (int i = 0; i < 3000; ++i) lines += "int a;\r\n";
  auto endOf = [&](const std::string& text) {
    TextBuffer buffer;
    buffer.Replace({}, text, EditKind::kForgotten);
    host.control.Adopt(std::move(buffer));
    host.control.ScrollBy(0, 2900);
    return host.Drawn();
  };
  Picture code = endOf(lines);
  Picture guessed = endOf("/*" + lines);
  EXPECT_EQ(code, guessed) << "nothing is known of the beginning yet";
  EXPECT_TRUE(PumpUntil([&] { return host.control.States().IsSettled(); }));
  Picture comment = host.Drawn();
  EXPECT_NE(code, comment);
  EXPECT_EQ(comment, host.DrawnAnew());
  host.control.Replace({BytePos(0), BytePos(2)}, "");
  host.control.ScrollBy(0, 2900);
  EXPECT_TRUE(PumpUntil([&] { return host.control.States().IsSettled(); }));
  EXPECT_EQ(code, host.Drawn());
}

}  // namespace
}  // namespace tarrow
