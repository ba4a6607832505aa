// The dialogs in which a user names files: Open, Save As, and one for any single file.
//
// They are the system's own with a few controls added. Every name that comes back is a full path in UTF-8,
// one name however many blanks it holds; nothing comes back when the user cancels.
#pragma once

#include "edit/files/file_format.h"
#include "ui/program/project_options.h"

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// The filter list of the dialogs: descriptions and patterns, each ended by a vertical bar. It is the option
// of the project's environment, or all files where that is empty.
[[nodiscard]] std::string FileFilter(const ProjectOptions& options);

struct OpenChoice {
  std::vector<std::string> paths;
  bool viewInHex = false;
  bool viewAsText = false;
  bool readOnly = false;
};

// Several files, existing or new, and how to open them.
[[nodiscard]] std::optional<OpenChoice> RunOpenDialog(HWND owner, std::string_view filter);

// One existing file, in a dialog of that title.
[[nodiscard]] std::optional<std::string> RunPickFileDialog(HWND owner, std::string_view title,
                                                           std::string_view filter);

// Existing files of one directory, in a dialog of that title; empty when the user cancels.
[[nodiscard]] std::vector<std::string> RunPickFilesDialog(HWND owner, std::string_view title,
                                                          std::string_view filter);

// An existing directory, beginning with `start`.
[[nodiscard]] std::optional<std::string> RunPickDirectoryDialog(HWND owner, std::string_view title,
                                                                std::string_view start);

struct SaveChoice {
  std::string path;
  FileFormat format;
};

// A name for a text, beginning with `name`, and its format on the disk. Asks before an existing file is
// chosen.
[[nodiscard]] std::optional<SaveChoice> RunSaveAsDialog(HWND owner, std::string_view name, FileFormat format);

}  // namespace tarrow
