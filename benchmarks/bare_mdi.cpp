// The least program with windows inside a frame: what a start costs that does nothing for its user. The start
// of Tarrow is measured beside it (scripts/bench_start.py).
#include <windows.h>

namespace {

constexpr UINT kFirstChildId = 0xFF00;

HWND CreateClient(HWND frame) {
  CLIENTCREATESTRUCT create = {nullptr, kFirstChildId};
  return CreateWindowExW(WS_EX_CLIENTEDGE, L"MDICLIENT", nullptr, WS_CHILD | WS_CLIPCHILDREN | WS_VISIBLE, 0,
                         0, 0, 0, frame, nullptr, GetModuleHandleW(nullptr), &create);
}

LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  static HWND client;
  if (message == WM_CREATE) client = CreateClient(window);
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefFrameProcW(window, client, message, wparam, lparam);
}

LRESULT CALLBACK ChildProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
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

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
  Register(L"BareFrame", FrameProcedure);
  Register(L"BareChild", ChildProcedure);
  HWND frame =
      CreateWindowW(L"BareFrame", L"Bare", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                    CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, instance, nullptr);
  if (!frame) return 1;
  HWND client = FindWindowExW(frame, nullptr, L"MDICLIENT", nullptr);
  CreateMDIWindowW(L"BareChild", L"Child", WS_MAXIMIZE, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                   CW_USEDEFAULT, client, instance, 0);
  ShowWindow(frame, show);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (TranslateMDISysAccel(client, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
