// CWnd: a window as an object, and how messages reach it.
//
// A CWnd is a handle and a message map. The object is bound to its window at the window's very first message
// (WM_GETMINMAXINFO comes before WM_NCCREATE), so no message is ever missed, and unbound at its last. It may
// be a member of its owner, or own itself: OnFinalMessage() is called when the window is gone and the
// outermost message has returned, and may delete the object. An exception never leaves a window procedure;
// what a handler throws is handed to the reporter that the program has set.
//
// All windows belong to the one user-interface thread.
#pragma once

#include "framework/command_target.h"

#include <windows.h>

#include <exception>
#include <functional>
#include <string>
#include <string_view>

namespace tarrow {

// A window class: registered once, at the first window of that name. Fields left out have the usual values.
struct WindowClass {
  const wchar_t* name;
  UINT style = CS_DBLCLKS;
  WORD cursor = 32512;  // number of a system cursor: 32512 the arrow, 32513 the I-beam
  HBRUSH background = nullptr;
  WORD icon = 0;  // resource number, 0: none
};

// Where and how a window is made; sizes in pixels.
struct WindowSpec {
  std::wstring title;
  DWORD style = 0;
  DWORD exStyle = 0;
  RECT bounds{CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT};  // left, top, width, height
  HWND parent = nullptr;
  HMENU menuOrId = nullptr;
};

class CWnd : public CommandTarget {
 public:
  ~CWnd() override;

  HWND Handle() const { return handle_; }
  bool Exists() const { return handle_ != nullptr; }

  // The object of a window, or null when the window is none of ours.
  static CWnd* FromHandle(HWND window);

  // Creates the window of a registered class. False, with the cause in GetLastError(), when it could not be
  // made.
  [[nodiscard]] bool Create(const WindowClass& windowClass, const WindowSpec& spec);

  // Takes over a standard control: its messages come here first, Default() is the control's own procedure.
  void Subclass(HWND control);

  void Destroy();

  LRESULT Send(UINT message, WPARAM w = 0, LPARAM l = 0) const {
    return ::SendMessageW(handle_, message, w, l);
  }
  bool Post(UINT message, WPARAM w = 0, LPARAM l = 0) const {
    return ::PostMessageW(handle_, message, w, l) != 0;
  }
  void Invalidate(const RECT* area = nullptr, bool erase = false) const {
    ::InvalidateRect(handle_, area, erase);
  }
  RECT ClientRect() const;
  std::string Text() const;
  void SetText(std::string_view text);

  // A message taken from the queue, before it is dispatched: true when it has been dealt with.
  virtual bool PreDispatch(const MSG&) { return false; }

  // What to do with an exception that a handler let out. Returns the reporter before it.
  using ExceptionReporter = void (*)(std::exception_ptr);
  static ExceptionReporter SetExceptionReporter(ExceptionReporter reporter);

 protected:
  CWnd() = default;

  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

  // The window's own answer to a message that no handler takes.
  virtual LRESULT DefaultProc(UINT message, WPARAM w, LPARAM l);

  // Passes on the message being handled to DefaultProc.
  LRESULT Default();

  // Looks the message up and calls its handler, or DefaultProc.
  virtual LRESULT WindowProc(UINT message, WPARAM w, LPARAM l);

  // The window is gone and nothing of the object is on the stack any more.
  virtual void OnFinalMessage() {}

  // Runs `create`, which makes a window whose procedure is StaticProc (or a dialog), with this object bound
  // to the first window that it makes.
  HWND CreateBound(const std::function<HWND()>& create);
  static LRESULT CALLBACK StaticProc(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;

  // Finds or binds the object of `window`; null when it is not ours.
  static CWnd* Bind(HWND window);

  // WindowProc with everything around it: the current message, the last message, exceptions.
  LRESULT Dispatch(UINT message, WPARAM w, LPARAM l) noexcept;
  bool DefaultWasCalled() const { return current_ && current_->passedOn; }

 private:
  struct CurrentMessage {
    UINT message;
    WPARAM w;
    LPARAM l;
    bool passedOn = false;
  };

  void Unbind();

  HWND handle_ = nullptr;
  WNDPROC original_ = nullptr;  // of a subclassed control
  CurrentMessage* current_ = nullptr;
  int depth_ = 0;
};

// The module that holds the program's classes and resources.
HINSTANCE ModuleInstance();

}  // namespace tarrow
