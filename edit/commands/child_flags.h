// The flags word of a document window, and how its toggles depend on one another.
//
// The low six bits are kept in the session list, so their numbers never change.
#pragma once

#include "ui/settings/global_settings.h"

#include <cstdint>

namespace tarrow {

enum ChildFlag : std::uint32_t {
  kReadOnly = 0x1,
  kViewInHex = 0x2,
  kHorizontalScroll = 0x4,
  kVerticalScroll = 0x8,
  kAlignLines = 0x10,    // maintain indentation
  kIndentBlocks = 0x20,  // block indent; never without kAlignLines
  kTextWindow = 0x40,
  kUntitled = 0x80,
  kOvertype = 0x100,
  kModified = 0x200,
  kFileView = 0x400,
};

inline constexpr std::uint32_t kSessionFlags = 0x3F;

// The flags of a new window that is not restored from a session.
inline std::uint32_t NewWindowFlags(const GlobalSettings& settings) {
  std::uint32_t flags = 0;
  if (!settings.Has(kNoHorizontalScroll)) flags |= kHorizontalScroll;
  if (!settings.Has(kNoVerticalScroll)) flags |= kVerticalScroll;
  if (settings.Has(kMaintainIndentation)) flags |= kAlignLines;
  if (settings.Has(kBlockIndent)) flags |= kAlignLines | kIndentBlocks;
  return flags;
}

// What kind of window a document has. The session keeps it in the bits of the window: a text view, which
// indents nothing, is told by block indent without the bit that it never comes without elsewhere.
enum class DocumentForm { kEdit, kHexView, kTextView };

constexpr DocumentForm FormOf(std::uint32_t flags) {
  if (flags & kViewInHex) return DocumentForm::kHexView;
  bool isTextView = (flags & (kAlignLines | kIndentBlocks)) == kIndentBlocks;
  return isTextView ? DocumentForm::kTextView : DocumentForm::kEdit;
}

constexpr std::uint32_t WithForm(std::uint32_t flags, DocumentForm form) {
  if (form == DocumentForm::kEdit) return flags;
  flags &= ~std::uint32_t{kViewInHex | kAlignLines | kIndentBlocks};
  return flags | (form == DocumentForm::kHexView ? kViewInHex : kIndentBlocks);
}

// Maintain Indentation: going off, it takes Block Indent with it.
constexpr std::uint32_t ToggleAlignLines(std::uint32_t flags) {
  flags ^= kAlignLines;
  return flags & kAlignLines ? flags : flags & ~std::uint32_t{kIndentBlocks};
}

// Block Indent: going on, it brings Maintain Indentation with it.
constexpr std::uint32_t ToggleIndentBlocks(std::uint32_t flags) {
  flags ^= kIndentBlocks;
  return flags & kIndentBlocks ? flags | kAlignLines : flags;
}

// Which word of the status bar's pane the flags call for: a state of Indicator::kInsertMode, kEditMode,
// kModification and kIndentation.
constexpr int InsertModeState(std::uint32_t flags) {
  return flags & kOvertype ? 1 : 0;
}
constexpr int EditModeState(std::uint32_t flags) {
  return flags & kReadOnly ? 1 : 0;
}
constexpr int ModificationState(std::uint32_t flags) {
  return flags & kModified ? 1 : 0;
}
constexpr int IndentationState(std::uint32_t flags) {
  return flags & kIndentBlocks ? 2 : flags & kAlignLines ? 1 : 0;
}

}  // namespace tarrow
