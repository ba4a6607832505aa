// What a user's hands do to the control: keys, characters, mouse, clipboard.
#include "edit/control/clipboard_text.h"
#include "tests/edit/control/control_host.h"

namespace tarrow {
namespace {

// A text with its selection as Shown() shows it, a key, and what becomes of it.
struct KeyCase {
  const char* before;
  UINT key;
  bool shift, control;
  const char* after;
};

void Show(ControlHost& host, std::string shown) {
  std::size_t start = shown.find_first_of("[|"), end = shown.find(']');
  shown.erase(start, 1);
  if (end == std::string::npos)
    end = start;
  else
    shown.erase(--end, 1);
  host.SetText(shown);
  host.control.Select(BytePos(static_cast<std::int64_t>(start)), BytePos(static_cast<std::int64_t>(end)));
}

TEST(TextControlKeys, MoveSelectAndDelete) {
  const KeyCase kCases[] = {
      {"a|b", VK_LEFT, false, false, "|ab"},
      {"|ab", VK_LEFT, false, false, "|ab"},
      {"ab\r\n|c", VK_LEFT, false, false, "ab|\r\nc"},
      {"ab|\r\nc", VK_RIGHT, false, false, "ab\r\n|c"},
      {"a|\xC3\xA9z", VK_RIGHT, false, false, "a\xC3\xA9|z"},
      {"a\xF0\x9F\x98\x80|z", VK_LEFT, false, false, "a|\xF0\x9F\x98\x80z"},
      {"a[bc]d", VK_LEFT, false, false, "a|bcd"},
      {"a[bc]d", VK_RIGHT, false, false, "abc|d"},
      {"a[bc]d", VK_RIGHT, true, false, "a[bcd]"},
      {"a[bc]d", VK_LEFT, true, false, "a[b]cd"},
      {"one |two", VK_RIGHT, false, true, "one two|"},
      {"one two|", VK_LEFT, true, true, "one [two]"},
      {"one\r\ntwo| three", VK_HOME, false, false, "one\r\n|two three"},
      {"one\r\nt|wo\r\n", VK_END, false, false, "one\r\ntwo|\r\n"},
      {"one\r\nt|wo\r\n", VK_END, true, true, "one\r\nt[wo\r\n]"},
      {"one\r\nt|wo\r\n", VK_HOME, true, true, "[one\r\nt]wo\r\n"},
      {"one|\r\ntwo", VK_DOWN, false, false, "one\r\ntwo|"},
      {"abc\r\n\r\nab|c", VK_UP, false, false, "abc\r\n|\r\nabc"},
      {"ab|c\r\nabc", VK_DOWN, true, false, "ab[c\r\nab]c"},
      {"|abc", VK_UP, false, false, "|abc"},
      {"a|b\r\nc", VK_NEXT, false, false, "ab\r\nc|"},
      {"a|bc", VK_DELETE, false, false, "a|c"},
      {"a|\r\nb", VK_DELETE, false, false, "a|b"},
      {"a|\xE2\x82\xAC"
       "b",
       VK_DELETE, false, false, "a|b"},
      {"abc|", VK_DELETE, false, false, "abc|"},
      {"a[bc]d", VK_DELETE, false, false, "a|d"},
      {"|one two", VK_DELETE, false, true, "|two"},
      {"one two|", VK_BACK, false, true, "one |"},
      {"one [two]", VK_BACK, false, true, "one |"},
      {"|one", VK_BACK, false, true, "|one"},
  };
  ControlHost host;
  for (const KeyCase& c : kCases) {
    Show(host, c.before);
    host.Press(c.key, c.shift, c.control);
    EXPECT_EQ(host.Shown(), c.after) << c.before << " key " << c.key;
  }
}

TEST(TextControlKeys, UpAndDownRememberTheColumn) {
  ControlHost host;
  Show(host, "long line|\r\nx\r\nlong line");
  host.Press(VK_DOWN);
  EXPECT_EQ(host.Shown(), "long line\r\nx|\r\nlong line");
  host.Press(VK_DOWN);
  EXPECT_EQ(host.Shown(), "long line\r\nx\r\nlong line|");
  host.Press(VK_LEFT);
  host.Press(VK_UP);
  host.Press(VK_UP);
  EXPECT_EQ(host.Shown(), "long lin|e\r\nx\r\nlong line");
}

struct TypingCase {
  const char* before;
  std::u16string_view typed;
  const char* after;
};

TEST(TextControlKeys, TypesCharactersOfAnyLanguage) {
  const TypingCase kCases[] = {
      {"|", u"abc", "abc|"},
      {"a[bc]d", u"X", "aX|d"},
      {"a|b", u"\u00E9\u0416\u65E5\U0001F600", "a\xC3\xA9\xD0\x96\xE6\x97\xA5\xF0\x9F\x98\x80|b"},
      {"caf\xE9|", u"\u00E9\u20AC", "caf\xE9\xE9\x80|"},  // a text in the code page stays in it
      {"a|b", u"\r", "a\r\n|b"},
      {"a|b", u"\t", "a\t|b"},
      {"ab|", u"\b\b\b", "|"},
      {"a\r\n|b", u"\b", "a|b"},
      {"a\xE2\x82\xAC|b", u"\b", "a|b"},
      {"one two|", u"\x7F", "one |"},
      {"a[b]c", u"\b", "a|c"},
      {"a|b", u"\x1B\x0A", "a|b"},
      {"a|b", u"\x01", "[ab]"},
      {"a|b", u"xy\x1A", "a|b"},
  };
  ControlHost host;
  for (const TypingCase& c : kCases) {
    Show(host, c.before);
    host.Type(c.typed);
    EXPECT_EQ(host.Shown(), c.after) << c.before;
  }
}

// What a hook answers, and how often it was asked.
struct MissingHooks final : TextControlHooks {
  explicit MissingHooks(MissingCharacters what) : answer(what) {}
  MissingCharacters OnMissingCharacters() override {
    ++asked;
    return answer;
  }
  MissingCharacters answer;
  int asked = 0;
};

struct MissingCase {
  const char* before;
  MissingCharacters answer;
  const char* after;
  int asked;
};

// A Cyrillic letter, typed, pasted and merged.
TEST(TextControlCharset, WhatBecomesOfACharacterThatTheTextLacks) {
  const MissingCase kCases[] = {
      {"caf\xE9| z", MissingCharacters::kConvert, "caf\xC3\xA9\xD0\x96| z", 1},
      {"caf\xE9| z", MissingCharacters::kSubstitute, "caf\xE9?| z", 1},
      {"caf\xE9| z", MissingCharacters::kRefuse, "caf\xE9| z", 1},
      {"\x80\xE9[\xE9]\r\n\xE9", MissingCharacters::kConvert, "\xE2\x82\xAC\xC3\xA9\xD0\x96|\r\n\xC3\xA9", 1},
      {"[caf\xE9]", MissingCharacters::kRefuse, "[caf\xE9]", 1},
      {"cafe| z", MissingCharacters::kRefuse, "cafe\xD0\x96| z", 0},
      {"caf\xC3\xA9| z", MissingCharacters::kRefuse, "caf\xC3\xA9\xD0\x96| z", 0},
  };
  void (*const kWays[])(ControlHost&) = {
      [](ControlHost& host) { host.Type(u"\u0416"); },
      [](ControlHost& host) {
        ASSERT_TRUE(PutOnClipboard(host.Handle(), TextView("\xD0\x96"), Charset()));
        host.control.Paste();
      },
      [](ControlHost& host) { host.control.Insert("\xD0\x96", Charset()); },
  };
  for (auto way : kWays) {
    for (const MissingCase& c : kCases) {
      ControlHost host;
      MissingHooks hooks(c.answer);
      Show(host, c.before);
      host.control.SetHooks(&hooks);
      way(host);
      EXPECT_EQ(host.Shown(), c.after) << c.before;
      EXPECT_EQ(hooks.asked, c.asked) << c.before;
      host.control.SetHooks(nullptr);
    }
  }
}

TEST(TextControlCharset, AnAnsiTextThatHasBecomeAsciiIsAskedNothing) {
  ControlHost host;
  MissingHooks hooks(MissingCharacters::kRefuse);
  Show(host, "caf[\xE9]");
  host.control.SetHooks(&hooks);
  host.Type(u"e\u0416\u00E9");
  EXPECT_EQ(host.Shown(), "cafe\xD0\x96\xC3\xA9|");
  EXPECT_EQ(hooks.asked, 0);
  host.control.SetHooks(nullptr);
}

TEST(TextControlCharset, ConvertingKeepsViewAndSelection) {
  ControlHost host;
  std::string text;
  for (int i = 0; i < 100; ++i) text += "caf\xE9 \x80\r\n";
  host.SetText(text);
  host.control.Select(BytePos(8 * 60 + 4), BytePos(8 * 50));
  host.control.ScrollBy(0, 5);
  LineNo top = host.control.TopLine();
  EXPECT_TRUE(host.control.ConvertToUtf8());
  EXPECT_EQ(host.control.TopLine(), top);
  EXPECT_EQ(host.control.Selection(), (TextRange{BytePos(11 * 50), BytePos(11 * 60 + 5)}));
  EXPECT_EQ(host.control.Caret(), BytePos(11 * 50));
  EXPECT_EQ(Charset().ToWide(host.control.View()), Charset(WesternCodePage()).ToWide(TextView(text)));
  EXPECT_TRUE(host.control.IsModified());
  EXPECT_FALSE(host.control.CanUndo());
  EXPECT_EQ(host.notified[EN_CHANGE], 1);
  EXPECT_TRUE(host.control.ConvertToUtf8());
  EXPECT_EQ(host.notified[EN_CHANGE], 1);
}

TEST(TextControlCharset, AnAnsiTextIsInsertedIntoAUtf8OneAsCharacters) {
  ControlHost host;
  Show(host, "\xD0\x96|");
  host.control.Insert("caf\xE9", Charset(WesternCodePage()));
  EXPECT_EQ(host.Shown(),
            "\xD0\x96"
            "caf\xC3\xA9|");
  Show(host, "caf\xE9|");
  host.control.Insert("\xC3\xA9", Charset());
  EXPECT_EQ(host.Shown(), "caf\xE9\xE9|");
}

// Its character is another one under Wine than elsewhere, and must not delete once more.
TEST(TextControlKeys, ControlAndBackspaceDeletesOneWord) {
  for (char16_t character : {u'\x7F', u'\b'}) {
    ControlHost host;
    Show(host, "one two three|");
    for (int times = 0; times < 2; ++times) {
      host.Press(VK_BACK, false, true);
      host.Type({&character, 1});
    }
    EXPECT_EQ(host.Shown(), "one |");
    host.Press(VK_BACK);
    host.Type(u"\b");
    EXPECT_EQ(host.Shown(), "one|");
    host.control.SetReadOnly(true);
    host.Press(VK_BACK, false, true);
    EXPECT_EQ(host.Shown(), "one|");
  }
}

TEST(TextControlKeys, TakesCharactersThatWereSentInsteadOfTyped) {
  ControlHost host;
  host.SetText("");
  ::SendMessageA(host.control.Handle(), WM_CHAR, 'a', 0);
  EXPECT_EQ(host.control.Send(WM_UNICHAR, UNICODE_NOCHAR), TRUE);
  host.control.Send(WM_UNICHAR, 0x1F600);
  EXPECT_EQ(host.Content(), "a\xF0\x9F\x98\x80");
}

TEST(TextControlKeys, TypingIsOneUnitOfUndo) {
  ControlHost host;
  Show(host, "a[bc]d");
  host.Type(u"xyz");
  EXPECT_TRUE(host.control.UndoLast());
  EXPECT_EQ(host.Shown(), "a[bc]d");
  EXPECT_TRUE(host.control.UndoLast());
  EXPECT_EQ(host.Shown(), "a[xyz]d");
}

// The texts that one undo after another brings back.
std::vector<std::string> Undone(ControlHost& host) {
  std::vector<std::string> texts;
  while (host.control.UndoLast()) texts.push_back(host.Content());
  return texts;
}

TEST(TextControlKeys, UnitsOfSeveralEndWithTheLineAndWhereTheCaretHasMoved) {
  using Texts = std::vector<std::string>;
  ControlHost host;
  host.control.SetUndoLevels(20);
  Show(host, "|");
  host.Type(u"ab\rcd");
  EXPECT_EQ(Undone(host), (Texts{"ab\r\n", ""}));
  Show(host, "|");
  host.Type(u"ab");
  host.Press(VK_LEFT);
  host.Press(VK_RIGHT);
  host.Type(u"c");
  host.Press(VK_END);
  host.Type(u"d");
  EXPECT_EQ(Undone(host), (Texts{"ab", ""})) << "the end was where the caret stood";
  EXPECT_TRUE(host.control.RedoNext());
  host.Type(u"\x19");
  EXPECT_EQ(host.Content(), "abcd");
}

TEST(TextControlKeys, BackAtTheSavedTextItIsUnmodified) {
  ControlHost host;
  host.control.SetUndoLevels(20);
  Show(host, "one|");
  EXPECT_FALSE(host.control.IsModified());
  host.Type(u"x");
  host.control.SetModified(false);
  host.Type(u"y");
  EXPECT_TRUE(host.control.IsModified());
  host.control.UndoLast();
  EXPECT_FALSE(host.control.IsModified());
  host.control.UndoLast();
  EXPECT_TRUE(host.control.IsModified());
  host.control.RedoNext();
  EXPECT_FALSE(host.control.IsModified());
  host.control.SetModified(true);
  host.control.UndoLast();
  host.control.RedoNext();
  EXPECT_TRUE(host.control.IsModified()) << "it is nowhere the saved one";
}

TEST(TextControlKeys, UndoOfAListRestoresTheSelectionBeforeIt) {
  ControlHost host;
  Show(host, "[one\r\ntwo\r\n]three");
  EditList edits;
  edits.Add({BytePos(0), BytePos(0)}, "\t");
  edits.Add({BytePos(5), BytePos(5)}, "\t");
  EXPECT_TRUE(host.control.Apply(edits, {BytePos(0), BytePos(12)}));
  EXPECT_EQ(host.notified[EN_CHANGE], 1);
  EXPECT_EQ(host.Shown(), "[\tone\r\n\ttwo\r\n]three");
  EXPECT_TRUE(host.control.UndoLast());
  EXPECT_EQ(host.Shown(), "[one\r\ntwo\r\n]three");
  EXPECT_TRUE(host.control.UndoLast());
  EXPECT_EQ(host.Shown(), "[\tone\r\n\ttwo\r\n]three");
}

TEST(TextControlKeys, ColumnsCountCharacters) {
  ControlHost host;
  host.SetText("x\r\n\xC3\xA9\xD0\x96");
  host.control.Select(BytePos(7), BytePos(7));
  EXPECT_EQ(host.control.ColumnOf(BytePos(7)), 2);
  host.Type(u"\u0416a\b");
  EXPECT_EQ(host.control.ColumnOf(host.control.Caret()), 3);
  host.SetText("caf\xE9");
  EXPECT_EQ(host.control.ColumnOf(BytePos(4)), 4);
}

TEST(TextControlKeys, NeverPutsTheCaretInsideACharacterOrALineEnd) {
  ControlHost host;
  host.SetText("a\xE2\x82\xAC\r\nb");
  const int kSnapped[] = {0, 1, 1, 1, 4, 4, 6, 7};
  for (int at = 0; at <= 7; ++at) {
    host.control.Send(EM_SETSEL, static_cast<WPARAM>(at), at);
    EXPECT_EQ(host.control.Caret(), BytePos(kSnapped[at])) << at;
  }
  host.SetText("x\ny");
  host.control.Select(BytePos(0), BytePos(1));
  host.control.ReplaceSelection("\r");
  EXPECT_EQ(host.control.Caret(), BytePos(0));
}

TEST(TextControlKeys, HooksComeFirst) {
  struct Hooks final : TextControlHooks {
    bool OnCharacter(char32_t code) override {
      typed += static_cast<char>(code);
      return code == U'x';
    }
    bool OnKeyDown(UINT key, bool, bool) override { return key == VK_HOME; }
    bool OnDoubleClick(BytePos at) override {
      clicked = at;
      return true;
    }
    std::string typed;
    BytePos clicked;
  } hooks;
  ControlHost host;
  Show(host, "ab|");
  host.control.SetHooks(&hooks);
  host.Type(u"xy\b");
  host.Press(VK_HOME);
  host.Mouse(WM_LBUTTONDBLCLK, host.control.PointOf(BytePos(1)));
  EXPECT_EQ(hooks.typed, "xy\b");
  EXPECT_EQ(hooks.clicked, BytePos(1));
  EXPECT_EQ(host.Shown(), "ab|");
  host.control.SetHooks(nullptr);
}

TEST(TextControlKeys, TellsItsParentWhatHappens) {
  ControlHost host;
  host.SetText("one\r\ntwo");
  host.Type(u"a");
  EXPECT_EQ(host.notified[EN_UPDATE], 1);
  EXPECT_EQ(host.notified[EN_CHANGE], 1);
  host.Press(VK_SHIFT);
  host.Press(VK_CONTROL);
  PumpMessages();
  EXPECT_EQ(host.notified[kCaretMoved], 0);
  host.Press(VK_RIGHT);
  PumpMessages();
  EXPECT_EQ(host.notified[kCaretMoved], 1);
  host.Mouse(WM_LBUTTONDOWN, {1, 1});
  host.Mouse(WM_LBUTTONUP, {1, 1});
  PumpMessages();
  EXPECT_EQ(host.notified[kCaretMoved], 2);
  host.control.UndoLast();
  PumpMessages();
  EXPECT_EQ(host.notified[kCaretMoved], 3);
  EXPECT_EQ(host.notified[EN_HSCROLL], 0);
  host.Type(std::u16string(200, u'w'));
  EXPECT_GE(host.notified[EN_HSCROLL], 1);
}

TEST(TextControlKeys, WhereMemoryEndsTheTextStaysAndTheParentIsTold) {
  ControlHost host;
  ReservedMemory::SetPermission([] { return false; });
  EXPECT_FALSE(host.control.ReplaceSelection("text"));
  host.Type(u"x");
  ReservedMemory::SetPermission(nullptr);
  EXPECT_EQ(host.Content(), "");
  EXPECT_EQ(host.notified[EN_ERRSPACE], 2);
  EXPECT_EQ(host.notified[EN_CHANGE], 0);
  EXPECT_FALSE(host.control.IsModified());
  host.Type(u"x");
  EXPECT_EQ(host.Content(), "x");
}

TEST(TextControlMouse, ClicksDragsAndShiftClicksSelect) {
  ControlHost host;
  host.SetText("one two\r\nthree");
  auto at = [&](int position) { return host.control.PointOf(BytePos(position)); };
  host.Mouse(WM_LBUTTONDOWN, at(2), MK_LBUTTON);
  EXPECT_EQ(host.Shown(), "on|e two\r\nthree");
  host.Mouse(WM_MOUSEMOVE, at(11), MK_LBUTTON);
  host.Mouse(WM_LBUTTONUP, at(11));
  EXPECT_EQ(host.Shown(), "on[e two\r\nth]ree");
  host.Mouse(WM_MOUSEMOVE, at(0));
  EXPECT_EQ(host.Shown(), "on[e two\r\nth]ree");
  host.Mouse(WM_LBUTTONDOWN, at(1), MK_LBUTTON | MK_SHIFT);
  host.Mouse(WM_LBUTTONUP, at(1));
  EXPECT_EQ(host.Shown(), "o[n]e two\r\nthree");
  host.Mouse(WM_LBUTTONDOWN, {600, 1}, MK_LBUTTON);
  host.Mouse(WM_LBUTTONUP, {600, 1});
  EXPECT_EQ(host.Shown(), "one two|\r\nthree");
  host.Mouse(WM_LBUTTONDOWN, {-5, 399}, MK_LBUTTON);
  host.Mouse(WM_LBUTTONUP, {-5, 399});
  EXPECT_EQ(host.Shown(), "one two\r\n|three");
}

TEST(TextControlMouse, ADoubleClickTakesAWordAndDraggingKeepsIt) {
  ControlHost host;
  host.SetText("one two three");
  auto at = [&](int position) { return host.control.PointOf(BytePos(position)); };
  host.Mouse(WM_LBUTTONDBLCLK, at(5), MK_LBUTTON);
  EXPECT_EQ(host.Shown(), "one [two ]three");
  host.Mouse(WM_MOUSEMOVE, at(10), MK_LBUTTON);
  EXPECT_EQ(host.Shown(), "one [two th]ree");
  host.Mouse(WM_MOUSEMOVE, at(1), MK_LBUTTON);
  EXPECT_EQ(host.Shown(), "o[ne two ]three");
  host.Mouse(WM_LBUTTONUP, at(1));
}

TEST(TextControlMouse, DraggingBeyondTheEdgeScrollsWhileTheMouseRests) {
  ControlHost host;
  std::string text;
  for (int i = 0; i < 200; ++i) text += "line\r\n";
  host.SetText(text);
  host.Mouse(WM_LBUTTONDOWN, {1, 1}, MK_LBUTTON);
  POINT below{20, 430};
  ::ClientToScreen(host.control.Handle(), &below);
  ::SetCursorPos(below.x, below.y);
  ASSERT_TRUE(PumpUntil([&] { return host.control.TopLine() >= LineNo(20); }));
  EXPECT_EQ(host.control.Selection().start, BytePos(0));
  host.Mouse(WM_LBUTTONUP, {20, 430});
  LineNo top = host.control.TopLine();
  host.control.Send(WM_TIMER, 1);
  EXPECT_EQ(host.control.TopLine(), top);
}

TEST(TextControlMouse, ARightClickIsTheParents) {
  ControlHost host;
  host.Mouse(WM_RBUTTONDOWN, {30, 40});
  EXPECT_EQ(host.rightClick.x, 30);
  EXPECT_EQ(host.rightClick.y, 40);
}

TEST(TextControlMouse, TheWheelScrollsAndKeepsTheRest) {
  ControlHost host;
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += "line\r\n";
  host.SetText(text);
  UINT lines = 3;
  ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  host.control.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)));
  EXPECT_EQ(host.control.TopLine(), LineNo(lines));
  for (int part = 0; part < 4; ++part)
    host.control.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA / 4)));
  EXPECT_EQ(host.control.TopLine(), LineNo(2 * lines));
  host.control.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(10 * WHEEL_DELTA)));
  EXPECT_EQ(host.control.TopLine(), LineNo(0));
}

