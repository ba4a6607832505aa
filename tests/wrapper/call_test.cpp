#include "wrapper/call.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(WrapperCall, IsTakenApartAndTheCommandLeftAsItIs) {
  struct {
    const wchar_t* line;
    const wchar_t* output;
    const wchar_t* command;
  } const kRows[] = {
      {L"projexec.exe c:\\o.tmp cc  -c \"a b.c\" ", L"c:\\o.tmp", L"cc  -c \"a b.c\" "},
      {L"\"c:\\my t\\projexec.exe\" \"c:\\my o.tmp\" \"c c\" x", L"c:\\my o.tmp", L"\"c c\" x"},
      {L"projexec.exe   o  cc", L"o", L" cc"},
      {L"projexec.exe o", L"o", L""},
      {L"projexec.exe o   ", L"o", L""},
      {L"projexec.exe", L"", L""},
      {L"", L"", L""},
      {L"\"projexec", L"", L""},
      {L"p \"o", L"o", L""},
      {L"p o \344\x4e2d", L"o", L"\344\x4e2d"},
  };
  for (auto& row : kRows) {
    WrapperCall call = ReadWrapperCall(row.line);
    EXPECT_EQ(std::wstring(row.output), call.output);
    EXPECT_EQ(std::wstring(row.command), call.command);
  }
}

TEST(WrapperCall, KnowsTheInterpretersCommands) {
  for (const wchar_t* command : {L"copy a b", L"DIR", L"dir/b", L"echo.", L"@echo off", L"  cd..", L"(del x)",
                                 L"if exist a del a", L"type a>b", L"rem", L"set x=1"})
    EXPECT_TRUE(IsInterpreterCommand(command)) << std::wstring(command).size();
  for (const wchar_t* command : {L"copy-all a", L"copy2", L"directory", L"cc", L"", L"@", L"1copy", L"make"})
    EXPECT_FALSE(IsInterpreterCommand(command)) << std::wstring(command).size();
}

TEST(WrapperCall, TakesTheFirstWord) {
  EXPECT_EQ(std::wstring(L"cc"), FirstWord(L"  cc -x"));
  EXPECT_EQ(std::wstring(L"c c"), FirstWord(L"\"c c\" -x"));
  EXPECT_TRUE(EndsLike(L"Build.BAT", L".bat"));
  EXPECT_FALSE(EndsLike(L"bat", L".bat"));
}

}  // namespace
}  // namespace tarrow
