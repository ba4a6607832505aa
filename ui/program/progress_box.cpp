#include "ui/program/progress_box.h"

#include "base/exceptions.h"
#include "resources/resource.h"
#include "ui/program/escape_key.h"

#include <commctrl.h>

#include <algorithm>

namespace tarrow {
namespace {

constexpr std::chrono::milliseconds kPatience{333};
constexpr std::chrono::milliseconds kPeriod{30};
constexpr int kParts = 1000;

}  // namespace

CProgressBox::CProgressBox(HWND frame, std::string_view text)
    : CDialog(IDD_PROGRESS), frame_(frame), text_(text) {
  ForgetEscape();
}

// The others come back first, or the system would bring another program to the front.
CProgressBox::~CProgressBox() {
  disabled_.reset();
  if (!Exists()) return;
  bool isInFront = ::GetActiveWindow() == Handle();
  Destroy();
  if (isInFront) ::SetActiveWindow(frame_);
}

void CProgressBox::SetWork(std::string_view work) {
  work_ = work;
}

void CProgressBox::Poll() {
  auto now = Clock::now();
  if (now - looked_ < kPeriod) return;
  looked_ = now;
  if (!Exists() && now - begun_ >= kPatience) Open();
  if (Exists()) {
    Show();
    DispatchForDialog(Handle());
  } else if (TakeEscape()) {
    isCancelled_ = true;
  }
  if (isCancelled_) throw CYieldException();
}

// Where the box cannot be made the work goes on without it, and Escape still ends it.
void CProgressBox::Open() {
  if (!CreateModeless(frame_)) return;
  disabled_.emplace(Handle());
  ::SetActiveWindow(Handle());
}

bool CProgressBox::OnInitDialog() {
  SetItemText(IDC_PROGRESS_TEXT, text_);
  ::SendMessageW(Item(IDC_PROGRESS_BAR), PBM_SETRANGE32, 0, kParts);
  ::ShowWindow(Item(IDC_PROGRESS_BAR), whole_ > 0 ? SW_SHOW : SW_HIDE);
  return true;
}

void CProgressBox::Show() {
  if (work_ != shownWork_) SetItemText(IDC_PROGRESS_WORK, shownWork_ = work_);
  std::string counts = counts_ ? counts_() : std::string();
  if (counts != shownCounts_) SetItemText(IDC_PROGRESS_COUNTS, shownCounts_ = counts);
  if (whole_ <= 0) return;
  int part = static_cast<int>(std::clamp(done_, std::int64_t{0}, whole_) * kParts / whole_);
  if (part == shownPart_) return;
  if (shownPart_ < 0) ::ShowWindow(Item(IDC_PROGRESS_BAR), SW_SHOW);
  shownPart_ = part;
  ::SendMessageW(Item(IDC_PROGRESS_BAR), PBM_SETPOS, static_cast<WPARAM>(part), 0);
}

}  // namespace tarrow
