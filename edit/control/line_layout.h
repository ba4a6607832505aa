// From the bytes of a line to pixels and back: the one place that knows where a character stands.
//
// Painting, hit testing, the caret and scrolling all ask here, so they agree. Distances are pixels from the
// left edge of the line, 64 bits, since a text may be a single line. Characters stand side by side in the
// order of the text, tabs reach to their next stop, combining marks take no room of their own.
#pragma once

#include "base/text_view.h"
#include "edit/lexers/style.h"
#include "edit/text/charset.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace tarrow {

using Pixels = std::int64_t;

// How wide characters are drawn; a font in the program, a table in tests.
class CharWidths {
 public:
  virtual ~CharWidths() = default;

  // The width of a character in pixels; of control characters, the width of what stands for them.
  virtual int WidthOf(char32_t code) const = 0;

  // The width that all ASCII characters have, or 0 when they differ.
  virtual int CommonWidth() const = 0;

  // Whether the ink of a combining mark lies left of where it is drawn: it is made to be drawn behind its
  // letter then, and in the place of its letter otherwise.
  virtual bool ReachesBack(char32_t mark) const = 0;
};

// Where tabs reach to: a stop every so many pixels, behind some explicit ones if need be.
struct TabStops {
  std::vector<Pixels> stops;
  int every = 1;

  // The first stop beyond `x`.
  Pixels After(Pixels x) const;
};

// A stretch of a line to be drawn in one call: its characters and how far each unit moves the next one on; a
// tab has none. Where marks stand upon a letter, the last unit that is drawn in its place has the letter's
// width. The style is for whoever draws to set.
struct LinePiece {
  TextRange range;
  Pixels x = 0;
  Pixels width = 0;
  std::u16string text;
  std::vector<int> advances;
  Style style = Style::kText;
};

// Places on the way through a very long line, so that not every question walks from its start: text in one
// line may be as long as any. They belong to one line at a time; whoever changes the text says from where on.
class LayoutCheckpoints {
 public:
  struct Place {
    BytePos at;
    Pixels x = 0;
  };

  // The places are to be those of the line that starts at `line`; those of another are dropped.
  void Enter(BytePos line);

  // The text has changed from `at` on.
  void Truncate(BytePos at);
  void Clear() { places_.clear(); }

  // The last place at or before `until` and `x`; the start of the line when there is none.
  Place Before(BytePos until, Pixels x) const;

  // Offers a place on the way; it is kept when it lies far enough behind the last one.
  void Pass(Place place);

 private:
  static constexpr std::int32_t kDistance = 4096;  // bytes

  BytePos line_;
  std::vector<Place> places_;
};

// One line, for as long as its text, its widths and its tab stops stay unchanged.
class LineLayout {
 public:
  struct Spot {
    BytePos at;
    Pixels x = 0;
    Character character;  // length 0 at the end of the line
    int width = 0;
  };

  // `checkpoints`, when given, are used and added to where the line is long.
  LineLayout(const TextView& text, TextRange line, const Charset& charset, const CharWidths& widths,
             const TabStops& tabs, LayoutCheckpoints* checkpoints = nullptr);

  // Where the character at `at` begins; `at` may be the end of the line.
  Pixels XOf(BytePos at) const { return Walk(at, kFarRight).x; }
  Pixels Width() const { return XOf(line_.end); }

  // The character that covers `x`; at the end of the line, its end.
  Spot Covering(Pixels x) const { return Walk(line_.end, x); }

  // The caret position nearest to `x`.
  BytePos Nearest(Pixels x) const;

  // What to draw between `left` and `right`, cut at every position of `cuts` (ascending) and around tabs.
  std::vector<LinePiece> Pieces(Pixels left, Pixels right, const std::vector<BytePos>& cuts) const;

 private:
  static constexpr Pixels kFarRight = std::numeric_limits<Pixels>::max();

  Spot Walk(BytePos until, Pixels x) const;
  Spot SpotAt(BytePos at, Pixels x) const;
  std::int32_t PlainRun(BytePos at, BytePos until) const;

  const TextView& text_;
  TextRange line_;
  const Charset& charset_;
  const CharWidths& widths_;
  const TabStops& tabs_;
  LayoutCheckpoints* checkpoints_;
};

// What is drawn for a character: itself, but a dot for a control character.
char32_t DisplayedCode(char32_t code);

// Adds a character to what is drawn in one call, whose units begin at `from`. A mark that is drawn in the
// place of its letter takes the letter's width over.
void AppendDrawn(char32_t code, int width, const CharWidths& widths, std::size_t from, std::u16string& text,
                 std::vector<int>& advances);

// Whether a character is drawn onto the one before it.
bool IsCombining(char32_t code);

// Whether a character belongs to a script that is written from right to left. It is drawn by itself, so that
// the order on the screen stays that of the text.
bool IsRightToLeft(char32_t code);

}  // namespace tarrow
