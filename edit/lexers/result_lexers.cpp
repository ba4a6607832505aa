#include "edit/lexers/result_lexers.h"

#include "edit/lexers/lexers.h"
#include "edit/lexers/word_table.h"

namespace tarrow {
namespace {

std::size_t BehindDigits(std::string_view text, std::size_t at) {
  auto isHex = [](char c) { return IsDigitByte(c) || ((c | 0x20) >= 'a' && (c | 0x20) <= 'f'); };
  bool hasHex = text.substr(at).starts_with("0x");
  if (hasHex) at += 2;
  while (at < text.size() && (hasHex ? isHex(text[at]) : IsDigitByte(text[at]))) ++at;
  return at;
}

// A name and the number of a line or an address in it.
struct ListedPlace {
  std::size_t nameEnd = 0;
  std::size_t numberEnd = 0;
};

// The first number in brackets that a colon and a blank follow, or the count at the end of the line.
ListedPlace FindListedPlace(std::string_view line) {
  for (std::size_t open = line.find('('); open != line.npos; open = line.find('(', open + 1)) {
    std::size_t end = BehindDigits(line, open + 1);
    if (open > 0 && end > open + 1 && line.substr(end).starts_with("): ")) return {open + 1, end};
  }
  std::size_t colon = line.rfind(": ");
  if (colon == line.npos || colon + 2 == line.size()) return {};
  return BehindDigits(line, colon + 2) == line.size() ? ListedPlace{colon + 2, line.size()} : ListedPlace{};
}

// What a tool complains about, with the place in brackets, as "name(12)", or between colons, "name:12:".
void LexReportedPlace(LineCursor& line) {
  std::string_view text = line.Line();
  for (std::size_t at = 1; at + 1 < text.size(); ++at) {
    if ((text[at] != '(' && text[at] != ':') || !IsDigitByte(text[at + 1])) continue;
    if (IsBlankByte(text[at - 1]) && text[at] == ':') continue;
    std::size_t end = text[at] == '(' ? text.find(')', at) : BehindDigits(text, at + 1);
    if (end >= text.size() || (text[at] == ':' && text[end] != ':')) return;
    std::size_t name = text.find_last_not_of(" \t", at - 1);
    name = name == text.npos ? at : text.find_last_of(" \t", name) + 1;
    line.SkipTo(name);
    line.End(Style::kText);
    line.SkipTo(end + (text[at] == '(' ? 1 : 0));
    return line.End(Style::kPlace);
  }
}

constexpr std::string_view kErrors[] = {"error", "errors", "fatal"};
constexpr std::string_view kWarnings[] = {"warning", "warnings"};
constexpr WordTable kReports(WordTable::Case::kIgnored,
                             {{kErrors, Style::kError}, {kWarnings, Style::kWarning}});

class ReportLexer final : public Lexer {
  LexState Scan(std::string_view text, LexState, StyleRuns* runs) const override {
    if (!runs) return kTextStart;
    LineCursor line(text, runs);
    LexReportedPlace(line);
    while (!line.AtEnd()) {
      line.SkipWhile([](char c) { return !IsWordByte(c); });
      line.End(Style::kText);
      if (std::string_view word = line.SkipWord(); !word.empty()) line.End(kReports.StyleOf(word));
    }
    return kTextStart;
  }
};

class DifferenceLexer final : public Lexer {
  LexState Scan(std::string_view text, LexState, StyleRuns* runs) const override {
    LineCursor line(text, runs);
    bool isHeader = IsDigitByte(line.Peek()) || text == "---";
    line.EndLine(text.starts_with("< ")   ? Style::kOld
                 : text.starts_with("> ") ? Style::kNew
                 : isHeader               ? Style::kHeader
                                          : Style::kText);
    return kTextStart;
  }
};

}  // namespace

LexState ListedPlacesLexer::Scan(std::string_view text, LexState, StyleRuns* runs) const {
  if (!runs) return kTextStart;
  LineCursor line(text, runs);
  if (ListedPlace place = FindListedPlace(text); place.numberEnd > 0) {
    std::size_t nameEnd = place.nameEnd - (text[place.nameEnd - 1] == '(' ? 1 : 2);
    line.SkipTo(nameEnd);
    line.End(Style::kPlace);
    line.SkipTo(place.nameEnd);
    line.End(Style::kText);
    line.SkipTo(place.numberEnd);
    line.End(Style::kNumber);
    if (!line.AtEnd()) {
      line.Skip(3);
      line.End(Style::kText);
      LexFound(line);
    }
  }
  line.EndLine(Style::kText);
  return kTextStart;
}

const Lexer& SearchResultLexer() {
  static const ListedPlacesLexer lexer;
  return lexer;
}

const Lexer& ComparisonLexer() {
  static const DifferenceLexer lexer;
  return lexer;
}

const Lexer& BuildLogLexer() {
  static const ReportLexer lexer;
  return lexer;
}

}  // namespace tarrow
