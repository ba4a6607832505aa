// Any bytes are an initialisation file: they come back as they were, and what is set reads back.
#include "base/ini_text.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using tarrow::IniText;
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  IniText ini(bytes);
  if (ini.Bytes() != bytes) std::abort();
  for (const std::string& key : ini.Keys("Settings")) {
    auto value = ini.Value("Settings", key);
    if (!value) std::abort();
    // A CR within a line is part of the value, but none is ever written.
    std::replace(value->begin(), value->end(), '\r', ' ');
    ini.SetValue("Settings", key, *value);
    if (ini.Value("Settings", key) != value) std::abort();
  }
  ini.SetValue("Session", "Edit01", " c:\\x ");
  IniText again(ini.Bytes());
  if (again.Value("Session", "Edit01") != " c:\\x ") std::abort();
  again.RemoveSection("Session");
  if (!IniText(again.Bytes()).Keys("Session").empty()) std::abort();
  return 0;
}
