#include "edit/recovery/journal_reader.h"

#include "base/exceptions.h"

#include <algorithm>
#include <new>
#include <optional>
#include <string>

namespace tarrow {
namespace {

using Kind = JournalState::Kind;

// No frame that was ever written is longer.
constexpr std::uint32_t kLongestFrame = kMaxTextSize;

// The frames of a journal, one after another.
class Frames {
 public:
  explicit Frames(ByteSource& journal) : journal_(journal), left_(journal.Size()) { journal.Seek(0); }

  // Whether what is read first can be a journal of this version. A file that ends too early is one.
  bool Begin() {
    std::string_view beginning = Read(std::min<std::uint64_t>(left_, kJournalBeginning));
    if (beginning.size() < kJournalBeginning) {
      isCut_ = true;
      return EncodeJournalBeginning().starts_with(beginning);
    }
    return TakeVersion(beginning) == kJournalVersion;
  }

  // The contents of the next good frame, valid until the next one; nothing behind the last.
  std::optional<std::string_view> Next() {
    if (left_ < kFrameHeader) {
      isCut_ = true;
      return {};
    }
    FrameHeader header = DecodeFrameHeader(Read(kFrameHeader));
    isCut_ = header.length > left_;
    if (isCut_ || header.length > kLongestFrame) return {};
    std::string_view contents = Read(header.length);
    if (contents.size() != header.length || FrameChecksum(number_, contents) != header.checksum) return {};
    ++number_;
    return contents;
  }

  // Whether the file ended where a frame should have gone on.
  bool IsCut() const { return isCut_; }

 private:
  std::string_view Read(std::uint64_t size) {
    bytes_.resize(static_cast<std::size_t>(size));
    bytes_.resize(journal_.Read(bytes_));
    left_ -= bytes_.size();
    return bytes_;
  }

  ByteSource& journal_;
  std::uint64_t left_;
  std::uint32_t number_ = 0;
  std::string bytes_;
  bool isCut_ = false;
};

// Whether all changes of a frame fit a text of `size` bytes and make one of the size that it says.
bool ChangesFit(std::string_view changes, std::int64_t size, std::int32_t sizeAfter) {
  while (!changes.empty()) {
    std::optional<JournalChange> change = TakeChange(changes);
    if (!change || std::int64_t{change->at.value} + change->removed > size) return false;
    size += static_cast<std::int64_t>(change->inserted.size()) - change->removed;
    if (size > kMaxTextSize) return false;
  }
  return size == sizeAfter;
}

void Apply(std::string_view changes, TextBuffer& text) {
  while (std::optional<JournalChange> change = TakeChange(changes))
    text.Replace({change->at, change->at + change->removed}, change->inserted, EditKind::kForgotten);
}

// Reads a journal to the end of what is good in it; with `text`, makes that, too.
class Reading {
 public:
  Reading(ByteSource& journal, TextBuffer* text) : frames_(journal), text_(text) {}

  JournalState Run() {
    if (!frames_.Begin()) return state_;
    bool isGood = true;
    while (isGood) {
      std::optional<std::string_view> contents = frames_.Next();
      isGood = contents && (TakeDescription(*contents) || TakeChanges(*contents));
    }
    if (!isWhole_) state_.kind = frames_.IsCut() ? Kind::kUnfinished : Kind::kUnreadable;
    return state_;
  }

 private:
  bool TakeDescription(std::string_view contents) {
    std::optional<JournalDescription> description = DecodeDescription(contents);
    if (!description) return false;
    state_.description = std::move(*description);
    isDescribed_ = true;
    return true;
  }

  bool TakeChanges(std::string_view contents) {
    std::optional<ChangesHead> head = TakeChangesHead(contents);
    if (!isDescribed_ || !head || !ChangesFit(contents, state_.size, head->size)) return false;
    if (text_) Apply(contents, *text_);
    state_.time = head->time;
    state_.size = head->size;
    isWhole_ = isWhole_ || head->isWhole;
    if (isWhole_) state_.kind = Kind::kWhole;
    return true;
  }

  Frames frames_;
  TextBuffer* text_;
  JournalState state_;
  bool isDescribed_ = false;
  bool isWhole_ = false;
};

JournalState ReadAll(ByteSource& journal, TextBuffer* text) {
  try {
    return Reading(journal, text).Run();
  } catch (const std::bad_alloc&) {
    throw CMemoryException();
  }
}

}  // namespace

JournalState ReadJournalState(ByteSource& journal) {
  return ReadAll(journal, nullptr);
}

TextBuffer ReplayJournal(ByteSource& journal) {
  TextBuffer text;
  if (ReadAll(journal, &text).kind != Kind::kWhole) throw CFileException(FileCause::kEndOfFile, {});
  return text;
}

}  // namespace tarrow
