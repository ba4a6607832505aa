#include "shell/commands/file_looker.h"

#include "edit/files/look_at_file.h"
#include "framework/wnd.h"
#include "tests/framework/scratch_directory.h"
#include "tests/window_pump.h"
#include "ui/program/private_messages.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

class Listener final : public CWnd {
 public:
  Listener() {
    static const WindowClass windowClass{L"TarrowTestListener"};
    WindowSpec spec;
    spec.parent = HWND_MESSAGE;
    if (!Create(windowClass, spec)) throw std::runtime_error("no window");
  }

  // Waits for the message that a file was looked at; false when it does not come.
  bool Hears() {
    heard_ = false;
    return PumpUntil([this] { return heard_; });
  }

 private:
  LRESULT WindowProc(UINT message, WPARAM w, LPARAM l) override {
    heard_ = heard_ || message == kFileLookedMessage;
    return CWnd::WindowProc(message, w, l);
  }

  bool heard_ = false;
};

TEST(FileLooker, AnswersTheLastQuestionAboutALocalFile) {
  ScratchDirectory scratch;
  std::string path = scratch.Make("a.txt", "abc"), missing = scratch / "b.txt";
  Listener listener;
  FileLooker looker;
  EXPECT_FALSE(looker.TakeAnswer());
  looker.Ask(listener.Handle(), "\\\\nowhere\\share\\a.txt");
  looker.Ask(listener.Handle(), path);
  ASSERT_TRUE(listener.Hears());
  auto answer = looker.TakeAnswer();
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->path, path);
  EXPECT_EQ(answer->look, LookAtFile(path));
  EXPECT_EQ(answer->look.size, 3u);
  EXPECT_FALSE(looker.TakeAnswer());
  looker.Ask(listener.Handle(), missing);
  ASSERT_TRUE(listener.Hears());
  EXPECT_EQ(looker.TakeAnswer().value().look.found, FileLook::Found::kNothing);
}

TEST(LookAtFile, KnowsLocalDisks) {
  ScratchDirectory scratch;
  EXPECT_TRUE(IsOnLocalDisk(scratch.Path()));
  EXPECT_FALSE(IsOnLocalDisk("\\\\server\\share\\a.txt"));
  EXPECT_FALSE(IsOnLocalDisk("a.txt"));
  EXPECT_EQ(LookAtFile(scratch / "none").found, FileLook::Found::kNothing);
  EXPECT_EQ(LookAtFile("").found, FileLook::Found::kUnknown);
}

}  // namespace
}  // namespace tarrow
