// Where the programs that tests start have been built.
#pragma once

#include <string>

namespace tarrow {

// projexec itself, and the command that the tests let it run.
[[nodiscard]] std::wstring WrapperProgram();
[[nodiscard]] std::wstring CommandProgram();

}  // namespace tarrow
