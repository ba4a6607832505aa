#include "tools/comparison/comparison_places.h"

#include <charconv>
#include <utility>

namespace tarrow {
namespace {

constexpr std::string_view kOld = "< ", kNew = "> ", kSeparator = "---";

struct Header {
  std::uint32_t oldLine = 0;
  char kind = 0;  // 'a', 'c' or 'd'
  std::uint32_t newLine = 0;
};

// Takes "12" or "12,14" off the front of `text` and returns the first number; nothing when it is none.
std::optional<std::uint32_t> TakeRange(std::string_view& text) {
  auto take = [&]() -> std::optional<std::uint32_t> {
    std::uint32_t number = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) return {};
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
  };
  auto first = take();
  if (first && text.starts_with(',')) {
    text.remove_prefix(1);
    if (!take()) return {};
  }
  return first;
}

std::optional<Header> ParseHeader(std::string_view line) {
  Header header;
  auto oldLine = TakeRange(line);
  if (!oldLine || line.empty()) return {};
  header.kind = line.front();
  line.remove_prefix(1);
  auto newLine = TakeRange(line);
  if (!newLine || !line.empty() || std::string_view("acd").find(header.kind) == std::string_view::npos)
    return {};
  header.oldLine = *oldLine;
  header.newLine = *newLine;
  return header;
}

class Finder {
 public:
  Finder(std::string first, std::string second) : first_(std::move(first)), second_(std::move(second)) {}

  std::optional<SourcePlace> operator()(const LineReader& lines, std::int64_t line) const {
    std::string text = lines(line);
    if (auto header = ParseHeader(text))
      return header->kind == 'a' ? PlaceIn(second_, header->newLine, 0) : PlaceIn(first_, header->oldLine, 0);
    if (text == kSeparator) return FromNewLine(lines, line + 1);
    if (text.starts_with(kNew)) return FromNewLine(lines, line);
    if (text.starts_with(kOld)) return FromOldLine(lines, line);
    return {};
  }

 private:
  // How far above `line` the lines go on that begin with `prefix`.
  static std::int64_t CountAbove(const LineReader& lines, std::int64_t line, std::string_view prefix) {
    std::int64_t above = line;
    while (above > 0 && lines(above - 1).starts_with(prefix)) --above;
    return line - above;
  }

  static std::optional<Header> HeaderAbove(const LineReader& lines, std::int64_t line) {
    return line > 0 ? ParseHeader(lines(line - 1)) : std::nullopt;
  }

  std::optional<SourcePlace> FromOldLine(const LineReader& lines, std::int64_t line) const {
    std::int64_t above = CountAbove(lines, line, kOld);
    auto header = HeaderAbove(lines, line - above);
    return header ? PlaceIn(first_, header->oldLine, above) : std::nullopt;
  }

  std::optional<SourcePlace> FromNewLine(const LineReader& lines, std::int64_t line) const {
    std::int64_t above = CountAbove(lines, line, kNew), top = line - above;
    if (top > 0 && lines(top - 1) == kSeparator) {
      --top;
      top -= CountAbove(lines, top, kOld);
    }
    auto header = HeaderAbove(lines, top);
    return header ? PlaceIn(second_, header->newLine, above) : std::nullopt;
  }

  static std::optional<SourcePlace> PlaceIn(const std::string& name, std::uint32_t line, std::int64_t below) {
    SourcePlace place;
    place.name = name;
    place.position = line + static_cast<std::uint32_t>(below);
    if (place.position == 0) place.position = 1;  // "0a1": before the first line
    return place;
  }

  std::string first_, second_;
};

}  // namespace

PlaceFinder ComparisonPlaces(std::string first, std::string second) {
  return Finder(std::move(first), std::move(second));
}

}  // namespace tarrow
