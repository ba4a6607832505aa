// The room with the real wrapper and real commands, in a program of fakes.
#include "project/project_room.h"

#include "base/path_text.h"
#include "edit/documents/file_edit.h"
#include "edit/documents/log.h"
#include "framework/directories.h"
#include "framework/file_system.h"
#include "framework/unicode.h"
#include "project/commands/tool_code_pages.h"
#include "tests/edit/documents/document_program.h"
#include "tests/framework/scratch_directory.h"
#include "tests/project/fake_project_settings.h"
#include "tests/window_pump.h"
#include "tests/wrapper/test_programs.h"
#include "ui/program/string_ids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace tarrow {
namespace {

std::size_t CountLeftovers() {
  std::size_t count = 0;
  for (const DirectoryEntry& entry : FindFiles(JoinPath(TemporaryDirectory(), "TRW*.tmp")))
    count += entry.name.starts_with("TRW");
  return count;
}

class ProjectRoomTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string wrapper = FullPath(ToUtf8(WrapperProgram()));
    settings.home = wrapper.substr(0, wrapper.size() - std::string_view("nt\\projexec.exe").size());
    program.frame.AddTarget(room);
    program.documents.makeLog = [this](std::string title, PlaceFinder finder) {
      if (log) log->Destroy();
      return log = CTwLog::New(program.services, std::move(title), std::move(finder));
    };
    TemporaryFile::RemoveLeftovers();
    ChangeWorkingDirectory(scratch.Path());
  }
  ~ProjectRoomTest() override {
    if (log) log->Destroy();
    if (edit) edit->Destroy();
    ChangeWorkingDirectory(TemporaryDirectory());
  }

  // The builder is the tests' own tool with these arguments.
  void SetBuilder(const std::string& arguments) {
    settings.stored[{settings.environment, "Builder"}] = Child() + " " + arguments;
  }
  static std::string Child() { return "\"" + ToUtf8(CommandProgram()) + "\""; }
  void Open(const std::string& path) {
    edit = CTwFileEdit::Open(program.services, FullPathLower(path), kVerticalScroll);
    ASSERT_TRUE(edit);
    program.documents.activeDocument = edit;
    program.documents.activeText = &edit->Control();
  }
  void Run(UINT id) { program.frame.Send(WM_COMMAND, id); }
  [[nodiscard]] bool RunToEnd(UINT id) {
    Run(id);
    return room.IsRunning() && PumpUntil([&] { return !room.IsRunning(); });
  }
  bool CanRun(UINT id) {
    CommandState state;
    return room.QueryCommand(id, state) && state.enabled;
  }
  std::string LogText() const { return log ? log->Control().View().Copy() : "(no log)"; }

  ScratchDirectory scratch;
  DocumentProgram program;
  FakeProjectSettings settings;
  FakeSwitching switching;
  ProjectRoom room{program.services, settings, switching};
  CTwLog* log = nullptr;  // these belong to their windows
  CTwFileEdit* edit = nullptr;
};

TEST_F(ProjectRoomTest, ASilentSuccessLeavesNothing) {
  SetBuilder("exit 0");
  ASSERT_TRUE(RunToEnd(kProjectBuild));
  EXPECT_EQ(std::vector<std::string>{std::to_string(kTextTaskSucceeded)}, program.status.texts);
  EXPECT_EQ(std::vector<UINT>{MB_OK}, program.messages.alerts);
  EXPECT_FALSE(log);
  EXPECT_FALSE(CanRun(kProjectViewLog));
  EXPECT_EQ(0u, CountLeftovers());
  ASSERT_GE(program.status.tasks.size(), 2u);
  EXPECT_EQ("Build 0:00", program.status.tasks.front());
  EXPECT_EQ("", program.status.tasks.back());
}

TEST_F(ProjectRoomTest, AFailureShowsWhatWasWritten) {
  SetBuilder("streams 3");
  ASSERT_TRUE(RunToEnd(kProjectBuild));
  EXPECT_FALSE(log) << "it has succeeded";
  EXPECT_TRUE(CanRun(kProjectViewLog));
  SetBuilder("exit 7");
  ASSERT_TRUE(RunToEnd(kProjectBuild));
  EXPECT_EQ("", LogText()) << "an empty log shows that the command has failed";
  EXPECT_EQ(std::to_string(kTextTaskFailed), program.status.texts.back());
  EXPECT_EQ(static_cast<UINT>(MB_ICONSTOP), program.messages.alerts.back());
  EXPECT_EQ(0u, CountLeftovers());
}

