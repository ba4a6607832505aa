#include "shell/state/project_store.h"

#include "ui/program/string_ids.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

class ProjectFile final : public SettingsFiles {
 public:
  std::string project;

  IniText ReadGlobal() override { return {}; }
  void WriteGlobal(const IniText&) override {}
  bool EnterProject(const std::string&) override { return true; }
  IniText ReadProject() override { return IniText(project); }
  void WriteProject(const IniText& text) override { project = text.Bytes(); }
};

struct Opened {
  explicit Opened(std::string text) {
    files.project = std::move(text);
    settings.project.directory = "c:\\work";
    LoadSettings(files, store, false, settings);
  }

  ProjectFile files;
  CProfileStore store = MakeSettingsStore({});
  ProgramSettings settings;
  std::string home = "c:\\tarrow\\";
  ProjectStore project{files, store, settings, home};
};

TEST(ProjectStore, ReadsTheOptionOrItsPreset) {
  Opened opened("[Project]\r\nEnvironment=zortech c++\r\n[Zortech C++]\r\nLinker=mylink\r\nLinkDebug=\r\n");
  const ProjectStore& project = opened.project;
  EXPECT_EQ(3, project.Environment());
  EXPECT_EQ("mylink", project.Option(kOptionLinker));
  EXPECT_EQ("", project.Option(kOptionLinkDebug)) << "stored as empty, which is no preset";
  EXPECT_EQ("ztc.com", project.Option(kOptionCompiler));
  EXPECT_EQ("", project.Option(kOptionInclude));
  opened.project.SetEnvironment(4);
  for (int option = 0; option < kOptionCount; ++option)
    EXPECT_EQ("", project.Option(static_cast<ProjectOption>(option)));
}

TEST(ProjectStore, AnUnknownEnvironmentIsTheFirst) {
  Opened opened("[Project]\r\nEnvironment=Fortran\r\n");
  EXPECT_EQ(0, opened.project.Environment());
  EXPECT_EQ("nmake.exe -x -", opened.project.Option(kOptionBuilder));
}

TEST(ProjectStore, WritesAndRemovesOptionsOfItsEnvironment) {
  Opened opened("[Microsoft C]\r\nRC=other\r\n; mine\r\nBuilder=make\r\n");
  ProjectStore& project = opened.project;
  project.WriteOption("LinkRelease", "");
  project.WriteOption("Mine", "  kept blanks ");
  EXPECT_EQ("", project.Option(kOptionLinkRelease));
  project.RemoveOption("RC", false);
  EXPECT_EQ("rc.exe", project.Option(kOptionRC));
  EXPECT_NE(std::string::npos, opened.files.project.find("RC=other"));
  project.RemoveOption("Builder", true);
  EXPECT_EQ("nmake.exe -x -", project.Option(kOptionBuilder));
  EXPECT_EQ("[Microsoft C]\r\nRC=other\r\n; mine\r\n", opened.files.project);
  SaveSettings(opened.files, opened.store, opened.settings, "");
  IniText saved(opened.files.project);
  EXPECT_EQ("", saved.Value("Microsoft C", "LinkRelease"));
  EXPECT_EQ("  kept blanks ", saved.Value("Microsoft C", "Mine"));
}

TEST(ProjectStore, KeepsTheTargetInTheProject) {
  Opened opened("[Project]\r\nTarget=app.exe\r\n");
  EXPECT_EQ("app.exe", opened.project.ProjectValue(kTextKeyTarget));
  EXPECT_EQ("", opened.project.ProjectValue(kTextKeyTestArgs));
  opened.project.WriteProjectValue(kTextKeyTestArgs, "-x");
  EXPECT_EQ("-x", opened.project.ProjectValue(kTextKeyTestArgs));
}

}  // namespace
}  // namespace tarrow
