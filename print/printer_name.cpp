#include "print/printer_name.h"

namespace tarrow {
namespace {

std::string_view Trimmed(std::string_view text) {
  std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view()
                                         : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

}  // namespace

std::optional<PrinterName> ParsePrinterName(std::string_view value) {
  PrinterName name;
  for (std::string* part : {&name.device, &name.driver, &name.port}) {
    std::size_t comma = value.find(',');
    *part = Trimmed(value.substr(0, comma));
    if (part->empty()) return {};
    value.remove_prefix(comma == std::string_view::npos ? value.size() : comma + 1);
  }
  return name;
}

}  // namespace tarrow
