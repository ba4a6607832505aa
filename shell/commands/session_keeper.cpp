#include "shell/commands/session_keeper.h"

#include "edit/documents/child.h"
#include "shell/state/session.h"

#include <string>
#include <vector>

namespace tarrow {
namespace {

FrameState StateOf(HWND frame) {
  return ::IsZoomed(frame)   ? FrameState::kMaximised
         : ::IsIconic(frame) ? FrameState::kMinimised
                             : FrameState::kNormal;
}

std::string PlacementOf(HWND frame, const std::string& before) {
  RECT bounds{};
  ::GetWindowRect(frame, &bounds);
  return FormatPlacement(before, {bounds.left, bounds.top, bounds.right, bounds.bottom}, StateOf(frame));
}

}  // namespace

// The windows are listed from the top down, so they are stacked again from the last to the first.
void SessionKeeper::Restore() {
  std::vector<SessionEntry> entries = ReadSession(state_.store);
  if (entries.empty()) return;
  {
    WaitState wait(services_.waiting, true);
    std::vector<HWND> windows;
    for (const SessionEntry& entry : entries) {
      bool opened =
          files_.OpenWithFlags(entry.path, entry.flags.value_or(NewWindowFlags(services_.settings)));
      if (opened) windows.push_back(services_.frame.ActiveChild()->Handle());
    }
    services_.frame.Restack(windows);
    state_.store.RemoveSection(kSessionSection);
  }
  windows_.Arrange(true);
}

void SessionKeeper::KeepWindows() {
  std::vector<SessionEntry> entries;
  services_.frame.ForEachChild([&](CMDIChildWnd& window) {
    auto* child = dynamic_cast<CTwChild*>(&window);
    bool isListed = child && (child->Has(kTextWindow) || child->Has(kFileView)) && !child->Has(kUntitled);
    if (isListed) entries.push_back({child->Path(), child->Flags() & kSessionFlags});
    return true;
  });
  WriteSession(state_.store, entries);
}

void SessionKeeper::Save() {
  if (services_.settings.saveWindows) KeepWindows();
  std::string before;
  (void)state_.store.ReadString(kSettingsSection, "Window", before);
  try {
    SaveSettings(state_.files, state_.store, state_.settings, PlacementOf(services_.frame.Handle(), before));
  } catch (const CFileException& error) {
    services_.messages.ShowFileError(nullptr, error);
  }
}

}  // namespace tarrow
