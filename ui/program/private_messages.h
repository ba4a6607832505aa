// The private messages of the program's windows.
#pragma once

#include <windows.h>

namespace tarrow {

// Sent to the frame by the dialog of the global search (lParam is the dialog): search now, or, once it is
// closing, forget it.
inline constexpr UINT kGlobalSearchMessage = WM_USER + 1;

// Posted to the frame: which menu bar to show (wParam is a MenuBar). Posted, since the menu must not change
// while windows are being activated.
inline constexpr UINT kShowMenuMessage = WM_USER + 2;

// Told to the targets of the frame: no document window is active any more.
inline constexpr UINT kNoDocumentMessage = WM_USER + 20;

// Posted to the frame: a document window, or the program, has come to the front.
inline constexpr UINT kInFrontMessage = WM_USER + 22;

// Posted to the frame: a file has been looked at.
inline constexpr UINT kFileLookedMessage = WM_USER + 23;

// Posted by a result window to itself: open the place that has been asked for.
inline constexpr UINT kOpenPlaceMessage = WM_USER + 21;

// Posted to the frame: the project's command has ended (wParam is its exit code, lParam the system's error
// when it could not be started); a second of it has passed.
inline constexpr UINT kCommandEndedMessage = WM_USER + 30;
inline constexpr UINT kCommandTickMessage = WM_USER + 31;

// Posted to the frame: the settings are to be read anew for another project, or for none.
inline constexpr UINT kReloadMessage = WM_USER + 32;

// The menu bars by their old resource numbers.
enum class MenuBar { kNoDocument = 3, kEdit = 4 };

}  // namespace tarrow
