#include "edit/text/letter_tables.h"

#include <locale.h>
#include <wctype.h>

namespace tarrow {

// Where the locale is missing, ASCII has letters and nothing else does.
void FillLetterTables(LetterTables& tables) {
  locale_t unicode = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  if (!unicode) unicode = ::newlocale(LC_CTYPE_MASK, "C", nullptr);
  for (std::size_t code = 0; code < tables.isWord.size(); ++code) {
    auto c = static_cast<wint_t>(code);
    tables.isWord[code] = ::iswalnum_l(c, unicode) != 0;
    tables.upper[code] = static_cast<char16_t>(::towupper_l(c, unicode));
    tables.lower[code] = static_cast<char16_t>(::towlower_l(c, unicode));
  }
  ::freelocale(unicode);
}

}  // namespace tarrow
