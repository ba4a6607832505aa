#include "shell/state/settings.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "base/text_format.h"
#include "ui/program/string_table.h"
#include "ui/settings/font_value.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace tarrow {
namespace {

std::string ProjectKey() {
  return std::string(FindText(kTextKeyProject));
}

std::vector<std::string> EnvironmentNames() {
  return SplitBarList(FindText(kTextEnvironments));
}

std::string NumberedKey(std::string_view name, std::size_t number) {
  return FormatText("%s %d", {name, number});
}

// A key that holds a number, the base in which it stands, and what is accepted.
struct NumberKey {
  const char* key;
  int base;
  std::uint32_t least, most;
  std::uint32_t (*get)(const GlobalSettings&);  // none: the program does not change the value
  void (*set)(GlobalSettings&, std::uint32_t);
  bool always = false;  // written even when settings are not to be saved
};

constexpr std::uint32_t kAny = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint32_t kMostUndoLevels = 1'000'000;

constexpr NumberKey kNumberKeys[] = {
    {"SaveSettings", 2, 0, kAny, [](const GlobalSettings& s) -> std::uint32_t { return s.saveSettings; },
     [](GlobalSettings& s, std::uint32_t n) { s.saveSettings = n == 1; }, true},
    {"SaveWindows", 2, 0, kAny, [](const GlobalSettings& s) -> std::uint32_t { return s.saveWindows; },
     [](GlobalSettings& s, std::uint32_t n) { s.saveWindows = n == 1; }},
    {"Flags", 2, 0, kAny, [](const GlobalSettings& s) { return s.flags; },
     [](GlobalSettings& s, std::uint32_t n) { s.flags = (n & kBlockIndent) ? n | kMaintainIndentation : n; }},
    {"Arrange", 10, 0, 3, [](const GlobalSettings& s) { return static_cast<std::uint32_t>(s.arrange); },
     [](GlobalSettings& s, std::uint32_t n) { s.arrange = static_cast<ArrangeMode>(n); }},
    {"TabSize", 10, 2, 8, [](const GlobalSettings& s) { return static_cast<std::uint32_t>(s.tabSize); },
     [](GlobalSettings& s, std::uint32_t n) { s.tabSize = static_cast<int>(n); }},
    {"ShiftWidth", 10, 1, 8, [](const GlobalSettings& s) { return static_cast<std::uint32_t>(s.shiftWidth); },
     [](GlobalSettings& s, std::uint32_t n) { s.shiftWidth = static_cast<int>(n); }},
    {"UndoLevels", 10, 1, kAny, nullptr,
     [](GlobalSettings& s, std::uint32_t n) {
       s.undoLevels = static_cast<int>(std::min(n, kMostUndoLevels));
     }},
    {"ExpandTabs", 10, 0, 1, nullptr, [](GlobalSettings& s, std::uint32_t n) { s.expandTabs = n == 1; }},
};

void ReadGlobalValues(const CProfileStore& store, GlobalSettings& settings) {
  for (const NumberKey& key : kNumberKeys)
    if (auto number = store.ReadNumber(kSettingsSection, key.key, key.base))
      if (*number >= key.least && *number <= key.most) key.set(settings, *number);
  std::string font;
  if (store.ReadString(kSettingsSection, "ScreenFont", font)) settings.screenFont = ParseScreenFont(font);
}

// Values that no file has are what they are for every instance of the program.
void BeginWithGlobalValues(CProfileStore& store, const GlobalSettings& settings) {
  std::string value;
  for (const NumberKey& key : kNumberKeys) {
    if (!key.get || store.ReadString(kSettingsSection, key.key, value)) continue;
    store.BeginWith(kSettingsSection, key.key, NumberText(key.get(settings), key.base));
  }
}

void WriteGlobalValues(CProfileStore& store, const GlobalSettings& settings) {
  for (const NumberKey& key : kNumberKeys)
    if (key.get && (settings.saveSettings || key.always))
      store.WriteNumber(kSettingsSection, key.key, key.get(settings), key.base);
}

// What the user wants of the colours; they are on unless he has switched them off.
std::optional<StyleChoices> ReadStyles(const CProfileStore& store) {
  std::string value;
  if (store.ReadString(kSettingsSection, "Colors", value) && value == "0") return {};
  StyleChoices choices{};
  for (std::size_t i = 1; i < kStyleCount; ++i)
    if (store.ReadString(kColoursSection, KeyOf(static_cast<Style>(i)), value)) choices[i] = ParseLook(value);
  return choices;
}

void ReadRecent(CProfileStore& store, int section, std::string_view name, RecentList& list) {
  list.Clear();
  std::string value;
  for (std::size_t i = 1; i <= RecentList::kCapacity; ++i) {
    if (!store.ReadString(section, NumberedKey(name, i), value)) break;
    list.Append(value);
  }
}

// Writes a list joined with the one that `file` has.
void WriteRecent(CProfileStore& store, const IniText& file, int section, std::string_view name,
                 const RecentList& list) {
  RecentList saved;
  for (std::size_t i = 1; i <= RecentList::kCapacity; ++i) {
    auto value = store.ValueIn(file, section, NumberedKey(name, i));
    if (!value) break;
    saved.Append(*std::move(value));
  }
  RecentList joined = list.JoinedWith(saved);
  std::size_t number = 0;
  for (const std::string& entry : joined.Names())
    store.WriteString(section, NumberedKey(name, ++number), entry);
}

void ReadProjectValues(const CProfileStore& store, ProjectState& project) {
  std::string value;
  if (store.ReadString(kProjectSection, FindText(kTextKeyDebugBuild), value))
    project.debugBuild = value == "1";
  if (!store.ReadString(kProjectSection, FindText(kTextKeyEnvironment), value)) return;
  project.environment = 0;
  std::vector<std::string> names = EnvironmentNames();
  for (std::size_t i = names.size(); i-- > 0;)
    if (EqualIgnoringCase(value, names[i])) project.environment = static_cast<int>(i);
}

// The file of the project comes over the global one; what it says of sessions and projects counts alone.
void OverlayProject(SettingsFiles& files, CProfileStore& store, const std::string& directory) {
  store.RemoveSection(kSessionSection);
  store.RemoveKey(kProjectSection, ProjectKey());
  IniText file = files.ReadProject();
  if (file.Value(store.SectionName(kProjectSection), ProjectKey())) {
    file.RemoveKey(store.SectionName(kProjectSection), ProjectKey());
    try {
      files.WriteProject(file);
    } catch (const CFileException&) {  // a project that cannot be written can be opened all the same
    }
  }
  store.Load(file);
  store.WriteString(kProjectSection, ProjectKey(), directory);
}

// Moves what the store holds to the project's file. Returns why that failed; the store goes on without it.
std::optional<CFileException> SaveProject(SettingsFiles& files, CProfileStore& store,
                                          const ProgramSettings& settings) {
  const ProjectState& project = settings.project;
  store.RemoveKey(kProjectSection, ProjectKey());
  store.WriteString(kProjectSection, FindText(kTextKeyDebugBuild), project.debugBuild ? "1" : "0");
  store.WriteString(kProjectSection, FindText(kTextKeyEnvironment),
                    EnvironmentNames()[static_cast<std::size_t>(project.environment)]);
  IniText file = files.ReadProject();
  WriteRecent(store, file, kSessionSection, "File", settings.recentFiles);
  file.RemoveKey(store.SectionName(kProjectSection), ProjectKey());
  file.RemoveSection(store.SectionName(kSessionSection));
  store.Save(file);
  std::optional<CFileException> failure;
  try {
    files.WriteProject(file);
  } catch (const CFileException& error) {
    failure = error;
  }
  store.Clear();
  store.WriteString(kProjectSection, ProjectKey(), project.directory);
  return failure;
}

}  // namespace

