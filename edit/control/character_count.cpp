#include "edit/control/character_count.h"

#include "base/byte_scan.h"

#include <algorithm>
#include <limits>

namespace tarrow {
namespace {

// As far as is counted between two offers of a checkpoint.
constexpr std::int32_t kStretch = 4096;

// How many bytes from `at` on are ASCII, looking no further than `until` and one piece of the text.
std::int32_t PlainRun(const TextView& text, BytePos at, BytePos until) {
  auto from = static_cast<std::size_t>(at.value), most = static_cast<std::size_t>(until - at);
  std::size_t head = text.head.size();
  std::string_view bytes = from < head ? text.head.substr(from, most) : text.tail.substr(from - head, most);
  return static_cast<std::int32_t>(FindHighByte(bytes));
}

}  // namespace

std::int32_t CountCharacters(const TextView& text, BytePos line, BytePos at, const Charset& charset,
                             LayoutCheckpoints& checkpoints) {
  checkpoints.Enter(line);
  auto [place, count] = checkpoints.Before(at, std::numeric_limits<Pixels>::max());
  while (place < at) {
    checkpoints.Pass({place, count});
    BytePos until = std::min(at, place + kStretch);
    while (place < until) {
      std::int32_t plain = PlainRun(text, place, until);
      place += plain;
      count += plain;
      if (place >= until) break;
      place += charset.At(text, place).length;
      ++count;
    }
  }
  return static_cast<std::int32_t>(count);
}

}  // namespace tarrow
