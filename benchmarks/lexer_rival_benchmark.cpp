// Lexing C beside the lexer that many editors use, LexCPP of Scintilla, on the same headers: the time of
// both, and how far they agree on what each byte is.
//
// The rival is asked as an editor asks it: a document that is coloured from end to end. Where the two do not
// agree is counted by the classes that they give; --differences prints lines to look at.
#include "edit/lexers/c_words.h"
#include "edit/lexers/lexers.h"
#include "edit/lexers/line_states.h"

#include "benchmarks/c_text.h"
#include "benchmarks/report.h"

#include <Qsci/qsciscintillabase.h>
#include <QApplication>

#include <algorithm>
#include <map>

namespace tarrow::bench {
namespace {

using Rival = QsciScintillaBase;

std::string Joined(std::initializer_list<std::span<const std::string_view>> lists) {
  std::string words;
  for (const auto& list : lists)
    for (std::string_view word : list) words.append(word).append(" ");
  return words;
}

void SetUp(Rival& rival) {
  constexpr int kCpp = 3;
  rival.SendScintilla(Rival::SCI_SETUNDOCOLLECTION, 0UL);
  rival.SendScintilla(Rival::SCI_SETLEXER, static_cast<unsigned long>(kCpp));
  rival.SendScintilla(Rival::SCI_SETPROPERTY, "styling.within.preprocessor", "1");
  rival.SendScintilla(Rival::SCI_SETPROPERTY, "lexer.cpp.track.preprocessor", "0");
  std::string keywords = Joined({kClassicKeywords, kCompilerKeywords, kNewerKeywords});
  std::string names = Joined({kPredefinedNames});
  rival.SendScintilla(Rival::SCI_SETKEYWORDS, 0UL, keywords.c_str());
  rival.SendScintilla(Rival::SCI_SETKEYWORDS, 1UL, names.c_str());
}

// The rival's numbers for what a part is, as ours.
Style StyleOf(int number) {
  switch (number & 0x3F) {
    case 1:  // comments, four kinds
    case 2:
    case 3:
    case 15:
    case 17:
    case 18:
    case 23:
    case 24:
    case 26:
      return Style::kComment;
    case 4:
      return Style::kNumber;
    case 5:
      return Style::kKeyword;
    case 6:  // strings, open ones, raw ones, characters, escapes
    case 7:
    case 12:
    case 20:
    case 27:
      return Style::kString;
    case 9:
      return Style::kDirective;
    case 16:
      return Style::kPredefined;
    default:
      return Style::kText;
  }
}

std::vector<Style> StylesOfRival(Rival& rival, std::size_t size) {
  std::vector<Style> styles(size);
  for (std::size_t i = 0; i < size; ++i)
    styles[i] = StyleOf(static_cast<int>(rival.SendScintilla(Rival::SCI_GETSTYLEAT, static_cast<long>(i))));
  return styles;
}

std::vector<Style> OurStyles(const std::string& text) {
  std::vector<Style> styles(text.size());
  LexState state = kTextStart;
  StyleRuns runs;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = std::min(text.find("\r\n", at), text.size());
    state = CSourceLexer().Lex(std::string_view(text).substr(at, end - at), state, &runs);
    std::size_t from = at;
    for (const StyleRun& run : runs) {
      std::fill(styles.begin() + static_cast<std::ptrdiff_t>(from),
                styles.begin() + static_cast<std::ptrdiff_t>(at) + run.end, run.style);
      from = at + static_cast<std::size_t>(run.end);
    }
    at = end + 2;
  }
  return styles;
}

// Blanks and line ends look alike in every style.
bool IsSeen(char c) {
  return static_cast<unsigned char>(c) > ' ';
}

void Compare(const std::string& text, Rival& rival, bool prints) {
  std::vector<Style> ours = OurStyles(text), theirs = StylesOfRival(rival, text.size());
  std::map<std::pair<Style, Style>, int> lines;
  std::size_t seen = 0, differ = 0, printedLine = std::string::npos;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsSeen(text[i])) continue;
    ++seen;
    if (ours[i] == theirs[i]) continue;
    ++differ;
    std::size_t line = text.rfind('\n', i) + 1;
    if (line == printedLine) continue;
    printedLine = line;
    if (++lines[{ours[i], theirs[i]}] <= 6 && prints)
      std::fprintf(stderr, "%d, theirs %d, at %zu: %s\n", static_cast<int>(ours[i]),
                   static_cast<int>(theirs[i]), i - line,
                   text.substr(line, std::min<std::size_t>(text.find('\r', line) - line, 150)).c_str());
  }
  Row({"bytes of another class, of a million", 1e6 * static_cast<double>(differ) / static_cast<double>(seen),
       "a thousand", 1000, "bytes", 1});
}

void Run(std::size_t megabytes, bool prints) {
  std::string text = MakeCText(megabytes << 20, true);
  Rival rival;
  SetUp(rival);
  rival.SendScintilla(Rival::SCI_SETTEXT, text.c_str());
  TextBuffer buffer;
  std::ranges::copy(text, buffer.PrepareLoad(static_cast<std::int64_t>(text.size())).begin());
  buffer.FinishLoad(static_cast<std::int64_t>(text.size()));
  double theirs = Seconds([&] { rival.SendScintilla(Rival::SCI_COLOURISE, 0UL, -1L); });
  LineStates states;
  double ours = BestSeconds(3, [&] {
    states.Reset(buffer, &CSourceLexer());
    states.Settle(buffer, LineStates::kAllLines, std::numeric_limits<std::int64_t>::max());
    for (LineNo line; line <= buffer.LastLine(); ++line) states.RunsOf(buffer, line);
  });
  Row({"lexing " + std::to_string(megabytes) + " MB of headers, states and parts", ours, "LexCPP", theirs,
       "s", 1});
  Compare(text, rival, prints);
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  using namespace tarrow::bench;  // NOLINT
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  QApplication application(argc, argv);
  bool prints = argc > 1 && std::string_view(argv[argc - 1]) == "--differences";
  Run(IsQuick(argc, argv) ? 2 : 20, prints);
}
