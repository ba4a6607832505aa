// The cases under tests/cases, read: tests/cases/README.md says what stands in them.
#pragma once

#include "base/units.h"
#include "edit/commands/edit_outcome.h"
#include "edit/commands/indentation.h"
#include "edit/text/charset.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// A text and its selection, without the marks.
struct MarkedText {
  std::string text;
  TextRange selection;

  friend bool operator==(const MarkedText&, const MarkedText&) = default;
};

struct EditingCase {
  std::string command;
  IndentSettings indent;
  std::uint32_t flags = 0;
  Charset charset;
  Beep beep = Beep::kNone;
  MarkedText before;
  MarkedText after;
};

// The files of all cases, in alphabetical order.
std::vector<std::filesystem::path> EditingCaseFiles();

// Throws std::runtime_error, which says what is wrong, when the file is no case.
EditingCase ReadEditingCase(const std::filesystem::path& file);

// The text and the selection that marks and escapes stand for; lines end in LF.
MarkedText ReadMarkedText(std::string_view lines);

// A text with its marks and escapes put back, for messages.
std::string ShowMarkedText(const MarkedText& marked);

}  // namespace tarrow
