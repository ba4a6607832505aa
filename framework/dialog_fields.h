// The fields of a dialog as a table: which control shows which member.
//
//   static constexpr DialogField kFields[] = {TextField<&CGrepDialog::pattern_>(201),
//                                             CheckField<&CGrepDialog::matchCase_>(261)};
//
// LoadFields() puts the members into the controls, StoreFields() takes them back; CDialog calls the first
// when the dialog opens and the second on OK.
#pragma once

#include <windows.h>

#include <string>

namespace tarrow {

class CDialog;

namespace detail {
template <typename>
struct FieldOf;
template <typename T, typename C>
struct FieldOf<T C::*> {
  using Class = C;
};
template <auto Member>
auto& FieldIn(CDialog& dialog) {
  return static_cast<typename FieldOf<decltype(Member)>::Class&>(dialog).*Member;
}
std::string ControlText(HWND control);
void SetControlText(HWND control, const std::string& text);
int ControlNumber(HWND control);
}  // namespace detail

struct DialogField {
  int id;
  int limit;  // greatest number of characters of a text field, 0: as the control has it
  void (*load)(CDialog& dialog, HWND control);
  void (*store)(CDialog& dialog, HWND control);
};

// A std::string in an edit control or a combo box.
template <auto Member>
consteval DialogField TextField(int id, int limit = 0) {
  return {
      id, limit,
      [](CDialog& dialog, HWND control) { detail::SetControlText(control, detail::FieldIn<Member>(dialog)); },
      [](CDialog& dialog, HWND control) { detail::FieldIn<Member>(dialog) = detail::ControlText(control); }};
}

// A bool in a check box or radio button.
template <auto Member>
consteval DialogField CheckField(int id) {
  return {id, 0,
          [](CDialog& dialog, HWND control) {
            ::SendMessageW(control, BM_SETCHECK,
                           detail::FieldIn<Member>(dialog) ? BST_CHECKED : BST_UNCHECKED, 0);
          },
          [](CDialog& dialog, HWND control) {
            detail::FieldIn<Member>(dialog) = ::SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
          }};
}

// An int of zero or more in an edit control; what is no number reads as 0, what is too large as the largest
// int.
template <auto Member>
consteval DialogField NumberField(int id, int limit = 0) {
  return {id, limit,
          [](CDialog& dialog, HWND control) {
            detail::SetControlText(control, std::to_string(detail::FieldIn<Member>(dialog)));
          },
          [](CDialog& dialog, HWND control) {
            detail::FieldIn<Member>(dialog) = detail::ControlNumber(control);
          }};
}

}  // namespace tarrow
