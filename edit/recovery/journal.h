// Journal: keeps on the disk what one text would lose if the program ended now.
//
// It follows the text and does nothing else at once: a change is put down in memory, and Write(), called a
// second later, hands everything over to the queue, whose thread does the writing. The first of it is the
// whole text, which is copied piece by piece (ChangeStream); a journal that has grown beyond its text is
// begun anew in a second file, and the first is removed once the second is whole on the disk. So there is at
// every moment a file that holds the text as it was when it was last written.
//
// No failure reaches the text: a journal that cannot be written is left as it is, and begun anew later.
#pragma once

#include "edit/recovery/background_queue.h"
#include "edit/recovery/change_stream.h"
#include "edit/recovery/journal_output.h"
#include "edit/text/text_observer.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace tarrow {

// The text, as its journal sees it.
class JournaledText {
 public:
  virtual TextView JournalView() const = 0;

  // Document and generation are the journal's to fill in.
  virtual JournalDescription JournalName() const = 0;

 protected:
  ~JournaledText() = default;
};

// What journals share; all of it outlives them.
struct JournalServices {
  JournalDisk& disk;
  BackgroundQueue& queue;
  std::function<void()> isWanted;  // called when a journal begins to have something to write; must not throw
};

class Journal final : public TextObserver {
 public:
  // Both outlive the journal. Nothing is written before the text changes.
  Journal(const JournalServices& services, const JournaledText& text);

  void OnReplaced(TextRange range, std::string_view text) noexcept override;
  void OnExchanged() noexcept override;

  // The text is to be kept although it has not changed.
  void Want() noexcept;

  // The text has another name or format.
  void OnRenamed() noexcept;

  // The text has come out of a journal: the files of that one are kept until this one is whole.
  void TakeOver(const JournalDescription& description, std::vector<std::unique_ptr<JournalFile>> files);

  // Whether Write() has something to do, now or later.
  bool IsBehind() const;

  // Hands over what has come together.
  void Write() noexcept;

  // Goes on with copying the text, if that has been begun; for when the queue has room again.
  void CopyOn() noexcept;

  // The text has been saved or given up: removes what is on the disk.
  void End() noexcept;

  // Why writing has failed since the last time this was asked.
  std::optional<FileCause> TakeFailure();

 private:
  struct Stream {
    explicit Stream(std::shared_ptr<JournalOutput> journal) : output(std::move(journal)) {}

    std::shared_ptr<JournalOutput> output;
    ChangeStream changes;
    std::uint64_t written = 0;  // bytes, since it became whole
    bool isBroken = false;
  };

  static void Follow(std::optional<Stream>& stream, TextRange range, std::string_view text) noexcept;
  void BeginNext();
  void Post(const std::shared_ptr<JournalOutput>& output, std::size_t bytes,
            std::function<void(JournalOutput&)> task);
  void Describe(const Stream& stream);
  void WriteChanges(Stream& stream);
  void CopyPieces();
  void DropFailed(std::optional<Stream>& stream);
  void RemoveOlder();
  void Remove(const std::shared_ptr<JournalOutput>& output);
  bool HasOutgrownText() const;

  const JournalServices& services_;
  const JournaledText& text_;
  std::uint64_t document_;
  std::uint32_t generation_ = 0;
  bool isDirty_ = false;
  bool isRenamed_ = false;
  std::optional<Stream> current_;                      // whole
  std::optional<Stream> next_;                         // being copied
  std::vector<std::shared_ptr<JournalOutput>> older_;  // kept until current_ is whole on the disk
  std::uint64_t retryAt_ = 0;
  std::optional<FileCause> failure_;
};

}  // namespace tarrow
