// SettingsValues: section Settings of the store, as rooms see it.
#pragma once

#include "shell/state/settings.h"
#include "ui/program/stored_settings.h"

namespace tarrow {

class SettingsValues final : public StoredSettings {
 public:
  // The store outlives the object.
  explicit SettingsValues(CProfileStore& store) : store_(store) {}

  std::optional<std::string> Setting(std::string_view key) const override {
    std::string value;
    return store_.ReadString(kSettingsSection, key, value) ? std::optional(value) : std::nullopt;
  }
  void StoreSetting(std::string_view key, std::string_view value) override {
    store_.WriteString(kSettingsSection, key, value);
  }

 private:
  CProfileStore& store_;
};

}  // namespace tarrow
