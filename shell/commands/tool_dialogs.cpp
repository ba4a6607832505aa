#include "shell/commands/tool_dialogs.h"

#include "base/text_format.h"
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "resources/resource.h"
#include "ui/program/string_ids.h"

namespace tarrow {
namespace {

struct Metric {
  int index;
  const char* name;
};

constexpr Metric kMetrics[] = {
    {SM_CXSCREEN, "SM_CXSCREEN"},
    {SM_CYSCREEN, "SM_CYSCREEN"},
    {SM_CXVIRTUALSCREEN, "SM_CXVIRTUALSCREEN"},
    {SM_CYVIRTUALSCREEN, "SM_CYVIRTUALSCREEN"},
    {SM_CMONITORS, "SM_CMONITORS"},
    {SM_CXVSCROLL, "SM_CXVSCROLL"},
    {SM_CYHSCROLL, "SM_CYHSCROLL"},
    {SM_CYCAPTION, "SM_CYCAPTION"},
    {SM_CXBORDER, "SM_CXBORDER"},
    {SM_CYBORDER, "SM_CYBORDER"},
    {SM_CXEDGE, "SM_CXEDGE"},
    {SM_CYEDGE, "SM_CYEDGE"},
    {SM_CXDLGFRAME, "SM_CXDLGFRAME"},
    {SM_CYDLGFRAME, "SM_CYDLGFRAME"},
    {SM_CXFRAME, "SM_CXFRAME"},
    {SM_CYFRAME, "SM_CYFRAME"},
    {SM_CYVTHUMB, "SM_CYVTHUMB"},
    {SM_CXHTHUMB, "SM_CXHTHUMB"},
    {SM_CXICON, "SM_CXICON"},
    {SM_CYICON, "SM_CYICON"},
    {SM_CXSMICON, "SM_CXSMICON"},
    {SM_CYSMICON, "SM_CYSMICON"},
    {SM_CXCURSOR, "SM_CXCURSOR"},
    {SM_CYCURSOR, "SM_CYCURSOR"},
    {SM_CYMENU, "SM_CYMENU"},
    {SM_CXMENUCHECK, "SM_CXMENUCHECK"},
    {SM_CYMENUCHECK, "SM_CYMENUCHECK"},
    {SM_CXFULLSCREEN, "SM_CXFULLSCREEN"},
    {SM_CYFULLSCREEN, "SM_CYFULLSCREEN"},
    {SM_CYKANJIWINDOW, "SM_CYKANJIWINDOW"},
    {SM_MOUSEPRESENT, "SM_MOUSEPRESENT"},
    {SM_CMOUSEBUTTONS, "SM_CMOUSEBUTTONS"},
    {SM_MOUSEWHEELPRESENT, "SM_MOUSEWHEELPRESENT"},
    {SM_SWAPBUTTON, "SM_SWAPBUTTON"},
    {SM_CXDOUBLECLK, "SM_CXDOUBLECLK"},
    {SM_CYDOUBLECLK, "SM_CYDOUBLECLK"},
    {SM_CXDRAG, "SM_CXDRAG"},
    {SM_CYDRAG, "SM_CYDRAG"},
    {SM_CXMIN, "SM_CXMIN"},
    {SM_CYMIN, "SM_CYMIN"},
    {SM_CXSIZE, "SM_CXSIZE"},
    {SM_CYSIZE, "SM_CYSIZE"},
    {SM_CXMINTRACK, "SM_CXMINTRACK"},
    {SM_CYMINTRACK, "SM_CYMINTRACK"},
    {SM_CXICONSPACING, "SM_CXICONSPACING"},
    {SM_CYICONSPACING, "SM_CYICONSPACING"},
    {SM_MENUDROPALIGNMENT, "SM_MENUDROPALIGNMENT"},
    {SM_PENWINDOWS, "SM_PENWINDOWS"},
    {SM_DBCSENABLED, "SM_DBCSENABLED"},
    {SM_IMMENABLED, "SM_IMMENABLED"},
    {SM_REMOTESESSION, "SM_REMOTESESSION"},
    {SM_SLOWMACHINE, "SM_SLOWMACHINE"},
    {SM_DEBUG, "SM_DEBUG"},
};

}  // namespace

CAboutDialog::CAboutDialog() : CDialog(IDD_ABOUT) {}

bool CAboutDialog::OnInitDialog() {
  SetItemText(IDC_ABOUT_TITLE, LoadText(kTextTitle));
  SetItemText(IDC_ABOUT_RELEASE, LoadText(kTextRelease));
  return true;
}

CSystemMetricsDialog::CSystemMetricsDialog() : CDialog(IDD_SYSTEM_METRICS) {}

bool CSystemMetricsDialog::OnInitDialog() {
  INT tabStop = 110;  // dialog units: the values stand in a column of their own
  ::SendMessageW(Item(IDC_METRICS), LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&tabStop));
  for (const Metric& metric : kMetrics) {
    std::wstring row = ToWide(FormatText("%s\t%d", {metric.name, ::GetSystemMetrics(metric.index)}));
    ::SendMessageW(Item(IDC_METRICS), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
  }
  return true;
}

}  // namespace tarrow
