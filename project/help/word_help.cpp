#include "project/help/word_help.h"

#include "edit/control/text_control.h"
#include "edit/text/line_bounds.h"
#include "framework/file_system.h"
#include "framework/unicode.h"
#include "ui/program/help_topics.h"
#include "ui/program/string_ids.h"

#include <shellapi.h>

namespace tarrow {
namespace {

constexpr int kLeastSuccess = 32;  // of what ShellExecute returns

// The value of an environment variable, of any length.
std::string EnvironmentVariable(const wchar_t* name) {
  std::wstring value(::GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  if (value.empty()) return {};
  value.resize(::GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return ToUtf8(value);
}

std::string CaretLine(const TextControl& control) {
  TextView text = control.View();
  BytePos caret = control.Selection().start;
  TextRange line{LineStart(text, caret), LineEnd(text, caret)};
  return Utf16ToUtf8(std::u16string_view(control.TextCharset().ToWide(text.Sub(line))));
}

}  // namespace

void WordHelp::Show(TextControl& text, HelpMode mode) {
  std::string word = WordForHelp(text.View(), text.Selection().start, text.TextCharset());
  mode = HelpModeFor(mode, word);
  std::string value = program_.options.Option(mode == HelpMode::kSdk ? kOptionHelpSDK : kOptionHelpEnv);
  WordHelpRequest request = MakeWordHelpRequest(value, word);
  if (request.name.empty())
    program_.messages.Alert(MB_ICONEXCLAMATION);
  else if (request.isHelpFile)
    OpenHelpFile(request.name, word);
  else
    StartProgram(request);
}

void WordHelp::ShowForContext(TextControl& text) {
  if (program_.settings.Has(kNoProject)) return program_.help.ShowHelp(nullptr, kHelpOnWordsTopic);
  if (std::optional<IncludeName> include = ReadIncludeLine(CaretLine(text)))
    OpenInclude(*include);
  else
    Show(text, HelpMode::kChoose);
}

void WordHelp::OpenInclude(const IncludeName& include) {
  WaitState wait(program_.waiting);
  std::vector<std::string> paths =
      IncludeCandidates(include, program_.options.Option(kOptionInclude), EnvironmentVariable(L"INCLUDE"));
  for (const std::string& path : paths) {
    if (!FileExists(path) || IsDirectory(path)) continue;
    program_.documents.OpenFile(path, true, false);
    return;
  }
  program_.messages.ShowFileError(nullptr, CFileException(FileCause::kFileNotFound, include.name));
}

// A system without the viewer says so by itself, or returns false.
void WordHelp::OpenHelpFile(const std::string& file, const std::string& word) {
  std::wstring key = ToWide(word);
  if (!::WinHelpW(program_.frame.Handle(), ToWide(file).c_str(), HELP_PARTIALKEY,
                  reinterpret_cast<ULONG_PTR>(key.c_str())))
    program_.messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextCannotOpen, {file});
}

void WordHelp::StartProgram(const WordHelpRequest& request) {
  auto result = reinterpret_cast<INT_PTR>(
      ::ShellExecuteW(program_.frame.Handle(), L"open", ToWide(request.name).c_str(),
                      ToWide(request.parameters).c_str(), nullptr, SW_SHOWNORMAL));
  if (result >= kLeastSuccess) return;
  Messages& messages = program_.messages;
  if (result == ERROR_FILE_NOT_FOUND)
    messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextCannotOpen, {request.name});
  else if (result == ERROR_BAD_FORMAT)
    messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextBadExecutable, {request.name});
  else
    messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextCreateProcess, {result, request.name});
}

}  // namespace tarrow
