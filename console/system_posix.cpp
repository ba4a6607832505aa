#include "base/exceptions.h"
#include "console/mapped_file.h"
#include "console/system.h"

#include <fcntl.h>
#include <limits.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>

namespace tarrow {
namespace {

volatile std::sig_atomic_t interrupted = 0;

// A signal that comes just before a call which waits would go by unheard: the alarm breaks that call off.
void NoteInterrupt(int) {
  interrupted = 1;
  alarm(1);
}

void BreakOffAgain(int) {
  alarm(1);
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

  std::string_view Map() override {
    map_ = MapFile(descriptor_);
    off_t position = map_ ? lseek(descriptor_, 0, SEEK_CUR) : -1;
    return position < 0 ? std::string_view() : map_->From(static_cast<std::size_t>(position));
  }

  bool PassMapped(std::size_t count) override {
    EndIfInterrupted();
    off_t position = lseek(descriptor_, 0, SEEK_CUR);
    if (position < 0 || map_->HasLost() || Size() < static_cast<std::uint64_t>(position) + count)
      return false;
    return lseek(descriptor_, static_cast<off_t>(count), SEEK_CUR) >= 0;
  }

 private:
  [[noreturn]] void Fail() const { throw CFileException(FileCauseFromErrno(errno), name_); }

  int descriptor_;
  std::string name_;
  std::unique_ptr<MappedFile> map_;
};

// A file that nobody writes to yet, a FIFO, is waited for.
int OpenToRead(const std::string& name) {
  for (;;) {
    int descriptor = open(name.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor >= 0 || errno != EINTR) return descriptor;
    EndIfInterrupted();
  }
}

// What can be written at once: all, or once interrupted as much as a pipe with room certainly takes, if it
// has room.
std::size_t PortionOf(int descriptor, std::size_t size) {
  if (!interrupted) return size;
  pollfd ready{descriptor, POLLOUT, 0};
  if (poll(&ready, 1, 0) <= 0) throw CYieldException();
  return std::min<std::size_t>(size, PIPE_BUF);
}

int DescriptorOf(Stream stream) {
  return stream == Stream::kInput ? STDIN_FILENO : stream == Stream::kOutput ? STDOUT_FILENO : STDERR_FILENO;
}

}  // namespace

const std::string_view kNewLine = "\n";

// Descriptors are given out from 0 on: what is opened the wrong way round stands in for a closed one.
void KeepStandardStreamsApart() {
  for (int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    bool isClosed = fcntl(descriptor, F_GETFD) < 0 && errno == EBADF;
    if (isClosed) (void)open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return {argv + (argc > 0), argv + argc};
}

std::vector<std::string> ExpandNames(const std::vector<std::string>& names) {
  return names;
}

std::unique_ptr<ByteSource> OpenInput(const std::string& name) {
  if (name == "-") return std::make_unique<PosixFile>(STDIN_FILENO, "standard input");
  return std::make_unique<PosixFile>(OpenToRead(name), name);
}

bool IsAlsoOutput(const std::string& name) {
  struct stat in, out;
  bool isKnown = (name == "-" ? fstat(STDIN_FILENO, &in) : stat(name.c_str(), &in)) == 0 &&
                 fstat(STDOUT_FILENO, &out) == 0;
  return isKnown && S_ISREG(out.st_mode) && in.st_dev == out.st_dev && in.st_ino == out.st_ino;
}

void WriteTo(Stream stream, std::string_view bytes) {
  int descriptor = DescriptorOf(stream);
  while (!bytes.empty()) {
    ssize_t n = write(descriptor, bytes.data(), PortionOf(descriptor, bytes.size()));
    if (n < 0 && errno == EPIPE) throw BrokenPipe();
    if (n < 0 && errno != EINTR)
      throw CFileException(FileCauseFromErrno(errno), std::string(kStandardOutput));
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
  action.sa_handler = BreakOffAgain;
  action.sa_flags = 0;
  sigaction(SIGALRM, &action, nullptr);
}

bool Interrupted() {
  return interrupted != 0;
}

}  // namespace tarrow
