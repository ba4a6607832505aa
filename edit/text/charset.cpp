#include "edit/text/charset.h"

#include "base/byte_scan.h"

#include <algorithm>

namespace tarrow {
namespace {

constexpr std::int32_t kLongestSequence = 4;
constexpr unsigned char kLeastTrail = 0x40;

bool IsContinuation(int byte) {
  return (byte & 0xC0) == 0x80;
}

// Up to four bytes of `text` from `at` on, in one piece; `room` serves where they lie across the gap.
std::string_view Sequence(const TextView& text, BytePos at, std::array<char, kLongestSequence>& room) {
  auto from = static_cast<std::size_t>(at.value);
  std::size_t head = text.head.size();
  if (from >= head) return text.tail.substr(from - head, room.size());
  if (from + room.size() <= head || text.tail.empty()) return text.head.substr(from, room.size());
  std::size_t n = 0;
  for (; n < room.size() && at.value < text.Size(); ++n, ++at) room[n] = text[at];
  return {room.data(), n};
}

// How many bytes the sequence that begins with `lead` has, and the least code that may be written with as
// many.
struct Form {
  std::int32_t length;
  char32_t least;
};
Form FormOf(unsigned char lead) {
  if (lead < 0x80) return {1, 0};
  if (lead >= 0xC2 && lead < 0xE0) return {2, 0x80};
  if (lead >= 0xE0 && lead < 0xF0) return {3, 0x800};
  if (lead >= 0xF0 && lead < 0xF5) return {4, 0x10000};
  return {0, 0};
}

// The valid sequence at the front of `bytes`; length 0 when there is none.
Character DecodeUtf8(std::string_view bytes) {
  if (bytes.empty()) return {};
  auto lead = static_cast<unsigned char>(bytes[0]);
  Form form = FormOf(lead);
  if (form.length == 1) return {lead, 1};
  if (form.length == 0 || bytes.size() < static_cast<std::size_t>(form.length)) return {};
  char32_t code = lead & (0xFFu >> (form.length + 1));
  for (std::int32_t i = 1; i < form.length; ++i) {
    auto byte = static_cast<unsigned char>(bytes[static_cast<std::size_t>(i)]);
    if (!IsContinuation(byte)) return {};
    code = code << 6 | (byte & 0x3F);
  }
  bool isValid = code >= form.least && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
  return isValid ? Character{code, form.length} : Character{};
}

void AppendUtf8(char32_t code, std::string& bytes) {
  if (code < 0x80) {
    bytes += static_cast<char>(code);
    return;
  }
  int trail = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
  bytes += static_cast<char>((0xF80u >> trail & 0xFF) | code >> (6 * trail));
  while (trail-- > 0) bytes += static_cast<char>(0x80 | (code >> (6 * trail) & 0x3F));
}

// What of `text` lies in one piece from `at` on.
std::string_view Rest(const TextView& text, BytePos at) {
  auto from = static_cast<std::size_t>(at.value);
  return from < text.head.size() ? text.head.substr(from) : text.tail.substr(from - text.head.size());
}

// Whether every byte of 0x80 and above belongs to a valid sequence.
bool IsValidUtf8(const TextView& text) {
  std::array<char, kLongestSequence> room;
  for (BytePos at(0); at < text.End();) {
    at += static_cast<std::int64_t>(FindHighByte(Rest(text, at)));
    for (; at < text.End() && (text[at] & 0x80) != 0;) {
      Character c = DecodeUtf8(Sequence(text, at, room));
      if (c.length == 0) return false;
      at += c.length;
    }
  }
  return true;
}

// Unpaired surrogates become U+FFFD.
template <typename Found>
void ForEachCode(std::u16string_view wide, Found found) {
  auto isHigh = [](char16_t u) { return u >= 0xD800 && u < 0xDC00; };
  auto isLow = [](char16_t u) { return u >= 0xDC00 && u < 0xE000; };
  for (std::size_t i = 0; i < wide.size(); ++i) {
    char16_t unit = wide[i];
    if (isHigh(unit) && i + 1 < wide.size() && isLow(wide[i + 1]))
      found(0x10000 + ((unit & 0x3FFu) << 10) + (wide[++i] & 0x3FFu));
    else
      found(isHigh(unit) || isLow(unit) ? kReplacementCharacter : unit);
  }
}

}  // namespace

Charset Charset::Of(const TextView& text, const CodePage& page) {
  return IsValidUtf8(text) ? Charset() : Charset(page);
}

Character Charset::At(const TextView& text, BytePos at) const {
  if (at >= text.End()) return {};
  auto byte = static_cast<unsigned char>(text[at]);
  if (byte < 0x80) return {byte, 1};
  if (IsUtf8()) {
    std::array<char, kLongestSequence> room;
    Character c = DecodeUtf8(Sequence(text, at, room));
    return c.length ? c : Character{kReplacementCharacter, 1};
  }
  int trail = page_->isLead[byte] ? text.At(at + 1) : -1;
  if (trail < kLeastTrail) return {page_->single[byte], 1};
  char16_t code = page_->decodePair(byte, static_cast<unsigned char>(trail));
  return {code ? code : kReplacementCharacter, 2};
}

BytePos Charset::CharacterStart(const TextView& text, BytePos at) const {
  int byte = text.At(at);
  if (IsUtf8()) {
    if (byte < 0 || !IsContinuation(byte)) return at;
    for (std::int32_t back = 1; back < kLongestSequence && back <= at.value; ++back)
      if (!IsContinuation(text.At(at - back))) return At(text, at - back).length > back ? at - back : at;
    return at;
  }
  // A byte is the second of a pair when an odd number of lead bytes stands before it: they pair up among
  // themselves, and the last one is left for it.
  if (byte < kLeastTrail || !page_->decodePair) return at;
  std::int32_t leads = 0;
  while (leads < at.value && page_->isLead[static_cast<unsigned char>(text[at - leads - 1])]) ++leads;
  return leads % 2 ? at - 1 : at;
}

BytePos Charset::Snap(const TextView& text, BytePos at) const {
  if (at.value <= 0) return BytePos(0);
  if (at >= text.End()) return text.End();
  if (text[at] == '\n' && text[at - 1] == '\r') return at - 1;
  return CharacterStart(text, at);
}

BytePos Charset::Next(const TextView& text, BytePos at) const {
  if (at >= text.End()) return text.End();
  if (text[at] == '\r' && text.At(at + 1) == '\n') return at + 2;
  return at + At(text, at).length;
}

BytePos Charset::Previous(const TextView& text, BytePos at) const {
  return Snap(text, at - 1);
}

std::u16string Charset::ToWide(const TextView& text) const {
  std::u16string wide;
  wide.reserve(static_cast<std::size_t>(text.Size()));
  for (BytePos at(0); at < text.End();) {
    std::string_view plain = Rest(text, at);
    plain = plain.substr(0, FindHighByte(plain));
    wide.append(plain.begin(), plain.end());
    at += static_cast<std::int64_t>(plain.size());
    Character c = At(text, at);
    if (c.length) AppendUtf16(c.code, wide);
    at += c.length;
  }
  return wide;
}

std::string Charset::FromWide(std::u16string_view wide) const {
  std::string bytes;
  bytes.reserve(wide.size());
  ForEachCode(wide,
              [&](char32_t code) { code < 0x80 ? bytes += static_cast<char>(code) : bytes += Encode(code); });
  return bytes;
}

std::string Charset::Encode(char32_t code) const {
  if (!IsUtf8()) return page_->encode(code);
  std::string bytes;
  AppendUtf8(code, bytes);
  return bytes;
}

bool Charset::Holds(char32_t code) const {
  if (code < 0x80) return true;
  if (IsUtf8()) return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
  return page_->encode(code) != "?";
}

bool Charset::Holds(std::u16string_view wide) const {
  bool holds = true;
  ForEachCode(wide, [&](char32_t code) { holds = holds && Holds(code); });
  return holds;
}

std::string Charset::Convert(const TextView& text, const Charset& to) const {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.Size()));
  for (BytePos at(0); at < text.End();) {
    std::string_view plain = Rest(text, at);
    plain = plain.substr(0, FindHighByte(plain));
    bytes.append(plain);
    at += static_cast<std::int64_t>(plain.size());
    Character c = At(text, at);
    if (c.length) bytes += to.Encode(c.code);
    at += c.length;
  }
  return bytes;
}

bool IsAscii(const TextView& text) {
  return FindHighByte(text.head) == text.head.size() && FindHighByte(text.tail) == text.tail.size();
}

void AppendUtf16(char32_t code, std::u16string& wide) {
  if (code < 0x10000) {
    wide += static_cast<char16_t>(code);
    return;
  }
  wide += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
  wide += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
}

}  // namespace tarrow
