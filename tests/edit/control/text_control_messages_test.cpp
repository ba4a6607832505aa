// The control beside the platform's multi-line edit control: the same messages, the same answers.
#include "framework/handle.h"
#include "tests/edit/control/control_host.h"

#include <array>
#include <random>

namespace tarrow {
namespace {

class Pair {
 public:
  Pair() {
    platform_ = ::CreateWindowExA(0, "EDIT", "", kControlStyle, 0, 0, 640, 400, host.Handle(), nullptr,
                                  ModuleInstance(), nullptr);
    Both(EM_LIMITTEXT, 0, 0);
    Both(WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(ANSI_FIXED_FONT)), 0);
  }
  ~Pair() { ::DestroyWindow(platform_); }

  // Sends a message to both and expects the same answer.
  LRESULT Both(UINT message, WPARAM w, LPARAM l) {
    LRESULT ours = ::SendMessageA(host.control.Handle(), message, w, l);
    LRESULT theirs = ::SendMessageA(platform_, message, w, l);
    EXPECT_EQ(ours, theirs) << "message 0x" << std::hex << message << " with " << std::dec
                            << static_cast<int>(w) << ", " << static_cast<int>(l);
    return ours;
  }

  // The same where the answer is of no meaning.
  void Tell(UINT message, WPARAM w, LPARAM l) {
    ::SendMessageA(host.control.Handle(), message, w, l);
    ::SendMessageA(platform_, message, w, l);
  }

  // What EM_GETLINE copies into a buffer of `room` bytes.
  std::string Line(bool ours, WPARAM line, WORD room) const {
    std::string into(128, '#');
    memcpy(into.data(), &room, sizeof room);
    HWND window = ours ? host.control.Handle() : platform_;
    LRESULT n = ::SendMessageA(window, EM_GETLINE, line, reinterpret_cast<LPARAM>(into.data()));
    return into.substr(0, static_cast<std::size_t>(n));
  }

  void ExpectSameState(const std::string& when) {
    EXPECT_EQ(State(host.control.Handle()), State(platform_)) << when;
  }

