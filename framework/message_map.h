// Message maps: which member function handles which message, as constant tables.
//
// A command target (a window, mostly) declares `static const MessageMap kMessageMap;`, overrides
// GetMessageMap() to return it, and defines it from entries:
//
//   constinit const MessageMap CTwFrame::kMessageMap = MessageMap::Make<&CMDIFrameWnd::kMessageMap,
//       On<WM_SIZE, &CTwFrame::OnSize>,
//       OnCommand<kFileSave, &CTwFrame::OnSave, &CTwFrame::CanSave>>();
//
// Each entry is a type, the member pointer its argument, and a trait per message unpacks wParam and lParam,
// so a handler of the wrong signature does not compile, and neither do two handlers for the same thing in one
// map. The same tables answer a second question, the second member pointer of a command: can it run now, is
// it checked. Menus, tool bar and accelerators all ask there.
#pragma once

#include "framework/message_traits.h"

#include <windows.h>

#include <array>
#include <cstddef>
#include <type_traits>

namespace tarrow {

class CommandTarget;

// Whether a command can run now, and whether its menu item shows a check mark.
struct CommandState {
  bool enabled = true;
  bool checked = false;
};

struct MessageEntry {
  UINT message = 0;
  const UINT* registered = nullptr;  // instead of `message`: a number known only at run time
  UINT first = 0, last = 0;          // WM_COMMAND: the range of identifiers
  UINT code = 0;  // WM_COMMAND: the notification code, 0 for menus, accelerators and buttons
  LRESULT (*handle)(CommandTarget& target, WPARAM w, LPARAM l) = nullptr;
  CommandState (*state)(const CommandTarget& target, UINT id) = nullptr;

  constexpr bool Overlaps(const MessageEntry& other) const {
    if (registered || other.registered) return registered == other.registered;
    if (message != other.message) return false;
    return message != WM_COMMAND || (code == other.code && first <= other.last && other.first <= last);
  }
  bool Takes(UINT number) const { return registered ? *registered == number : message == number; }
  bool TakesCommand(UINT id, UINT notification) const {
    return message == WM_COMMAND && !registered && code == notification && first <= id && id <= last;
  }
};

struct MessageMap {
  const MessageMap* base;
  const MessageEntry* entries;
  std::size_t count;

  template <const MessageMap* Base, typename... Entries>
  static consteval MessageMap Make() {
    static_assert(!Table<Entries...>::AnyOverlap(), "two handlers for the same message in one map");
    return {Base, Table<Entries...>::kEntries.data(), sizeof...(Entries)};
  }

  // The entry for a message (not WM_COMMAND) or a command, in this map or a base; null when there is none.
  const MessageEntry* Find(UINT message) const;
  const MessageEntry* FindCommand(UINT id, UINT code) const;

 private:
  template <typename... Entries>
  struct Table {
    static constexpr std::array<MessageEntry, sizeof...(Entries)> kEntries{Entries::kEntry...};

    static consteval bool AnyOverlap() {
      for (std::size_t i = 0; i < kEntries.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
          if (kEntries[i].Overlaps(kEntries[j])) return true;
      return false;
    }
  };
};

namespace detail {

template <typename>
struct MemberOf;
template <typename R, typename C, typename... A>
struct MemberOf<R (C::*)(A...)> {
  using Class = C;
};
template <typename R, typename C, typename... A>
struct MemberOf<R (C::*)(A...) const> {
  using Class = C;
};
template <auto F>
using ClassOf = typename MemberOf<decltype(F)>::Class;

template <UINT M, auto F>
LRESULT CallMessage(CommandTarget& target, WPARAM w, LPARAM l) {
  return MessageTraits<M>::template Call<F>(static_cast<ClassOf<F>&>(target), w, l);
}

template <auto F>
LRESULT CallRegistered(CommandTarget& target, WPARAM w, LPARAM l) {
  return (static_cast<ClassOf<F>&>(target).*F)(w, l);
}

template <auto F>
LRESULT CallCommand(CommandTarget& target, WPARAM w, LPARAM) {
  auto& object = static_cast<ClassOf<F>&>(target);
  if constexpr (requires { (object.*F)(UINT{}); })
    (object.*F)(LOWORD(w));
  else
    (object.*F)();
  return 0;
}

inline CommandState ToState(CommandState state) {
  return state;
}
inline CommandState ToState(bool enabled) {
  return {enabled, false};
}

template <auto F>
CommandState AskState(const CommandTarget& target, [[maybe_unused]] UINT id) {
  auto& object = static_cast<const ClassOf<F>&>(target);
  if constexpr (requires { (object.*F)(UINT{}); })
    return ToState((object.*F)(id));
  else
    return ToState((object.*F)());
}

template <auto State>
consteval decltype(MessageEntry::state) StateThunk() {
  if constexpr (std::is_null_pointer_v<decltype(State)>)
    return nullptr;
  else
    return AskState<State>;
}

}  // namespace detail

// Handles message M; the signature that F must have stands in message_traits.h.
template <UINT M, auto F>
struct On {
  static constexpr MessageEntry kEntry{M, nullptr, 0, 0, 0, detail::CallMessage<M, F>, nullptr};
};

// Handles a message whose number RegisterWindowMessage gave; F is LRESULT (WPARAM, LPARAM).
template <const UINT* Number, auto F>
struct OnRegistered {
  static constexpr MessageEntry kEntry{0, Number, 0, 0, 0, detail::CallRegistered<F>, nullptr};
};

// Handles the commands First to Last: F is void () or void (UINT id). The optional State, const, says whether
// a command can run: bool () or CommandState (), or either with the identifier.
template <UINT First, UINT Last, auto F, auto State = nullptr>
struct OnCommandRange {
  static constexpr MessageEntry kEntry{
      WM_COMMAND, nullptr, First, Last, 0, detail::CallCommand<F>, detail::StateThunk<State>()};
};
template <UINT Id, auto F, auto State = nullptr>
struct OnCommand : OnCommandRange<Id, Id, F, State> {};

// Handles a notification Code (EN_CHANGE, LBN_SELCHANGE ...) of the control Id; F as for a command.
template <UINT Id, UINT Code, auto F>
struct OnNotify {
  static constexpr MessageEntry kEntry{WM_COMMAND, nullptr, Id, Id, Code, detail::CallCommand<F>, nullptr};
};

}  // namespace tarrow
