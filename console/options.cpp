#include "console/options.h"

#include "base/text_format.h"

#include <algorithm>
#include <charconv>

namespace tarrow {
namespace {

constexpr Option kHelpOption{kHelpLetter, "help", "", "print this and end"};

const Option& Find(std::span<const Option> options, auto isIt, std::string_view word) {
  auto found = std::find_if(options.begin(), options.end(), isIt);
  if (found != options.end()) return *found;
  if (isIt(kHelpOption)) return kHelpOption;
  throw UsageError(FormatText("unknown option '%s'", {word}));
}

std::string HelpOn(const Option& option) {
  std::string names = FormatText("  -%c, --%s", {option.letter, option.name});
  if (!option.value.empty()) names.append(" ").append(option.value);
  return FormatText("%-26s %s\n", {names, option.help});
}

}  // namespace

Arguments::Arguments(std::span<const Option> options, std::span<const std::string> words)
    : options_(options), words_(words) {
  while (!words_.empty()) {
    std::string_view word = words_.front();
    words_ = words_.subspan(1);
    if (word == "--") {
      operands_.insert(operands_.end(), words_.begin(), words_.end());
      break;
    }
    if (word.starts_with("--"))
      TakeName(word.substr(2));
    else if (word.starts_with('-') && word.size() > 1)
      TakeLetters(word.substr(1));
    else
      operands_.emplace_back(word);
  }
}

void Arguments::TakeLetters(std::string_view letters) {
  while (!letters.empty()) {
    char letter = letters.front();
    letters.remove_prefix(1);
    const Option& option = Find(
        options_, [=](const Option& o) { return o.letter == letter; }, std::string("-") + letter);
    if (option.value.empty() || letters.empty()) {
      Take(option, std::nullopt);
      continue;
    }
    return Take(option, letters);
  }
}

void Arguments::TakeName(std::string_view name) {
  std::optional<std::string_view> value;
  std::size_t equals = name.find('=');
  if (equals != std::string_view::npos) value = name.substr(equals + 1);
  name = name.substr(0, equals);
  const Option& option = Find(
      options_, [=](const Option& o) { return o.name == name; }, std::string("--").append(name));
  if (value && option.value.empty()) throw UsageError(FormatText("option '--%s' takes no value", {name}));
  Take(option, value);
}

// Notes an option with the value that came in its word, or else the next word as its value.
void Arguments::Take(const Option& option, std::optional<std::string_view> given) {
  if (!option.value.empty() && !given) {
    if (words_.empty()) throw UsageError(FormatText("option '--%s' needs a value", {option.name}));
    given = words_.front();
    words_ = words_.subspan(1);
  }
  values_[option.letter] = std::string(given.value_or(""));
}

std::string Arguments::Value(char letter, std::string_view otherwise) const {
  auto found = values_.find(letter);
  return found == values_.end() ? std::string(otherwise) : found->second;
}

std::uint64_t Arguments::Number(char letter, std::uint64_t otherwise, std::uint64_t least, std::uint64_t most,
                                int base) const {
  auto found = values_.find(letter);
  if (found == values_.end()) return otherwise;
  const std::string& text = found->second;
  std::uint64_t number = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  bool whole = end == text.data() + text.size() && error == std::errc();
  if (!whole || number < least || number > most)
    throw UsageError(
        FormatText("'%s' is no number from %s to %s", {text, std::to_string(least), std::to_string(most)}));
  return number;
}

std::string HelpOnOptions(std::span<const Option> options) {
  std::string help;
  for (const Option& option : options) help += HelpOn(option);
  return help + HelpOn(kHelpOption);
}

}  // namespace tarrow
