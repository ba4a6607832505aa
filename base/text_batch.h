// Text on its way to a sink, passed on in large portions.
#pragma once

#include "base/text_sink.h"

#include <string>

namespace tarrow {

class TextBatch {
 public:
  explicit TextBatch(TextSink& sink) : sink_(sink) {}

  std::string& Text() { return text_; }

  // To be called after each piece of text. Throw what the sink throws.
  void FlushIfLarge() {
    if (text_.size() >= kPortion) Flush();
  }
  void Flush() {
    if (!text_.empty()) sink_.Write(text_);
    text_.clear();
  }

 private:
  static constexpr std::size_t kPortion = 64 << 10;

  TextSink& sink_;
  std::string text_;
};

}  // namespace tarrow
