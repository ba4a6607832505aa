#include "shell/state/settings.h"

#include "base/exceptions.h"
#include "shell/state/session.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace tarrow {
namespace {

// The files of a program and of one project that can be entered.
class MemoryFiles final : public SettingsFiles {
 public:
  std::string global, project;
  std::string projectDirectory = "c:\\work\\editor";
  bool projectIsLocked = false;

  IniText ReadGlobal() override { return IniText(global); }
  void WriteGlobal(const IniText& text) override { global = text.Bytes(); }
  bool EnterProject(const std::string& directory) override { return directory == projectDirectory; }
  IniText ReadProject() override { return IniText(project); }
  void WriteProject(const IniText& text) override {
    if (projectIsLocked) throw CFileException(FileCause::kAccessDenied, projectDirectory);
    project = text.Bytes();
  }

  std::string Global(std::string_view section, std::string_view key) const {
    return IniText(global).Value(section, key).value_or("(none)");
  }
  std::string Project(std::string_view section, std::string_view key) const {
    return IniText(project).Value(section, key).value_or("(none)");
  }
};

struct ProgramRun {
  explicit ProgramRun(MemoryFiles& files, bool restoreProject = true) : files_(files) {
    LoadSettings(files, store, restoreProject, settings);
  }
  void Save(std::string_view window = "1,2,300,400,0") { SaveSettings(files_, store, settings, window); }

