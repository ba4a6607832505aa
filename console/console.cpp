#include "console/console.h"

#include "console/system.h"
#include "ui/program/string_ids.h"
#include "ui/program/string_table.h"

#include <algorithm>
#include <iostream>
#include <new>

namespace tarrow {
namespace {

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

// What is written would be read again, without end.
std::unique_ptr<WatchedSource> Console::Open(const std::string& name) {
  if (IsAlsoOutput(name)) throw InputRefused("is also the output");
  return std::make_unique<WatchedSource>(OpenInput(name), progress_);
}

void Console::Guard(const std::string& name, const std::function<void()>& use) {
  try {
    use();
  } catch (const CFileException& failure) {
    // Where nothing more can be written there is no going on.
    if (failure.Path() == kStandardOutput) throw;
    Complain(failure);
  } catch (const InputRefused& refused) {
    Complain(name, refused.what());
  } catch (const std::bad_alloc&) {
    Complain(name, FindText(kTextOutOfMemory));
  }
}

void Console::ForEachFile(const std::vector<std::string>& names,
                          const std::function<void(ByteSource&, const std::string&)>& use) {
  for (const std::string& name : ExpandNames(names)) {
    progress_.Begin(name);
    Guard(name, [&] {
      std::unique_ptr<WatchedSource> source = Open(name);
      use(*source, name);
      CheckWhole(*source, name);
    });
  }
}

void Console::CheckWhole(const WatchedSource& source, const std::string& name) {
  if (source.HasShrunk()) Complain(name, "has shrunk while it was read");
}

void Console::Complain(std::string_view text) {
  failed_ = true;
  // What was found before the failure stands before it where both go to the same place.
  out_.Flush();
  try {
    progress_.Clear();
    WriteTo(Stream::kError,
            std::string("tarrowc ").append(command_).append(": ").append(text).append(kNewLine));
  } catch (const CFileException&) {
    // Not even the standard error takes anything; the exit code still tells.
  }
}

void Console::Complain(std::string_view file, std::string_view cause) {
  Complain(std::string(file).append(": ").append(cause));
}

void Console::Complain(const CFileException& failure) {
  bool isPipe = dynamic_cast<const BrokenPipe*>(&failure) != nullptr;
  Complain(failure.Path(), isPipe                        ? "Nothing reads the pipe any more"
                           : IsDirectory(failure.Path()) ? "Is a directory"
                                                         : CauseText(failure.Cause()));
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
