// An open file, to be read and written at any position. Positions and sizes are bytes, 64 bits.
//
// Engines that work on files take this; framework/file.h is the real one, tests have theirs. Every function
// throws CFileException when it cannot do the whole of what it is asked for.
#pragma once

#include "base/byte_sink.h"
#include "base/byte_source.h"

namespace tarrow {

class DiskFile : public ByteSource, public ByteSink {
 public:
  // Ends the file at the current position.
  virtual void Truncate() = 0;

  // Hands everything written to the disk itself.
  virtual void Flush() = 0;

  // Closes; throws when the system reports that data was lost by then.
  virtual void Close() = 0;
};

}  // namespace tarrow
