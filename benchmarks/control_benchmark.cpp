// The control beside the platform's multi-line edit control: what a key costs anywhere in texts of 1, 10 and
// 100 MB, repaint included, and 10,000 replacements from top to bottom.
#include "edit/control/text_control.h"

#include "benchmarks/report.h"
#include "edit/recovery/journal.h"
#include "edit/recovery/windows_journal_disk.h"
#include "framework/directories.h"
#include "framework/handle.h"

#include <algorithm>
#include <array>

namespace tarrow::bench {
namespace {

constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOHSCROLL | ES_AUTOVSCROLL | WS_VSCROLL;
constexpr WindowClass kParentClass{L"TarrowBenchmark"};

class Parent final : public CWnd {
 public:
  Parent() {
    WindowSpec spec;
    spec.style = WS_POPUP | WS_VISIBLE;
    spec.bounds = {0, 0, 800, 600};
    Check(Create(kParentClass, spec), "parent window");
  }
};

std::string SomeText(std::size_t size) {
  std::string text;
  while (text.size() < size) text += "  for (int i = 0; i < count; ++i) total += values[i];\r\n";
  return text;
}

// The start of a line at about a share of the text.
std::size_t LineStart(const std::string& text, double share) {
  if (share == 0) return 0;
  return text.rfind('\n', static_cast<std::size_t>(share * static_cast<double>(text.size() - 1))) + 1;
}

class Ours {
 public:
  Ours(HWND parent, const std::string& text) {
    Check(control_.CreateControl(parent, 1, kStyle, {0, 0, 800, 600}), "control");
    TextBuffer buffer;
    std::copy(text.begin(), text.end(), buffer.PrepareLoad(static_cast<std::int64_t>(text.size())).begin());
    buffer.FinishLoad(static_cast<std::int64_t>(text.size()));
    control_.Adopt(std::move(buffer));
  }
  HWND Handle() const { return control_.Handle(); }
  TextControl& Control() { return control_; }
  void Key(char16_t unit) {
    MSG message{Handle(), WM_CHAR, unit, 0, 0, {}};
    control_.PreDispatch(message);
    ::UpdateWindow(Handle());
  }

 private:
  TextControl control_;
};

class Platforms {
 public:
  Platforms(HWND parent, const std::string& text)
      : window_(::CreateWindowExA(0, "EDIT", "", kStyle, 0, 0, 800, 600, parent, nullptr, ModuleInstance(),
                                  nullptr)) {
    ::SendMessageA(window_, EM_LIMITTEXT, 0, 0);
    ::SendMessageA(window_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
  }
  ~Platforms() { ::DestroyWindow(window_); }
  HWND Handle() const { return window_; }
  void Key(char16_t unit) {
    ::SendMessageW(window_, WM_CHAR, unit, 0);
    ::UpdateWindow(window_);
  }

 private:
  HWND window_;
};

// The seconds that one key takes at a place, after the first one, which goes there.
template <typename Control>
double KeyAt(Control& control, std::size_t at, int keys) {
  LRESULT before = ::SendMessageA(control.Handle(), WM_GETTEXTLENGTH, 0, 0);
  ::SendMessageA(control.Handle(), EM_SETSEL, at, static_cast<LPARAM>(at));
  control.Key(u'a');
  double seconds = Seconds([&] {
    for (int key = 0; key < keys; ++key) control.Key(u'x');
  });
  LRESULT grown = ::SendMessageA(control.Handle(), WM_GETTEXTLENGTH, 0, 0) - before;
  Check(grown == keys + 1, "every key typed");
  return seconds / keys;
}

struct Place {
  const char* name;
  double share;
};
constexpr std::array<Place, 3> kPlaces{{{"start", 0}, {"middle", 0.5}, {"end", 1}}};

void Keys(HWND parent, const std::vector<std::size_t>& megabytes) {
  constexpr int kKeys = 100;  // as many as fit into the window, so that none scrolls it
  double smallest = 0;
  for (std::size_t size : megabytes) {
    std::string text = SomeText(size << 20);
    Ours ours(parent, text);
    bool hasRival = size <= 10;  // beyond, the rival takes minutes to take the text
    Platforms platforms(parent, hasRival ? text : "");
    for (const Place& place : kPlaces) {
      std::size_t at = LineStart(text, place.share);
      double key = KeyAt(ours, at, kKeys);
      if (smallest == 0) smallest = key;
      std::string work = std::string("one key at the ") + place.name + " of " + std::to_string(size) + " MB";
      if (hasRival)
        Row({work, key, "EDIT", KeyAt(platforms, at, 3), "s", size == 10 && place.share == 0 ? 100.0 : 0});
      Row({work, key, "Tarrow at the start of 1 MB", smallest, "s", 0.3});
    }
  }
}

// The text of a control as its journal sees it.
class Journaled final : public JournaledText {
 public:
  explicit Journaled(TextControl& control) : control_(control) {}
  TextView JournalView() const override { return control_.View(); }
  JournalDescription JournalName() const override { return {}; }

