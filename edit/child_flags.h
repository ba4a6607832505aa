// The bits of a document window: how it was opened, what it shows, what state it is in.
//
// The low six are kept in the session list of tarrow.ini, so no number ever changes.
#pragma once

#include "ui/global_settings.h"

#include <cstdint>

namespace tarrow {

enum ChildFlag : std::uint32_t {
  kReadOnly = 0x1,
  kViewInHex = 0x2,  // asks for a file view instead of an edit window
  kHorizontalScroll = 0x4,
  kVerticalScroll = 0x8,
  kAlign = 0x10,   // maintain indentation
  kIndent = 0x20,  // block indent; never set without kAlign
  kTextEdit = 0x40,
  kUntitled = 0x80,
  kOvertype = 0x100,
  kModified = 0x200,
};

inline constexpr std::uint32_t kSavedChildFlags = 0x3F;

// The bits of a window that no session remembers.
constexpr std::uint32_t DefaultChildFlags(const GlobalSettings& settings) {
  return (settings.Has(kNoHorizontalScroll) ? 0u : kHorizontalScroll) |
         (settings.Has(kNoVerticalScroll) ? 0u : kVerticalScroll) |
         (settings.Has(kMaintainIndentation) ? kAlign : 0u) | (settings.Has(kBlockIndent) ? kIndent : 0u);
}

// `flags` after maintain indentation or block indent was toggled: neither leaves the other in a state that
// makes no sense.
constexpr std::uint32_t ToggleAlign(std::uint32_t flags) {
  return (flags & kAlign) ? flags & ~std::uint32_t{kAlign | kIndent} : flags | kAlign;
}
constexpr std::uint32_t ToggleIndent(std::uint32_t flags) {
  return (flags & kIndent) ? flags & ~std::uint32_t{kIndent} : flags | kAlign | kIndent;
}

}  // namespace tarrow
