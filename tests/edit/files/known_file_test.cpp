#include "edit/files/known_file.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarrow {
namespace {

constexpr FileLook kLoaded{FileLook::Found::kFile, 10, 100}, kLonger{FileLook::Found::kFile, 11, 100},
    kLater{FileLook::Found::kFile, 10, 101}, kGone{FileLook::Found::kNothing}, kUnknown{};

// What happens to a window after its file was loaded, one after another, and what must come of it.
struct Event {
  enum { kFront, kSave, kKeep, kSaved } what;
  FileLook look;
  FileNews news = FileNews::kNone;  // of coming to the front
  bool asks = false;                // before a save
  bool modified = false;
};
struct KnownFileCase {
  const char* name;
  std::vector<Event> events;
};

constexpr auto kFront = Event::kFront;
constexpr auto kSave = Event::kSave;
constexpr auto kKeep = Event::kKeep;
constexpr auto kSaved = Event::kSaved;
constexpr auto kNone = FileNews::kNone;
constexpr auto kReload = FileNews::kReloadOrKeep;
constexpr auto kOverwrite = FileNews::kOverwriteOrReload;

const KnownFileCase kCases[] = {
    {"nothing has changed", {{kFront, kLoaded}, {kSave, kLoaded}}},
    {"the size tells", {{kFront, kLonger, kReload}}},
    {"the time tells", {{kFront, kLater, kReload}}},
    {"a modified text", {{kFront, kLater, kOverwrite, false, true}}},
    {"asked once", {{kFront, kLater, kReload}, {kFront, kLater}, {kFront, kLater, kNone, false, true}}},
    {"each change by itself", {{kFront, kLater, kReload}, {kFront, kLonger, kReload}, {kFront, kLonger}}},
    {"not decided: before the save",
     {{kFront, kLater, kOverwrite, false, true}, {kSave, kLater, kNone, true}}},
    {"decided: not before the save",
     {{kFront, kLater, kReload}, {kKeep, kLater}, {kSave, kLater}, {kSave, kLonger, kNone, true}}},
    {"never in front", {{kSave, kLater, kNone, true}}},
    {"changed back", {{kFront, kLater, kReload}, {kFront, kLoaded}, {kSave, kLoaded}}},
    {"a save of one's own",
     {{kSaved, kLater}, {kFront, kLater}, {kSave, kLater}, {kFront, kLoaded, kReload}}},
    {"deleted: told once, saved without a question",
     {{kFront, kGone, FileNews::kGone}, {kFront, kGone}, {kSave, kGone}}},
    {"deleted and back", {{kFront, kGone, FileNews::kGone}, {kFront, kLoaded}}},
    {"deleted and made anew", {{kFront, kGone, FileNews::kGone}, {kFront, kLater, kOverwrite, false, true}}},
    {"a disk that does not answer",
     {{kFront, kUnknown},
      {kSave, kUnknown},
      {kFront, kLoaded},
      {kFront, kLater, kReload},
      {kFront, kUnknown},
      {kFront, kLater}}},
    {"nobody could look when it was loaded", {{kSaved, kUnknown}, {kFront, kLater}, {kSave, kLater}}},
};

TEST(KnownFile, IsNewsOncePerChange) {
  for (const KnownFileCase& c : kCases) {
    KnownFile file;
    file.Take(kLoaded);
    int number = 0;
    for (const Event& event : c.events) {
      SCOPED_TRACE(testing::Message() << c.name << ", event " << ++number);
      if (event.what == kFront) {
        EXPECT_EQ(file.OnLook(event.look, event.modified), event.news);
      } else if (event.what == kSave) {
        EXPECT_EQ(file.MustAskBeforeSave(event.look), event.asks);
      } else if (event.what == kKeep) {
        file.Keep(event.look);
      } else {
        file.Take(event.look);
      }
    }
  }
}

TEST(KnownFile, OfAWindowWithoutAFileIsNoNews) {
  KnownFile file;
  EXPECT_EQ(file.OnLook(kLoaded, true), FileNews::kNone);
  EXPECT_FALSE(file.MustAskBeforeSave(kLoaded));
}

}  // namespace
}  // namespace tarrow
