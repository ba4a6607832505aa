// What of a view is copied: the text that is seen, in UTF-8, rows divided by CR LF.
#pragma once

#include "base/progress.h"
#include "viewer/views/view_rows.h"

#include <string>

namespace tarrow {

// The text of the selected cells. Throws CFileException, CMemoryException when it is more than `most` bytes,
// and what `progress` throws.
std::string SelectedText(ViewRows& rows, const CellSelection& selection, std::size_t most,
                         Progress* progress = nullptr);

}  // namespace tarrow
