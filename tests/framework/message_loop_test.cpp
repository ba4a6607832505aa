#include "framework/message_loop.h"

#include "framework/wnd.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

constexpr UINT kSomething = WM_USER + 1;

// A window with a timer that ends the loop when it has come often enough, and posts a message each time.
class Ticking : public CWnd {
 public:
  explicit Ticking(UINT posted) : posted_(posted) {
    static const WindowClass windowClass{L"TarrowTestTicking"};
    WindowSpec spec;
    spec.style = WS_POPUP;
    isMade = Create(windowClass, spec);
    ::SetTimer(Handle(), 1, 10, nullptr);
  }
  bool isMade = false;

 private:
  LRESULT WindowProc(UINT message, WPARAM w, LPARAM l) override {
    if (message == WM_TIMER) {
      if (++ticks_ == 10) ::PostQuitMessage(0);
      if (posted_) Post(posted_);
    }
    return CWnd::WindowProc(message, w, l);
  }
  UINT posted_;
  int ticks_ = 0;
};

int IdlesWhile(UINT posted) {
  Ticking window(posted);
  EXPECT_TRUE(window.isMade);
  int idles = 0;
  MessageLoop::Run({window.Handle(), nullptr, [](UINT, BYTE) { return 0u; }}, [&] { ++idles; });
  window.Destroy();
  return idles;
}

TEST(MessageLoop, IdlesOnlyAfterWhatMayHaveChangedSomething) {
  EXPECT_LE(IdlesWhile(0), 2) << "a timer is none of it";
  EXPECT_LE(IdlesWhile(WM_MOUSEMOVE), 2);
  EXPECT_GE(IdlesWhile(kSomething), 8);
  EXPECT_GE(IdlesWhile(WM_CLIPBOARDUPDATE), 8);
}

}  // namespace
}  // namespace tarrow