TEST_F(ProjectRoomTest, ViewResultsShowsTheOutputOnceInItsDirectory) {
  SetBuilder("streams 2");
  ASSERT_TRUE(RunToEnd(kProjectBuild));
  ChangeWorkingDirectory(TemporaryDirectory());
  Run(kProjectViewLog);
  EXPECT_EQ("out 0\r\nerr 1\r\n", LogText());
  EXPECT_EQ(LowerCase(scratch.Path()), WorkingDirectory());
  EXPECT_EQ(0u, CountLeftovers());
  program.messages.alerts.clear();
  Run(kProjectViewLog);
  EXPECT_EQ(std::vector<UINT>{MB_ICONEXCLAMATION}, program.messages.alerts);
}

TEST_F(ProjectRoomTest, WhileACommandRunsTheOthersRefuse) {
  Open(scratch.Make("a.c", "int a;\r\n"));
  SetBuilder("until-gone \"" + scratch.Make("lock", "") + "\"");
  Run(kProjectBuild);
  ASSERT_TRUE(room.IsRunning());
  program.messages.alerts.clear();
  for (UINT id : {kProjectCompile, kProjectLink, kProjectBuild, kProjectBuildTarget, kProjectDebug,
                  kProjectTest, kProjectViewLog}) {
    EXPECT_FALSE(CanRun(id)) << id;
    Run(id);
  }
  EXPECT_EQ(std::vector<UINT>(7, MB_ICONEXCLAMATION), program.messages.alerts);
  EXPECT_TRUE(CanRun(kProjectSelect));
  RemoveFile(scratch / "lock");
  EXPECT_TRUE(PumpUntil([&] { return !room.IsRunning(); }));
  EXPECT_TRUE(CanRun(kProjectCompile));
}

TEST_F(ProjectRoomTest, ALongCompileTakesAResponseFile) {
  Open(scratch.Make("a.c", "int a;\r\n"));
  settings.stored[{4, "Compiler"}] = Child();
  std::string arguments = std::string(1100, 'x') + "\303\274";
  settings.stored[{4, "CompileArgs"}] = arguments;
  ASSERT_TRUE(RunToEnd(kProjectCompile));
  EXPECT_EQ(arguments + "  " + edit->Path() + "\r\n", LogText());
  EXPECT_EQ(0u, CountLeftovers());
  EXPECT_EQ("\x41", EncodeForTools("A"));
  EXPECT_EQ(std::string("\xFF\xFE\x2D\x4E", 4), EncodeForTools("\344\270\255"));
}

TEST_F(ProjectRoomTest, CompileRefusesWhatItCannotName) {
  Run(kProjectCompile);
  EXPECT_EQ(std::vector<UINT>{MB_ICONEXCLAMATION}, program.messages.alerts) << "there is no window";
  Open(scratch.Make("makefile", "all:\r\n"));
  Run(kProjectCompile);
  EXPECT_EQ(static_cast<UINT>(MB_ICONSTOP), program.messages.alerts.back());
  program.documents.mayContinue = false;
  Run(kProjectBuild);
  EXPECT_FALSE(room.IsRunning()) << "the user has cancelled the question about modified files";
}

TEST_F(ProjectRoomTest, AMissingWrapperIsNamed) {
  settings.home = scratch.Path() + "\\";
  SetBuilder("exit 0");
  ASSERT_TRUE(RunToEnd(kProjectBuild));
  EXPECT_EQ(std::vector<int>{kTextCreateProcess}, program.messages.boxes);
  EXPECT_EQ("", LogText());
  EXPECT_EQ(0u, CountLeftovers());
}

