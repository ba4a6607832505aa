// Scanning bytes at the speed of memory: find a byte, find either of two, count.
//
// Written with SSE2 where the target has it (every target that ships), with plain loops elsewhere; the plain
// loops are also what the tests compare against. The C run-time's memchr on the shipping targets goes byte by
// byte, which is why these exist. All functions return an offset from the front of `text`, or `text.size()`
// when nothing was found.
#pragma once

#include <cstddef>
#include <string_view>

namespace tarrow {

// How far ahead, in bytes, a long scan asks for memory: it is faster than memory, and the machine itself does
// not look beyond the end of a page.
inline constexpr std::size_t kPrefetchAhead = 2048;

std::size_t FindByte(std::string_view text, char byte);
std::size_t FindEitherByte(std::string_view text, char first, char second);
std::size_t CountByte(std::string_view text, char byte);

// Counts `byte` and tells whether there may be long stretches without it: certainly so when one has 256
// bytes, certainly not when none has 129.
struct ByteCount {
  std::size_t count = 0;
  bool hasLongGap = false;
};
ByteCount CountByteAndGaps(std::string_view text, char byte);

// The first byte of 0x80 or above.
std::size_t FindHighByte(std::string_view text);

// The last occurrence of `byte`.
std::size_t FindLastByte(std::string_view text, char byte);

// Copies `text` up to the first `byte`, which is not copied, and returns its offset. `to` must have room for
// all of `text`: what lies behind the copied bytes there is overwritten at will.
std::size_t CopyUntilByte(std::string_view text, char* to, char byte);

}  // namespace tarrow
