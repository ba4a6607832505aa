// The least program with windows inside a frame: what it costs to start, open, close and leave when nothing
// is done for the user. Tarrow is measured beside it (start_benchmark.cpp, many_windows_benchmark.cpp).
//
// Without arguments it comes with one window, maximised. With a number it shows its frame and then opens as
// many, maximised when a second word follows. Each holds the platform's own edit control with some text, as a
// window for texts does. Command 7004 closes them all, one by one.
#include <windows.h>

#include <cstdio>
#include <string>

namespace {

constexpr UINT kFirstChildId = 0xFF00;
constexpr WPARAM kCloseAll = 7004;

HWND client;

HWND CreateClient(HWND frame) {
  CLIENTCREATESTRUCT create = {nullptr, kFirstChildId};
  return CreateWindowExW(WS_EX_CLIENTEDGE, L"MDICLIENT", nullptr, WS_CHILD | WS_CLIPCHILDREN | WS_VISIBLE, 0,
                         0, 0, 0, frame, nullptr, GetModuleHandleW(nullptr), &create);
}

void CloseAll() {
  while (auto child = reinterpret_cast<WPARAM>(GetWindow(client, GW_CHILD)))
    SendMessageW(client, WM_MDIDESTROY, child, 0);
}

LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_CREATE) client = CreateClient(window);
  if (message == WM_COMMAND && wparam == kCloseAll) CloseAll();
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefFrameProcW(window, client, message, wparam, lparam);
}

// The text fills the window; the least that a window for texts must do.
LRESULT CALLBACK ChildProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  HWND edit = GetWindow(window, GW_CHILD);
  if (message == WM_CREATE)
    CreateWindowW(L"EDIT", L"some text\r\n",
                  WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL, 0, 0, 0, 0, window,
                  nullptr, GetModuleHandleW(nullptr), nullptr);
  if (message == WM_SIZE && edit) MoveWindow(edit, 0, 0, LOWORD(lparam), HIWORD(lparam), TRUE);
  if (message == WM_SETFOCUS && edit) SetFocus(edit);
  return DefMDIChildProcW(window, message, wparam, lparam);
}

void Register(const wchar_t* name, WNDPROC procedure) {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  windowClass.lpszClassName = name;
  RegisterClassW(&windowClass);
}

void OpenWindows(const char* commandLine) {
  int count = 1;
  char maximised[2] = "";
  int words = std::sscanf(commandLine, "%d %1s", &count, maximised);
  DWORD style = words == 1 ? 0 : WS_MAXIMIZE;  // no words at all: one window, maximised
  for (int i = 0; i < count; ++i)
    CreateMDIWindowW(L"BareChild", (L"Child " + std::to_wstring(i)).c_str(), style, CW_USEDEFAULT,
                     CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, client, GetModuleHandleW(nullptr), 0);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR commandLine, int show) {
  Register(L"BareFrame", FrameProcedure);
  Register(L"BareChild", ChildProcedure);
  HWND frame =
      CreateWindowW(L"BareFrame", L"Bare", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                    CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, instance, nullptr);
  if (!frame) return 1;
  bool isFilledFirst = *commandLine == '\0';
  if (isFilledFirst) OpenWindows(commandLine);
  ShowWindow(frame, show);
  UpdateWindow(frame);
  if (!isFilledFirst) OpenWindows(commandLine);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (TranslateMDISysAccel(client, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
