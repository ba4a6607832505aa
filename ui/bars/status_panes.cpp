#include "ui/bars/status_panes.h"

#include "base/text_format.h"

#include <algorithm>

namespace tarrow {

namespace {

// The widest caret text; its closing NUL is measured with it, which gives the pane its margin.
constexpr std::string_view kWidestCaret("1234567 : 1234", 15);

std::vector<std::string> SplitAtCommas(std::string_view words) {
  std::vector<std::string> parts;
  for (;;) {
    std::size_t comma = words.find(',');
    parts.emplace_back(words.substr(0, comma));
    if (comma == std::string_view::npos) return parts;
    words.remove_prefix(comma + 1);
  }
}

}  // namespace

int StatusPanes::AddCaret() {
  return Add({}, measure_(kWidestCaret));
}

int StatusPanes::AddWords(std::string_view words) {
  std::vector<std::string> texts = SplitAtCommas(words);
  int width = WidestOf(texts);
  return Add({std::move(texts), {}, -1}, width);
}

int StatusPanes::AddTwoState(std::string_view first, std::string_view second) {
  std::vector<std::string> texts{std::string(first), std::string(second)};
  int width = WidestOf(texts);
  return Add({std::move(texts), {}, -1}, width);
}

int StatusPanes::AddText(std::string_view widest) {
  return Add({{std::string()}, {}, 0}, measure_(widest));
}

int StatusPanes::Add(Pane pane, int width) {
  if (Count() == kMaxPanes) return -1;
  int left = panes_.empty() ? scale_(kFirstLeft) : panes_.back().span.right + scale_(kSpacing);
  pane.span = {left, left + width + 1};
  panes_.push_back(std::move(pane));
  return Count() - 1;
}

int StatusPanes::WidestOf(const std::vector<std::string>& texts) const {
  int widest = 0;
  for (const std::string& text : texts) widest = std::max(widest, measure_(text));
  return widest;
}

std::string StatusPanes::Text(int index) const {
  const Pane& pane = panes_[static_cast<std::size_t>(index)];
  if (pane.texts.empty()) return line_ == 0 ? std::string() : FormatText("%ld : %u", {line_, column_});
  auto state = static_cast<std::size_t>(pane.state);
  return state < pane.texts.size() ? pane.texts[state] : std::string();
}

bool StatusPanes::SetState(int index, int state) {
  if (index < 0 || index >= Count()) return false;
  int& current = panes_[static_cast<std::size_t>(index)].state;
  bool changed = current != state;
  current = state;
  return changed;
}

bool StatusPanes::SetText(int index, std::string_view text) {
  if (index < 0 || index >= Count()) return false;
  std::string& current = panes_[static_cast<std::size_t>(index)].texts[0];
  bool changed = current != text;
  current = text;
  return changed;
}

bool StatusPanes::SetCaret(long line, unsigned column) {
  bool changed = line_ != line || column_ != column;
  line_ = line;
  column_ = column;
  return changed;
}

}  // namespace tarrow
