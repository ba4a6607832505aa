// The words that the help of the compiler explains: keywords of C, directives, names that compilers define.
#pragma once

#include <span>
#include <string_view>

namespace tarrow {

// All of them, in the order of their bytes.
[[nodiscard]] std::span<const std::string_view> Keywords();

// Whether `word` is one of them, in exactly this case; directives begin with their "#".
[[nodiscard]] bool IsKeyword(std::string_view word);

}  // namespace tarrow
