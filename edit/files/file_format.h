// How the lines of a file end on the disk. In a text buffer they end at CR LF, whatever the file's format.
#pragma once

#include <string_view>

namespace tarrow {

// The numbers are those of the choice in the Save As dialog.
enum class FileFormat {
  kDos = 0,   // CR LF
  kUnix = 1,  // LF
  kMac = 2,   // CR
};

inline constexpr int kFileFormatCount = 3;

constexpr std::string_view LineEndOf(FileFormat format) {
  return format == FileFormat::kDos ? "\r\n" : format == FileFormat::kUnix ? "\n" : "\r";
}

}  // namespace tarrow
