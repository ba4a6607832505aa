// The one state of find and replace: what was last looked for, how, and where it was found.
//
// There is one for the whole program, so that Find Next in any window repeats the last search. Pattern and
// replacement are UTF-8; a search puts them into the character set of the text that it goes through.
#pragma once

#include "base/text_view.h"
#include "edit/text/charset.h"
#include "search/pattern/compiled_pattern.h"

#include <optional>
#include <string>

namespace tarrow {

// A selection that a search or a replacement has made, by which it is told from one that the user has made.
struct OwnSelection {
  const void* text = nullptr;  // identity of the text
  std::uint64_t changes = 0;   // how often it had been changed then
  TextRange range;

  friend bool operator==(const OwnSelection&, const OwnSelection&) = default;
};

struct FindState {
  std::string pattern;
  std::string replacement;
  bool searchForward = true;
  bool matchCase = true;
  bool wholeWord = false;
  bool needsCompile = true;  // `compiled` is not, or not yet, made of pattern and options
  bool selectionOnly = false;
  int dialogRight = -1;  // where the dialog last stood, in pixels of the screen; below 0: nowhere yet
  int dialogTop = -1;

  CompiledPattern compiled;
  enum class For { kBytes, kUtf8, kCodePage } compiledFor = For::kBytes;
  bool needsUtf8 = false;    // the pattern of bytes would not do in UTF-8 beyond ASCII
  MatchRegisters registers;  // of the last match

  OwnSelection own;                // what was selected last
  bool ownIsMatch = false;         // a match, not what has replaced one
  std::optional<TextRange> scope;  // the selection that a search in the selection keeps to

  // Sets the options; a change of them asks for a new compile.
  void SetOptions(bool newMatchCase, bool newWholeWord);
};

// Takes a selection within one line as the pattern, without the white space at its end. Whether the pattern
// has changed by that; it then needs a compile.
bool TakeSelectionAsPattern(FindState& state, TextView text, TextRange selection, Charset charset);

// Compiles the pattern for `text` in `charset` if it is not yet compiled for it. Returns the number of the
// message that says why it does not compile, or 0.
[[nodiscard]] int CompileIfNeeded(FindState& state, Charset charset, TextView text);

}  // namespace tarrow
