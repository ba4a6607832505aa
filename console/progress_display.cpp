#include "console/progress_display.h"

#include "base/exceptions.h"
#include "base/text_format.h"
#include "console/system.h"

#include <algorithm>

namespace tarrow {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kDelay{500};
constexpr milliseconds kPeriod{200};
constexpr std::size_t kNameWidth = 60;

}  // namespace

ProgressDisplay::ProgressDisplay() : enabled_(IsTerminal(Stream::kError)), next_(Clock::now() + kDelay) {}

void ProgressDisplay::Begin(std::string_view name) {
  name_ =
      name.size() > kNameWidth ? std::string("...").append(name.substr(name.size() - kNameWidth + 3)) : name;
  total_ = read_ = 0;
}

void ProgressDisplay::Poll() {
  if (Interrupted()) throw CYieldException();
  if (!enabled_ || Clock::now() < next_) return;
  next_ = Clock::now() + kPeriod;
  std::string text = Text();
  std::size_t width = text.size();
  text.resize(std::max(width, shown_), ' ');
  WriteTo(Stream::kError, "\r" + text);
  shown_ = width;
}

std::string ProgressDisplay::Text() const {
  if (total_ > 0) return FormatText("%s: %d%%", {name_, std::min(read_, total_) * 100 / total_});
  return FormatText("%s: %d MB", {name_, read_ >> 20});
}

void ProgressDisplay::Clear() {
  if (shown_ == 0) return;
  WriteTo(Stream::kError, "\r" + std::string(shown_, ' ') + "\r");
  shown_ = 0;
}

}  // namespace tarrow
