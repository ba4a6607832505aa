#include "framework/wnd.h"

#include "framework/unicode.h"

#include <set>
#include <unordered_map>
#include <utility>

namespace tarrow {
namespace {

using WindowMap = std::unordered_map<HWND, CWnd*>;

WindowMap& Windows() {
  static WindowMap windows;
  return windows;
}

// The object whose window is being created: the window's first message finds it here.
CWnd* beingCreated = nullptr;

CWnd::ExceptionReporter exceptionReporter = nullptr;

void RegisterOnce(const WindowClass& windowClass, WNDPROC procedure) {
  static std::set<std::wstring> registered;
  if (!registered.insert(windowClass.name).second) return;
  WNDCLASSEXW wc{};
  wc.cbSize = sizeof wc;
  wc.style = windowClass.style;
  wc.lpfnWndProc = procedure;
  wc.hInstance = ModuleInstance();
  wc.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(windowClass.cursor));
  wc.hbrBackground = windowClass.background;
  wc.lpszClassName = windowClass.name;
  if (windowClass.icon) {
    auto load = [&](int metric) {
      return static_cast<HICON>(::LoadImageW(wc.hInstance, MAKEINTRESOURCEW(windowClass.icon), IMAGE_ICON,
                                             ::GetSystemMetrics(metric), ::GetSystemMetrics(metric),
                                             LR_SHARED));
    };
    wc.hIcon = load(SM_CXICON);
    wc.hIconSm = load(SM_CXSMICON);
  }
  ::RegisterClassExW(&wc);
}

}  // namespace

HINSTANCE ModuleInstance() {
  return ::GetModuleHandleW(nullptr);
}

constinit const MessageMap CWnd::kMessageMap = MessageMap::Make<nullptr>();

CWnd::~CWnd() {
  if (!handle_) return;
  HWND window = handle_;
  if (original_) ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original_));
  Unbind();  // no message of the dying window may reach a half-destroyed object
  ::DestroyWindow(window);
}

CWnd* CWnd::FromHandle(HWND window) {
  auto found = Windows().find(window);
  return found == Windows().end() ? nullptr : found->second;
}

bool CWnd::Create(const WindowClass& windowClass, const WindowSpec& spec) {
  RegisterOnce(windowClass, StaticProc);
  return CreateBound([&] {
           return ::CreateWindowExW(spec.exStyle, windowClass.name, spec.title.c_str(), spec.style,
                                    spec.bounds.left, spec.bounds.top, spec.bounds.right, spec.bounds.bottom,
                                    spec.parent, spec.menuOrId, ModuleInstance(), nullptr);
         }) != nullptr;
}

HWND CWnd::CreateBound(const std::function<HWND()>& create) {
  CWnd* outer = std::exchange(beingCreated, this);
  HWND window = create();
  bool neverBound = beingCreated == this;
  beingCreated = outer;
  if (neverBound && !window) OnFinalMessage();  // may delete this object: it never had a window
  return window;
}

void CWnd::Subclass(HWND control) {
  handle_ = control;
  Windows()[control] = this;
  original_ = reinterpret_cast<WNDPROC>(
      ::SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&StaticProc)));
}

void CWnd::Destroy() {
  if (handle_) ::DestroyWindow(handle_);
}

RECT CWnd::ClientRect() const {
  RECT client{};
  ::GetClientRect(handle_, &client);
  return client;
}

std::string CWnd::Text() const {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(handle_)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(::GetWindowTextW(handle_, text.data(), static_cast<int>(text.size()))));
  return ToUtf8(text);
}

void CWnd::SetText(std::string_view text) {
  ::SetWindowTextW(handle_, ToWide(text).c_str());
}

CWnd::ExceptionReporter CWnd::SetExceptionReporter(ExceptionReporter reporter) {
  return std::exchange(exceptionReporter, reporter);
}

LRESULT CWnd::DefaultProc(UINT message, WPARAM w, LPARAM l) {
  return original_ ? ::CallWindowProcW(original_, handle_, message, w, l)
                   : ::DefWindowProcW(handle_, message, w, l);
}

LRESULT CWnd::Default() {
  current_->passedOn = true;
  return DefaultProc(current_->message, current_->w, current_->l);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_COMMAND) {
    // An accelerator's command (code 1) is the same command as a menu item's (code 0).
    auto control = reinterpret_cast<HWND>(l);
    UINT code = control ? HIWORD(w) : 0;
    if (LRESULT result = 0; RunCommand(LOWORD(w), code, control, result)) return result;
  } else if (LRESULT result = 0; HandleMessage(message, w, l, result)) {
    return result;
  }
  return Default();
}

CWnd* CWnd::Bind(HWND window) {
  if (CWnd* object = FromHandle(window)) return object;
  CWnd* object = std::exchange(beingCreated, nullptr);
  if (!object) return nullptr;
  object->handle_ = window;
  Windows()[window] = object;
  return object;
}

void CWnd::Unbind() {
  Windows().erase(handle_);
  handle_ = nullptr;
  original_ = nullptr;
}

LRESULT CWnd::Dispatch(UINT message, WPARAM w, LPARAM l) noexcept {
  CurrentMessage current{message, w, l};
  CurrentMessage* outer = std::exchange(current_, &current);
  ++depth_;
  LRESULT result = 0;
  try {
    result = WindowProc(message, w, l);
  } catch (...) {
    if (exceptionReporter) exceptionReporter(std::current_exception());
    if (message == WM_CREATE) result = -1;
  }
  current_ = outer;
  if (message == WM_NCDESTROY) Unbind();
  if (--depth_ == 0 && !handle_) OnFinalMessage();
  return result;
}

LRESULT CALLBACK CWnd::StaticProc(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
  CWnd* object = Bind(window);
  return object ? object->Dispatch(message, w, l) : ::DefWindowProcW(window, message, w, l);
}

}  // namespace tarrow
