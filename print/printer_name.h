// The name of a printer in its three parts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

// As it is they stand for a printer that there is not.
struct PrinterName {
  std::string device = "Default";
  std::string driver = "?";
  std::string port = "?";

  friend bool operator==(const PrinterName&, const PrinterName&) = default;
};

// The parts of "device,driver,port", blanks around them left out; nothing when one of them is missing.
[[nodiscard]] std::optional<PrinterName> ParsePrinterName(std::string_view value);

}  // namespace tarrow