TEST(TextControlScrolling, BarsCountBeyondSixteenBits) {
  ControlHost host;
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += "line\r\n";
  host.SetText(text);
  host.control.Send(WM_VSCROLL, SB_BOTTOM);
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  ASSERT_TRUE(::GetScrollInfo(host.control.Handle(), SB_VERT, &info));
  EXPECT_EQ(info.nMax, 100'000);
  EXPECT_EQ(info.nPos, host.control.TopLine().value);
  EXPECT_EQ(info.nPos, 100'001 - host.control.LinesInView());
  host.control.Select(BytePos(0), BytePos(0));
  EXPECT_EQ(host.control.TopLine(), LineNo(0));
}

TEST(TextControlClipboard, KeepsEveryByteAndSpeaksUnicode) {
  ControlHost host;
  std::string text("caf\xC3\xA9 \xFF \0 nul\r\n", 14);
  host.SetText("caf\xC3\xA9\r\n");  // valid: the charset is UTF-8
  host.control.Select(BytePos(0), host.control.Buffer().End());
  host.control.ReplaceSelection(text);
  host.control.Select(BytePos(0), host.control.Buffer().End());
  ASSERT_TRUE(host.control.Cut());
  EXPECT_EQ(host.Content(), "");
  ASSERT_TRUE(host.control.Paste());
  ASSERT_TRUE(host.control.Paste());
  EXPECT_EQ(host.Content(), text + text);
  // A text in the code page gets the same characters.
  EXPECT_EQ(TextFromClipboard(host.Handle(), Charset(WesternCodePage())), "caf\xE9 ? ");
}

TEST(TextControlClipboard, NothingSelectedLeavesTheClipboardAlone) {
  ControlHost host;
  host.SetText("abc");
  ASSERT_TRUE(PutOnClipboard(host.Handle(), TextView("kept"), Charset()));
  EXPECT_FALSE(host.control.Copy());
  EXPECT_FALSE(host.control.Cut());
  EXPECT_EQ(TextFromClipboard(host.Handle(), Charset()), "kept");
}

}  // namespace
}  // namespace tarrow
