#include "shell/commands/help_book.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "framework/directories.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/unicode.h"

#include <shellapi.h>
#include <shlwapi.h>

#include <iterator>

namespace tarrow {
namespace {

constexpr std::string_view kBookName = "tarrow.html";
constexpr std::string_view kLeadingPageName = "tarrow-help.html";  // one for all, so that none pile up

// The name by which a browser knows a file. Under Wine that browser is a program of the host, which does not
// know our drives.
std::string NameForBrowser(const std::string& path) {
  using HostName = char*(CDECL*)(const wchar_t*);
  auto hostName = reinterpret_cast<HostName>(
      ::GetProcAddress(::GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name"));
  char* name = hostName ? hostName(ToWide(path).c_str()) : nullptr;
  if (!name) return path;
  std::string result = name;
  ::HeapFree(::GetProcessHeap(), 0, name);
  return result;
}

// Writes the page that leads to a place in the book. Returns its path, or the book's own where that fails:
// the help at its beginning is better than none.
std::string PageFor(const std::string& book, const std::string& place) {
  if (place.empty()) return book;
  try {
    std::string path = JoinPath(TemporaryDirectory(), kLeadingPageName);
    CFile page(path, CFile::Mode::kCreate, CFile::Share::kRead);
    page.Write(PageLeadingTo(FileUrl(NameForBrowser(book)) + '#' + place));
    page.Close();
    return path;
  } catch (const CFileException&) {
    return book;
  }
}

// The command line of the user's browser: of what opens addresses, since pages on the disk may well open in
// an editor, ours included. Empty where there is none to be told.
std::string RegisteredBrowser() {
  wchar_t command[1024];
  DWORD size = std::size(command);
  HRESULT result = ::AssocQueryStringW(ASSOCF_NOTRUNCATE, ASSOCSTR_COMMAND, L"http", L"open", command, &size);
  return result == S_OK ? ToUtf8(command) : std::string();
}

// Where a browser starts: it outlives us, and a directory in which a program runs can be neither removed nor
// renamed. The user's own must stay free.
std::wstring StartDirectory() {
  wchar_t path[MAX_PATH];
  UINT length = ::GetSystemDirectoryW(path, MAX_PATH);
  return length < MAX_PATH ? std::wstring(path, length) : std::wstring();
}

bool StartBrowser(const std::string& path) {
  std::string registered = RegisteredBrowser();
  if (registered.empty()) return false;
  std::wstring line = ToWide(BrowserCommandLine(registered, path));
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  ::AllowSetForegroundWindow(ASFW_ANY);
  if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, StartDirectory().c_str(),
                        &startup, &process))
    return false;
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
  return true;
}

bool OpenByShell(HWND owner, const std::string& path) {
  std::wstring file = ToWide(path), directory = StartDirectory();
  SHELLEXECUTEINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
  info.hwnd = owner;
  info.lpFile = file.c_str();
  info.lpDirectory = directory.c_str();
  info.nShow = SW_SHOWNORMAL;
  return ::ShellExecuteExW(&info) != FALSE;
}

}  // namespace

std::string FindHelpBook(const std::string& helpFile) {
  for (std::string_view directory : {DirectoryPart(helpFile), DirectoryPart(ProgramPath())})
    if (std::string book = JoinPath(directory, kBookName); FileExists(book)) return book;
  return {};
}

bool OpenHelpBook(HWND owner, const std::string& book, HelpRequest request) {
  std::string page = PageFor(book, PlaceInBook(request));
  return StartBrowser(page) || OpenByShell(owner, page);
}

}  // namespace tarrow
