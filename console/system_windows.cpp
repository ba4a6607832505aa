#include "base/exceptions.h"
#include "base/path_text.h"
#include "console/system.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/unicode.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <atomic>
#include <optional>
#include <tuple>

namespace tarrow {
namespace {

std::atomic<bool> interrupted = false;

// The first Ctrl+C is noted; any other event, and a second one, take their usual course.
BOOL WINAPI NoteInterrupt(DWORD event) {
  return event == CTRL_C_EVENT && !interrupted.exchange(true);
}

HANDLE HandleOf(Stream stream) {
  return GetStdHandle(stream == Stream::kInput    ? STD_INPUT_HANDLE
                      : stream == Stream::kOutput ? STD_OUTPUT_HANDLE
                                                  : STD_ERROR_HANDLE);
}

void EndIfInterrupted() {
  if (interrupted) throw CYieldException();
}

// What tells a file on a disk from all others; nothing for what is no such file.
using FileIdentity = std::optional<std::tuple<DWORD, DWORD, DWORD>>;

FileIdentity IdentityOf(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION info{};
  bool isKnown = GetFileType(file) == FILE_TYPE_DISK && GetFileInformationByHandle(file, &info);
  if (!isKnown) return std::nullopt;
  return std::tuple(info.dwVolumeSerialNumber, info.nFileIndexHigh, info.nFileIndexLow);
}

class StandardInput final : public ByteSource {
 public:
  std::size_t Read(std::span<char> into) override {
    std::size_t done = 0;
    while (done < into.size()) {
      DWORD n = 0, wanted = static_cast<DWORD>(std::min<std::size_t>(into.size() - done, 1 << 20));
      bool read = ReadFile(HandleOf(Stream::kInput), into.data() + done, wanted, &n, nullptr);
      EndIfInterrupted();
      // The writing end of a pipe that is closed is its end.
      if (!read && GetLastError() != ERROR_BROKEN_PIPE) Fail();
      if (n == 0) break;
      done += n;
    }
    return done;
  }
  void Seek(std::uint64_t position) override {
    LARGE_INTEGER to;
    to.QuadPart = static_cast<LONGLONG>(position);
    if (!SetFilePointerEx(HandleOf(Stream::kInput), to, nullptr, FILE_BEGIN)) Fail();
  }
  std::uint64_t Size() override {
    LARGE_INTEGER size;
    if (GetFileType(HandleOf(Stream::kInput)) != FILE_TYPE_DISK)
      throw CFileException(FileCause::kBadSeek, kName);
    if (!GetFileSizeEx(HandleOf(Stream::kInput), &size)) Fail();
    return static_cast<std::uint64_t>(size.QuadPart);
  }

 private:
  static constexpr const char* kName = "standard input";

  [[noreturn]] static void Fail() { throw CFileException(FileCauseFromWindows(GetLastError()), kName); }
};

// A file that may end a read early when the user has had enough.
class NamedFile final : public ByteSource {
 public:
  explicit NamedFile(const std::string& name) : file_(name, CFile::Mode::kRead, CFile::Share::kReadWrite) {}

  std::size_t Read(std::span<char> into) override {
    EndIfInterrupted();
    return file_.Read(into);
  }
  void Seek(std::uint64_t position) override { file_.Seek(position); }
  std::uint64_t Size() override { return file_.Size(); }

 private:
  CFile file_;
};

void AppendMatches(const std::string& pattern, std::vector<std::string>& names) {
  std::size_t before = names.size();
  for (const DirectoryEntry& entry : FindFiles(pattern))
    if (!entry.IsDirectory()) names.push_back(std::string(DirectoryPart(pattern)) + entry.name);
  std::sort(names.begin() + static_cast<std::ptrdiff_t>(before), names.end());
  // A pattern that finds nothing stays, to be reported as a file that is not there.
  if (names.size() == before) names.push_back(pattern);
}

}  // namespace

const std::string_view kNewLine = "\r\n";

// A handle is no small number that another file could get.
void KeepStandardStreamsApart() {}

std::vector<std::string> ProgramArguments(int, char**) {
  int count = 0;
  LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(ToUtf8(words[i]));
  LocalFree(words);
  return arguments;
}

std::vector<std::string> ExpandNames(const std::vector<std::string>& names) {
  std::vector<std::string> expanded;
  for (const std::string& name : names) {
    if (name.find_first_of("*?") == std::string::npos)
      expanded.push_back(name);
    else
      AppendMatches(name, expanded);
  }
  return expanded;
}

std::unique_ptr<ByteSource> OpenInput(const std::string& name) {
  if (name == "-") return std::make_unique<StandardInput>();
  return std::make_unique<NamedFile>(name);
}

bool IsAlsoOutput(const std::string& name) {
  FileIdentity out = IdentityOf(HandleOf(Stream::kOutput));
  if (!out) return false;
  if (name == "-") return IdentityOf(HandleOf(Stream::kInput)) == out;
  HANDLE file = CreateFileW(ToWide(name).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                            nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  FileIdentity in = IdentityOf(file);
  CloseHandle(file);
  return in == out;
}

void WriteTo(Stream stream, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD n = 0, size = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1 << 20));
    bool written = WriteFile(HandleOf(stream), bytes.data(), size, &n, nullptr);
    DWORD error = written ? ERROR_SUCCESS : GetLastError();
    if (error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA) throw BrokenPipe();
    if (!written) throw CFileException(FileCauseFromWindows(error), std::string(kStandardOutput));
    if (n == 0) throw CFileException(FileCause::kDiskFull, std::string(kStandardOutput));
    bytes.remove_prefix(n);
  }
}

bool IsTerminal(Stream stream) {
  DWORD mode;
  return GetConsoleMode(HandleOf(stream), &mode) != 0;
}

bool IsDirectory(const std::string& name) {
  return IsDirectory(std::string_view(name));
}

std::string CurrentDirectory() {
  try {
    std::string directory = FullPath(".");
    return directory.ends_with('\\') ? directory : directory + "\\";
  } catch (const CFileException&) {
    return {};
  }
}

std::string FullName(const std::string& name) {
  try {
    return FullPath(name);
  } catch (const CFileException&) {
    return name;
  }
}

void CatchInterrupts() {
  SetConsoleCtrlHandler(NoteInterrupt, TRUE);
}

bool Interrupted() {
  return interrupted;
}

}  // namespace tarrow
