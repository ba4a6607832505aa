// What the wrapper costs a build: much output through it, beside a plain redirection of the same command.
#include "benchmarks/report.h"
#include "tests/wrapper/test_programs.h"
#include "tests/wrapper/wrapper_run.h"

namespace tarrow::bench {
namespace {

constexpr int kRuns = 3;
constexpr double kGoal = 0.5;

void Run(int megabytes) {
  double redirected = std::numeric_limits<double>::infinity(), wrapped = redirected;
  std::wstring command = L"\"" + CommandProgram() + L"\" flood " + std::to_wstring(megabytes);
  for (int i = 0; i < kRuns; ++i) {
    WrapperRun plain, output, console;  // files of their own: emptying a full one takes its time
    redirected = std::min(redirected, TimeRedirected(command, plain.OutputPath()));
    std::wstring line = L"\"" + WrapperProgram() + L"\" \"" + output.OutputPath() + L"\" " + command;
    wrapped = std::min(wrapped, TimeRedirected(line, console.OutputPath()));
    Check(output.Output().size() == static_cast<std::size_t>(megabytes) << 20, "output");
  }
  Row({std::to_string(megabytes) + " MB of output through projexec", wrapped / 1000, "a redirection",
       redirected / 1000, "s", kGoal});
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  tarrow::bench::Run(tarrow::bench::IsQuick(argc, argv) ? 4 : 100);
}
