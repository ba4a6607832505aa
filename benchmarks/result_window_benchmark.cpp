// A result window that is written line by line, beside an edit window that loads the same text from a file.
#include "benchmarks/report.h"
#include "edit/documents/file_edit.h"
#include "edit/documents/log.h"
#include "framework/file.h"
#include "framework/unicode.h"
#include "shell/program.h"
#include "tests/fakes/no_settings_files.h"

namespace tarrow::bench {
namespace {

constexpr double kGoal = 1.0 / 3;

std::string Line(int number) {
  std::string line = "source_file.c(" + std::to_string(number) + "): ";
  line.resize(58, 'x');
  return line + "\r\n";
}

std::string TemporaryPath() {
  wchar_t folder[MAX_PATH], name[MAX_PATH];
  Check(::GetTempPathW(MAX_PATH, folder) && ::GetTempFileNameW(folder, L"TRW", 0, name), "temporary file");
  return ToUtf8(name);
}

void Run(int lines) {
  NoSettingsFiles noFiles;
  Program program(noFiles);
  Check(program.frame.CreateMain({0, 0, 800, 600}), "frame");
  ::ShowWindow(program.frame.Handle(), SW_SHOW);
  std::string text;
  for (int i = 0; i < lines; ++i) text += Line(i);
  std::string path = TemporaryPath();
  CFile(path, CFile::Mode::kCreate, CFile::Share::kNothing).Write(text);

  CTwFileEdit* loaded = nullptr;
  double load = Seconds([&] {
    Check(program.files.OpenFile(path, false, false), "open");
    loaded = dynamic_cast<CTwFileEdit*>(program.frame.ActiveChild());
    ::UpdateWindow(loaded->Control().Handle());
  });
  CTwLog* log = nullptr;
  double append = Seconds([&] {
    log = program.files.NewResultWindow("GREP x", nullptr);
    for (std::size_t at = 0; at < text.size(); at += 60)
      log->Sink().Write(std::string_view(text).substr(at, 60));
    log->Finish();
    ::UpdateWindow(log->Control().Handle());
  });
  Check(log->Control().View().Copy() == text && loaded->Control().View().Copy() == text, "text");
  Row({"a result window of " + std::to_string(lines) + " lines", append, "loading them from a file", load,
       "s", kGoal});
  ::DeleteFileW(ToWide(path).c_str());
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  tarrow::bench::Run(tarrow::bench::IsQuick(argc, argv) ? 10'000 : 1'000'000);
}