 private:
  TextControl& control_;
};

// A key with and without a journal that follows, and that is written after every twenty of them: a second of
// fast typing. The same control by turns, so that nothing else differs.
void KeysWithJournal(HWND parent, std::size_t megabytes) {
  constexpr int kKeys = 20, kTurns = 60;
  std::string text = SomeText(megabytes << 20);
  Ours ours(parent, text);
  Journaled journaled(ours.Control());
  WindowsJournalDisk disk(TemporaryDirectory());
  BackgroundQueue queue([] {});
  JournalServices services{disk, queue, [] {}};
  Journal journal(services, journaled);
  std::size_t at = LineStart(text, 0.5);
  std::vector<double> with, without;
  for (int turn = 0; turn < kTurns; ++turn) {
    ours.Control().SetObserver(&journal);
    with.push_back(KeyAt(ours, at, kKeys));
    journal.Write();
    queue.Finish();
    ours.Control().SetObserver(nullptr);
    without.push_back(KeyAt(ours, at, kKeys));
    journal.OnExchanged();  // it has missed the last keys
    while (journal.IsBehind()) {
      journal.Write();
      queue.Finish();
    }
  }
  journal.End();
  std::ranges::nth_element(with, with.begin() + kTurns / 2);
  std::ranges::nth_element(without, without.begin() + kTurns / 2);
  Row({"one key in " + std::to_string(megabytes) + " MB with a journal", with[kTurns / 2], "without",
       without[kTurns / 2], "s", 0.95});
}

// A text without line ends is one line; the key is typed at its end.
void KeyInALongLine(HWND parent, std::size_t megabytes) {
  std::string text, beginning = "short";
  while (text.size() < megabytes << 20) text += "for (;;) total += values[i];\t";
  Ours ours(parent, text), shortLine(parent, beginning);
  Platforms platforms(parent, beginning);
  double key = KeyAt(ours, text.size(), 80), shortKey = KeyAt(shortLine, beginning.size(), 80);
  Row({"one key in a text of one word", shortKey, "EDIT", KeyAt(platforms, beginning.size(), 80), "s", 1});
  Row({"one key at the end of a line of " + std::to_string(megabytes) + " MB", key, "Tarrow in a short line",
       shortKey, "s", 0.2});
}

template <typename Control>
double ReplaceFromTopToBottom(Control& control, int replacements, std::size_t step) {
  return Seconds([&] {
    for (int i = 0; i < replacements; ++i) {
      std::size_t at = static_cast<std::size_t>(i) * (step + 2);
      ::SendMessageA(control.Handle(), EM_SETSEL, at, static_cast<LPARAM>(at + 1));
      ::SendMessageA(control.Handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>("xyz"));
    }
    ::UpdateWindow(control.Handle());
  });
}

void Replacements(HWND parent, std::size_t megabytes, int replacements, int rivalReplacements) {
  std::string text = SomeText(megabytes << 20);
  // A step that never meets a line end.
  std::size_t step = text.size() / static_cast<std::size_t>(replacements) / 55 * 55;
  Ours ours(parent, text);
  Platforms platforms(parent, text);
  double seconds = 0, theirs = 0;
  {
    RedrawOff off(ours.Handle());
    seconds = ReplaceFromTopToBottom(ours, replacements, step);
  }
  {
    RedrawOff off(platforms.Handle());
    theirs = ReplaceFromTopToBottom(platforms, rivalReplacements, step);
  }
  Check(::SendMessageA(ours.Handle(), WM_GETTEXTLENGTH, 0, 0) ==
            static_cast<LRESULT>(text.size()) + 2 * replacements,
        "every replacement made");
  Row({"one of " + std::to_string(replacements) + " replacements from top to bottom of " +
           std::to_string(megabytes) + " MB",
       seconds / replacements, "EDIT", theirs / rivalReplacements, "s", 100});
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  using namespace tarrow::bench;  // NOLINT
  Parent parent;
  if (IsQuick(argc, argv)) {
    Keys(parent.Handle(), {1});
    KeysWithJournal(parent.Handle(), 1);
    KeyInALongLine(parent.Handle(), 1);
    Replacements(parent.Handle(), 1, 1000, 20);
  } else {
    Keys(parent.Handle(), {1, 10, 100});
    KeysWithJournal(parent.Handle(), 10);
    KeyInALongLine(parent.Handle(), 100);
    Replacements(parent.Handle(), 10, 10'000, 200);
  }
}
