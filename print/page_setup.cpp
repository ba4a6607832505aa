#include "print/page_setup.h"

namespace tarrow {
namespace {

constexpr const char* kMarginsKey = "PageMargins";
constexpr const char* kHeaderKey = "PageHeader";
constexpr const char* kFooterKey = "PageFooter";

}  // namespace

PageSetup LoadPageSetup(const StoredSettings& settings) {
  PageSetup setup;
  if (auto margins = settings.Setting(kMarginsKey)) setup.margins = ParseMargins(*margins);
  setup.header = settings.Setting(kHeaderKey).value_or(setup.header);
  setup.footer = settings.Setting(kFooterKey).value_or(setup.footer);
  return setup;
}

void StorePageSetup(StoredSettings& settings, const PageSetup& setup) {
  settings.StoreSetting(kMarginsKey, FormatMargins(setup.margins));
  settings.StoreSetting(kHeaderKey, setup.header);
  settings.StoreSetting(kFooterKey, setup.footer);
}

}  // namespace tarrow
