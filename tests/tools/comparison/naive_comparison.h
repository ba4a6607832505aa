// The comparison as one would write it without a thought of speed: every line copied, hashed and looked for
// by walking its bucket. What the real one must agree with, byte for byte.
#pragma once

#include <cstdint>
#include <string>

namespace tarrow {

std::string NaiveComparison(const std::string& first, const std::string& second, std::uint64_t memoryLimit);

// What the blocks of normal diff output make of `first`.
std::string ApplyNormalDiff(const std::string& first, const std::string& diff);

}  // namespace tarrow
