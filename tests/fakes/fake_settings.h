// Stored settings that no file holds.
#pragma once

#include "ui/program/stored_settings.h"

#include <map>

namespace tarrow {

class FakeSettings final : public StoredSettings {
 public:
  std::map<std::string, std::string, std::less<>> values;

  std::optional<std::string> Setting(std::string_view key) const override {
    auto found = values.find(key);
    return found == values.end() ? std::nullopt : std::optional(found->second);
  }
  void StoreSetting(std::string_view key, std::string_view value) override {
    values.insert_or_assign(std::string(key), value);
  }
};

}  // namespace tarrow
