// What only this system has: signals, devices, the patch program.

#include "program_run.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <random>

namespace tarrow {
namespace {

const std::filesystem::path kNothing = "/dev/null";

TEST(TarrowcOnPosix, TellsWhenItsOutputIsFull) {
  TestDirectory directory;
  directory.Write("a", "text\n");
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"search", "x", "a", "a"},
                                             {"compare", "a", "/dev/null"},
                                             {"strings", "a"},
                                             {"lines", "a"},
                                             {"hex", "a"}}) {
    std::vector<std::string> command{TARROWC_PROGRAM};
    command.insert(command.end(), words.begin(), words.end());
    int code = RunProcess(command, directory.Path(""), kNothing, "/dev/full", directory.Path("err"));
    EXPECT_EQ(code, words[0] == "search" || words[0] == "compare" ? 2 : 1);
    EXPECT_EQ(directory.Read("err"), "tarrowc " + words[0] + ": standard output: The disk is full\n");
  }
}

TEST(TarrowcOnPosix, ListsNoDevices) {
  TestDirectory directory;
  for (const char* command : {"lines", "hex"}) {
    ProgramResult result = directory.Run({command, "/dev/zero"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err,
              std::string("tarrowc ") + command + ": /dev/zero: Error setting the file pointer\n");
  }
}

#if !defined(TARROW_CHECKED)  // sanitizers need more address space than the limit leaves
TEST(TarrowcOnPosix, TellsWhenMemoryRunsOut) {
  TestDirectory directory;
  directory.Write("newlines", std::string(20'000'000, '\n'));
  std::vector<std::string> command{"/bin/sh", "-c",
                                   "ulimit -v 40000; exec " TARROWC_PROGRAM " lines -s newlines"};
  int code = RunProcess(command, directory.Path(""), kNothing, directory.Path("out"), directory.Path("err"));
  EXPECT_EQ(code, 1);
  EXPECT_EQ(directory.Read("err"), "tarrowc lines: newlines: Out of memory on local heap\n");
}
#endif

// Waits for a child to end; kills it after ten seconds.
int WaitFor(pid_t child) {
  int status = 0;
  for (int i = 0; i < 1000; ++i) {
    if (waitpid(child, &status, WNOHANG) == child)
      return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    poll(nullptr, 0, 10);
  }
  kill(child, SIGKILL);
  waitpid(child, &status, 0);
  return -1;
}

// Starts tarrowc, waits until it has begun to write to its output, which is a pipe and soon full, and
// disturbs it.
int RunDisturbed(std::vector<const char*> words, const std::function<void(pid_t)>& disturb,
                 std::string& err) {
  int out[2], errors[2];
  if (pipe(out) != 0 || pipe(errors) != 0) return -1;
  words.insert(words.begin(), TARROWC_PROGRAM);
  words.push_back(nullptr);
  pid_t child = fork();
  if (child == 0) {
    dup2(out[1], 1);
    dup2(errors[1], 2);
    execv(words[0], const_cast<char* const*>(words.data()));
    _exit(126);
  }
  close(out[1]);
  close(errors[1]);
  char bytes[4096];
  if (read(out[0], bytes, sizeof bytes) > 0) disturb(child);
  while (read(out[0], bytes, sizeof bytes) > 0) {
  }
  for (ssize_t n; (n = read(errors[0], bytes, sizeof bytes)) > 0;)
    err.append(bytes, static_cast<std::size_t>(n));
  close(out[0]);
  close(errors[0]);
  return WaitFor(child);
}

TEST(TarrowcOnPosix, EndsCleanlyWhenInterrupted) {
  for (const std::vector<const char*>& words : std::vector<std::vector<const char*>>{
           {"strings", "-e", "[^x]", "/dev/zero"}, {"compare", "/dev/zero", "/dev/null"}}) {
    std::string err;
    EXPECT_EQ(RunDisturbed(
                  words, [](pid_t child) { kill(child, SIGINT); }, err),
              130);
    EXPECT_EQ(err, std::string("tarrowc ") + words[0] + ": Operation cancelled!\n");
  }
}

TEST(TarrowcOnPosix, TellsWhenAFileShrinksWhileItIsListed) {
  TestDirectory directory;
  directory.Write("f", std::string(3'000'000, '\n'));
  std::string name = directory.Path("f").string();
  for (const char* command : {"lines", "hex"}) {
    std::string err;
    auto shrink = [&](pid_t) { std::filesystem::resize_file(name, 2'000'000); };
    EXPECT_EQ(RunDisturbed({command, name.c_str()}, shrink, err), 1);
    EXPECT_EQ(err, std::string("tarrowc ") + command + ": " + name + ": has shrunk while it was read\n");
    std::filesystem::resize_file(name, 3'000'000);
  }
}

TEST(TarrowcOnPosix, MakesPatchesThatThePatchProgramTakes) {
  if (access("/usr/bin/patch", X_OK) != 0) GTEST_SKIP() << "there is no patch program";
  TestDirectory directory;
  std::mt19937 random(1);
  auto line = [&] { return "line " + std::to_string(random() % 40) + (random() % 9 ? "\n" : "\r\n"); };
  for (int round = 0; round < 40; ++round) {
    std::string first, second;
    for (unsigned n = random() % 200; n > 0; --n) {
      std::string text = line();
      if (random() % 12) first += text;
      if (random() % 12) second += text;
      if (random() % 12 == 0) second += line();
    }
    if (round % 3 == 0 && !second.empty()) second.pop_back();
    if (round % 5 == 0 && !first.empty()) first.pop_back();
    directory.Write("first", first);
    directory.Write("second", second);
    ProgramResult result = directory.Run({"compare", "--patch", "first", "second"});
    EXPECT_EQ(result.exitCode, first != second);
    if (first == second) continue;
    int code = RunProcess({"/usr/bin/patch", "--binary", "-s", "first", ".out"}, directory.Path(""), kNothing,
                          directory.Path("out"), directory.Path("err"));
    ASSERT_EQ(code, 0) << directory.Read("out") << directory.Read("err");
    ASSERT_EQ(directory.Read("first"), second);
  }
}

}  // namespace
}  // namespace tarrow
