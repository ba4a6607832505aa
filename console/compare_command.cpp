#include "console/commands.h"
#include "console/system.h"
#include "tools/comparison/compare_files.h"

namespace tarrow {

int RunCompare(const Arguments& arguments, Console& console) {
  const std::string &firstName = arguments.Operands()[0], &secondName = arguments.Operands()[1];
  if (firstName == "-" && secondName == "-")
    throw UsageError("the standard input can only be compared with a file");
  ComparisonOptions options;
  options.lineEnd = kNewLine;
  if (arguments.Has('p')) {
    options.form = ComparisonForm::kPatch;
    options.lineEnd = "\n";
  }
  std::unique_ptr<WatchedSource> first, second;
  console.GetProgress().Begin(firstName);
  console.Guard(firstName, [&] { first = console.Open(firstName); });
  console.Guard(secondName, [&] { second = console.Open(secondName); });
  bool differ = false;
  if (!first || !second) return differ;
  console.Guard(firstName, [&] {
    try {
      differ = CompareFiles(*first, *second, console.Out(), options, &console.GetProgress());
    } catch (const LongLineException& failure) {
      console.Complain(&failure.Source() == first.get() ? firstName : secondName, failure.what());
    }
    console.CheckWhole(*first, firstName);
    console.CheckWhole(*second, secondName);
  });
  return differ;
}

}  // namespace tarrow
