#include "shell/frame/message_boxes.h"

#include "framework/dialog.h"
#include "framework/mdi.h"
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "ui/program/string_ids.h"

#include <new>

namespace tarrow {
namespace {

constexpr int kStatusSeconds = 5;

}  // namespace

int MessageBoxes::ShowMessageBox(HWND owner, UINT style, int id, std::initializer_list<FormatArg> args) {
  if (muted_) return IDCANCEL;
  try {
    std::wstring text = ToWide(FormatTextResource(id, args));
    return ::MessageBoxW(owner ? owner : frame_.Handle(), text.c_str(), ToWide(LoadText(kTextTitle)).c_str(),
                         style);
  } catch (const std::bad_alloc&) {
    ReportOutOfMemory();
    return IDCANCEL;
  }
}

int MessageBoxes::Ask(CDialog& question) {
  return muted_ ? IDCANCEL : question.DoModal(frame_.Handle());
}

// FlashWindowEx counts a change of the title bar, so two flashes are four of them.
void MessageBoxes::Alert(UINT sound, const CMDIChildWnd* window) {
  ::MessageBeep(sound);
  if (!settings_.Has(kVisibleAlerts)) return;
  HWND flashed = window && !::IsZoomed(window->Handle()) ? window->Handle() : frame_.Handle();
  FLASHWINFO info{sizeof info, flashed, FLASHW_CAPTION, 4, 100};
  ::FlashWindowEx(&info);
}

void MessageBoxes::ShowFileError(HWND owner, const CFileException& error) {
  Alert(MB_ICONSTOP, nullptr);
  std::string cause = LoadText(kTextFirstFileCause + static_cast<int>(error.Cause()));
  ShowMessageBox(owner, MB_ICONEXCLAMATION, kTextFileError, {error.Path(), cause});
}

void MessageBoxes::ReportOutOfMemory() {
  Alert(MB_ICONEXCLAMATION, nullptr);
  status_.ShowStatusId(kTextOutOfMemory, kStatusSeconds);
}

void MessageBoxes::ReportException(std::exception_ptr exception) {
  try {
    std::rethrow_exception(exception);
  } catch (const CFileException& error) {
    ShowFileError(nullptr, error);
  } catch (const CYieldException&) {
    Alert(MB_ICONEXCLAMATION, nullptr);
    status_.ShowStatusId(kTextCancelled, kStatusSeconds);
  } catch (const std::exception&) {
    ReportOutOfMemory();
  }
}

}  // namespace tarrow
