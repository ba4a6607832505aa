// Saving: the bytes of a text as a file of a given format holds them.
//
// In DOS format the bytes go out as they are. In the others every CR, together with an LF right behind it,
// becomes the one line end of the format; an LF on its own stays what it is. No other byte changes.
#pragma once

#include "base/byte_sink.h"
#include "base/text_view.h"
#include "edit/files/file_format.h"

namespace tarrow {

// Writes the text in large pieces, without a copy of the whole. Throws what the sink throws.
void SaveText(TextView text, FileFormat format, ByteSink& out);

}  // namespace tarrow
