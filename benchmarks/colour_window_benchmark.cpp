// What colours cost in the control: a key anywhere in C source of 1, 10 and 100 MB, also where the first line
// opens a comment that never ends, and scrolling by pages; beside the same without colours.
#include "edit/control/text_control.h"
#include "edit/lexers/lexers.h"

#include "benchmarks/report.h"

#include <array>

namespace tarrow::bench {
namespace {

constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOHSCROLL | ES_AUTOVSCROLL | WS_VSCROLL;
constexpr WindowClass kParentClass{L"TarrowBenchmark"};
constexpr int kRounds = 40, kKeys = 20, kPages = 10;

constexpr std::string_view kLines[] = {
    "  for (int i = 0; i < count; ++i) total += values[i];\r\n",
    "  if (total > kLimit) return Report(\"too many\", total);  // and no more\r\n",
    "\r\n",
    "/* What follows is done once for each of the values that came,\r\n",
    "   and for no other. */\r\n",
    "static int Count(const char* text, size_t size) {\r\n",
    "\treturn size == 0 ? 0 : text[0] == 'x';\r\n",
    "}\r\n",
    "#define LIMIT 0x1000\r\n",
};

std::string Source(std::size_t size, std::string_view start) {
  std::string text(start);
  text.reserve(size + 100);
  for (std::size_t i = 0; text.size() < size; ++i) text += kLines[i % std::size(kLines)];
  return text;
}

// A window with a text, of which everything is known that can be known, as it is soon after it is loaded.
class Window final : public CWnd {
 public:
  Window(const std::string& text, bool hasColours) {
    WindowSpec spec;
    spec.style = WS_POPUP | WS_VISIBLE;
    spec.bounds = {0, 0, 800, 600};
    Check(Create(kParentClass, spec), "parent window");
    Check(control_.CreateControl(Handle(), 1, kStyle, {0, 0, 800, 600}), "control");
    control_.SetLexer(&CSourceLexer());
    if (hasColours) control_.SetStyles(StyleChoices{});
    TextBuffer buffer;
    std::copy(text.begin(), text.end(), buffer.PrepareLoad(static_cast<std::int64_t>(text.size())).begin());
    buffer.FinishLoad(static_cast<std::int64_t>(text.size()));
    control_.Adopt(std::move(buffer));
    MSG message;
    while (!control_.States().IsSettled() && ::GetMessageW(&message, nullptr, 0, 0) > 0)
      ::DispatchMessageW(&message);
  }

  // The seconds that one key takes at a place, after the first one, which goes there.
  double Key(double share) {
    ::BringWindowToTop(Handle());
    LineNo line(static_cast<std::int64_t>(share * control_.Buffer().LastLine().value));
    BytePos at = control_.Buffer().LineStart(line);
    control_.Select(at, at);
    Type(u'a');
    double seconds = Seconds([&] {
      for (int key = 0; key < kKeys; ++key) Type(u'x');
    });
    control_.Replace({at, at + kKeys + 1}, "");
    ::UpdateWindow(control_.Handle());
    return seconds / kKeys;
  }

  double Page() {
    ::BringWindowToTop(Handle());
    ::SendMessageW(control_.Handle(), WM_VSCROLL, SB_TOP, 0);
    ::UpdateWindow(control_.Handle());
    double seconds = Seconds([&] {
      for (int page = 0; page < kPages; ++page) {
        ::SendMessageW(control_.Handle(), WM_VSCROLL, SB_PAGEDOWN, 0);
        ::UpdateWindow(control_.Handle());
      }
    });
    Check(control_.TopLine() > LineNo(kPages), "every page shown");
    return seconds / kPages;
  }

 private:
  void Type(char16_t unit) {
    MSG message{control_.Handle(), WM_CHAR, unit, 0, 0, {}};
    control_.PreDispatch(message);
    ::UpdateWindow(control_.Handle());
  }

  TextControl control_;
};

// The same text with and without colours.
struct Windows {
  explicit Windows(const std::string& text) : coloured(text, true), plain(text, false) {}

  // Measures both in turn, many times: what disturbs a round only ever makes it longer.
  template <typename Measure>
  void Compare(const std::string& work, double goal, Measure measure) {
    double with = 1e9, without = 1e9;
    for (int round = 0; round < kRounds; ++round) {
      without = std::min(without, measure(plain));
      with = std::min(with, measure(coloured));
    }
    Row({work, with, "without colours", without, "s", goal});
  }

  Window coloured, plain;
};

struct Place {
  const char* name;
  double share;
};
constexpr std::array<Place, 3> kPlaces{{{"start", 0}, {"middle", 0.5}, {"end", 1}}};

void Keys(std::size_t megabytes, std::string_view start, const std::string& kind) {
  Windows windows(Source(megabytes << 20, start));
  std::string of = " of " + std::to_string(megabytes) + " MB of " + kind;
  for (const Place& place : kPlaces)
    windows.Compare(std::string("one key at the ") + place.name + of, 0.9,
                    [&](Window& window) { return window.Key(place.share); });
}

void Pages(std::size_t megabytes) {
  Windows windows(Source(megabytes << 20, ""));
  windows.Compare("one page of " + std::to_string(megabytes) + " MB of C", 1 / 1.5,
                  [](Window& window) { return window.Page(); });
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  using namespace tarrow::bench;  // NOLINT
  bool quick = IsQuick(argc, argv);
  Pages(1);
  for (std::size_t megabytes : quick ? std::vector<std::size_t>{1} : std::vector<std::size_t>{1, 10, 100})
    Keys(megabytes, "", "C");
  Keys(quick ? 1 : 100, "/* never closed\r\n", "a comment");
}
