#include "tests/wrapper/test_programs.h"

namespace tarrow {

std::wstring WrapperProgram() {
  return PROJEXEC_PROGRAM;
}

std::wstring CommandProgram() {
  return CHILD_PROGRAM;
}

}  // namespace tarrow
