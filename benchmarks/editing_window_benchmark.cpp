// The same changes in a text control and in the platform's multi-line edit control, where each is a selection
// and an EM_REPLACESEL, as a program without a list of replacements would do it.
#include "benchmarks/report.h"
#include "edit/commands/shift_lines.h"
#include "edit/control/text_control.h"
#include "search/find/replace_all.h"
#include "search/pattern/find_pattern.h"

#include <functional>

namespace tarrow::bench {
namespace {

constexpr double kGoal = 100;
constexpr RECT kBounds{0, 0, 640, 400};

// A window to hold the controls.
class Holder final : public CWnd {
 public:
  Holder() {
    static const WindowClass windowClass{L"TarrowBenchHolder"};
    WindowSpec spec;
    spec.style = WS_POPUP | WS_VISIBLE;
    spec.bounds = kBounds;
    Check(Create(windowClass, spec), "window");
  }
};

using Changes = std::function<EditList(std::string_view)>;

std::string RepeatLine(std::string_view line, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += line;
  return text;
}

double TimeEdit(HWND holder, const std::string& text, const Changes& find, std::string& result) {
  HWND edit =
      ::CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOHSCROLL | ES_AUTOVSCROLL,
                        0, 0, kBounds.right, kBounds.bottom, holder, nullptr, ModuleInstance(), nullptr);
  ::SendMessageA(edit, EM_LIMITTEXT, 0, 0);
  ::SetWindowTextA(edit, text.c_str());
  double seconds = Seconds([&] {
    EditList edits = find(text);
    std::int32_t shift = 0;
    for (std::size_t i = 0; i < edits.Size(); ++i) {
      std::string by(edits[i].text);
      ::SendMessageA(edit, EM_SETSEL, static_cast<WPARAM>(edits[i].range.start.value + shift),
                     edits[i].range.end.value + shift);
      ::SendMessageA(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(by.c_str()));
      shift += static_cast<std::int32_t>(by.size()) - edits[i].range.Length();
    }
    ::UpdateWindow(edit);
  });
  result.resize(static_cast<std::size_t>(::GetWindowTextLengthA(edit)) + 1);
  ::GetWindowTextA(edit, result.data(), static_cast<int>(result.size()));
  result.pop_back();
  ::DestroyWindow(edit);
  return seconds;
}

double TimeTarrow(HWND holder, const std::string& text, const Changes& find, std::string& result) {
  TextControl control;
  Check(control.CreateControl(holder, 1, WS_CHILD | WS_VISIBLE, kBounds), "control");
  TextBuffer buffer;
  buffer.Replace({}, text);
  control.Adopt(std::move(buffer));
  double seconds = Seconds([&] {
    Check(control.Apply(find(control.ContiguousText()), {}), "apply");
    ::UpdateWindow(control.Handle());
  });
  result = control.View().Copy();
  control.Destroy();
  return seconds;
}

void Bench(const std::string& work, const std::string& text, const Changes& find) {
  Holder holder;
  std::string byTarrow, byEdit;
  double tarrow = TimeTarrow(holder.Handle(), text, find, byTarrow);
  double edit = TimeEdit(holder.Handle(), text, find, byEdit);
  Check(byTarrow == byEdit, work.c_str());
  Row({work, tarrow, "EM_REPLACESEL on EDIT", edit, "s", kGoal});
}

EditList ReplaceNeedles(std::string_view text) {
  CompiledPattern pattern;
  Check(CompileFindPattern("needle", {}, pattern) == PatternError::kNone, "pattern");
  TextRange whole{BytePos(0), TextView(text).End()};
  return ReplaceAll(pattern, text, whole, Replacement("threads", Charset())).edits;
}

EditList ShiftAll(std::string_view text) {
  return ShiftLines(TextView(text), {BytePos(0), TextView(text).End()}, 4, {}).edits;
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  using namespace tarrow::bench;
  int lines = IsQuick(argc, argv) ? 500 : 5000;
  std::string text = RepeatLine("\tint needle = compute(value, 17);  // a comment\r\n", lines);
  Bench("Replace All, " + std::to_string(lines) + " matches, in a window", text, ReplaceNeedles);
  Bench("Shift Right, " + std::to_string(lines) + " lines, in a window", text, ShiftAll);
}
