#include "project/commands/run_request.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(RunRequest, TakesTheProgramFromTheCommandLine) {
  struct Case {
    const char* line;
    const char* expected;
    bool valid;
  };
  // On this disk there are app.EXE, tool.bat and "my app.exe".
  auto exists = [](const std::string& name) {
    return name == "app.EXE" || name == "tool.bat" || name == "my app.exe";
  };
  for (const Case& c : {Case{"app", "app.EXE", true}, Case{"  app -x  y", "app.EXE -x  y", true},
                        Case{"tool.bat 1", "tool.bat 1", true},
                        Case{"\"my app.exe\" 1", "\"my app.exe\" 1", true}, Case{"app.dll", "app.dll", false},
                        Case{"missing", "missing.EXE", false}, Case{"", "", false}, Case{"   ", "", false}}) {
    RunRequest request = MakeRunRequest(c.line, exists);
    EXPECT_EQ(c.expected, request.commandLine) << c.line;
    EXPECT_EQ(c.valid, request.valid) << c.line;
  }
}

}  // namespace
}  // namespace tarrow
