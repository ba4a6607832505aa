#include "console/console.h"

#include "console/system.h"
#include "ui/program/string_ids.h"
#include "ui/program/string_table.h"

#include <algorithm>
#include <iostream>
#include <new>

namespace tarrow {
namespace {

constexpr std::size_t kReadAhead = 64 << 10;

// Tells the progress how much of a file is read, and reads ahead for whoever reads in small portions.
class WatchedSource final : public ByteSource {
 public:
  WatchedSource(std::unique_ptr<ByteSource> source, ProgressDisplay& progress)
      : source_(std::move(source)), progress_(progress) {
    try {
      progress_.AddTotal(source_->Size());
    } catch (const CFileException&) {
      // A pipe or a device has no size; a directory fails when it is read.
    }
  }

  std::size_t Read(std::span<char> into) override {
    if (ahead_.empty() && into.size() < kReadAhead) FillBuffer();
    std::size_t n = std::min(into.size(), ahead_.size());
    std::copy_n(ahead_.data(), n, into.data());
    ahead_.remove_prefix(n);
    return n < into.size() && !ended_ ? n + ReadThrough(into.subspan(n)) : n;
  }
  void Seek(std::uint64_t position) override {
    source_->Seek(position);
    ahead_ = {};
    ended_ = false;
  }
  std::uint64_t Size() override { return source_->Size(); }

 private:
  void FillBuffer() {
    if (!buffer_) buffer_ = std::make_unique_for_overwrite<char[]>(kReadAhead);
    ahead_ = {buffer_.get(), ReadThrough({buffer_.get(), kReadAhead})};
  }
  std::size_t ReadThrough(std::span<char> into) {
    std::size_t n = source_->Read(into);
    ended_ = n < into.size();
    progress_.AddRead(n);
    return n;
  }

  std::unique_ptr<ByteSource> source_;
  ProgressDisplay& progress_;
  std::unique_ptr<char[]> buffer_;
  std::string_view ahead_;  // what of the buffer is not yet asked for
  bool ended_ = false;
};

constexpr std::size_t kPortion = 64 << 10;

std::string_view CauseText(FileCause cause) {
  return FindText(kTextFirstFileCause + static_cast<int>(cause));
}

}  // namespace

Console::Console(std::string_view command)
    : command_(command), directory_(CurrentDirectory()), out_(progress_) {}

Console::Output::Output(ProgressDisplay& progress)
    : progress_(progress), onTerminal_(IsTerminal(Stream::kOutput)) {}

void Console::Output::Write(std::string_view bytes) {
  if (onTerminal_) progress_.Clear();
  text_ += bytes;
  if (onTerminal_ || text_.size() >= kPortion) Flush();
}

// What could not be written is not tried again.
void Console::Output::Flush() {
  std::string text;
  text.swap(text_);
  if (!text.empty()) WriteTo(Stream::kOutput, text);
}

std::unique_ptr<ByteSource> Console::Open(const std::string& name) {
  return std::make_unique<WatchedSource>(OpenInput(name), progress_);
}

void Console::Guard(const std::string& name, const std::function<void()>& use) {
  try {
    use();
  } catch (const CFileException& failure) {
    // Where nothing more can be written there is no going on.
    if (failure.Path() == kStandardOutput) throw;
    Complain(failure);
  } catch (const std::bad_alloc&) {
    Complain(name, FindText(kTextOutOfMemory));
  }
}

void Console::ForEachFile(const std::vector<std::string>& names,
                          const std::function<void(ByteSource&, const std::string&)>& use) {
  for (const std::string& name : ExpandNames(names)) {
    progress_.Begin(name);
    Guard(name, [&] { use(*Open(name), name); });
  }
}

void Console::Complain(std::string_view text) {
  failed_ = true;
  // What was found before the failure stands before it where both go to the same place.
  out_.Flush();
  progress_.Clear();
  WriteTo(Stream::kError,
          std::string("tarrowc ").append(command_).append(": ").append(text).append(kNewLine));
}

void Console::Complain(std::string_view file, std::string_view cause) {
  Complain(std::string(file).append(": ").append(cause));
}

void Console::Complain(const CFileException& failure) {
  Complain(failure.Path(), IsDirectory(failure.Path()) ? "Is a directory" : CauseText(failure.Cause()));
}

bool Console::Ask(std::string_view question) {
  if (!IsTerminal(Stream::kInput) || !IsTerminal(Stream::kError)) return false;
  progress_.Clear();
  WriteTo(Stream::kError, std::string(question).append(" [y/N] "));
  std::string answer;
  return std::getline(std::cin, answer) && (answer.starts_with('y') || answer.starts_with('Y'));
}

std::string_view Console::ShownName(std::string_view name) const {
  bool isWithin = !directory_.empty() && name.starts_with(directory_) && name.size() > directory_.size();
  return isWithin ? name.substr(directory_.size()) : name;
}

}  // namespace tarrow
