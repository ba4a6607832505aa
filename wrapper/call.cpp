#include "wrapper/call.h"

namespace tarrow {
namespace {

constexpr std::wstring_view kInterpreterCommands[] = {
    L"assoc",  L"break", L"call",  L"cd",    L"chdir",    L"cls",    L"color",  L"copy",  L"date",
    L"del",    L"dir",   L"dpath", L"echo",  L"endlocal", L"erase",  L"exit",   L"for",   L"ftype",
    L"goto",   L"if",    L"md",    L"mkdir", L"mklink",   L"move",   L"path",   L"pause", L"popd",
    L"prompt", L"pushd", L"rd",    L"rem",   L"ren",      L"rename", L"rmdir",  L"set",   L"setlocal",
    L"shift",  L"start", L"time",  L"title", L"type",     L"ver",    L"verify", L"vol"};

bool IsBlank(wchar_t c) {
  return c == L' ' || c == L'\t';
}

wchar_t Lower(wchar_t c) {
  return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

bool IsLetter(wchar_t c) {
  return Lower(c) >= L'a' && Lower(c) <= L'z';
}

void SkipBlanks(std::wstring_view& text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
}

std::wstring_view First(std::wstring_view text, std::size_t count) {
  return {text.data(), count < text.size() ? count : text.size()};
}

// Takes a word off the front of `text`: up to the closing quote when it begins with one, else up to a blank.
std::wstring_view TakeWord(std::wstring_view& text) {
  bool quoted = !text.empty() && text.front() == L'"';
  if (quoted) text.remove_prefix(1);
  std::size_t end = 0;
  while (end < text.size() && (quoted ? text[end] != L'"' : !IsBlank(text[end]))) ++end;
  std::wstring_view word = First(text, end);
  text.remove_prefix(end);
  if (quoted && !text.empty()) text.remove_prefix(1);
  return word;
}

}  // namespace

WrapperCall ReadWrapperCall(std::wstring_view line) {
  WrapperCall call;
  (void)TakeWord(line);
  SkipBlanks(line);
  call.output = TakeWord(line);
  if (!line.empty()) line.remove_prefix(1);
  std::wstring_view text = line;
  SkipBlanks(text);
  if (!text.empty()) call.command = line;
  return call;
}

std::wstring_view FirstWord(std::wstring_view command) {
  SkipBlanks(command);
  return TakeWord(command);
}

bool EndsLike(std::wstring_view text, std::wstring_view end) {
  if (end.size() > text.size()) return false;
  text.remove_prefix(text.size() - end.size());
  for (std::size_t i = 0; i < end.size(); ++i)
    if (Lower(text[i]) != Lower(end[i])) return false;
  return true;
}

bool IsInterpreterCommand(std::wstring_view command) {
  SkipBlanks(command);
  while (!command.empty() && (command.front() == L'@' || command.front() == L'(')) {
    command.remove_prefix(1);
    SkipBlanks(command);
  }
  std::size_t length = 0;
  while (length < command.size() && IsLetter(command[length])) ++length;
  std::wstring_view behind = command;
  behind.remove_prefix(length);
  constexpr std::wstring_view kEnds = L" \t./\\:;,=([+|&<>\"";
  if (!behind.empty() && kEnds.find(behind.front()) == kEnds.npos) return false;
  for (std::wstring_view known : kInterpreterCommands)
    if (known.size() == length && EndsLike(First(command, length), known)) return true;
  return false;
}

}  // namespace tarrow
