#include "search/pattern/find_pattern.h"

#include "search/pattern/first_char_map.h"
#include "search/pattern/regex_compiler.h"

#include <new>
#include <string>

namespace tarrow {

PatternError CompileFindPattern(std::string_view text, FindOptions options, CompiledPattern& compiled) {
  compiled.foldCase = !options.matchCase;
  try {
    PatternError error = options.wholeWord ? CompilePattern("\\<" + std::string(text) + "\\>", compiled)
                                           : CompilePattern(text, compiled);
    if (error == PatternError::kNone) ComputeFirstCharMap(compiled);
    return error;
  } catch (const std::bad_alloc&) {
    return PatternError::kOutOfMemory;
  }
}

}  // namespace tarrow
