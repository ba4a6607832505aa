// The real wrapper with real commands.
#include "tests/wrapper/test_programs.h"
#include "wrapper_run.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarrow {
namespace {

const std::wstring kChild = L"\"" + CommandProgram() + L"\"";

void KillProcess(DWORD id) {
  HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, id);
  TerminateProcess(process, 1);
  CloseHandle(process);
}

TEST(Projexec, EndsWithTheCommandsExitCode) {
  for (DWORD code : {0u, 1u, 42u, 259u, 0xC0000005u, 0xFFFFFFFFu}) {
    WrapperRun run;
    EXPECT_EQ(code, run.Run(kChild + L" exit " + std::to_wstring(code)));
    EXPECT_EQ("", run.Output());
  }
}

TEST(Projexec, KeepsTheOrderOfBothStreamsAndShowsThem) {
  WrapperRun run;
  EXPECT_EQ(0u, run.Run(kChild + L" streams 200"));
  std::string expected;
  for (int i = 0; i < 200; ++i) expected += (i % 2 ? "err " : "out ") + std::to_string(i) + "\r\n";
  EXPECT_EQ(expected, run.Output());
  EXPECT_EQ(expected, run.Console());
}

TEST(Projexec, PassesTheStandardInput) {
  WrapperRun run;
  run.input = "y\r\nanswer\r\n";
  EXPECT_EQ(0u, run.Run(kChild + L" input"));
  EXPECT_EQ(run.input, run.Output());
}

TEST(Projexec, GivesTheCommandLineAsItIs) {
  WrapperRun run;
  std::wstring command = kChild + L" line  \"a b\" \\\"c\\\" %PATH% ^& \x4e2d\xe4 ";
  EXPECT_EQ(0u, run.Run(command));
  int length = WideCharToMultiByte(CP_UTF8, 0, command.c_str(), -1, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(length - 1), '\0');
  WideCharToMultiByte(CP_UTF8, 0, command.c_str(), -1, bytes.data(), length, nullptr, nullptr);
  EXPECT_EQ(bytes, run.Output());
}

TEST(Projexec, RunsTheInterpretersCommands) {
  WrapperRun run;
  EXPECT_EQ(0u, run.Run(L"echo hello, \"you two\""));
  EXPECT_EQ("hello, \"you two\"\r\n", run.Output());
  EXPECT_NE(0u, run.Run(L"type c:\\there\\is\\no.such"));
}

TEST(Projexec, RunsBatchFiles) {
  WrapperRun run;
  std::wstring directory(MAX_PATH, L'\0');
  directory.resize(GetTempPathW(MAX_PATH, directory.data()));
  for (const wchar_t* ending : {L".bat", L".cmd"}) {
    std::wstring path = directory + L"a tool of tarrow" + ending;
    HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    constexpr char kBatch[] = "@echo off\r\necho a.c(3): %1\r\nexit /b 7\r\n";
    DWORD written = 0;
    WriteFile(file, kBatch, sizeof kBatch - 1, &written, nullptr);
    CloseHandle(file);
    EXPECT_EQ(7u, run.Run(L"\"" + path + L"\" x"));
    EXPECT_EQ("a.c(3): x\r\n", run.Output());
    DeleteFileW(path.c_str());
  }
}

TEST(Projexec, NamesAProgramThatCannotBeStarted) {
  WrapperRun run;
  EXPECT_EQ(9009u, run.Run(L"no-such-tool -x"));
  std::string line = run.Output();
  EXPECT_TRUE(line.starts_with("projexec: cannot start 'no-such-tool': ")) << line;
  EXPECT_GT(line.size(), 45u) << line;
  EXPECT_EQ(1, std::count(line.begin(), line.end(), '\n'));
  EXPECT_EQ(9009u, run.Run(L"c:\\no\\such\\dir\\tool.exe"));
  EXPECT_EQ(9009u, run.Run(L"no-such.bat"));

  std::wstring text = run.OutputPath() + L".exe";
  CloseHandle(CreateFileW(text.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  EXPECT_EQ(1u, run.Run(L"\"" + text + L"\""));
  EXPECT_TRUE(run.Output().starts_with("projexec: cannot start '")) << run.Output();
  DeleteFileW(text.c_str());
}

TEST(Projexec, WithoutACommandSaysHowItIsCalled) {
  WrapperRun run;
  EXPECT_EQ(2u, run.Run(L""));
  EXPECT_TRUE(run.Console().starts_with("projexec OUTPUT COMMAND")) << run.Console();
}

TEST(Projexec, EndsWithItsCommandAndLeavesGrandchildrenAlone) {
  WrapperRun run;
  EXPECT_EQ(0u, run.Run(kChild + L" start"));
  DWORD grandchild = run.WaitForNumber("waiting ");
  ASSERT_NE(0u, grandchild);
  HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, grandchild);
  EXPECT_EQ(static_cast<DWORD>(WAIT_TIMEOUT), WaitForSingleObject(process, 0));
  CloseHandle(process);
  // Somebody still holds the output; it can be read and taken away all the same.
  EXPECT_TRUE(DeleteFileW(run.OutputPath().c_str()));
  KillProcess(grandchild);
}

TEST(Projexec, KilledItTakesTheCommandWithItAndLeavesTheOutput) {
  WrapperRun run;
  run.Start(kChild + L" wait-stubbornly");
  DWORD child = run.WaitForNumber("started "), grandchild = run.WaitForNumber("waiting ");
  ASSERT_NE(0u, grandchild);
  TerminateProcess(run.Process(), 5);
  EXPECT_EQ(5u, run.Wait());
  EXPECT_TRUE(IsGone(child));
  EXPECT_TRUE(IsGone(grandchild));
  EXPECT_NE(std::string::npos, run.Output().find("waiting "));
}

// Ctrl+Break takes the same way through the wrapper, but not every platform lets a program press it.
TEST(Projexec, AtCtrlCEndsTheCommandAndAllThatItStarted) {
  for (const wchar_t* verb : {L" wait", L" wait-stubbornly"}) {
    WrapperRun run;
    run.StartAndInterrupt(kChild + verb);
    DWORD process = run.WaitForNumber("waiting ");
    ASSERT_NE(0u, process);
    EXPECT_EQ(0xC000013Au, run.Wait());
    EXPECT_TRUE(IsGone(process));
    EXPECT_NE(std::string::npos, run.Output().find("waiting "));
  }
}

// A hundred megabytes at no less than half the speed of a redirection; the best of a few on either side,
// since other work on the machine slows down now this and now that.
TEST(Projexec, PassesMuchOutputQuickly) {
  constexpr int kMegabytes = 100;
  WrapperRun run;
  double redirected = 1e9, wrapped = 1e9;
  std::wstring command = kChild + L" flood " + std::to_wstring(kMegabytes);
  for (int i = 0; i < 2 || (i < 10 && wrapped > 2 * redirected); ++i) {
    redirected = std::min(redirected, TimeRedirected(command, run.OutputPath()));
    WrapperRun nested;
    std::wstring line = L"\"" + WrapperProgram() + L"\" \"" + run.OutputPath() + L"\" " + command;
    wrapped = std::min(wrapped, TimeRedirected(line, nested.OutputPath()));
    EXPECT_EQ(kMegabytes * 1024u * 1024u, run.Output().size());
  }
  RecordProperty("redirected", std::to_string(redirected));
  RecordProperty("wrapped", std::to_string(wrapped));
  EXPECT_LE(wrapped, 2 * redirected);
}

}  // namespace
}  // namespace tarrow
