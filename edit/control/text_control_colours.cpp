// Colours: what is known of the lines in view before they are drawn, and what is found out in idle time.
//
// Drawing never waits. The lines of the view and some above them are lexed first, from what is supposed of
// them; a timer goes through the rest of the text in slices, and lines that turn out otherwise are drawn
// again.
#include "edit/control/text_control.h"
#include "framework/platform.h"

#include <algorithm>
#include <chrono>

namespace tarrow {
namespace {

constexpr std::int64_t kAtOnce = 1 << 16;        // bytes lexed before the view is drawn
constexpr std::int64_t kBetweenLooks = 1 << 17;  // bytes lexed between two looks at the clock
constexpr std::chrono::milliseconds kSlice{4};

// Lines above the view from which on it is lexed: more than most comments have.
constexpr std::int64_t kAbove = 200;

}  // namespace

void TextControl::SetLexer(const Lexer* lexer) {
  if (colouring_.SetLexer(lexer)) RestartColours();
}

void TextControl::SetStyles(const std::optional<StyleChoices>& choices) {
  colouring_.SetChoices(choices);
  RestartColours();
}

void TextControl::RestartColours() {
  colouring_.Start(buffer_, IsHighContrast());
  WantIdleTime();
  Invalidate();
}

LineRange TextControl::LinesOfView() const {
  return {top_.value, std::int64_t{top_.value} + LinesInView() + 2};
}

void TextControl::InvalidateStyles(LineRange lines) const {
  LineRange view = LinesOfView();
  lines = {std::max(lines.first, view.first), std::min(lines.end, view.end)};
  if (!lines.Empty()) InvalidateLines(LineNo(lines.first), LineNo(lines.end - 1));
}

// Before anything of the view is drawn.
void TextControl::SettleView() {
  if (colouring_.States().IsSettled()) return;
  LineRange view = LinesOfView();
  view.first = std::max<std::int64_t>(0, view.first - kAbove);
  InvalidateStyles(colouring_.States().Settle(buffer_, view, kAtOnce));
  WantIdleTime();
}

// A timer's message comes when there is no other.
void TextControl::WantIdleTime() {
  if (settles_ || colouring_.States().IsSettled()) return;
  settles_ = ::SetTimer(Handle(), kSettleTimer, USER_TIMER_MINIMUM, nullptr) != 0;
}

void TextControl::OnIdleTime() {
  SettleView();
  auto until = std::chrono::steady_clock::now() + kSlice;
  LineStates& states = colouring_.States();
  do {
    InvalidateStyles(states.Settle(buffer_, LineStates::kAllLines, kBetweenLooks));
  } while (!states.IsSettled() && std::chrono::steady_clock::now() < until);
  if (!states.IsSettled()) return;
  ::KillTimer(Handle(), kSettleTimer);
  settles_ = false;
}

}  // namespace tarrow
