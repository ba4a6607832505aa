#include "framework/platform.h"

#include <windows.h>

namespace tarrow {

bool IsWine() {
  static const bool isWine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return isWine;
}

}  // namespace tarrow
