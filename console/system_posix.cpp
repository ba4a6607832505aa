#include "base/exceptions.h"
#include "console/system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

namespace tarrow {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void NoteInterrupt(int) {
  interrupted = 1;
}

// Retries what a signal broke off, unless the signal was the user's.
void EndIfInterrupted() {
  if (interrupted) throw CYieldException();
}

class PosixFile final : public ByteSource {
 public:
  PosixFile(int descriptor, std::string name) : descriptor_(descriptor), name_(std::move(name)) {
    if (descriptor_ < 0) Fail();
  }
  ~PosixFile() override {
    if (descriptor_ > STDIN_FILENO) close(descriptor_);
  }

  std::size_t Read(std::span<char> into) override {
    std::size_t done = 0;
    while (done < into.size()) {
      ssize_t n = read(descriptor_, into.data() + done, into.size() - done);
      if (n < 0 && errno != EINTR) Fail();
      EndIfInterrupted();
      if (n == 0) break;
      done += n > 0 ? static_cast<std::size_t>(n) : 0;
    }
    return done;
  }

  void Seek(std::uint64_t position) override {
    if (lseek(descriptor_, static_cast<off_t>(position), SEEK_SET) < 0) Fail();
  }

  std::uint64_t Size() override {
    struct stat status;
    if (fstat(descriptor_, &status) < 0) Fail();
    if (S_ISDIR(status.st_mode)) throw CFileException(FileCause::kAccessDenied, name_);
    if (!S_ISREG(status.st_mode)) throw CFileException(FileCause::kBadSeek, name_);
    return static_cast<std::uint64_t>(status.st_size);
  }

 private:
  [[noreturn]] void Fail() const { throw CFileException(FileCauseFromErrno(errno), name_); }

  int descriptor_;
  std::string name_;
};

int DescriptorOf(Stream stream) {
  return stream == Stream::kInput ? STDIN_FILENO : stream == Stream::kOutput ? STDOUT_FILENO : STDERR_FILENO;
}

}  // namespace

const std::string_view kNewLine = "\n";

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return {argv + (argc > 0), argv + argc};
}

std::vector<std::string> ExpandNames(const std::vector<std::string>& names) {
  return names;
}

std::unique_ptr<ByteSource> OpenInput(const std::string& name) {
  if (name == "-") return std::make_unique<PosixFile>(STDIN_FILENO, "standard input");
  return std::make_unique<PosixFile>(open(name.c_str(), O_RDONLY | O_CLOEXEC), name);
}

void WriteTo(Stream stream, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t n = write(DescriptorOf(stream), bytes.data(), bytes.size());
    if (n < 0 && errno != EINTR)
      throw CFileException(FileCauseFromErrno(errno), std::string(kStandardOutput));
    if (n < 0) EndIfInterrupted();
    bytes.remove_prefix(n > 0 ? static_cast<std::size_t>(n) : 0);
  }
}

bool IsTerminal(Stream stream) {
  return isatty(DescriptorOf(stream)) != 0;
}

bool IsDirectory(const std::string& name) {
  std::error_code ignored;
  return std::filesystem::is_directory(name, ignored);
}

std::string CurrentDirectory() {
  std::error_code error;
  std::string directory = std::filesystem::current_path(error).string();
  return error || directory.ends_with('/') ? directory : directory + "/";
}

std::string FullName(const std::string& name) {
  std::error_code error;
  std::filesystem::path full = std::filesystem::absolute(name, error);
  return error ? name : full.lexically_normal().string();
}

// Without SA_RESTART, so that a read that waits for input ends too.
void CatchInterrupts() {
  struct sigaction action = {};
  action.sa_handler = NoteInterrupt;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigemptyset(&action.sa_mask);
  sigaction(SIGINT, &action, nullptr);
}

bool Interrupted() {
  return interrupted != 0;
}

}  // namespace tarrow
