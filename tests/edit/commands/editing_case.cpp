#include "editing_case.h"

#include "edit/commands/child_flags.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

namespace tarrow {

namespace {

constexpr std::string_view kCaret = "‸", kOpen = "«", kClose = "»";

[[noreturn]] void Fail(std::string_view what, std::string_view where) {
  throw std::runtime_error(std::string(what) + ": '" + std::string(where) + "'");
}

template <typename T>
T Lookup(const std::map<std::string, T, std::less<>>& table, std::string_view name) {
  auto found = table.find(name);
  if (found == table.end()) Fail("unknown word", name);
  return found->second;
}

int ReadNumber(std::string_view digits) {
  int number = 0;
  auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size()) Fail("no number", digits);
  return number;
}

std::uint32_t ReadFlags(const std::string& words) {
  static const std::map<std::string, std::uint32_t, std::less<>> kFlags{
      {"align", kAlignLines}, {"indent", kIndentBlocks}, {"overtype", kOvertype}, {"readonly", kReadOnly}};
  std::istringstream in(words);
  std::uint32_t flags = 0;
  for (std::string word; in >> word;) flags |= Lookup(kFlags, word);
  return flags;
}

Beep ReadBeep(std::string_view word) {
  static const std::map<std::string, Beep, std::less<>> kBeeps{{"plain", Beep::kPlain},
                                                               {"exclamation", Beep::kExclamation},
                                                               {"stop", Beep::kStop},
                                                               {"information", Beep::kInformation}};
  return Lookup(kBeeps, word);
}

void ReadField(EditingCase& to, const std::string& line) {
  auto colon = line.find(": ");
  if (colon == line.npos) Fail("no field", line);
  std::string name = line.substr(0, colon), value = line.substr(colon + 2);
  if (name == "command") return void(to.command = value);
  if (name == "tab size") return void(to.indent.tabSize = ReadNumber(value));
  if (name == "shift width") return void(to.indent.shiftWidth = ReadNumber(value));
  if (name == "expand tabs") return void(to.indent.expandTabs = ReadNumber(value) == 1);
  if (name == "flags") return void(to.flags = ReadFlags(value));
  if (name == "beep") return void(to.beep = ReadBeep(value));
  if (name == "characters" && value == "ansi") return void(to.charset = Charset(WesternCodePage()));
  if (name == "characters" && value == "utf-8") return void(to.charset = Charset());
  Fail("unknown field", line);
}

// The byte that an escape at the front of `text` stands for; takes the escape away.
char TakeEscape(std::string_view& text) {
  if (text.size() < 2) Fail("escape cut off", text);
  char kind = text[1];
  text.remove_prefix(2);
  if (kind == 'r') return '\r';
  if (kind == 'n') return '\n';
  if (kind == '\\') return '\\';
  unsigned byte = 0;
  if (kind != 'x' || text.size() < 2 ||
      std::from_chars(text.data(), text.data() + 2, byte, 16).ptr != text.data() + 2)
    Fail("unknown escape", text);
  text.remove_prefix(2);
  return static_cast<char>(byte);
}

bool Take(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

}  // namespace

std::vector<std::filesystem::path> EditingCaseFiles() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(TARROW_CASES))
    if (entry.path().extension() == ".txt") files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

EditingCase ReadEditingCase(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  EditingCase result;
  std::string before, after, line;
  std::string* text = nullptr;
  while (std::getline(in, line)) {
    if (line == "-- before")
      text = &before;
    else if (line == "-- after")
      text = &after;
    else if (text)
      *text += line + '\n';
    else if (!line.starts_with('#'))
      ReadField(result, line);
  }
  if (before.empty() || result.command.empty()) Fail("no case", file.string());
  result.before = ReadMarkedText({before.data(), before.size() - 1});
  result.after = after.empty() ? result.before : ReadMarkedText({after.data(), after.size() - 1});
  return result;
}

MarkedText ReadMarkedText(std::string_view lines) {
  MarkedText marked;
  auto here = [&] { return BytePos(static_cast<std::int64_t>(marked.text.size())); };
  while (!lines.empty()) {
    if (Take(lines, kCaret)) {
      marked.selection = {here(), here()};
    } else if (Take(lines, kOpen)) {
      marked.selection.start = here();
    } else if (Take(lines, kClose)) {
      marked.selection.end = here();
    } else if (lines[0] == '\\') {
      marked.text += TakeEscape(lines);
    } else {
      marked.text += lines[0] == '\n' ? "\r\n" : std::string(1, lines[0]);
      lines.remove_prefix(1);
    }
  }
  return marked;
}

std::string ShowMarkedText(const MarkedText& marked) {
  std::string shown;
  for (BytePos p; p.value <= static_cast<std::int32_t>(marked.text.size()); ++p) {
    auto i = static_cast<std::size_t>(p.value);
    bool caret = marked.selection.Empty();
    if (p == marked.selection.start) shown += caret ? kCaret : kOpen;
    if (p == marked.selection.end && !caret) shown += kClose;
    if (i == marked.text.size()) break;
    bool lineEnd = marked.text[i] == '\r' && i + 1 < marked.text.size() && marked.text[i + 1] == '\n';
    if (!lineEnd) shown += marked.text[i];
  }
  return shown;
}

}  // namespace tarrow
