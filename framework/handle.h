// Owners of the handles of Windows, and guards for calls that come in pairs.
//
// A UniqueHandle closes what it holds; a guard undoes in its destructor what its constructor did. Nothing in
// the program closes a handle by hand.
#pragma once

#include <windows.h>

#include <utility>

namespace tarrow {

// Owns a handle of type T that `Close` releases. T{} is "none".
template <typename T, auto Close>
class UniqueHandle {
 public:
  UniqueHandle() = default;
  explicit UniqueHandle(T handle) : handle_(handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.Release()) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    Reset(other.Release());
    return *this;
  }
  ~UniqueHandle() { Reset(); }

  T Get() const { return handle_; }
  explicit operator bool() const { return handle_ != T{}; }
  [[nodiscard]] T Release() { return std::exchange(handle_, T{}); }
  void Reset(T handle = T{}) {
    if (T old = std::exchange(handle_, handle); old != T{} && old != handle) Close(old);
  }

 private:
  T handle_{};
};

namespace detail {
inline void DeleteGdiObject(HGDIOBJ object) {
  ::DeleteObject(object);
}
inline void CloseAnyHandle(HANDLE handle) {
  if (handle != INVALID_HANDLE_VALUE) ::CloseHandle(handle);
}
}  // namespace detail

using FontHandle = UniqueHandle<HFONT, detail::DeleteGdiObject>;
using BitmapHandle = UniqueHandle<HBITMAP, detail::DeleteGdiObject>;
using BrushHandle = UniqueHandle<HBRUSH, detail::DeleteGdiObject>;
using PenHandle = UniqueHandle<HPEN, detail::DeleteGdiObject>;
using RegionHandle = UniqueHandle<HRGN, detail::DeleteGdiObject>;
using MemoryDcHandle = UniqueHandle<HDC, ::DeleteDC>;
using MenuHandle = UniqueHandle<HMENU, ::DestroyMenu>;
using IconHandle = UniqueHandle<HICON, ::DestroyIcon>;
using ModuleHandle = UniqueHandle<HMODULE, ::FreeLibrary>;
using KernelHandle = UniqueHandle<HANDLE, detail::CloseAnyHandle>;

// A device context of a window's client area.
class ClientDc {
 public:
  explicit ClientDc(HWND window) : window_(window), dc_(::GetDC(window)) {}
  ~ClientDc() { ::ReleaseDC(window_, dc_); }
  ClientDc(const ClientDc&) = delete;
  ClientDc& operator=(const ClientDc&) = delete;
  operator HDC() const { return dc_; }  // NOLINT

 private:
  HWND window_;
  HDC dc_;
};

// BeginPaint and EndPaint.
class PaintDc {
 public:
  explicit PaintDc(HWND window) : window_(window) { ::BeginPaint(window, &paint_); }
  ~PaintDc() { ::EndPaint(window_, &paint_); }
  PaintDc(const PaintDc&) = delete;
  PaintDc& operator=(const PaintDc&) = delete;
  operator HDC() const { return paint_.hdc; }  // NOLINT
  const RECT& Area() const { return paint_.rcPaint; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
};

// An object selected into a device context until the end of the scope.
class SelectedObject {
 public:
  SelectedObject(HDC dc, HGDIOBJ object) : dc_(dc), old_(::SelectObject(dc, object)) {}
  ~SelectedObject() { ::SelectObject(dc_, old_); }
  SelectedObject(const SelectedObject&) = delete;
  SelectedObject& operator=(const SelectedObject&) = delete;

 private:
  HDC dc_;
  HGDIOBJ old_;
};

// The clipboard, opened for `owner`; false while another program holds it.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) : open_(::OpenClipboard(owner) != 0) {}
  ~OpenedClipboard() {
    if (open_) ::CloseClipboard();
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  explicit operator bool() const { return open_; }

 private:
  bool open_;
};

// Drawing of a window suspended; at the end it is painted once.
class RedrawOff {
 public:
  explicit RedrawOff(HWND window) : window_(window) { ::SendMessageW(window, WM_SETREDRAW, FALSE, 0); }
  ~RedrawOff() {
    ::SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    ::RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
  }
  RedrawOff(const RedrawOff&) = delete;
  RedrawOff& operator=(const RedrawOff&) = delete;

 private:
  HWND window_;
};

}  // namespace tarrow
