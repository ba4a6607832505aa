// The dialogs run modeless here, so that a test drives them with the messages of their controls.
#include "framework/unicode.h"
#include "project/options/configure_project_dialog.h"
#include "project/options/new_directory.h"
#include "project/options/select_project_dialog.h"
#include "resources/resource.h"
#include "tests/fakes/fake_program.h"
#include "tests/framework/scratch_directory.h"
#include "tests/project/fake_project_settings.h"
#include "ui/program/string_ids.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

void Click(CDialog& dialog, int id) {
  ::SendMessageW(dialog.Item(id), BM_CLICK, 0, 0);
}
bool IsEnabled(const CDialog& dialog, int id) {
  return ::IsWindowEnabled(dialog.Item(id)) != 0;
}
void Choose(CDialog& dialog, int id, UINT setMessage, int row, int code) {
  ::SendMessageW(dialog.Item(id), setMessage, static_cast<WPARAM>(row), 0);
  dialog.Send(WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(dialog.Item(id)));
}

class SelectProjectTest : public testing::Test {
 protected:
  void Open(const std::string& current) {
    dialog_ = std::make_unique<CSelectProjectDialog>(help_, current,
                                                     std::vector<std::string>{"c:\\one", "c:\\two", "", ""});
    ASSERT_TRUE(dialog_->CreateModeless(nullptr));
  }
  void Type(const char* path) {
    dialog_->SetItemText(IDC_PROJECT_PATH, path);
    dialog_->Send(WM_COMMAND, MAKEWPARAM(IDC_PROJECT_PATH, CBN_EDITCHANGE),
                  reinterpret_cast<LPARAM>(dialog_->Item(IDC_PROJECT_PATH)));
  }
  // "Change To" and "Exit Project".
  std::pair<bool, bool> Buttons() const {
    return {IsEnabled(*dialog_, IDOK), IsEnabled(*dialog_, IDC_EXIT_PROJECT)};
  }

  FakeHelp help_;
  std::unique_ptr<CSelectProjectDialog> dialog_;
};

TEST_F(SelectProjectTest, ButtonsFollowTheText) {
  Open("c:\\one");
  EXPECT_EQ("c:\\one", dialog_->ItemText(IDC_PROJECT_PATH));
  EXPECT_EQ(2, ::SendMessageW(dialog_->Item(IDC_PROJECT_PATH), CB_GETCOUNT, 0, 0));
  EXPECT_EQ(std::pair(false, true), Buttons());
  Type("c:\\onex");
  EXPECT_EQ(std::pair(true, true), Buttons());
  Type("C:\\ONE");
  EXPECT_EQ(std::pair(false, false), Buttons());
  Choose(*dialog_, IDC_PROJECT_PATH, CB_SETCURSEL, 0, CBN_SELCHANGE);
  EXPECT_EQ(std::pair(true, true), Buttons());
}

TEST_F(SelectProjectTest, WithoutAProjectThereIsNoneToLeave) {
  Open("");
  EXPECT_EQ(std::pair(false, false), Buttons());
  Type("c:\\new");
  EXPECT_EQ(std::pair(true, false), Buttons());
  Choose(*dialog_, IDC_PROJECT_PATH, CB_SETCURSEL, 1, CBN_SELCHANGE);
  EXPECT_EQ(std::pair(true, false), Buttons());
}

TEST_F(SelectProjectTest, GivesThePathOrNone) {
  Open("c:\\one");
  Type("  c:\\my new ");
  Click(*dialog_, IDOK);
  EXPECT_EQ("c:\\my new", dialog_->Path());
  Open("c:\\one");
  Click(*dialog_, IDC_HELP_BUTTON);
  EXPECT_EQ(std::vector<unsigned>{20}, help_.topics);
  Click(*dialog_, IDC_EXIT_PROJECT);
  EXPECT_EQ("", dialog_->Path());
}

class ConfigureProjectTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(dialog_.CreateModeless(nullptr)); }
  static FakeProjectSettings SomeProject() {
    FakeProjectSettings settings;
    settings.environment = 0;
    settings.directory = "c:\\work";
    settings.values = {{kTextKeyTarget, "app.exe"}, {kTextKeyTestArgs, "1 2"}};
    return settings;
  }
  std::string Line(int row) const {
    wchar_t text[512] = L"";
    ::SendMessageW(dialog_.Item(IDC_OPTIONS), LB_GETTEXT, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(text));
    return ToUtf8(text);
  }
  int Selected() const {
    return static_cast<int>(::SendMessageW(dialog_.Item(IDC_OPTIONS), LB_GETCURSEL, 0, 0));
  }
  int Lines() const { return static_cast<int>(::SendMessageW(dialog_.Item(IDC_OPTIONS), LB_GETCOUNT, 0, 0)); }
  std::string Text(int id) const { return dialog_.ItemText(id); }
  void SelectLine(int row) { Choose(dialog_, IDC_OPTIONS, LB_SETCURSEL, row, LBN_SELCHANGE); }

  FakeMessages messages_;
  FakeHelp help_;
  FakeProjectSettings settings_ = SomeProject();
  CConfigureProjectDialog dialog_{settings_, messages_, help_};
};

