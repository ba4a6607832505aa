#include "resources/resource.h"

#include "framework/handle.h"
#include "framework/text_resources.h"
#include "framework/wnd.h"
#include "ui/program/string_table.h"

#include <gtest/gtest.h>

#include <cwctype>
#include <map>
#include <string>

namespace tarrow {
namespace {

TEST(Resources, TextsAreThoseOfThePortableTable) {
  for (int id = 1; id < 10000; ++id) EXPECT_EQ(FindText(id), LoadText(id)) << id;
}

INT_PTR CALLBACK NoAnswers(HWND, UINT, WPARAM, LPARAM) {
  return FALSE;
}

// The keys that controls of a dialog answer to, each with the texts that claim it.
std::map<wchar_t, int> MnemonicsOf(HWND dialog) {
  std::map<wchar_t, int> claims;
  for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
    wchar_t text[100] = L"";
    ::GetWindowTextW(child, text, 100);
    if (const wchar_t* mark = std::wcschr(text, L'&'); mark && mark[1] != L'&')
      ++claims[std::towlower(mark[1])];
  }
  return claims;
}

TEST(Resources, EveryDialogOpensAndNoKeyIsClaimedTwice) {
  for (int id = IDD_GOTO_LINE; id <= IDD_FILE_REPORT; ++id) {
    if (!::FindResourceW(ModuleInstance(), MAKEINTRESOURCEW(id), RT_DIALOG)) {
      EXPECT_TRUE(id > IDD_SYSTEM_METRICS && id < IDD_FILE_MANAGER) << id;
      continue;
    }
    HWND owner = ::GetDesktopWindow();
    HWND dialog = ::CreateDialogParamW(ModuleInstance(), MAKEINTRESOURCEW(id), owner, NoAnswers, 0);
    ASSERT_TRUE(dialog) << id;
    // Global Search has "In &Directory" and "&Defaults": there Alt+D goes from the one to the other.
    int most = id == IDD_GLOBAL_SEARCH ? 2 : 1;
    for (auto [key, count] : MnemonicsOf(dialog))
      EXPECT_LE(count, most) << id << ": Alt+" << static_cast<char>(key);
    ::DestroyWindow(dialog);
  }
}

TEST(Resources, TheToolPicturesFillTheirBitmaps) {
  for (int id : {IDB_TOOLS_MONO, IDB_TOOLS_COLOR}) {
    HANDLE image =
        ::LoadImageW(ModuleInstance(), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
    BitmapHandle bitmap(static_cast<HBITMAP>(image));
    BITMAP size{};
    ASSERT_TRUE(::GetObjectW(bitmap.Get(), sizeof(size), &size)) << id;
    EXPECT_EQ(size.bmWidth, 256);
    EXPECT_EQ(size.bmHeight, 96);
    EXPECT_EQ(size.bmBitsPixel, id == IDB_TOOLS_MONO ? 1 : 4);
  }
}

}  // namespace
}  // namespace tarrow
