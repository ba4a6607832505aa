// Find in a view: a search of the bytes of its file, with the progress box.
#pragma once

#include "edit/documents/documents.h"
#include "edit/documents/searchable_file.h"
#include "search/find/find_state.h"
#include "ui/program/messages.h"
#include "ui/program/wait_state.h"

#include <windows.h>

namespace tarrow {

class FindInView {
 public:
  // `frame` owns the progress box, `boxOwner` the message boxes. All must outlive the object, but for the
  // file, whose window may be closed while a box is shown; it is then left alone.
  FindInView(HWND frame, const Documents& documents, Messages& messages, Waiting& waiting, FindState& state,
             SearchableFile& file, HWND boxOwner)
      : frame_(frame),
        documents_(documents),
        messages_(messages),
        waiting_(waiting),
        state_(state),
        file_(file),
        boxOwner_(boxOwner) {}

  // Takes the selection as the pattern when it is a short piece of a line of text, unless it is the last
  // match itself.
  void TakeSelection();

  // Selects the next match in the direction of the find state, from the selection on; tells the user when
  // there is none. Throws CFileException, CYieldException, std::bad_alloc.
  void Find();

 private:
  bool IsStillThere() const;

  HWND frame_;
  const Documents& documents_;
  Messages& messages_;
  Waiting& waiting_;
  FindState& state_;
  SearchableFile& file_;
  HWND boxOwner_;
};

}  // namespace tarrow
