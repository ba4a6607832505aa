#include "framework/text_resources.h"

#include "framework/unicode.h"
#include "framework/wnd.h"

namespace tarrow {

std::string LoadText(int id) {
  // With a size of 0 the function returns a pointer to the resource itself, whatever its length.
  const wchar_t* text = nullptr;
  int length = ::LoadStringW(ModuleInstance(), static_cast<UINT>(id), reinterpret_cast<LPWSTR>(&text), 0);
  return length > 0 ? ToUtf8(std::wstring_view(text, static_cast<std::size_t>(length))) : std::string();
}

std::string FormatTextResource(int id, std::initializer_list<FormatArg> args) {
  std::string text = LoadText(id);
  return text.empty() ? FormatText("*%d*", {id}) : FormatText(text, args);
}

}  // namespace tarrow