TEST_F(ConfigureProjectTest, ShowsTheProjectAndItsOptions) {
  EXPECT_EQ("c:\\work", Text(IDC_CONFIGURE_PATH));
  EXPECT_EQ("app.exe", Text(IDC_TARGET));
  EXPECT_EQ("1 2", Text(IDC_TEST_ARGUMENTS));
  EXPECT_EQ(28, Lines());
  EXPECT_EQ(0, Selected());
  EXPECT_EQ("Compiler", Text(IDC_OPTION_NAME));
  EXPECT_EQ("cl386.exe /nologo /D_X86_=1", Text(IDC_OPTION_SETTING));
  EXPECT_FALSE(IsEnabled(dialog_, IDC_SET_OPTION));
  EXPECT_EQ(5, ::SendMessageW(dialog_.Item(IDC_ENVIRONMENT), CB_GETCOUNT, 0, 0));
  EXPECT_EQ(0, ::SendMessageW(dialog_.Item(IDC_ENVIRONMENT), CB_GETCURSEL, 0, 0));
}

TEST_F(ConfigureProjectTest, SetsAnOptionAtOnceAlsoToNothing) {
  SelectLine(1);
  dialog_.SetItemText(IDC_OPTION_SETTING, "/c=1");
  EXPECT_TRUE(IsEnabled(dialog_, IDC_SET_OPTION));
  Click(dialog_, IDC_SET_OPTION);
  EXPECT_EQ("/c=1", settings_.Option(kOptionCompileArgs));
  EXPECT_EQ("CompileArgs=/c=1", Line(1));
  EXPECT_EQ(28, Lines());
  EXPECT_EQ(1, Selected());
  EXPECT_EQ("/c=1", Text(IDC_OPTION_SETTING));
  EXPECT_FALSE(IsEnabled(dialog_, IDC_SET_OPTION));
  dialog_.SetItemText(IDC_OPTION_SETTING, "");
  Click(dialog_, IDC_SET_OPTION);
  EXPECT_EQ("", settings_.Option(kOptionCompileArgs));
  EXPECT_EQ("CompileArgs=", Line(1));
}

TEST_F(ConfigureProjectTest, AnEqualsSignIsNoPartOfAName) {
  dialog_.SetItemText(IDC_OPTION_NAME, "RC=");
  EXPECT_EQ(std::vector<int>{kTextNotAllowedHere}, messages_.boxes);
  EXPECT_EQ(std::vector<std::string>{"="}, messages_.subjects);
  EXPECT_FALSE(IsEnabled(dialog_, IDC_SET_OPTION));
  dialog_.SetItemText(IDC_OPTION_NAME, "RC");
  EXPECT_EQ(18, Selected());
  dialog_.SetItemText(IDC_OPTION_NAME, "Mine");
  EXPECT_EQ(-1, Selected());
  dialog_.SetItemText(IDC_OPTION_SETTING, "x");
  Click(dialog_, IDC_SET_OPTION);
  EXPECT_EQ("Mine=x", Line(28));
  EXPECT_EQ(28, Selected());
}

TEST_F(ConfigureProjectTest, AnotherEnvironmentCountsAtOnce) {
  Choose(dialog_, IDC_ENVIRONMENT, CB_SETCURSEL, 3, CBN_SELCHANGE);
  EXPECT_EQ(3, settings_.environment);
  EXPECT_EQ("Compiler=ztc.com", Line(0));
  Choose(dialog_, IDC_ENVIRONMENT, CB_SETCURSEL, 4, CBN_SELCHANGE);
  EXPECT_EQ("Compiler=", Line(0));
  EXPECT_EQ("", Text(IDC_OPTION_SETTING));
}

TEST_F(ConfigureProjectTest, CloseStoresTheTargetAndEscapeDoesNot) {
  EXPECT_EQ(20, ::SendMessageW(dialog_.Item(IDC_TARGET), EM_GETLIMITTEXT, 0, 0));
  dialog_.SetItemText(IDC_TARGET, "new.exe");
  dialog_.SetItemText(IDC_TEST_ARGUMENTS, "3");
  dialog_.CheckItem(IDC_DEBUG_BUILD, true);
  Click(dialog_, IDOK);
  EXPECT_EQ("new.exe", settings_.ProjectValue(kTextKeyTarget));
  EXPECT_EQ("3", settings_.ProjectValue(kTextKeyTestArgs));
  EXPECT_TRUE(settings_.debugBuild);

  CConfigureProjectDialog again(settings_, messages_, help_);
  ASSERT_TRUE(again.CreateModeless(nullptr));
  again.SetItemText(IDC_TARGET, "lost.exe");
  Choose(again, IDC_OPTIONS, LB_SETCURSEL, 0, LBN_SELCHANGE);
  again.SetItemText(IDC_OPTION_SETTING, "kept");
  Click(again, IDC_SET_OPTION);
  again.Send(WM_COMMAND, IDCANCEL);
  EXPECT_EQ("new.exe", settings_.ProjectValue(kTextKeyTarget));
  EXPECT_EQ("kept", settings_.Option(kOptionCompiler));
}

TEST(NewDirectory, IsMadeWithItsParents) {
  ScratchDirectory scratch;
  std::string deep = scratch / "a\\b b\\c";
  MakeDirectoryWithParents(deep);
  EXPECT_TRUE(IsDirectory(deep));
  std::string file = scratch.Make("file", "x");
  try {
    MakeDirectoryWithParents(file + "\\below");
    FAIL() << "a file has no directories";
  } catch (const CFileException& error) {
    EXPECT_EQ(FileCause::kBadPath, error.Cause());
    EXPECT_EQ(file + "\\below", error.Path());
  }
}

}  // namespace
}  // namespace tarrow