  MemoryFiles& files_;
  CProfileStore store = MakeSettingsStore({});
  ProgramSettings settings;
};

TEST(Settings, AreWhatTheProgramBringsWhereNoFileIs) {
  MemoryFiles files;
  GlobalSettings s = ProgramRun(files).settings.global;
  EXPECT_TRUE(s.saveSettings && s.saveWindows);
  EXPECT_EQ(0x408u, s.flags);
  EXPECT_EQ(ArrangeMode::kMaximised, s.arrange);
  EXPECT_EQ(8, s.tabSize);
  EXPECT_EQ(4, s.shiftWidth);
  EXPECT_EQ(FontChoice(), s.screenFont);
}

TEST(Settings, TakeOnlyValuesInTheirRange) {
  struct Case {
    const char* line;
    int expected;
    int (*get)(const GlobalSettings&);
  };
  auto tab = [](const GlobalSettings& s) { return s.tabSize; };
  auto shift = [](const GlobalSettings& s) { return s.shiftWidth; };
  auto flags = [](const GlobalSettings& s) { return static_cast<int>(s.flags); };
  auto arrange = [](const GlobalSettings& s) { return static_cast<int>(s.arrange); };
  auto levels = [](const GlobalSettings& s) { return s.undoLevels; };
  auto spaces = [](const GlobalSettings& s) { return static_cast<int>(s.expandTabs); };
  auto save = [](const GlobalSettings& s) { return static_cast<int>(s.saveSettings); };
  for (const Case& c : std::initializer_list<Case>{{"TabSize=2", 2, tab},
                                                   {"TabSize=8", 8, tab},
                                                   {"TabSize=9", 8, tab},
                                                   {"TabSize=1", 8, tab},
                                                   {"ShiftWidth=1", 1, shift},
                                                   {"ShiftWidth=0", 4, shift},
                                                   {"ShiftWidth=9", 4, shift},
                                                   {"Arrange=3", 3, arrange},
                                                   {"Arrange=4", 2, arrange},
                                                   {"Flags=1001000000", 0x240, flags},
                                                   {"Flags=100000000000", 0xC00, flags},
                                                   {"SaveSettings=1", 1, save},
                                                   {"SaveSettings=10", 0, save},
                                                   {"SaveSettings=0", 0, save},
                                                   {"UndoLevels=1", 1, levels},
                                                   {"UndoLevels=0", 1, levels},
                                                   {"UndoLevels=50", 50, levels},
                                                   {"UndoLevels=99999999999", 1000000, levels},
                                                   {"ExpandTabs=1", 1, spaces},
                                                   {"ExpandTabs=0", 0, spaces},
                                                   {"ExpandTabs=2", 0, spaces},
                                                   {"TabSize=99999999999999", 8, tab},
                                                   {"TabSize=", 8, tab}}) {
    MemoryFiles files;
    files.global = std::string("[Settings]\r\n") + c.line + "\r\n";
    EXPECT_EQ(c.expected, c.get(ProgramRun(files).settings.global)) << c.line;
  }
}

TEST(Settings, ComeBackAsTheyWereSaved) {
  MemoryFiles files;
  files.global = "; mine\r\n[Settings]\r\nCalculator=c.exe\r\n[Elsewhere]\r\nx=1\r\n";
  ProgramRun first(files);
  first.settings.global.flags = 0x155;
  first.settings.global.saveWindows = false;
  first.settings.global.arrange = ArrangeMode::kTileDown;
  first.settings.global.tabSize = 3;
  first.settings.recentFiles.Add("c:\\b.c");
  first.settings.recentFiles.Add("c:\\a, b.c");
  first.settings.recentProjects.Add("c:\\p");
  first.Save();
  EXPECT_EQ("(none)", files.Global("Settings", "UndoLevels")) << "nobody has asked for it";
  EXPECT_EQ("101010101", files.Global("Settings", "Flags"));
  EXPECT_EQ("c.exe", files.Global("Settings", "Calculator"));
  EXPECT_EQ("1", files.Global("Elsewhere", "x"));
  EXPECT_EQ(0u, files.global.find("; mine\r\n"));

  ProgramRun second(files);
  EXPECT_EQ(first.settings.global.flags, second.settings.global.flags);
  EXPECT_FALSE(second.settings.global.saveWindows);
  EXPECT_EQ(ArrangeMode::kTileDown, second.settings.global.arrange);
  EXPECT_EQ(3, second.settings.global.tabSize);
  EXPECT_EQ((std::vector<std::string>{"c:\\a, b.c", "c:\\b.c"}), second.settings.recentFiles.Names());
  EXPECT_EQ((std::vector<std::string>{"c:\\p"}), second.settings.recentProjects.Names());

  std::string before = files.global;
  second.Save();
  EXPECT_EQ(before, files.global);
}

TEST(Settings, ThatAreNotToBeSavedKeepTheirListsAllTheSame) {
  MemoryFiles files;
  files.global = "[Settings]\r\nTabSize=5\r\nWindow=9,9,900,900,0\r\n";
  ProgramRun run(files);
  run.settings.global.saveSettings = false;
  run.settings.global.tabSize = 2;
  run.settings.recentFiles.Add("c:\\a.c");
  run.Save();
  EXPECT_EQ("0", files.Global("Settings", "SaveSettings"));
  EXPECT_EQ("5", files.Global("Settings", "TabSize"));
  EXPECT_EQ("9,9,900,900,0", files.Global("Settings", "Window"));
  EXPECT_EQ("c:\\a.c", files.Global("Session", "File 1"));
}

TEST(Settings, OfAProjectGoToItsOwnFile) {
  MemoryFiles files;
  files.global =
      "[Settings]\r\nTabSize=5\r\nShiftWidth=3\r\n[Session]\r\nFile 1=c:\\g.c\r\nEditCount=1\r\n"
      "Edit01=c:\\g.c,0\r\n[Project]\r\nProject=c:\\work\\editor\r\nProject 1=c:\\other\r\n";
  files.project =
      "[Settings]\r\nTabSize=2\r\n[Project]\r\nProject=c:\\stray\r\nDebugBuild=1\r\n"
      "Environment=zortech c++\r\n[Session]\r\nEditCount=9\r\nEdit09=c:\\nine.c,0\r\n";
  ProgramRun run(files);
  EXPECT_EQ("c:\\work\\editor", run.settings.project.directory);
  EXPECT_EQ(2, run.settings.global.tabSize);
  EXPECT_EQ(3, run.settings.global.shiftWidth);
  EXPECT_TRUE(run.settings.project.debugBuild);
  EXPECT_EQ(3, run.settings.project.environment);
  EXPECT_TRUE(run.settings.recentFiles.Names().empty());
  EXPECT_EQ("(none)", files.Project("Project", "Project"));

  run.settings.recentFiles.Add("c:\\p.c");
  run.settings.global.tabSize = 6;
  WriteSession(run.store, {{"c:\\p.c", 8u}});
  run.Save();
  EXPECT_EQ("6", files.Project("Settings", "TabSize"));
  EXPECT_EQ("5", files.Global("Settings", "TabSize"));
  EXPECT_EQ("c:\\p.c,8", files.Project("Session", "Edit01"));
  EXPECT_EQ("(none)", files.Project("Session", "Edit09"));
  EXPECT_EQ("c:\\g.c", files.Global("Session", "File 1"));
  EXPECT_EQ("Zortech C++", files.Project("Project", "Environment"));
  EXPECT_EQ("(none)", files.Project("Project", "Project"));
  EXPECT_EQ("c:\\work\\editor", files.Global("Project", "Project"));
  EXPECT_EQ("c:\\other", files.Global("Project", "Project 1"));
}

TEST(Settings, DropAProjectThatCannotBeEntered) {
  MemoryFiles files;
  files.global = "[Project]\r\nProject=c:\\gone\r\n";
  ProgramRun run(files);
  EXPECT_EQ("", run.settings.project.directory);
  run.Save();
  EXPECT_EQ("(none)", files.Global("Project", "Project"));
  MemoryFiles kept;
  kept.global = "[Project]\r\nProject=c:\\work\\editor\r\n";
  EXPECT_EQ("", ProgramRun(kept, false).settings.project.directory);
}

// What one of two instances leaves in a key: its own value if it has changed it, else what it finds.
TEST(Settings, OfTwoInstancesStayWhereOnlyOneHasChangedThem) {
  const char* const keys[] = {"TabSize", "ShiftWidth", "Arrange", "Calculator", "PageHeader"};
  std::mt19937 random(15);
  auto change = [&](ProgramRun& run, const char* key, const std::string& value) {
    GlobalSettings& global = run.settings.global;
    if (key == keys[0]) return void(global.tabSize = std::stoi(value));
    if (key == keys[1]) return void(global.shiftWidth = std::stoi(value));
    if (key == keys[2]) return void(global.arrange = static_cast<ArrangeMode>(std::stoi(value)));
    run.store.WriteString(kSettingsSection, key, value);
  };
  for (int round = 0; round < 300; ++round) {
    MemoryFiles files;
    std::map<std::string, std::string> expected;
    files.global = "[Settings]\r\n";
    for (const char* key : keys)
      if (random() % 2)
        files.global += key + ("=" + (expected[key] = std::to_string(2 + random() % 2))) + "\r\n";
    ProgramRun first(files), second(files);
    for (ProgramRun* run : {&first, &second})
      for (const char* key : keys) {
        if (random() % 3) continue;
        std::string value = std::to_string(2 + random() % 2), before = "(none)";
        if (key == keys[0]) before = std::to_string(run->settings.global.tabSize);
        if (key == keys[1]) before = std::to_string(run->settings.global.shiftWidth);
        if (key == keys[2]) before = std::to_string(static_cast<int>(run->settings.global.arrange));
        if (before == "(none)") (void)run->store.ReadString(kSettingsSection, key, before);
        change(*run, key, value);
        if (value != before) expected[key] = value;
      }
    first.Save();
    second.Save();
    for (const auto& [key, value] : expected) ASSERT_EQ(value, files.Global("Settings", key)) << key << round;
  }
}

TEST(Settings, OfTwoInstancesJoinTheirListsAndKeepTheLastSession) {
  MemoryFiles files;
  files.global =
      "[Session]\r\nFile 1=x\r\nFile 2=y\r\nFile 3=z\r\n[Project]\r\nProject 1=p\r\nProject 2=q\r\n";
  ProgramRun first(files), second(files), idle(files);
  first.settings.recentFiles.Add("a");
  first.settings.recentProjects.Add("r");
  WriteSession(first.store, {{"a", 1u}, {"x", 1u}});
  second.settings.recentFiles.Add("z");
  second.settings.recentProjects.Add("q");
  WriteSession(second.store, {{"z", 2u}});
  first.Save();
  second.Save();
  ProgramRun after(files);
  EXPECT_EQ((std::vector<std::string>{"z", "y", "x", "a"}), after.settings.recentFiles.Names());
  EXPECT_EQ((std::vector<std::string>{"q", "p", "r"}), after.settings.recentProjects.Names());
  EXPECT_EQ((std::vector<SessionEntry>{{"z", 2u}}), ReadSession(after.store));
  idle.Save();
  ProgramRun last(files);
  EXPECT_EQ(after.settings.recentFiles.Names(), last.settings.recentFiles.Names())
      << "nothing was added there";
  EXPECT_TRUE(ReadSession(last.store).empty());
}

TEST(Settings, OfAProjectTakeNothingBackThatAnotherInstanceHasSet) {
  MemoryFiles files;
  files.global = "[Settings]\r\nTabSize=5\r\n[Project]\r\nProject=c:\\work\\editor\r\n";
  ProgramRun first(files), second(files);
  first.settings.global.tabSize = 3;
  first.store.WriteString(kFirstOptionSection, "Compiler", "cc.exe");
  first.Save();
  second.settings.global.shiftWidth = 2;
  second.Save();
  EXPECT_EQ("3", files.Project("Settings", "TabSize"));
  EXPECT_EQ("2", files.Project("Settings", "ShiftWidth"));
  EXPECT_EQ("cc.exe", files.Project("Microsoft C", "Compiler"));
}

TEST(Settings, ReadScreenFontsWithTheirOldSign) {
  EXPECT_EQ((FontChoice{"Courier New", -13, 400, true}), ParseScreenFont("Courier New,13,400,1"));
  EXPECT_EQ((FontChoice{"F", 12, 0, false}), ParseScreenFont("F,-12"));
}

TEST(Settings, SayHowThePartsOfATextLook) {
  auto lookOf = [](const std::string& ini, Style style) {
    MemoryFiles files;
    files.global = ini;
    std::optional<StyleChoices> styles = ProgramRun(files).settings.styles;
    return styles ? (*styles)[static_cast<std::size_t>(style)] : Look{Colour{1, 2, 3}, true, true};
  };
  std::string ini = "[Colors]\nComment=#010203 bold\nString=unsound\n";
  EXPECT_EQ((Look{Colour{1, 2, 3}, true, false}), lookOf(ini, Style::kComment));
  EXPECT_EQ(std::nullopt, lookOf(ini, Style::kString));
  EXPECT_EQ(std::nullopt, lookOf("[Settings]\nColors=1\n", Style::kComment));
  EXPECT_EQ((Look{Colour{1, 2, 3}, true, true}), lookOf("[Settings]\nColors=0\n", Style::kComment));
}

TEST(Settings, KeepTheColoursThatTheyAreGiven) {
  MemoryFiles files;
  files.global = "[Colors]\nComment=#010203 bold\n[Settings]\nColors=0\n";
  ProgramRun(files).Save();
  EXPECT_EQ("#010203 bold", files.Global("Colors", "Comment"));
  EXPECT_EQ("0", files.Global("Settings", "Colors"));
}

TEST(RecentList, ExchangesAKnownNameWithTheFirst) {
  RecentList list;
  for (const char* name : {"1", "2", "3", "4", "5", "6", "7"}) list.Add(name);
  EXPECT_EQ((std::vector<std::string>{"7", "6", "5", "4", "3", "2"}), list.Names());
  list.Add("4");
  EXPECT_EQ((std::vector<std::string>{"4", "6", "5", "7", "3", "2"}), list.Names());
  list.Add("4");
  EXPECT_EQ((std::vector<std::string>{"4", "6", "5", "7", "3", "2"}), list.Names());
}

TEST(Session, IsReadUpToTheFirstMissingWindow) {
  CProfileStore store = MakeSettingsStore({});
  store.Load(
      IniText("[Session]\r\nEditCount=5\r\nEdit01=c:\\a,b\\x.c,3\r\nEdit02=c:\\x.c\r\nEdit04=c:\\y.c,1\r\n"));
  EXPECT_EQ((std::vector<SessionEntry>{{"c:\\a,b\\x.c", 3u}, {"c:\\x.c", {}}}), ReadSession(store));
  store.Load(IniText("[Session]\r\nEditCount=1\r\nEdit01=,3\r\n"));
  EXPECT_EQ((std::vector<SessionEntry>{{",3", {}}}), ReadSession(store));
}

TEST(Session, LeavesNothingOfAnOlderOne) {
  CProfileStore store = MakeSettingsStore({});
  std::vector<SessionEntry> many;
  for (int i = 0; i < 120; ++i)
    many.push_back({"c:\\" + std::to_string(i), static_cast<std::uint32_t>(i & 63)});
  WriteSession(store, many);
  EXPECT_EQ(many, ReadSession(store));
  store.WriteString(kSessionSection, "File 1", "c:\\kept.c");
  WriteSession(store, {});
  EXPECT_EQ((std::vector<std::string>{"File 1"}), store.Keys(kSessionSection));
}

TEST(Session, PlacesTheFrameOnTheScreen) {
  struct Case {
    const char* value;
    std::optional<FrameBounds> bounds;
    bool maximised;
  };
  for (const Case& c :
       std::initializer_list<Case>{{"-5,-5,99999,99999,1", FrameBounds{0, 0, 1280, 1024}, true},
                                   {"10,20,700,500,0", FrameBounds{10, 20, 700, 500}, false},
                                   {"10,20,700,500", FrameBounds{10, 20, 700, 500}, false},
                                   {"30,40", FrameBounds{30, 40, 900, 800}, false},
                                   {"30", FrameBounds{30, 60, 900, 800}, false},
                                   {"30,40,700", FrameBounds{30, 40, 700, 800}, false},
                                   {"30,40,", FrameBounds{30, 40, 900, 800}, false},
                                   {"850,40", {}, false},
                                   {"2000,20,2800,500,1", {}, true},
                                   {"10,20,12,500,0", {}, false},
                                   {"", {}, false},
                                   {"a,b,c,d,e", {}, false},
                                   {"1,2,99999999999,700,1", FrameBounds{1, 2, 1280, 700}, true}}) {
    FramePlacement placement = ParsePlacement(c.value, {50, 60, 900, 800}, 1280, 1024);
    EXPECT_EQ(c.bounds, placement.bounds) << c.value;
    EXPECT_EQ(c.maximised, placement.maximised) << c.value;
  }
}

TEST(Session, KeepsTheRestoredSizeOfAFrameThatIsNot) {
  FrameBounds now{1, 2, 300, 400};
  EXPECT_EQ("1,2,300,400,0", FormatPlacement("9,9,900,900,1", now, FrameState::kNormal));
  EXPECT_EQ("9,9,900,900,1", FormatPlacement("9,9,900,900,0", now, FrameState::kMaximised));
  EXPECT_EQ("9,9,900,900,0", FormatPlacement("9,9,900,900,1", now, FrameState::kMinimised));
  EXPECT_EQ("1,2,300,400,1", FormatPlacement("", now, FrameState::kMaximised));
  EXPECT_EQ("1,2,300,400,0", FormatPlacement("9,9,900", now, FrameState::kMinimised));
}

TEST(Settings, OfAProjectThatCannotBeWrittenAreReadAndTheGlobalOnesSaved) {
  MemoryFiles files;
  files.global = "[Project]\r\nProject=c:\\work\\editor\r\n";
  files.project = "[Project]\r\nProject=c:\\elsewhere\r\n[Settings]\r\nTabSize=3\r\n";
  files.projectIsLocked = true;
  ProgramRun run(files);
  EXPECT_EQ(run.settings.global.tabSize, 3);
  EXPECT_EQ(run.settings.project.directory, files.projectDirectory);
  run.settings.recentProjects.Add("c:\\other");
  EXPECT_THROW(run.Save(), CFileException);
  EXPECT_EQ(files.Global("Project", "Project 1"), "c:\\other");
  EXPECT_EQ(files.Global("Project", "Project"), files.projectDirectory);
}

TEST(Settings, HugeAndBinaryFilesAreReadInSensibleTime) {
  MemoryFiles files;
  for (int i = 0; i < 10'000; ++i)
    files.global += "[Section " + std::to_string(i) +
                    "]\r\nKey=some value\r\n[Key Bindings]\r\nx=" + std::string(1000, 'v') + "\r\n";
  files.global += "[Settings]\r\nTabSize=3\r\n";
  ProgramRun huge(files);
  EXPECT_EQ(huge.settings.global.tabSize, 3);
  huge.Save();
  EXPECT_EQ(IniText(files.global).Value("Section 7", "Key"), "some value");

  std::string binary(1'000'000, '\0');
  for (std::size_t i = 0; i < binary.size(); ++i) binary[i] = static_cast<char>(i * i >> 3);
  files.global = binary;
  ProgramRun(files).Save();
  EXPECT_EQ(files.global.substr(0, binary.size()), binary);
}

}  // namespace
}  // namespace tarrow
