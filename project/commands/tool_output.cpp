#include "project/commands/tool_output.h"

#include "base/byte_scan.h"
#include "base/utf16.h"
#include "edit/text/letters.h"

#include <utility>

namespace tarrow {
namespace {

constexpr std::size_t kLongestQuoted = 128;  // bytes that typographic quotes are looked for around

unsigned char ByteAt(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

bool IsAsciiLetter(unsigned char c) {
  return (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
}

bool IsLower(unsigned char c) {
  return c >= 'a' && c <= 'z';
}

// Whether a byte makes sense as a letter of the page: no capital stands in a word behind a small letter.
bool IsSensible(const CodePage& page, unsigned char byte, unsigned char before) {
  char16_t code = page.single[byte];
  if (page.isLead[byte] || !IsWordCharacter(code)) return false;
  return !IsLower(before) || ConvertCase(code, LetterCase::kLower) == code;
}

bool IsLine(char16_t code) {
  return code >= 0x2500 && code <= 0x259F;
}

// Whether the quoted word that begins at `at` is quoted as ANSI does: with 0x91 and 0x92, or 0x93 and 0x94.
bool IsQuoted(std::string_view text, std::size_t at) {
  unsigned char open = ByteAt(text, at);
  if ((open != 0x91 && open != 0x93) || (at > 0 && IsAsciiLetter(ByteAt(text, at - 1)))) return false;
  std::size_t end = at + 1;
  while (end < at + kLongestQuoted && ByteAt(text, end) > '\r' && ByteAt(text, end) != open + 1) ++end;
  return end > at + 1 && ByteAt(text, end) == open + 1 && !IsAsciiLetter(ByteAt(text, end + 1));
}

// What one byte of 0x80 and above says: above 0 for ANSI, below for OEM. Rows of the same line character are
// drawings of the console.
int Evidence(std::string_view text, std::size_t at, const CodePage& ansi, const CodePage& oem) {
  unsigned char byte = ByteAt(text, at), before = at > 0 ? ByteAt(text, at - 1) : 0;
  bool isRow = before == byte || ByteAt(text, at + 1) == byte;
  if (IsLine(oem.single[byte]) && isRow) return -2;
  if (IsQuoted(text, at)) return 4;
  return int{IsSensible(ansi, byte, before)} - int{IsSensible(oem, byte, before)};
}

// OEM text in UTF-8. A page of two bytes a character is the same as the ANSI one, and does not come here.
std::string FromOem(std::string_view bytes, const CodePage& oem) {
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 8);
  for (char c : bytes) AppendUtf8(out, oem.single[static_cast<unsigned char>(c)]);
  return out;
}

bool HasLoneLf(std::string_view bytes) {
  for (std::size_t at = 0; (at += FindByte(bytes.substr(at), '\n')) < bytes.size(); ++at)
    if (at == 0 || bytes[at - 1] != '\r') return true;
  return false;
}

std::string WithLineEnds(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 16);
  while (!bytes.empty()) {
    std::size_t end = FindByte(bytes, '\n');
    if (end == bytes.size()) return out.append(bytes);
    std::string_view line = bytes.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    out.append(line).append("\r\n");
    bytes.remove_prefix(end + 1);
  }
  return out;
}

}  // namespace

OutputCharset TellOutputCharset(std::string_view bytes, const CodePage& ansi, const CodePage& oem) {
  if (IsUtf8(bytes.substr(FindHighByte(bytes)))) return OutputCharset::kUtf8;
  if (ansi.single == oem.single || oem.decodePair) return OutputCharset::kAnsi;
  std::int64_t evidence = 0;
  for (std::size_t at = 0; at < bytes.size(); ++at)
    if (static_cast<unsigned char>(bytes[at]) >= 0x80) evidence += Evidence(bytes, at, ansi, oem);
  return evidence > 0 ? OutputCharset::kAnsi : OutputCharset::kOem;
}

std::string ToolOutputText(std::string bytes, const CodePage& ansi, const CodePage& oem) {
  if (TellOutputCharset(bytes, ansi, oem) == OutputCharset::kOem) bytes = FromOem(bytes, oem);
  return HasLoneLf(bytes) ? WithLineEnds(bytes) : std::move(bytes);
}

}  // namespace tarrow
