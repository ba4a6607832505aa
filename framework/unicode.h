// The border between the program's UTF-8 strings and the platform's character sets.
//
// Every string that goes to Windows passes through ToWide, every string that comes from it through ToUtf8; a
// name goes there and back unchanged, whatever it holds. The ANSI and OEM code pages remain for old data: a
// character that the code page lacks becomes its default character.
#pragma once

#include <string>
#include <string_view>

namespace tarrow {

[[nodiscard]] std::wstring ToWide(std::string_view utf8);
[[nodiscard]] std::string ToUtf8(std::wstring_view wide);

// Bytes in the system's ANSI code page.
[[nodiscard]] std::string AnsiToUtf8(std::string_view ansi);
[[nodiscard]] std::string Utf8ToAnsi(std::string_view utf8);

// Bytes in the OEM code page, as console programs write them.
[[nodiscard]] std::string OemToUtf8(std::string_view oem);
[[nodiscard]] std::string Utf8ToOem(std::string_view utf8);

// `text` in lower case by the rules by which the file system compares names: a character whose lower case
// would not lead back to it stays, so that the lower-case path still names the same file.
[[nodiscard]] std::string LowerCase(std::string_view utf8);

}  // namespace tarrow
