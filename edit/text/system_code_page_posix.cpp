#include "edit/text/charset.h"

namespace tarrow {

const CodePage& SystemCodePage() {
  return WesternCodePage();
}

}  // namespace tarrow
