// What the commands of tarrowc share: where they print, how they open files and tell of failures.
//
// A file that cannot be opened or read is told of in one line on the standard error, and the command goes on
// with the next one; the exit code then tells of the trouble.
#pragma once

#include "base/byte_source.h"
#include "base/exceptions.h"
#include "base/text_sink.h"
#include "console/progress_display.h"
#include "console/watched_source.h"

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// A file that is not to be read, for a reason that what() tells.
class InputRefused : public std::exception {
 public:
  explicit InputRefused(const char* reason) : reason_(reason) {}
  const char* what() const noexcept override { return reason_; }

 private:
  const char* reason_;
};

class Console {
 public:
  explicit Console(std::string_view command);

  // Standard output, in large portions where it is no terminal.
  TextSink& Out() { return out_; }
  void Flush() { out_.Flush(); }
  ProgressDisplay& GetProgress() { return progress_; }

  // Opens a file whose reading the progress follows. Throws CFileException and InputRefused.
  std::unique_ptr<WatchedSource> Open(const std::string& name);

  // Tells if the file `name` has shrunk while it was read.
  void CheckWhole(const WatchedSource& source, const std::string& name);

  // Calls `use` and tells of a failure of the file `name` in it, or why it was not read.
  void Guard(const std::string& name, const std::function<void()>& use);
  // The same for each of several files, wildcards expanded, opened; tells also when one has shrunk meanwhile.
  void ForEachFile(const std::vector<std::string>& names,
                   const std::function<void(ByteSource&, const std::string&)>& use);

  // Writes a line to the standard error; the command has failed, at least in part.
  void Complain(std::string_view text);
  void Complain(std::string_view file, std::string_view cause);
  void Complain(const CFileException& failure);
  bool Failed() const { return failed_; }

  // The name under which results of a file are shown: its own without the current directory in front.
  std::string_view ShownName(std::string_view name) const;

  // Puts a question with the answers Yes and No on the terminal; No where there is none.
  bool Ask(std::string_view question);

 private:
  class Output final : public TextSink {
   public:
    explicit Output(ProgressDisplay& progress);
    void Write(std::string_view bytes) override;
    void Flush();

   private:
    ProgressDisplay& progress_;
    bool onTerminal_;
    std::string text_;
  };

  std::string_view command_;
  std::string directory_;
  ProgressDisplay progress_;
  Output out_;
  bool failed_ = false;
};

}  // namespace tarrow
