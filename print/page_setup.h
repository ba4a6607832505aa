// The page setup: margins, header and footer, as the settings keep them.
#pragma once

#include "print/margins.h"
#include "ui/program/stored_settings.h"

#include <string>

namespace tarrow {

struct PageSetup {
  Margins margins;
  std::string header = "&f";
  std::string footer = "Page &p";

  friend bool operator==(const PageSetup&, const PageSetup&) = default;
};

[[nodiscard]] PageSetup LoadPageSetup(const StoredSettings& settings);
void StorePageSetup(StoredSettings& settings, const PageSetup& setup);

}  // namespace tarrow