  static std::string State(HWND window) {
    std::string text(static_cast<std::size_t>(::SendMessageA(window, WM_GETTEXTLENGTH, 0, 0)) + 1, '\0');
    ::SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    DWORD start = 0, end = 0;
    ::SendMessageA(window, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return text + " selected " + std::to_string(start) + "-" + std::to_string(end) + " lines " +
           std::to_string(::SendMessageA(window, EM_GETLINECOUNT, 0, 0)) + " modified " +
           std::to_string(::SendMessageA(window, EM_GETMODIFY, 0, 0)) + " undo " +
           std::to_string(::SendMessageA(window, EM_CANUNDO, 0, 0));
  }

  ControlHost host;

 private:
  HWND platform_;
};

LPARAM Bytes(const char* text) {
  return reinterpret_cast<LPARAM>(text);
}

TEST(TextControlMessages, AnswersAboutLinesAreThoseOfThePlatform) {
  for (const char* text : {"", "one", "one\r\n", "one\r\n\r\ntwo\r\nthree", "\r\n\r\n"}) {
    Pair pair;
    pair.Both(WM_SETTEXT, 0, Bytes(text));
    pair.ExpectSameState(text);
    auto size = static_cast<int>(strlen(text));
    for (int line = -1; line < 7; ++line) pair.Both(EM_LINEINDEX, static_cast<WPARAM>(line), 0);
    for (int at = -1; at <= size; ++at) {
      pair.Both(EM_LINEFROMCHAR, static_cast<WPARAM>(at), 0);
      pair.Both(EM_LINELENGTH, static_cast<WPARAM>(at), 0);
    }
    for (WPARAM line = 0; line < 5; ++line) {
      for (WORD room : {WORD{2}, WORD{100}})
        EXPECT_EQ(pair.Line(true, line, room), pair.Line(false, line, room));
    }
  }
}

TEST(TextControlMessages, SelectionsAreThoseOfThePlatform) {
  Pair pair;
  pair.Both(WM_SETTEXT, 0, Bytes("one\r\ntwo\r\nthree"));
  for (int start : {-1, 0, 2, 5, 15, 99}) {
    for (int end : {-1, 0, 2, 5, 15, 99}) {
      pair.Tell(EM_SETSEL, static_cast<WPARAM>(start), end);
      pair.ExpectSameState("selected " + std::to_string(start) + " to " + std::to_string(end));
      pair.Both(EM_GETSEL, 0, 0);
    }
  }
}

// Random replacements, selections and undos, kept off the places between a CR and its LF.
TEST(TextControlMessages, ChangesAreThoseOfThePlatform) {
  std::mt19937 random(17);
  const char* kTexts[] = {"", "a", "bcd", "\r\n", "x\r\ny\r\n"};
  for (int round = 0; round < 20; ++round) {
    Pair pair;
    pair.Both(WM_SETTEXT, 0, Bytes("one\r\ntwo\r\n\r\nthree"));
    for (int step = 0; step < 30; ++step) {
      auto place = [&] {
        BytePos at(static_cast<std::int64_t>(random() %
                                             (static_cast<unsigned>(pair.host.control.Buffer().Size()) + 1)));
        return Charset().Snap(pair.host.control.View(), at).value;
      };
      auto start = place(), end = std::min(place(), start + 4);
      end = Charset().Snap(pair.host.control.View(), BytePos(std::max(start, end))).value;
      pair.Tell(EM_SETSEL, static_cast<WPARAM>(start), end);
      const char* text = kTexts[random() % 5];
      if (start != end || *text) pair.Tell(EM_REPLACESEL, TRUE, Bytes(text));
      std::string what = "replaced " + std::to_string(start) + "-" + std::to_string(end) + " by " + text;
      pair.ExpectSameState(what);
      if (testing::Test::HasFailure()) return;
    }
  }
}

TEST(TextControlMessages, UndoTakesBackAReplacementAndDoesItAgain) {
  Pair pair;
  pair.Both(WM_SETTEXT, 0, Bytes("one\r\ntwo"));
  pair.Both(EM_SETSEL, 1, 6);
  pair.Tell(EM_REPLACESEL, TRUE, Bytes("XY"));
  pair.ExpectSameState("replaced");
  pair.Both(EM_UNDO, 0, 0);
  pair.ExpectSameState("undone");
  pair.Both(EM_UNDO, 0, 0);
  pair.ExpectSameState("done again");
  pair.Tell(EM_EMPTYUNDOBUFFER, 0, 0);
  pair.ExpectSameState("emptied");
  pair.Tell(EM_SETMODIFY, FALSE, 0);
  pair.ExpectSameState("clean");
}

TEST(TextControlMessages, ReadOnlyRefusesKeysButNotThePlatformsMessages) {
  Pair pair;
  pair.Both(WM_SETTEXT, 0, Bytes("text"));
  pair.Both(EM_SETREADONLY, TRUE, 0);
  pair.Tell(WM_CHAR, 'x', 0);
  pair.Tell(WM_CHAR, '\b', 0);
  pair.Tell(WM_KEYDOWN, VK_DELETE, 0);
  pair.ExpectSameState("keys");
  pair.Tell(EM_SETSEL, 0, 2);
  pair.Tell(WM_CUT, 0, 0);
  pair.Tell(WM_CLEAR, 0, 0);
  pair.Tell(WM_PASTE, 0, 0);
  pair.ExpectSameState("clipboard");
  pair.Tell(EM_REPLACESEL, TRUE, Bytes("new"));
  pair.ExpectSameState("replaced");
  pair.Both(EM_UNDO, 0, 0);
  pair.ExpectSameState("undo");
}

TEST(TextControlMessages, TypingAndDeletingAreThoseOfThePlatform) {
  Pair pair;
  pair.Both(WM_SETTEXT, 0, Bytes("one\r\ntwo"));
  pair.Tell(EM_SETSEL, 3, 3);
  for (char c : std::string("ab\rc\td\b\b\b\b")) {
    pair.Tell(WM_CHAR, static_cast<WPARAM>(c), 0);
    pair.ExpectSameState("typed");
  }
  for (UINT key : {VK_DELETE, VK_LEFT, VK_DELETE, VK_UP, VK_END, VK_DELETE, VK_DOWN, VK_HOME, VK_RIGHT}) {
    pair.Tell(WM_KEYDOWN, key, 0);
    pair.ExpectSameState("key " + std::to_string(key));
  }
}

TEST(TextControlMessages, ScrollingIsThatOfThePlatform) {
  Pair pair;
  std::string text;
  for (int i = 0; i < 300; ++i) text += "a line of some length\r\n";
  pair.Both(WM_SETTEXT, 0, Bytes(text.c_str()));
  pair.Both(EM_GETFIRSTVISIBLELINE, 0, 0);
  for (int lines : {5, 100, -3, -1000, 100}) {
    pair.Tell(EM_LINESCROLL, 0, lines);
    pair.Both(EM_GETFIRSTVISIBLELINE, 0, 0);
  }
  for (UINT action : {SB_LINEUP, SB_LINEDOWN}) {
    pair.Both(EM_SCROLL, action, 0);
    pair.Both(EM_GETFIRSTVISIBLELINE, 0, 0);
  }
}

TEST(TextControlMessages, TheLockedHandleIsTheTextWithANulBehindIt) {
  ControlHost host;
  host.SetText("one\r\ntwo");
  host.control.Replace({BytePos(0), BytePos(1)}, "O");
  auto handle = reinterpret_cast<HLOCAL>(host.control.Send(EM_GETHANDLE));
  auto text = static_cast<const char*>(::LocalLock(handle));
  ASSERT_NE(text, nullptr);
  EXPECT_STREQ(text, "One\r\ntwo");
  ::LocalUnlock(handle);
}

TEST(TextControlMessages, TheTextMayBeReplacedByItself) {
  ControlHost host;
  host.SetText("one\r\ntwo");
  LRESULT text = host.control.Send(EM_GETHANDLE);
  host.control.Select(BytePos(1), BytePos(1));
  ::SendMessageA(host.control.Handle(), EM_REPLACESEL, TRUE, text);
  EXPECT_EQ(host.Content(), "oone\r\ntwone\r\ntwo");
}

TEST(TextControlMessages, NoTextIsAnEmptyText) {
  ControlHost host;
  host.control.Send(EM_REPLACESEL, TRUE, 0);
  EXPECT_EQ(host.Content(), "");
  host.SetText("abc");
  host.control.Select(BytePos(0), BytePos(2));
  host.control.Send(EM_REPLACESEL, TRUE, 0);
  EXPECT_EQ(host.Content(), "c");
  host.control.Send(WM_SETTEXT, 0, 0);
  EXPECT_EQ(host.Content(), "");
}

TEST(TextControlMessages, ASetHandleGivesTheTextAway) {
  ControlHost host;
  HLOCAL block = ::LocalAlloc(LMEM_MOVEABLE, 9);
  memcpy(::LocalLock(block), "one\r\ntwo", 9);
  ::LocalUnlock(block);
  host.control.Send(EM_SETHANDLE, reinterpret_cast<WPARAM>(block));
  EXPECT_EQ(host.Content(), "one\r\ntwo");
}

TEST(TextControlMessages, BytesOfMessagesStayAsTheyAre) {
  ControlHost host;
  std::string bytes;
  for (int c = 1; c < 256; ++c) bytes += static_cast<char>(c);
  ::SendMessageA(host.control.Handle(), EM_REPLACESEL, TRUE, Bytes(bytes.c_str()));
  EXPECT_EQ(host.Content(), bytes);
}

TEST(TextControlMessages, ALimitIsKeptAndTold) {
  ControlHost host;
  host.SetText("12345");
  host.control.Send(EM_LIMITTEXT, 8);
  host.control.Select(BytePos(5), BytePos(5));
  ::SendMessageA(host.control.Handle(), EM_REPLACESEL, TRUE, Bytes("abcdef"));
  EXPECT_EQ(host.Content(), "12345abc");
  EXPECT_EQ(host.notified[EN_MAXTEXT], 1);
  host.control.Send(EM_LIMITTEXT, 0);
  host.Type(u"d");
  EXPECT_EQ(host.Content(), "12345abcd");
}

}  // namespace
}  // namespace tarrow
