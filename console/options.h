// The words behind a command of tarrowc, read by a table: the same rows parse the options and make the help.
//
// Options are "-x", "--name", with a value "-x VALUE", "-xVALUE", "--name VALUE" or "--name=VALUE"; letters
// without value may stand together. "--" ends the options; a lone "-" is a file, the standard input.
#pragma once

#include <cstdint>
#include <exception>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

struct Option {
  char letter;
  std::string_view name;
  std::string_view value;  // what the help calls it; empty when the option takes none
  std::string_view help;
};

// Every command has this option beside its own.
inline constexpr char kHelpLetter = 'h';

// The command line cannot be understood; what() tells why, in a line.
class UsageError : public std::exception {
 public:
  explicit UsageError(std::string text) : text_(std::move(text)) {}
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_;
};

class Arguments {
 public:
  // Throws UsageError.
  Arguments(std::span<const Option> options, std::span<const std::string> words);

  const std::vector<std::string>& Operands() const { return operands_; }
  bool Has(char letter) const { return values_.contains(letter); }
  std::string Value(char letter, std::string_view otherwise) const;
  // The value as a number of `base` in least..most; `otherwise` when the option is not there. Throws
  // UsageError.
  std::uint64_t Number(char letter, std::uint64_t otherwise, std::uint64_t least, std::uint64_t most,
                       int base = 10) const;

 private:
  void TakeLetters(std::string_view letters);
  void TakeName(std::string_view name);
  void Take(const Option& option, std::optional<std::string_view> given);

  std::span<const Option> options_;
  std::span<const std::string> words_;  // those not yet taken
  std::map<char, std::string> values_;
  std::vector<std::string> operands_;
};

// The rows of help for `options`, a line each.
std::string HelpOnOptions(std::span<const Option> options);

}  // namespace tarrow
