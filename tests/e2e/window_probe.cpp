// A helper of the end-to-end tests: looks at the windows of other programs and works their keyboard and
// mouse.
//
// Reads one request a line from standard input, its fields apart by tabs, and answers each with one line of
// JSON; a request that it does not know is answered by {"error": ...}. Ends with its input. In a field "\n",
// "\r", "\t" and "\\" stand for a line feed, a carriage return, a tab and a backslash. Windows are named by
// their handles in decimal.
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "framework/unicode.h"
#include "tests/e2e/clipboard.h"
#include "tests/e2e/input.h"
#include "tests/e2e/inspect.h"
#include "tests/e2e/json.h"

#include <windows.h>

namespace tarrow::probe {
namespace {

using Fields = std::vector<std::string>;

HWND WindowOf(const std::string& decimal) {
  return reinterpret_cast<HWND>(static_cast<std::intptr_t>(std::strtoll(decimal.c_str(), nullptr, 10)));
}

long long NumberOf(const std::string& decimal) {
  return std::strtoll(decimal.c_str(), nullptr, 0);
}

int IntOf(const std::string& decimal) {
  return static_cast<int>(NumberOf(decimal));
}

void Desktop(const Fields&, Json& out) {
  DescribeDesktop(out, false);
}
void Everything(const Fields&, Json& out) {
  DescribeDesktop(out, true);
}
void Tree(const Fields& f, Json& out) {
  DescribeTree(out, WindowOf(f[1]));
}
void Text(const Fields& f, Json& out) {
  out.Text(TextOf(WindowOf(f[1])));
}
void Focus(const Fields&, Json& out) {
  DescribeFocus(out);
}
void Keys(const Fields& f, Json& out) {
  out.Bool(PressChord(f[1]));
}
void Clipboard(const Fields&, Json& out) {
  out.Text(ClipboardText());
}
void SetClipboard(const Fields& f, Json& out) {
  out.Bool(SetClipboardText(f[1]));
}

void Activate(const Fields& f, Json& out) {
  out.Bool(SetForegroundWindow(WindowOf(f[1])));
}

void Type(const Fields& f, Json& out) {
  TypeText(f[1]);
  out.Bool(true);
}

void MouseClick(const Fields& f, Json& out) {
  out.Bool(Click(IntOf(f[1]), IntOf(f[2]), f[3], f[4]));
}

void Post(const Fields& f, Json& out) {
  out.Bool(PostMessageW(WindowOf(f[1]), static_cast<UINT>(NumberOf(f[2])),
                        static_cast<WPARAM>(NumberOf(f[3])), static_cast<LPARAM>(NumberOf(f[4]))));
}

void Send(const Fields& f, Json& out) {
  out.Number(Ask(WindowOf(f[1]), static_cast<UINT>(NumberOf(f[2])), static_cast<WPARAM>(NumberOf(f[3])),
                 static_cast<LPARAM>(NumberOf(f[4]))));
}

void Move(const Fields& f, Json& out) {
  out.Bool(SetWindowPos(WindowOf(f[1]), nullptr, IntOf(f[2]), IntOf(f[3]), 0, 0,
                        SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE));
}

void SetText(const Fields& f, Json& out) {
  const std::wstring text = ToWide(f[2]);
  out.Number(Ask(WindowOf(f[1]), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str())));
}

// A file kept open so that nobody else may read or write it.
HANDLE heldFile = INVALID_HANDLE_VALUE;

void Release(const Fields&, Json& out) {
  out.Bool(heldFile != INVALID_HANDLE_VALUE && CloseHandle(heldFile));
  heldFile = INVALID_HANDLE_VALUE;
}

void Hold(const Fields& f, Json& out) {
  heldFile =
      CreateFileW(ToWide(f[1]).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  out.Bool(heldFile != INVALID_HANDLE_VALUE);
}

struct Request {
  std::string_view name;
  std::size_t fields;  // with the name itself
  void (*answer)(const Fields&, Json&);
};

constexpr Request kRequests[] = {
    {"desktop", 1, Desktop},
    {"everything", 1, Everything},
    {"tree", 2, Tree},
    {"text", 2, Text},
    {"focus", 1, Focus},
    {"keys", 2, Keys},
    {"type", 2, Type},
    {"click", 5, MouseClick},
    {"post", 5, Post},
    {"send", 5, Send},
    {"move", 4, Move},
    {"settext", 3, SetText},
    {"activate", 2, Activate},
    {"clipboard", 1, Clipboard},
    {"setclipboard", 2, SetClipboard},
    {"hold", 2, Hold},
    {"release", 1, Release},
};

Fields Split(const std::string& line) {
  Fields fields(1);
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '\t') {
      fields.emplace_back();
    } else if (line[i] == '\\' && i + 1 < line.size()) {
      const char escaped = line[++i];
      fields.back() += escaped == 'n' ? '\n' : escaped == 'r' ? '\r' : escaped == 't' ? '\t' : escaped;
    } else if (line[i] != '\r') {
      fields.back() += line[i];
    }
  }
  return fields;
}

std::string Answer(const std::string& line) {
  const Fields fields = Split(line);
  Json out;
  for (const Request& request : kRequests) {
    if (request.name == fields[0] && request.fields == fields.size()) {
      request.answer(fields, out);
      return out.Line();
    }
  }
  return out.BeginObject().Key("error").Text("unknown request: " + line).EndObject().Line();
}

}  // namespace
}  // namespace tarrow::probe

int main() {
  // Coordinates are those of the screen, whatever the scale of the display.
  SetProcessDPIAware();
  std::string line;
  while (std::getline(std::cin, line)) {
    const std::string answer = tarrow::probe::Answer(line) + "\n";
    std::fwrite(answer.data(), 1, answer.size(), stdout);
    std::fflush(stdout);
  }
  return 0;
}
