// The alphabet of a code page: which of its bytes are letters, and in which case.
#pragma once

#include "edit/text/charset.h"
#include "search/pattern/char_tables.h"

#include <memory>

namespace tarrow {

// The alphabet of `charset`, which is a code page. Bytes that can be part of a pair have no case and make no
// word, save for the ASCII ones. Throws std::bad_alloc.
std::shared_ptr<const ByteAlphabet> AlphabetOf(const Charset& charset);

}  // namespace tarrow
