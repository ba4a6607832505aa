// Writes one line of JSON, piece by piece: commas are put where they belong, texts are escaped.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarrow::probe {

class Json {
 public:
  Json& BeginObject() { return Open('{'); }
  Json& EndObject() { return Close('}'); }
  Json& BeginArray() { return Open('['); }
  Json& EndArray() { return Close(']'); }

  Json& Key(std::string_view name) {
    Text(name);
    line_ += ':';
    needsComma_ = false;
    return *this;
  }
  Json& Text(std::string_view utf8) {
    Comma();
    line_ += '"';
    for (const char c : utf8) Escape(c);
    line_ += '"';
    return *this;
  }
  Json& Number(std::int64_t value) {
    Comma();
    line_ += std::to_string(value);
    return *this;
  }
  Json& Bool(bool value) {
    Comma();
    line_ += value ? "true" : "false";
    return *this;
  }

  const std::string& Line() const { return line_; }

 private:
  void Comma() {
    if (needsComma_) line_ += ',';
    needsComma_ = true;
  }
  Json& Open(char bracket) {
    Comma();
    line_ += bracket;
    needsComma_ = false;
    return *this;
  }
  Json& Close(char bracket) {
    line_ += bracket;
    needsComma_ = true;
    return *this;
  }
  void Escape(char c) {
    constexpr char kDigits[] = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      line_ += '\\';
      line_ += c;
    } else if (code < 0x20) {
      line_ += "\\u00";
      line_ += kDigits[code >> 4];
      line_ += kDigits[code & 15];
    } else {
      line_ += c;
    }
  }

  std::string line_;
  bool needsComma_ = false;
};

}  // namespace tarrow::probe
