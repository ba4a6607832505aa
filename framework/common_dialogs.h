// The dialogs of the platform's COMDLG32.DLL, which is loaded when the first of them is asked for: with it
// come the libraries of printing and more, which would make every start a tenth longer.
//
// Each is called like the platform's function of that name. Without the library they fail as if the user had
// cancelled.
#pragma once

#include <windows.h>
// After windows.h, which it needs.
#include <commdlg.h>

namespace tarrow {

template <typename Function>
class CommonDialogFunction;

template <typename Result, typename... Arguments>
class CommonDialogFunction<Result WINAPI(Arguments...)> {
 public:
  explicit constexpr CommonDialogFunction(const char* name) : name_(name) {}

  Result operator()(Arguments... arguments) const {
    // Stays loaded: whoever has shown one dialog will show another.
    static const HMODULE library = ::LoadLibraryW(L"COMDLG32.DLL");
    auto function = library ? ::GetProcAddress(library, name_) : nullptr;
    return function ? reinterpret_cast<Result(WINAPI*)(Arguments...)>(function)(arguments...) : Result();
  }

 private:
  const char* name_;
};

inline constexpr CommonDialogFunction<decltype(::ChooseFontW)> kChooseFont("ChooseFontW");
inline constexpr CommonDialogFunction<decltype(::CommDlgExtendedError)> kCommDlgExtendedError(
    "CommDlgExtendedError");
inline constexpr CommonDialogFunction<decltype(::FindTextW)> kFindText("FindTextW");
inline constexpr CommonDialogFunction<decltype(::PrintDlgW)> kPrintDlg("PrintDlgW");
inline constexpr CommonDialogFunction<decltype(::ReplaceTextW)> kReplaceText("ReplaceTextW");

}  // namespace tarrow