TEST_F(ProjectRoomTest, TheLogLeadsToTheFilesOfTheCommand) {
  Open(scratch.Make("a b.c", "int a\r\n"));
  settings.stored[{4, "Compiler"}] = Child() + " compile";
  ASSERT_TRUE(RunToEnd(kProjectCompile));
  ASSERT_NE(std::string::npos, LogText().find("a b.c(1,6) : error"));
  log->Send(WM_COMMAND, kSearchGotoLine);
  PumpMessages();
  ASSERT_EQ(1u, program.documents.places.size());
  const SourcePlace& place = program.documents.places[0].first;
  EXPECT_EQ(edit->Path(), place.name);
  EXPECT_EQ(1u, place.position);
  EXPECT_EQ(6u, place.column);
}

TEST_F(ProjectRoomTest, MuchOutputOpensWhole) {
  SetBuilder("flood 10");
  ASSERT_TRUE(RunToEnd(kProjectBuild));
  Run(kProjectViewLog);
  std::string text = LogText(), expected;
  while (expected.size() < std::size_t{10} << 20)
    expected += text.substr(0, 4096);  // the same at every write
  EXPECT_TRUE(text.starts_with("sixty-two")) << text.substr(0, 100);
  EXPECT_TRUE(text == expected) << text.size();
}

TEST_F(ProjectRoomTest, ManyCommandsLeaveNoFiles) {
  for (int i = 0; i < 20; ++i) {
    SetBuilder(i % 3 == 0 ? "exit 0" : i % 3 == 1 ? "streams 5" : "exit 1");
    ASSERT_TRUE(RunToEnd(kProjectBuild));
  }
  EXPECT_LE(CountLeftovers(), 1u) << "of the last command";
  {
    TemporaryFile held, left;
    for (int i = 0; i < 1000; ++i) held.Create();
    left.Create();
    left.Abandon();
    TemporaryFile::RemoveLeftovers();
    EXPECT_TRUE(FileExists(held.Path()));
    EXPECT_LE(CountLeftovers(), 2u);
  }
  EXPECT_LE(CountLeftovers(), 1u);
}

class WordHelpTest : public ProjectRoomTest {
 protected:
  // Opens a text with the caret at "|".
  void OpenText(std::string text) {
    std::size_t caret = text.find('|');
    Open(scratch.Make("help.c", text.erase(caret, 1)));
    if (!edit) return;
    edit->Control().Select(BytePos(static_cast<std::int64_t>(caret)),
                           BytePos(static_cast<std::int64_t>(caret)));
  }
};

TEST_F(WordHelpTest, OpensTheIncludedFile) {
  scratch.Make("own.h", "");
  std::string first = scratch / "first", second = scratch / "second";
  MakeDirectory(first);
  MakeDirectory(second);
  MakeDirectory(first + "\\far.h");  // a directory is no file
  scratch.Make("second\\far.h", "");
  program.options.values[kOptionInclude] = first + ";" + second;
  OpenText("  #include <far|.h>\r\n#include \"own.h\"\r\n#include <none.h>");
  Run(kHelpOnWord);
  EXPECT_EQ(std::vector<std::string>{second + "\\far.h"}, program.documents.opened);
  edit->Control().Select(BytePos(25), BytePos(25));
  Run(kHelpOnWord);
  EXPECT_EQ("own.h", program.documents.opened.back());
  EXPECT_EQ(0, program.waiting.waits);
}

TEST_F(WordHelpTest, BeepsWithoutAHelpAndNamesAMissingProgram) {
  OpenText("whi|le (x) CreateWindow();\r\n");
  Run(kHelpOnWord);
  EXPECT_EQ(std::vector<UINT>{MB_ICONEXCLAMATION}, program.messages.alerts);
  program.options.values[kOptionHelpEnv] = "no-such-help.exe /k %s";
  Run(kHelpOnWord);
  EXPECT_EQ(std::vector<int>{kTextCannotOpen}, program.messages.boxes);
  EXPECT_EQ("no-such-help.exe", program.messages.subjects.back());
  Run(kHelpSDK);
  EXPECT_EQ(2u, program.messages.alerts.size()) << "the other help is empty";
}

TEST_F(WordHelpTest, WithoutProjectFeaturesTellsHowToGetThem) {
  OpenText("#include <std|io.h>\r\n");
  program.settings.Set(kNoProject, true);
  Run(kHelpOnWord);
  EXPECT_EQ(std::vector<unsigned>{6}, program.help.topics);
  program.documents.activeText = nullptr;
  EXPECT_FALSE(CanRun(kHelpOnWord));
}

}  // namespace
}  // namespace tarrow
