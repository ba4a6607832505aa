// What a window knows of its file on the disk, and when its user has to hear that another program has changed
// it.
//
// A file counts as changed when its size or its time is another than when its text was loaded or saved. Each
// change is news once, when the window comes to the front; what the user has not decided then is asked again
// before a save would write over it. A look that tells nothing (the disk does not answer, nobody may look)
// changes nothing.
#pragma once

#include <cstdint>

namespace tarrow {

// What a look at a file has found.
struct FileLook {
  enum class Found { kUnknown, kNothing, kFile };

  Found found = Found::kUnknown;
  std::uint64_t size = 0;      // bytes
  std::uint64_t modified = 0;  // in units of 100 nanoseconds since 1601, UTC

  friend bool operator==(const FileLook&, const FileLook&) = default;
};

// What there is to tell or to ask.
enum class FileNews {
  kNone,
  kReloadOrKeep,       // the file has changed, the text has not
  kOverwriteOrReload,  // both have
  kGone,               // the file has been deleted
};

class KnownFile {
 public:
  // The text has just been loaded from, or saved to, the file that `look` has found; a window without a file
  // has none.
  void Take(const FileLook& look);

  // The window comes to the front, its text modified or not.
  [[nodiscard]] FileNews OnLook(const FileLook& look, bool modified);

  // Whether saving would write over a change that the user has not decided about.
  [[nodiscard]] bool MustAskBeforeSave(const FileLook& look) const;

  // The user wants to keep the text, whatever the file is now.
  void Keep(const FileLook& look) { kept_ = look; }

 private:
  bool IsKnown(const FileLook& look) const { return look == taken_ || look == kept_; }

  FileLook taken_;  // what the text is, or was, the same as
  FileLook kept_;   // what the user has decided about
  FileLook told_;   // what he was told of last
};

}  // namespace tarrow
