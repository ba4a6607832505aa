// The frame's session: what is restored at the start and kept at the end.
#include "edit/documents/child.h"
#include "shell/frame.h"
#include "shell/session.h"

namespace tarrow {
namespace {

FrameState StateOf(HWND frame) {
  return ::IsZoomed(frame)   ? FrameState::kMaximised
         : ::IsIconic(frame) ? FrameState::kMinimised
                             : FrameState::kNormal;
}

}  // namespace

// The windows are listed from the top down, so they are stacked again from the last to the first.
void CTwFrame::RestoreSession() {
  std::vector<SessionEntry> entries = ReadSession(program_.store);
  if (entries.empty()) return;
  {
    WaitState wait(*this, true);
    std::vector<HWND> windows;
    for (const SessionEntry& entry : entries) {
      bool opened = OpenFileWithFlags(entry.path, entry.flags.value_or(NewWindowFlags(Settings())));
      if (opened) windows.push_back(ActiveChild()->Handle());
    }
    for (auto window = windows.rbegin(); window != windows.rend(); ++window)
      ::SetWindowPos(*window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    if (!windows.empty())
      ::SendMessageW(Client(), WM_MDIACTIVATE, reinterpret_cast<WPARAM>(windows.front()), 0);
    program_.store.RemoveSection(kSessionSection);
  }
  ArrangeWindows(true);
}

void CTwFrame::SaveProgramState() {
  if (Settings().saveWindows) {
    std::vector<SessionEntry> entries;
    ForEachChild([&](CMDIChildWnd& window) {
      auto* child = dynamic_cast<CTwChild*>(&window);
      if (child && child->Has(kTextWindow) && !child->Has(kUntitled))
        entries.push_back({child->Path(), child->Flags() & kSessionFlags});
      return true;
    });
    WriteSession(program_.store, entries);
  }
  std::string before;
  (void)program_.store.ReadString(kSettingsSection, "Window", before);
  RECT bounds{};
  ::GetWindowRect(Handle(), &bounds);
  FrameBounds now{bounds.left, bounds.top, bounds.right, bounds.bottom};
  try {
    SaveSettings(program_.files, program_.store, program_.settings,
                 FormatPlacement(before, now, StateOf(Handle())));
  } catch (const CFileException& error) {
    ShowFileError(nullptr, error);
  }
}

}  // namespace tarrow