CProfileStore MakeSettingsStore(CProfileStore::AnsiDecoder decode) {
  std::vector<std::string> sections = SplitBarList(FindText(kTextSections));
  for (std::string& name : EnvironmentNames()) sections.push_back(std::move(name));
  sections.emplace_back("Colors");
  return CProfileStore(std::move(sections), std::move(decode));
}

void LoadSettings(SettingsFiles& files, CProfileStore& store, bool restoreProject,
                  ProgramSettings& settings) {
  store.Load(files.ReadGlobal());
  std::string& directory = settings.project.directory;
  if (restoreProject && directory.empty()) (void)store.ReadString(kProjectSection, ProjectKey(), directory);
  if (!directory.empty()) {
    if (files.EnterProject(directory))
      OverlayProject(files, store, directory);
    else
      directory.clear();
  }
  ReadGlobalValues(store, settings.global);
  settings.styles = ReadStyles(store);
  BeginWithGlobalValues(store, settings.global);
  ReadRecent(store, kSessionSection, "File", settings.recentFiles);
  ReadRecent(store, kProjectSection, "Project", settings.recentProjects);
  for (std::size_t i = 1; i <= RecentList::kCapacity; ++i)
    store.RemoveKey(kProjectSection, NumberedKey("Project", i));
  ReadProjectValues(store, settings.project);
}

void SaveSettings(SettingsFiles& files, CProfileStore& store, const ProgramSettings& settings,
                  std::string_view window) {
  if (settings.global.saveSettings) store.WriteString(kSettingsSection, "Window", window);
  WriteGlobalValues(store, settings.global);

  std::unique_ptr<SettingsFiles::Turn> turn = files.TakeTurn();
  IniText global = files.ReadGlobal();
  std::optional<CFileException> failure;
  if (!settings.project.directory.empty()) {
    failure = SaveProject(files, store, settings);
  } else {
    WriteRecent(store, global, kSessionSection, "File", settings.recentFiles);
    store.RemoveKey(kProjectSection, ProjectKey());
    global.RemoveKey(store.SectionName(kProjectSection), ProjectKey());
    global.RemoveSection(store.SectionName(kSessionSection));
  }
  WriteRecent(store, global, kProjectSection, "Project", settings.recentProjects);
  store.Save(global);
  files.WriteGlobal(global);
  store.Clear();
  if (failure) throw *failure;
}

FontChoice ParseScreenFont(std::string_view value) {
  FontChoice font = ParseFont(value);
  font.height = -std::max(font.height, -std::numeric_limits<int>::max());
  return font;
}

}  // namespace tarrow
