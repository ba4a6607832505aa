// What only this system has: signals, devices, the patch program.

#include "program_run.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
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

// Runs a line of shell in which $T is tarrowc.
ProgramResult RunShell(const TestDirectory& directory, const std::string& line) {
  std::vector<std::string> command{"/bin/sh", "-c", "T='" TARROWC_PROGRAM "'; " + line};
  ProgramResult result;
  result.exitCode =
      RunProcess(command, directory.Path(""), kNothing, directory.Path("out"), directory.Path("err"));
  result.out = directory.Read("out");
  result.err = directory.Read("err");
  return result;
}

TEST(TarrowcOnPosix, TellsThatAStandardStreamIsClosed) {
  TestDirectory directory;
  directory.Write("f", "one\n");
  ProgramResult search = RunShell(directory, "exec $T search one - <&-");
  EXPECT_EQ(search.exitCode, 2);
  EXPECT_EQ(search.err, "tarrowc search: standard input: Attempt to use an invalid file handle\n");
  ProgramResult compare = RunShell(directory, "exec $T compare f - <&-");
  EXPECT_EQ(compare.exitCode, 2);
  EXPECT_EQ(compare.out, "");
  EXPECT_EQ(RunShell(directory, "exec $T search one f >&-").exitCode, 2);
  EXPECT_EQ(directory.Read("f"), "one\n");
  for (const char* command : {"strings", "lines", "hex"})
    EXPECT_EQ(RunShell(directory, std::string("exec $T ") + command + " absent 2>&-").exitCode, 1) << command;
}

TEST(TarrowcOnPosix, TellsWhenItsHelpGoesNowhere) {
  TestDirectory directory;
  for (const char* words : {"--help", "search --help"}) {
    ProgramResult result = RunShell(directory, std::string("exec $T ") + words + " >/dev/full");
    EXPECT_EQ(result.exitCode, 2) << words;
    EXPECT_TRUE(result.err.ends_with("standard output: The disk is full\n")) << result.err;
  }
}

TEST(TarrowcOnPosix, TellsThatNothingReadsItsPipe) {
  TestDirectory directory;
  directory.Write("f", "one\n");
  ProgramResult result = RunShell(
      directory, "mkfifo pipe; exec 3<>pipe; exec 4>pipe 3<&-; trap '' PIPE; exec $T search one f >&4");
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.err, "tarrowc search: standard output: Nothing reads the pipe any more\n");
}

TEST(TarrowcOnPosix, RefusesItsOutputAsInput) {
  TestDirectory directory;
  for (const char* line : {"exec $T search e f >>f", "exec $T search e - <f >>f", "exec $T strings f >>f",
                           "exec $T compare f g >>f", "exec $T hex f >>f"}) {
    directory.Write("f", "some text\n");
    directory.Write("g", "");
    ProgramResult result = RunShell(directory, line);
    EXPECT_NE(result.exitCode, 0) << line;
    EXPECT_NE(result.err.find("is also the output\n"), std::string::npos) << line << ": " << result.err;
    EXPECT_EQ(directory.Read("f"), "some text\n") << line;
  }
  EXPECT_EQ(RunShell(directory, "exec $T search e f g >/dev/null").exitCode, 0);
}

TEST(TarrowcOnPosix, ListsAFileThatTheSystemMakesWhileItIsRead) {
  TestDirectory directory;
  ProgramResult hex = RunShell(directory, "exec $T hex -n 1 /proc/version"),
                lines = RunShell(directory, "exec $T lines /proc/version");
  EXPECT_NE(hex.out.find("Linux version"), std::string::npos) << hex.out << hex.err;
  EXPECT_TRUE(lines.out.starts_with("Linux version")) << lines.out << lines.err;
}

// A child that runs tarrowc with the given output; what goes wrong in it shows as its exit code.
pid_t StartWithOutput(std::vector<const char*> words, int out) {
  words.insert(words.begin(), TARROWC_PROGRAM);
  words.push_back(nullptr);
  pid_t child = fork();
  if (child != 0) return child;
  dup2(out, 1);
  dup2(open("/dev/null", O_WRONLY), 2);
  execv(words[0], const_cast<char* const*>(words.data()));
  _exit(126);
}

// Waits until the child has its handler of interrupts and sleeps in a system call.
bool IsWaiting(pid_t child) {
  std::ifstream status("/proc/" + std::to_string(child) + "/status");
  bool sleeps = false, catches = false;
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("State:")) sleeps = line.find('S', 6) != std::string::npos;
    if (line.starts_with("SigCgt:")) catches = (std::stoull(line.substr(7), nullptr, 16) >> (SIGINT - 1)) & 1;
  }
  return sleeps && catches;
}

int InterruptWhenWaiting(pid_t child) {
  for (int i = 0; i < 1000 && !IsWaiting(child); ++i) poll(nullptr, 0, 10);
  EXPECT_TRUE(IsWaiting(child));
  kill(child, SIGINT);
  return WaitFor(child);
}

TEST(TarrowcOnPosix, EndsWhenInterruptedWhileItsOutputIsFull) {
  int out[2];
  ASSERT_EQ(pipe(out), 0);
  EXPECT_EQ(InterruptWhenWaiting(StartWithOutput({"strings", "-e", "[^x]", "/dev/zero"}, out[1])), 130);
  close(out[0]);
  close(out[1]);
}

TEST(TarrowcOnPosix, EndsWhenInterruptedWhileItWaitsForAFifo) {
  TestDirectory directory;
  std::string fifo = directory.Path("fifo").string();
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_EQ(InterruptWhenWaiting(StartWithOutput({"search", "x", fifo.c_str()}, 1)), 130);
}

// The file loses its end while the output is full, so that the rest of it is not yet read.
TEST(TarrowcOnPosix, TellsWhenAFileShrinksWhileItIsSearched) {
  TestDirectory directory;
  std::string text, changed;
  for (int line = 0; text.size() < 6'000'000; ++line) {
    text += "xxxx " + std::to_string(line) + "\n";
    changed += (line % 3 ? "xxxx " : "yyyy ") + std::to_string(line) + "\n";
  }
  directory.Write("other", changed);
  std::string name = directory.Path("f").string(), other = directory.Path("other").string();
  for (const std::vector<const char*>& words :
       std::vector<std::vector<const char*>>{{"search", "x", name.c_str()},
                                             {"strings", name.c_str()},
                                             {"compare", name.c_str(), other.c_str()}}) {
    directory.Write("f", text);
    std::string err;
    auto shrink = [&](pid_t) { std::filesystem::resize_file(name, 4'000'000); };
    EXPECT_EQ(RunDisturbed(words, shrink, err), words[0] == std::string("strings") ? 1 : 2);
    EXPECT_EQ(err, std::string("tarrowc ") + words[0] + ": " + name + ": has shrunk while it was read\n");
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
