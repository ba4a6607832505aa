#pragma once
// Text as programs have it, the same on every machine.

#include <string>

namespace tarrow::bench {

// Lines that end in LF: indented, of many lengths, some empty.
inline std::string SourceText(std::size_t size) {
  std::string text;
  text.reserve(size + 100);
  for (unsigned n = 1; text.size() < size; n = n * 1103515245 + 12345) {
    text.append(n >> 16 & 7, ' ');
    text.append(n >> 20 & 63, static_cast<char>('a' + (n >> 8) % 26));
    text += '\n';
  }
  return text;
}

}  // namespace tarrow::bench
