// FileLooker: looks at files on local disks without waiting for them.
//
// A disk may sleep, or be dying, so a thread looks, and whoever has asked hears of it by a message. Only the
// last file that was asked about is of interest: a thread that hangs holds up nothing but later looks.
#pragma once

#include "edit/files/known_file.h"

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

namespace tarrow {

class FileLooker {
 public:
  struct Answer {
    std::string path;
    FileLook look;
  };

  FileLooker();
  ~FileLooker();
  FileLooker(const FileLooker&) = delete;
  FileLooker& operator=(const FileLooker&) = delete;

  // Looks at the file `path` (in full); then `window` is posted kFileLookedMessage. A file that is on no
  // local disk has no answer.
  void Ask(HWND window, const std::string& path);

  // The last answer, once.
  std::optional<Answer> TakeAnswer();

 private:
  struct Shared;
  static DWORD WINAPI Run(void* shared);

  std::shared_ptr<Shared> shared_;  // the thread's, too, which may outlive the object
};

}  // namespace tarrow
