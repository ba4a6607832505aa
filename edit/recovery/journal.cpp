#include "edit/recovery/journal.h"

#include "base/text_format.h"

#include <algorithm>
#include <random>
#include <utility>

namespace tarrow {
namespace {

// Small enough that nobody notices the copying of a piece while he types.
constexpr std::int32_t kPiece = 256 << 10;
constexpr std::size_t kMostQueued = 4 * kPiece;

// What a text may always have in changes, in memory and on the disk, however small it is.
constexpr std::uint64_t kFreeChanges = 1 << 20;

constexpr std::uint64_t kRetryAfter = 30 * 10'000'000ull;  // of 100 ns

std::uint64_t NewDocument() {
  std::random_device random;
  return static_cast<std::uint64_t>(random()) << 32 | random();
}

std::string FileName(std::uint64_t document, std::uint32_t generation) {
  auto high = static_cast<std::uint32_t>(document >> 32), low = static_cast<std::uint32_t>(document);
  return FormatText("%08x%08x-%u.journal", {high, low, generation});
}

}  // namespace

Journal::Journal(const JournalServices& services, const JournaledText& text)
    : services_(services), text_(text), document_(NewDocument()) {}

void Journal::Want() noexcept {
  if (!std::exchange(isDirty_, true)) services_.isWanted();
}

// Changes that would take as much as the text itself are not worth keeping: the text is copied anew.
void Journal::Follow(std::optional<Stream>& stream, TextRange range, std::string_view text) noexcept {
  if (!stream || stream->isBroken) return;
  ChangeStream& changes = stream->changes;
  try {
    changes.Replaced(range, text);
    std::uint64_t most = std::max(kFreeChanges, static_cast<std::uint64_t>(changes.Size()) / 2);
    stream->isBroken = changes.PendingBytes() > most;
  } catch (const std::bad_alloc&) {
    stream->isBroken = true;
  }
  if (stream->isBroken) changes = {};
}

void Journal::OnReplaced(TextRange range, std::string_view text) noexcept {
  Follow(current_, range, text);
  Follow(next_, range, text);
  Want();
}

void Journal::OnExchanged() noexcept {
  for (auto* stream : {&current_, &next_})
    if (*stream) (*stream)->isBroken = true;
  if (current_ || next_) Want();
}

void Journal::OnRenamed() noexcept {
  if (!current_ && !next_) return;
  isRenamed_ = true;
  Want();
}

void Journal::TakeOver(const JournalDescription& description,
                       std::vector<std::unique_ptr<JournalFile>> files) {
  document_ = description.document;
  generation_ = description.generation;
  for (auto& file : files) older_.push_back(std::make_shared<JournalOutput>(std::move(file)));
  Want();
}

// Posts what is to be done with a journal; it counts as busy meanwhile.
void Journal::Post(const std::shared_ptr<JournalOutput>& output, std::size_t bytes,
                   std::function<void(JournalOutput&)> task) {
  services_.queue.Post(bytes, [output, task = std::move(task), busy = output->MakeBusy()] { task(*output); });
}

bool Journal::IsBehind() const {
  bool isUnsettled = current_ && (current_->output->IsBusy() || current_->output->Failure());
  return isDirty_ || next_ || isUnsettled || !older_.empty();
}

void Journal::BeginNext() {
  next_.emplace(std::make_shared<JournalOutput>(services_.disk, FileName(document_, ++generation_)));
  Describe(*next_);
}

void Journal::Describe(const Stream& stream) {
  JournalDescription description = text_.JournalName();
  description.document = document_;
  description.generation = generation_;
  std::string contents = EncodeDescription(description);
  Post(stream.output, contents.size(),
       [contents](JournalOutput& output) { output.WriteFrame(contents, {}); });
}

void Journal::WriteChanges(Stream& stream) {
  bool isWhole = stream.changes.IsWhole();
  std::string head = EncodeChangesHead({services_.disk.Now(), isWhole, stream.changes.Size()});
  std::string rest = stream.changes.Take();
  if (isWhole) stream.written += head.size() + rest.size();
  std::size_t bytes = rest.size();
  Post(stream.output, bytes,
       [head = std::move(head), rest = std::move(rest), isWhole](JournalOutput& output) {
         output.WriteFrame(head, rest);
         if (isWhole) output.Commit();
       });
}

bool Journal::HasOutgrownText() const {
  return current_->written > std::max(kFreeChanges, static_cast<std::uint64_t>(current_->changes.Size()));
}

void Journal::CopyPieces() {
  while (next_ && services_.queue.Bytes() < kMostQueued) {
    next_->changes.Copy(text_.JournalView(), kPiece);
    WriteChanges(*next_);
    if (!next_->changes.IsWhole()) continue;
    next_->written = 0;  // what has been copied does not count
    if (current_) older_.push_back(current_->output);
    current_ = std::exchange(next_, {});
  }
}

void Journal::CopyOn() noexcept {
  try {
    if (next_ && !next_->isBroken && !next_->output->Failure()) CopyPieces();
  } catch (...) {
    if (next_) next_->isBroken = true;
  }
}

void Journal::Remove(const std::shared_ptr<JournalOutput>& output) {
  Post(output, 0, [](JournalOutput& file) { file.Remove(); });
}

// A file that holds a whole text is worth keeping although it is not the newest any more.
void Journal::DropFailed(std::optional<Stream>& stream) {
  if (!stream) return;
  std::optional<FileCause> failure = stream->output->Failure();
  if (!failure && !stream->isBroken) return;
  if (failure) {
    failure_ = failure;
    retryAt_ = services_.disk.Now() + kRetryAfter;
  }
  if (&stream == &current_)
    older_.push_back(stream->output);
  else
    Remove(stream->output);
  stream.reset();
}

void Journal::RemoveOlder() {
  if (!current_ || !current_->output->IsWhole()) return;
  for (const auto& output : older_) Remove(output);
  older_.clear();
}

void Journal::Write() noexcept {
  try {
    if (!IsBehind()) return;
    DropFailed(current_);
    DropFailed(next_);
    RemoveOlder();
    if (services_.disk.Now() < retryAt_) return;
    bool isBegun = current_ || next_;
    if (!isBegun || (!next_ && current_ && HasOutgrownText())) BeginNext();
    for (auto* stream : {&current_, &next_})
      if (isRenamed_ && *stream) Describe(**stream);
    if (current_ && current_->changes.HasPending()) WriteChanges(*current_);
    isRenamed_ = false;
    isDirty_ = false;
    CopyPieces();
  } catch (...) {  // memory; the next time there may be some
    for (auto* stream : {&current_, &next_})
      if (*stream) (*stream)->isBroken = true;
    isDirty_ = true;
  }
}

void Journal::End() noexcept {
  try {
    for (auto* stream : {&current_, &next_})
      if (*stream) older_.push_back((*stream)->output);
    for (const auto& output : older_) Remove(output);
  } catch (...) {  // what stays is offered at the next start
  }
  current_.reset();
  next_.reset();
  older_.clear();
  isDirty_ = isRenamed_ = false;
}

std::optional<FileCause> Journal::TakeFailure() {
  return std::exchange(failure_, {});
}

}  // namespace tarrow
