#include "edit/text/letter_tables.h"

#include <windows.h>

#include <vector>

namespace tarrow {

void FillLetterTables(LetterTables& tables) {
  std::vector<wchar_t> all(0x10000);
  for (std::size_t code = 0; code < all.size(); ++code) all[code] = static_cast<wchar_t>(code);
  auto count = static_cast<int>(all.size());

  std::vector<WORD> types(all.size());
  ::GetStringTypeW(CT_CTYPE1, all.data(), count, types.data());
  std::vector<wchar_t> upper = all, lower = all;
  ::CharUpperBuffW(upper.data(), static_cast<DWORD>(count));
  ::CharLowerBuffW(lower.data(), static_cast<DWORD>(count));
  for (std::size_t code = 0; code < all.size(); ++code) {
    tables.isWord[code] = (types[code] & (C1_ALPHA | C1_DIGIT)) != 0;
    tables.upper[code] = static_cast<char16_t>(upper[code]);
    tables.lower[code] = static_cast<char16_t>(lower[code]);
  }
}

}  // namespace tarrow
