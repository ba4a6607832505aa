// The session: which files were open, where the frame stood.
//
// Everything here is text and numbers; the frame opens the files and moves itself.
#pragma once

#include "shell/state/profile_store.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

struct SessionEntry {
  std::string path;
  std::optional<std::uint32_t> flags;  // the saved bits of the window; none: those of a new window

  friend bool operator==(const SessionEntry&, const SessionEntry&) = default;
};

// The windows of the saved session, in order, up to the first that is missing.
[[nodiscard]] std::vector<SessionEntry> ReadSession(const CProfileStore& store);

// Makes `entries` the saved session in place of any other. Without an entry there is none.
void WriteSession(CProfileStore& store, const std::vector<SessionEntry>& entries);

// The frame's rectangle in screen pixels, right and bottom not included.
struct FrameBounds {
  int left = 0, top = 0, right = 0, bottom = 0;

  friend bool operator==(const FrameBounds&, const FrameBounds&) = default;
};

struct FramePlacement {
  std::optional<FrameBounds> bounds;  // none: where the system puts it
  bool maximised = false;
};

// Reads a placement, kept on a screen of the given size. What the value lacks is that of `usual`; one that
// leaves no sensible size gives none.
[[nodiscard]] FramePlacement ParsePlacement(std::string_view value, const FrameBounds& usual, int screenWidth,
                                            int screenHeight);

enum class FrameState { kNormal, kMaximised, kMinimised };

// The placement to save for a frame that stands at `now`. Maximised or minimised, it keeps the rectangle of
// the value saved before, if there is one, so that the restored size survives.
[[nodiscard]] std::string FormatPlacement(std::string_view savedBefore, const FrameBounds& now,
                                          FrameState state);

}  // namespace tarrow
