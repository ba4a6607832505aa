// StoredSettings: the values that a room keeps in section Settings of tarrow.ini.
//
// They are texts; what is stored reaches the file when the settings are saved.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

class StoredSettings {
 public:
  // The value of a key; nothing when it is absent.
  [[nodiscard]] virtual std::optional<std::string> Setting(std::string_view key) const = 0;
  virtual void StoreSetting(std::string_view key, std::string_view value) = 0;

 protected:
  ~StoredSettings() = default;
};

}  // namespace tarrow
