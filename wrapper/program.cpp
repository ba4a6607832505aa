#include "wrapper/program.h"

#include "wrapper/call.h"

namespace tarrow {
namespace {

constexpr std::size_t kLongestCommand = 32768;  // what the system takes, its NUL included

// A text that grows at its end, up to what it was made for.
class TextBuilder {
 public:
  explicit TextBuilder(std::size_t most) : text_(AllocateText(most)), most_(text_ ? most : 0) {}
  ~TextBuilder() {
    if (text_) ::HeapFree(::GetProcessHeap(), 0, text_);
  }
  TextBuilder(const TextBuilder&) = delete;
  TextBuilder& operator=(const TextBuilder&) = delete;

  void Add(std::wstring_view piece) {
    if (piece.size() >= most_ - length_) isCut_ = true;
    if (isCut_) return;
    for (wchar_t c : piece) text_[length_++] = c;
    text_[length_] = L'\0';
  }
  void Clear() { length_ = 0; }
  bool IsWhole() const { return !isCut_; }
  wchar_t* Text() const { return text_; }

 private:
  wchar_t* text_;
  std::size_t most_;
  std::size_t length_ = 0;
  bool isCut_ = false;
};

// The value of an environment variable, or `otherwise`.
std::wstring_view Variable(const wchar_t* name, wchar_t* buffer, DWORD size, std::wstring_view otherwise) {
  DWORD length = ::GetEnvironmentVariableW(name, buffer, size);
  return length == 0 || length >= size ? otherwise : std::wstring_view(buffer, length);
}

bool IsOnPath(const wchar_t* name) {
  wchar_t found[MAX_PATH];
  return ::SearchPathW(nullptr, name, nullptr, MAX_PATH, found, nullptr) != 0;
}

// Whether the interpreter finds what CreateProcess does not run: a name with one of the endings that count as
// commands, written or left out.
bool IsScript(std::wstring_view word) {
  static wchar_t list[2048];
  std::wstring_view endings = Variable(L"PATHEXT", list, 2048, L".COM;.BAT;.CMD");
  TextBuilder name(word.size() + endings.size() + 1);
  for (std::size_t end; !endings.empty(); endings.remove_prefix(end < endings.size() ? end + 1 : end)) {
    end = 0;
    while (end < endings.size() && endings[end] != L';') ++end;
    std::wstring_view ending(endings.data(), end);
    if (ending.empty() || EndsLike(ending, L".exe")) continue;
    name.Clear();
    name.Add(word);
    if (!EndsLike(word, ending)) name.Add(ending);
    if (name.IsWhole() && IsOnPath(name.Text())) return true;
  }
  return false;
}

DWORD Create(wchar_t* line, HANDLE output, PROCESS_INFORMATION& process) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = ::GetStdHandle(STD_INPUT_HANDLE);
  startup.hStdOutput = output;
  startup.hStdError = output;
  return ::CreateProcessW(nullptr, line, nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr, nullptr, &startup,
                          &process)
             ? 0
             : ::GetLastError();
}

DWORD CreateThroughInterpreter(std::wstring_view command, HANDLE output, PROCESS_INFORMATION& process) {
  wchar_t buffer[MAX_PATH];
  TextBuilder line(kLongestCommand);
  line.Add(L"\"");
  line.Add(Variable(L"ComSpec", buffer, MAX_PATH, L"cmd.exe"));
  line.Add(L"\" /d /s /c \"");
  line.Add(command);
  line.Add(L"\"");
  return line.IsWhole() ? Create(line.Text(), output, process) : ERROR_FILENAME_EXCED_RANGE;
}

DWORD CreateAsProgram(std::wstring_view command, HANDLE output, PROCESS_INFORMATION& process) {
  TextBuilder line(kLongestCommand);
  line.Add(command);
  return line.IsWhole() ? Create(line.Text(), output, process) : ERROR_FILENAME_EXCED_RANGE;
}

bool MayBeScript(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME ||
         error == ERROR_BAD_EXE_FORMAT || error == ERROR_EXE_MACHINE_TYPE_MISMATCH;
}

DWORD CreateEitherWay(std::wstring_view command, HANDLE output, PROCESS_INFORMATION& process) {
  std::wstring_view word = FirstWord(command);
  bool isBatch = EndsLike(word, L".bat") || EndsLike(word, L".cmd");
  DWORD error = isBatch ? ERROR_FILE_NOT_FOUND : CreateAsProgram(command, output, process);
  if (MayBeScript(error) && (IsInterpreterCommand(command) || IsScript(word)))
    return CreateThroughInterpreter(command, output, process);
  return isBatch ? CreateAsProgram(command, output, process) : error;
}

void EndWithJob(HANDLE job, bool end) {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  if (end) limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  ::SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
}

// Where the system allows no job within a job (before Windows 8), the command runs without one.
HANDLE PutIntoJob(HANDLE process) {
  HANDLE job = ::CreateJobObjectW(nullptr, nullptr);
  if (!job) return nullptr;
  EndWithJob(job, true);
  if (::AssignProcessToJobObject(job, process)) return job;
  ::CloseHandle(job);
  return nullptr;
}

}  // namespace

wchar_t* AllocateText(std::size_t length) {
  return static_cast<wchar_t*>(::HeapAlloc(::GetProcessHeap(), 0, length * sizeof(wchar_t)));
}

StartedCommand StartCommand(std::wstring_view command, HANDLE output) {
  PROCESS_INFORMATION process{};
  StartedCommand started;
  started.error = CreateEitherWay(command, output, process);
  if (started.error != 0) return started;
  started.process = process.hProcess;
  started.job = PutIntoJob(process.hProcess);
  ::ResumeThread(process.hThread);
  ::CloseHandle(process.hThread);
  return started;
}

void ReleaseJob(HANDLE job) {
  if (!job) return;
  EndWithJob(job, false);
  ::CloseHandle(job);
}

}  // namespace tarrow
