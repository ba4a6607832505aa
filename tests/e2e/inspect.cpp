#include "tests/e2e/inspect.h"

#include <algorithm>
#include <vector>

#include "framework/unicode.h"

namespace tarrow::probe {
namespace {

constexpr UINT kPatienceMs = 2000;

// A document's text is one too: what is looked at is its beginning.
constexpr std::size_t kLongestText = 4096;

BOOL CALLBACK Collect(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

std::string ClassOf(HWND window) {
  wchar_t name[256] = {};
  GetClassNameW(window, name, 256);
  return ToUtf8(name);
}

void DescribeRect(Json& out, const RECT& rect) {
  out.BeginArray().Number(rect.left).Number(rect.top).Number(rect.right).Number(rect.bottom).EndArray();
}

std::int64_t Handle(HWND window) {
  return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(window));
}

void DescribeWindow(Json& out, HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  RECT rect = {};
  GetWindowRect(window, &rect);
  const std::string className = ClassOf(window);
  out.Key("handle").Number(Handle(window)).Key("class").Text(className).Key("text").Text(TextOf(window));
  out.Key("id").Number(GetDlgCtrlID(window)).Key("process").Number(process).Key("rect");
  DescribeRect(out, rect);
  out.Key("visible").Bool(IsWindowVisible(window)).Key("enabled").Bool(IsWindowEnabled(window));
  out.Key("zoomed").Bool(IsZoomed(window)).Key("iconic").Bool(IsIconic(window));
  out.Key("owner").Number(Handle(GetWindow(window, GW_OWNER)));
  if (className == "Button") out.Key("checked").Bool(Ask(window, BM_GETCHECK, 0, 0) == BST_CHECKED);
}

void DescribeWithChildren(Json& out, HWND window, bool hiddenToo) {
  out.BeginObject();
  DescribeWindow(out, window);
  out.Key("children").BeginArray();
  for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (hiddenToo || IsWindowVisible(child)) DescribeWithChildren(out, child, hiddenToo);
  }
  out.EndArray().EndObject();
}

}  // namespace

LRESULT Ask(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  DWORD_PTR answer = 0;
  const LRESULT arrived =
      SendMessageTimeoutW(window, message, wparam, lparam, SMTO_ABORTIFHUNG, kPatienceMs, &answer);
  return arrived ? static_cast<LRESULT>(answer) : -1;
}

std::string TextOf(HWND window) {
  const LRESULT length = Ask(window, WM_GETTEXTLENGTH, 0, 0);
  if (length <= 0) return {};
  std::vector<wchar_t> text(std::min(static_cast<std::size_t>(length), kLongestText) + 1);
  const LRESULT got = Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return got > 0 ? ToUtf8({text.data(), static_cast<std::size_t>(got)}) : std::string();
}

void DescribeDesktop(Json& out, bool withChildren) {
  std::vector<HWND> windows;
  EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
  out.BeginArray();
  for (HWND window : windows) {
    if (!IsWindowVisible(window)) continue;
    if (withChildren) {
      DescribeWithChildren(out, window, false);
    } else {
      out.BeginObject();
      DescribeWindow(out, window);
      out.EndObject();
    }
  }
  out.EndArray();
}

void DescribeTree(Json& out, HWND window) {
  DescribeWithChildren(out, window, true);
}

void DescribeFocus(Json& out) {
  const HWND foreground = GetForegroundWindow();
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(foreground, nullptr), &info);
  out.BeginObject().Key("foreground").Number(Handle(foreground));
  out.Key("active").Number(Handle(info.hwndActive)).Key("focus").Number(Handle(info.hwndFocus));
  out.Key("focusClass").Text(info.hwndFocus ? ClassOf(info.hwndFocus) : std::string());
  out.Key("inMenu").Bool((info.flags & GUI_INMENUMODE) != 0);
  out.EndObject();
}

}  // namespace tarrow::probe
