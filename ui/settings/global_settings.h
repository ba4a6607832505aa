// The options of the program that every room reads: the values behind the Global Settings dialog.
//
// The shell owns the one instance, loads and saves it; rooms read it through Host::Settings(). The numbers of
// the bits are those stored in tarrow.ini, so they never change; seven of them are off-bits (set when the box
// of the dialog is clear), which is how they have always been stored.
#pragma once

#include <cstdint>
#include <string>

namespace tarrow {

enum GlobalFlag : std::uint32_t {
  kNoStatusBar = 0x1,
  kNoClock = 0x2,
  kNoToolBar = 0x4,
  kNoHorizontalScroll = 0x8,  // for new edit windows
  kNoVerticalScroll = 0x10,   // for new edit windows
  kSaveWithoutAsking = 0x20,
  kCreateBackups = 0x40,
  kSpaceDelimitsWords = 0x80,  // a double click selects by the control's own rule
  kVisibleAlerts = 0x100,
  kNoProject = 0x200,
  kMaintainIndentation = 0x400,  // for new edit windows
  kBlockIndent = 0x800,          // for new edit windows; implies kMaintainIndentation
};

// How the MDI children were last laid out; the numbers are those stored in tarrow.ini.
enum class ArrangeMode { kTileAcross = 0, kCascade = 1, kMaximised = 2, kTileDown = 3 };

// A font as the settings name it: face, height in pixels (negative: character height), weight, italic.
// An empty face means the system's fixed font.
struct FontChoice {
  std::string face;
  int height = 0;
  int weight = 0;
  bool italic = false;

  friend bool operator==(const FontChoice&, const FontChoice&) = default;
};

struct GlobalSettings {
  bool saveSettings = true;
  bool saveWindows = true;
  std::uint32_t flags = kDefaultFlags;
  ArrangeMode arrange = ArrangeMode::kMaximised;
  int tabSize = 8;     // columns, 2..8
  int shiftWidth = 4;  // columns, 1..8
  int undoLevels = 1;  // 1: the last change is taken back, and done again
  bool expandTabs = false;
  FontChoice screenFont;

  constexpr bool Has(GlobalFlag flag) const { return (flags & flag) != 0; }
  void Set(GlobalFlag flag, bool on) {
    flags = on ? flags | flag : flags & ~static_cast<std::uint32_t>(flag);
  }

  // The flags of a program that has no settings file: maintain indentation, no horizontal scroll bar.
  static constexpr std::uint32_t kDefaultFlags = kMaintainIndentation | kNoHorizontalScroll;
};

}  // namespace tarrow
