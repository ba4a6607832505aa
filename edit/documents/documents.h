// Documents: what a room may ask about the document windows of the program.
//
// The shell implements it. Paths are UTF-8; those without a directory are sought in the current one.
#pragma once

#include "edit/documents/source_place.h"

#include <string_view>

namespace tarrow {

class CTwChild;
class CTwLog;
class TextControl;

class Documents {
 public:
  // Opens a file in a window of its own, or brings its window to the top. Returns whether a window shows it;
  // the user has been told when none does.
  virtual bool OpenFile(std::string_view path, bool readOnly, bool hexView) = 0;

  // Opens the file of a place, whose name is sought in `directory` when it is relative, and goes there: the
  // line in the upper half of the window, or the address in a hex view. Returns whether the place is shown.
  virtual bool OpenAt(const SourcePlace& place, std::string_view directory) = 0;

  // A new, empty result window in front. `finder` reads the places that its lines name; none: the window is
  // not navigable. Null when the window could not be made, of which the user has been told. The window may be
  // closed by the user whenever messages are dispatched.
  virtual CTwLog* NewResultWindow(std::string_view title, PlaceFinder finder) = 0;

  // The document window in front, and its text if it is an edit window; null when there is none.
  virtual CTwChild* ActiveDocument() const = 0;
  virtual TextControl* ActiveText() const = 0;

  // Asks of each modified window that has a name whether to save it, with string `message`, from the top of
  // the z-order. False when the user cancelled or a save failed.
  [[nodiscard]] virtual bool OfferToSave(int message) = 0;

  // The same for the window of one file (a full path), if it has one.
  [[nodiscard]] virtual bool OfferToSaveFile(std::string_view path, int message) = 0;

  // The file `from` is now called `to` (full paths): its window follows.
  virtual void FollowFile(std::string_view from, std::string_view to) = 0;

  // The program itself has written a file or changed its time (a full path): its window asks nobody about
  // that.
  virtual void FileIsOurs(std::string_view path) = 0;

 protected:
  ~Documents() = default;
};

}  // namespace tarrow
