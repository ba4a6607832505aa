// Two files, split at the first 0xFF: the comparison is the naive one's, and its patch gives the second file.
#include "tools/comparison/compare_files.h"

#include "fuzz/long_input.h"
#include "tests/tools/comparison/naive_comparison.h"

#include <cstdint>
#include <cstdlib>

namespace {

std::string Compare(const std::string& first, const std::string& second, tarrow::ComparisonOptions options) {
  tarrow::StringSource a(first), b(second);
  tarrow::StringSink out;
  if (tarrow::CompareFiles(a, b, out, options, nullptr) == out.text.empty()) std::abort();
  return out.text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  std::string bytes(reinterpret_cast<const char*>(data), size);
  std::uint64_t limit = data[0] * 16;
  std::size_t split = std::min(bytes.find('\xFF', 1), bytes.size());
  std::uint8_t length = size > 1 ? data[1] : 0;
  std::string first = tarrow::LongInput(std::string_view(bytes).substr(1, split - 1), length, 128 << 10),
              second = tarrow::LongInput(std::string_view(bytes).substr(std::min(split + 1, bytes.size())),
                                         length, 128 << 10);
  if (Compare(first, second, {.memoryLimit = limit}) != tarrow::NaiveComparison(first, second, limit))
    std::abort();
  tarrow::ComparisonOptions patch{tarrow::ComparisonForm::kPatch, "\n", limit};
  if (tarrow::ApplyNormalDiff(first, Compare(first, second, patch)) != second) std::abort();
  return 0;
}
