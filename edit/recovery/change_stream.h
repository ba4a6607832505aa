// ChangeStream: what has become of a text, as one journal is to tell it.
//
// A journal begins with an empty text, so the whole of a text must get into it first, and a text of 100 MB is
// not copied at one stroke while somebody types. It is copied piece by piece, in front of a border that moves
// on to the end; a change in front of the border is a change of what has been copied, a change behind it will
// be copied as it is then. So the stream holds at any moment what makes the text in front of the border, and
// once the border has reached the end, all of it. Changes that continue one another become one.
#pragma once

#include "base/text_view.h"
#include "edit/recovery/journal_format.h"

#include <string>
#include <string_view>

namespace tarrow {

class ChangeStream {
 public:
  // `range` of the text has been replaced by `text`. Throws std::bad_alloc; the stream is of no use then.
  void Replaced(TextRange range, std::string_view text);

  // Copies up to `most` bytes of the text as it is now.
  void Copy(const TextView& text, std::int32_t most);

  // Whether all of the text has been copied.
  bool IsWhole() const { return isWhole_; }

  // Bytes in front of the border: of the text, once it is whole.
  std::int32_t Size() const { return border_.value; }

  // What has come together: about how many bytes, and all of it, which is forgotten here.
  std::size_t PendingBytes() const { return pending_.size() + last_.size(); }
  bool HasPending() const { return !pending_.empty() || hasLast_; }
  std::string Take();

 private:
  bool Join(TextRange range, std::string_view text);
  void CloseLast();

  BytePos border_;
  bool isWhole_ = false;
  std::string pending_;

  // The last change, which the next one may continue: `removed_` bytes at `at_` by last_.
  bool hasLast_ = false;
  BytePos at_;
  std::int32_t removed_ = 0;
  std::string last_;
};

}  // namespace tarrow
